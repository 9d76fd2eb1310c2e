#include "desktop/layouts/approval.h"

#include "desktop/layout.h"
#include "desktop/layouts/letter_fields.h"
#include "desktop/panel.h"
#include "desktop/tree_count.h"

namespace desk::desktop {

using namespace layout;

QWidget* layoutOfApproval(Frm意向书审批& screen) {
    auto* lines = letterLines(screen.信息, {{"对应管理项目", screen.对应管理项目}});
    auto* right = rows(
        {group("意向书信息", rows({lines, letterTexts(screen.信息)}, {0, 1})),
         group("您的审批意见", twoLines(plain(screen.您的审批意见, "您的审批意见"))),
         buttons({&screen.他人审批情况, &screen.保存审批意见, &screen.同意, &screen.不同意, &screen.退出})},
        {3, 1, 0});
    auto* area = columns({counted(screen.待审批, "意向书", Entries::belowTop), right}, {3, 7});
    auto* whole = rows({area, plain(screen.状态栏)}, {1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    panelOver(right, screen.他人面板,
              rows({plain(screen.他人意见.列表, "他人审批情况"), buttons({&screen.关闭})}, {1, 0}));
    return whole;
}

}  // namespace desk::desktop
