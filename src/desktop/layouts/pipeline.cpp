#include "desktop/layouts/pipeline.h"

#include "desktop/binding.h"
#include "desktop/floating.h"
#include "desktop/layout.h"
#include "desktop/panel.h"
#include "desktop/tree_count.h"

namespace desk::desktop {

namespace {

using namespace layout;

std::vector<Field> blockFields(客户信息块& block) {
    std::vector<Field> entries;
    std::size_t at = 0;
    for (TextBox& box : const_cast<std::deque<TextBox>&>(block.boxes()))
        entries.emplace_back(block.caption(at++), box);
    return entries;
}

void addCalendar(QWidget* content, FloatingCalendar& calendar) {
    panelOver(content, calendar.面板, plain(calendar.日历, "日历"));
}

QWidget* customers(ComboBox& office, Tree& tree) {
    return rows({fields({{"管理项目", office}}), counted(tree, "客户", Entries::top)}, {0, 1});
}

}  // namespace

QWidget* layoutOfAssignment(Frm客户跟进信息分配& screen) {
    auto* task = group("任务分配", fields({{"选择组", screen.选择组},
                                           {"选择人员", screen.选择人员},
                                           {"是否分配", screen.是否分配},
                                           {"分配日期", screen.分配日期},
                                           {"终止日期", screen.终止日期}},
                                          3));
    auto* right = rows({group("客户信息", fields(blockFields(screen.客户信息), 2)), task,
                        buttons({&screen.确定, &screen.终止, &screen.退出}), new QWidget},
                       {0, 0, 0, 1});
    auto* whole = columns({customers(screen.管理项目, screen.客户), right}, {3, 7});
    whole->setContentsMargins(6, 6, 6, 6);
    floatOver(whole, screen.日历按钮, plain(screen.日历按钮), FloatsAt::rightEdge);
    addCalendar(whole, screen.日历);
    return whole;
}

QWidget* layoutOfFollowUp(Frm客户跟进记录& screen) {
    std::vector<Field> block;
    block.emplace_back("业务员", screen.业务员);
    for (Field& field : blockFields(screen.客户信息)) block.push_back(std::move(field));
    block.emplace_back("中介人员", screen.中介人员);
    block.emplace_back("联系电话", screen.中介联系电话);
    block.emplace_back("传    真", screen.中介传真);

    auto* state = columns({plain(screen.跟进状态), plain(screen.颜色)}, {1, 0});
    auto* entry = framed(
        screen.记录页,
        rows({fields({{"跟进日期", screen.跟进日期}, {"跟进人员", screen.跟进人员}, {"跟进状态", state}}, 3),
              fields({{"跟进情况", screen.跟进情况}}),
              fields({{"预约日期", screen.预约日期}, {"", new QWidget}}, 2),
              buttons({&screen.新增, &screen.确定, &screen.删除, &screen.退出})},
             {0, 1, 0, 0}));
    auto* diary = framed(screen.情况页, plain(screen.跟进列表, "跟进情况"));
    auto* right = rows({group("客户信息", fields(std::move(block), 3)), plain(screen.页签), entry, diary},
                       {0, 0, 1, 1});
    auto* whole = columns({customers(screen.管理项目, screen.客户), right}, {3, 7});
    whole->setContentsMargins(6, 6, 6, 6);
    floatOver(whole, screen.跟进日期按钮, plain(screen.跟进日期按钮), FloatsAt::rightEdge);
    floatOver(whole, screen.预约日期按钮, plain(screen.预约日期按钮), FloatsAt::rightEdge);
    addCalendar(whole, screen.日历);
    return whole;
}

}  // namespace desk::desktop
