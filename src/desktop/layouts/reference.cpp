#include "desktop/layouts/reference.h"

#include "desktop/layout.h"

namespace desk::desktop {

namespace {

using namespace layout;

/// The list, the fields of its current row, the buttons.
QWidget* entryPage(Frame& frame, QWidget* list, QWidget* entry, std::initializer_list<Control*> actions) {
    auto* page = framed(frame, rows({list, entry, buttons(actions)}, {1, 0, 0}));
    page->setContentsMargins(2, 6, 2, 2);
    return page;
}

QWidget* dictionaryPage(DictionaryTab& tab) {
    return entryPage(tab.框, plain(tab.列表, tab.kind.title),
                     fields({{tab.kind.nameColumn, tab.名称}, {"说明", tab.说明}}),
                     {&tab.确定, &tab.删除, &tab.退出});
}

QWidget* statePage(StateTab& tab) {
    auto* colour = row({&tab.颜色, &tab.选择颜色});
    auto* entry = rows({fields({{"状态编号", tab.状态编号}, {"状态名称", tab.状态名称}}, 2),
                        fields({{"说    明", tab.说明}, {"颜色", colour}})});
    return entryPage(tab.框, plain(tab.列表, "跟进状态"), entry, {&tab.确定, &tab.删除, &tab.退出});
}

QWidget* codedFields(CodedTab& tab) {
    return rows({fields({{tab.kind.codeColumn, tab.代号}, {tab.kind.nameColumn, tab.名称}}, 2),
                 fields({{tab.kind.noteColumn, tab.说明}})});
}

QWidget* teamPage(CodedTab& teams, TeamOffices& offices) {
    auto* list = columns({plain(teams.列表, teams.kind.title),
                          group("对应管理项目", plain(offices.TreeView3, "对应管理项目"))},
                         {3, 2});
    return entryPage(teams.框, list, codedFields(teams), {&teams.确定, &teams.删除, &teams.退出});
}

QWidget* memberPage(MemberTab& tab) {
    auto* person = columns({plain(tab.Text7), plain(tab.选择员工)}, {1, 0});
    auto* entry = rows({fields({{"员工姓名", person},
                                {"对应主职", tab.Combo1},
                                {"设置日期", tab.DTPicker1},
                                {"备    注", tab.Text8}},
                               2)});
    auto* middle = rows({plain(tab.MSFlexGrid3, "组人员"), entry}, {1, 0});
    auto* page =
        framed(tab.Frame3,
               rows({columns({plain(tab.TreeView1, "组"), middle, plain(tab.TreeView2, "员工")}, {2, 5, 3}),
                     buttons({&tab.确定, &tab.删除, &tab.退出})},
                    {1, 0}));
    page->setContentsMargins(2, 6, 2, 2);
    return page;
}

/// The tabs' pages, of which one is shown, between the strip and the status bar.
QWidget* setupScreen(TabStrip& strip, StatusBar& status, std::initializer_list<QWidget*> pages) {
    std::vector<QWidget*> parts{plain(strip)};
    std::vector<int> shares{0};
    for (QWidget* page : pages) {
        parts.push_back(page);
        shares.push_back(1);
    }
    parts.push_back(plain(status));
    shares.push_back(0);
    auto* whole = rows(std::move(parts), std::move(shares));
    whole->setContentsMargins(6, 6, 6, 4);
    return whole;
}

}  // namespace

QWidget* layoutOfPersonnel(Frm人员设置& screen) {
    CodedTab& duties = screen.主职;
    return setupScreen(screen.页签, screen.状态栏,
                       {entryPage(duties.框, plain(duties.列表, duties.kind.title), codedFields(duties),
                                  {&duties.确定, &duties.删除, &duties.退出}),
                        teamPage(screen.组, screen.组管理处), memberPage(screen.人员)});
}

QWidget* layoutOfAgencies(Frm中介公司设置& screen) {
    const auto field = [&](std::size_t i) {
        return Field(Frm中介公司设置::fields[i].caption, screen.boxes[i]);
    };
    const std::size_t last = screen.boxes.size() - 1;
    std::vector<Field> entry;
    for (std::size_t i = 0; i < last; ++i) entry.push_back(field(i));
    auto* right = rows({plain(screen.列表, "中介公司"), fields(std::move(entry), 2), fields({field(last)}),
                        buttons({&screen.确定, &screen.删除, &screen.退出})},
                       {1, 0, 0, 0});
    auto* whole =
        rows({columns({plain(screen.管理项目, "管理项目"), right}, {2, 7}), plain(screen.状态栏)}, {1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    return whole;
}

QWidget* layoutOfCustomerDictionaries(Frm客户相关信息设置& screen) {
    return setupScreen(
        screen.页签, screen.状态栏,
        {dictionaryPage(screen.区域), dictionaryPage(screen.企业性质), dictionaryPage(screen.行业)});
}

QWidget* layoutOfLeadSettings(Frm引驻设置& screen) {
    return setupScreen(
        screen.页签, screen.状态栏,
        {dictionaryPage(screen.咨询内容), dictionaryPage(screen.媒体), statePage(screen.跟进状态)});
}

}  // namespace desk::desktop
