#include "desktop/layouts/intent.h"

#include "desktop/binding.h"
#include "desktop/layout.h"
#include "desktop/panel.h"

namespace desk::desktop {

using namespace layout;

QWidget* layoutOfApprovalPath(Frm意向书审批路径设置& screen) {
    auto* path = rows({fields({{"路径代号", screen.路径代号},
                               {"路径名称", screen.路径名称},
                               {"管理项目", screen.管理项目},
                               {"备    注", screen.备注}},
                              2),
                       plain(screen.单级流转), buttons({&screen.新增, &screen.确定, &screen.删除})});
    审批环节& step = screen.环节;
    auto* department = columns({plain(step.部门), plain(step.选择部门)}, {1, 0});
    auto* order = rows({plain(step.上移), plain(step.下移), new QWidget}, {0, 0, 1});
    auto* list = columns({plain(step.列表, "审批环节"), order}, {1, 0});
    auto* steps = framed(
        step.框,
        rows({list, fields({{"环节序号", step.环节序号}, {"部门", department}, {"岗位", step.岗位}}, 3),
              buttons({&step.新增, &step.确定, &step.删除})},
             {1, 0, 0}));
    auto* whole = rows({plain(screen.路径列表, "审批路径"), path, steps, plain(screen.状态栏)}, {2, 0, 3, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    panelOver(whole, step.部门面板, atLeast(plain(step.部门树, "部门"), 4800, 3600));
    return whole;
}

}  // namespace desk::desktop
