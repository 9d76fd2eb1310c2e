#include "desktop/layouts/approval.h"

#include "desktop/layout.h"
#include "desktop/panel.h"
#include "desktop/tree_count.h"

namespace desk::desktop {

namespace {

using namespace layout;

QWidget* withUnit(Control& field, std::string_view unit) {
    return columns({plain(field), caption(unit)}, {1, 0});
}

QWidget* fromTo(Control& from, Control& to) {
    return columns({plain(from), caption("至"), plain(to)}, {1, 0, 1});
}

QWidget* letterFields(Frm意向书审批& screen) {
    意向书信息块& letter = screen.信息;
    auto* lease = fromTo(letter["租赁起始日期"], letter["租赁结束日期"]);
    auto* rent = withUnit(letter["租金单价"], "元/天/平方米");
    auto* fee = withUnit(letter["物业管理费单价"], "元/平方米/月");
    auto* works = fromTo(letter["装修起始日期"], letter["装修结束日期"]);
    auto* lines = fields({{"登记编号", letter.登记编号},
                          {"对应管理项目", screen.对应管理项目},
                          {"承租方", letter["承租方"]},
                          {"租赁单元", letter["租赁单元"]},
                          {"租赁面积", letter["租赁面积"]},
                          {"租赁期限", lease},
                          {"租金单价", rent},
                          {"月租金", letter["月租金"]},
                          {"物管费单价", fee},
                          {"月物管费", letter["月物业管理费"]},
                          {"付款方式", letter["付款方式"]},
                          {"递延方式", letter["递延方式"]},
                          {"物管费意向金", letter["物业管理费意向金"]},
                          {"租金意向金", letter["租金意向金"]},
                          {"意向金", letter["意向金合计"]},
                          {"免租期限", letter["免租期"]},
                          {"装修期限", works}},
                         3);
    auto* texts = fields({{"承租方背景", letter["承租方背景"]}, {"申请说明", letter["申请说明"]}}, 2);
    return rows({lines, texts}, {0, 1});
}

}  // namespace

QWidget* layoutOfApproval(Frm意向书审批& screen) {
    auto* right = rows(
        {group("意向书信息", letterFields(screen)),
         group("您的审批意见", plain(screen.您的审批意见, "您的审批意见")),
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
