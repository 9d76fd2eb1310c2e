#include "desktop/layouts/registration.h"

#include "desktop/layout.h"
#include "desktop/panel.h"
#include "desktop/tree_count.h"
#include "session/document_number.h"

namespace desk::desktop {

namespace {

using namespace layout;

/// A combo or list, and on the same line the text for what it lacks.
QWidget* withOther(Control& choice, 其它说明& other) {
    return columns({plain(choice), plain(other.勾选), plain(other.文本)}, {3, 0, 2});
}

QWidget* listWithOther(多选项目& part) {
    return columns(
        {plain(part.列表), rows({plain(part.其它.勾选), plain(part.其它.文本), new QWidget}, {0, 0, 1})},
        {3, 2});
}

QWidget* numberField(登记页& page) {
    return columns({wideEnoughFor(自动编号提示, plain(page.登记编号)), plain(page.采用自动编号)}, {1, 0});
}

QWidget* agencyField(中介公司选择& agency) {
    return columns({plain(agency.中介公司名称), plain(agency.选择中介公司)}, {1, 0});
}

QWidget* contactFields(登记页& page) {
    std::vector<Field> entries;
    entries.emplace_back("登记编号", numberField(page));
    // The names of agencies are long, and stand beside a button.
    if (page.中介) entries.emplace_back("中介公司名称", agencyField(*page.中介)).places = 2;
    entries.emplace_back("登记日期", page.登记日期);
    entries.emplace_back("公司名称", page.公司名称);
    entries.emplace_back(page.中介 ? "中介客户姓名" : "客户姓名", page.客户姓名);
    if (page.职位) entries.emplace_back("职    位", *page.职位);
    entries.emplace_back(page.中介 ? "联系电话" : "客户电话", page.客户电话);
    if (page.传真) entries.emplace_back("传    真", *page.传真);
    entries.emplace_back("公司地址", page.公司地址);
    if (page.企业性质) entries.emplace_back("企业性质", *page.企业性质);
    entries.emplace_back("从事行业", page.从事行业);
    entries.emplace_back("需求面积", page.需求面积);
    if (page.预算租金) entries.emplace_back("预算租金", *page.预算租金);
    if (page.推荐楼层) entries.emplace_back("推荐楼层", *page.推荐楼层);
    entries.emplace_back("业务员", page.业务员);
    return fields(std::move(entries), 3);
}

QWidget* choiceFields(登记页& page) {
    std::vector<Field> entries;
    entries.emplace_back("区    域", withOther(page.区域, page.区域其它));
    if (page.媒体) entries.emplace_back("媒    体", listWithOther(*page.媒体));
    entries.emplace_back("询问重点", listWithOther(page.询问重点));
    return fields(std::move(entries));
}

QWidget* textFields(登记页& page) {
    if (!page.洽谈重点) return fields({{"备    注", twoLines(plain(page.备注))}});
    return fields({{"洽谈重点", twoLines(plain(*page.洽谈重点))}, {"备    注", twoLines(plain(page.备注))}},
                  2);
}

/// The list of agencies, over the page below the field that it fills.
void addAgencyPanel(QWidget* content, 中介公司选择& agency) {
    auto* list =
        rows({plain(agency.列表, "中介公司"), buttons({&agency.面板确定, &agency.面板关闭})}, {1, 0});
    panelOver(content, agency.面板, atLeast(list, 5700, 3900));
}

QWidget* pageLayout(登记页& page) {
    auto* left =
        rows({fields({{"管理项目", page.管理项目}}), counted(page.客户, "客户", Entries::belowTop)}, {0, 1});
    auto* right = rows({contactFields(page), choiceFields(page), textFields(page),
                        buttons({&page.新增, &page.确定, &page.删除, &page.退出})},
                       {0, 5, 2, 0});
    auto* whole = columns({left, right}, {3, 7});
    whole->setContentsMargins(4, 4, 4, 4);
    if (page.中介) addAgencyPanel(whole, *page.中介);
    return whole;
}

}  // namespace

QWidget* layoutOfRegistration(Frm引驻客户信息登记& screen) {
    std::vector<QWidget*> each;
    for (登记页* page : screen.pages()) each.push_back(pageLayout(*page));
    auto* whole = rows({pages(screen.页签, std::move(each)), plain(screen.状态栏)}, {1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    return whole;
}

}  // namespace desk::desktop
