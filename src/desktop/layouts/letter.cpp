#include "desktop/layouts/letter.h"

#include "desktop/floating.h"
#include "desktop/layout.h"
#include "desktop/layouts/letter_fields.h"
#include "desktop/panel.h"
#include "desktop/tree_count.h"
#include "session/document_number.h"

namespace desk::desktop {

namespace {

using namespace layout;

/// In the order in which a letter is read.
QWidget* letterFields(Frm意向书信息& screen) {
    意向书信息块& letter = screen.信息;
    auto* number =
        columns({wideEnoughFor(自动编号提示, plain(letter.登记编号)), plain(screen.Check5)}, {1, 0});
    auto* tenant = columns({plain(letter["承租方"]), plain(screen.选择承租方)}, {1, 0});
    auto* lease = fromTo(letter["租赁起始日期"], letter["租赁结束日期"]);
    auto* rent = withUnit(letter["租金单价"], "元/天/平方米");
    auto* fee = withUnit(letter["物业管理费单价"], "元/平方米/月");
    auto* deposits =
        columns({plain(letter["租金意向金"]), fields({{"意向金", letter["意向金合计"]}})}, {1, 1});
    auto* works = fromTo(letter["装修起始日期"], letter["装修结束日期"]);
    return rows({fields({{"登记编号", number},
                         {"承租方", tenant},
                         {"租赁单元", letter["租赁单元"]},
                         {"租赁面积", letter["租赁面积"]},
                         {"租赁期限", lease},
                         {"", new QWidget},
                         {"租金单价", rent},
                         {"月租金", letter["月租金"]},
                         {"物管费单价", fee},
                         {"月物管费", letter["月物业管理费"]},
                         {"付款方式", letter["付款方式"]},
                         {"递延方式", letter["递延方式"]},
                         {"物管费意向金", letter["物业管理费意向金"]},
                         {"租金意向金", deposits},
                         {"装修期限", works},
                         {"免租期限", letter["免租期"]},
                         {"承租方背景", letter["承租方背景"]},
                         {"申请说明", letter["申请说明"]}},
                        2)});
}

void addPanels(QWidget* content, Frm意向书信息& screen) {
    客户选择& customer = screen.客户;
    auto* customers = rows({fields({{"跟进状态", customer.跟进状态}, {"", new QWidget}}, 2),
                            plain(customer.列表, "客户"), buttons({&customer.确定, &customer.关闭})},
                           {0, 1, 0});
    panelOver(content, customer.面板, atLeast(customers, 11700, 4800));

    租赁单元选择& unit = screen.单元;
    panelOver(
        content, unit.面板,
        rows({plain(unit.列表, "租赁单元"), buttons({&unit.单元选择, &unit.删除单元, &unit.关闭})}, {1, 0}));

    panelOver(content, screen.审批面板,
              rows({plain(screen.审批意见.列表, "审批情况"), buttons({&screen.审批关闭})}, {1, 0}));
    panelOver(content, screen.日历.面板, plain(screen.日历.日历, "日历"));
}

}  // namespace

QWidget* layoutOfLetter(Frm意向书信息& screen) {
    auto* left =
        rows({fields({{"管理项目", screen.管理项目}}), counted(screen.意向书, "意向书", Entries::belowTop)},
             {0, 1});
    auto* right = rows({letterFields(screen),
                        buttons({&screen.新增, &screen.确定, &screen.提交, &screen.删除, &screen.退出})},
                       {1, 0});
    auto* whole = columns({left, right}, {3, 7});
    whole->setContentsMargins(6, 6, 6, 6);
    floatOver(whole, screen.选择单元, plain(screen.选择单元), FloatsAt::rightEdge);
    floatOver(whole, screen.日期按钮, plain(screen.日期按钮), FloatsAt::rightEdge);
    addPanels(whole, screen);
    return whole;
}

}  // namespace desk::desktop
