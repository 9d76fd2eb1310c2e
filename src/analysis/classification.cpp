#include "analysis/classification.h"

#include "analysis/excel_export.h"
#include "base/like.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "session/grid_rows.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr int 组别列 = 1;

void fillList(ListBox& list, Recordset rows, std::string_view column) {
    const Refill filling(list);
    for (auto& row : rows) list.addItem(row[column].text());
}

}  // namespace

Frm客户分类统计::Frm客户分类统计(Application& app)
    : Screen(screenName, "客户分类统计", WindowKind::child, 18000, 10200), app_(app) {
    List3.hint = "选择管理处后列出引驻组";
    List4.hint = "选择管理处后列出中介公司";
    List4.setMovingKeys(MovingKeys::move);
    MSFlexGrid1.hint = "选取企业性质、行业和引驻组，然后统计";
    MSFlexGrid1.setSelection(GridSelection::row);
    Combo1.selected += [this] { showOffice(); };
    Check1.clicked += [this] { List1.setAllSelected(Check1.checked()); };
    Check2.clicked += [this] { List2.setAllSelected(Check2.checked()); };
    Check3.clicked += [this] { List3.setAllSelected(Check3.checked()); };
    Text1.changed += [this] { search(); };
    List4.clicked += [this](int line) {
        // The text of the line goes with the lines, which are sought anew.
        const std::string name = List4.items()[static_cast<std::size_t>(line)].text;
        Text1.setText(name);
    };
    Command1.clicked += [this] { analyse(); };
    Command13.clicked += [this] { 输出表格(app_, MSFlexGrid1, "客户分类统计"); };
    Command4.clicked += [this] { app_.screens.unload(*this); };
}

void Frm客户分类统计::load() {
    填充管理处(app_, Combo1);
    fillList(List1, Recordset(app_.主连接, "Select * From YZ_企业性质设置 "), "企业性质名称");
    fillList(List2, Recordset(app_.主连接, "Select * From YZ_行业设置 "), "行业名称");
}

void Frm客户分类统计::showOffice() {
    readTeams();
    readAgencies();
}

/// The teams of all offices: one that works for several stands there once for each.
void Frm客户分类统计::readTeams() {
    // The tick said something about the teams that were there.
    Check3.setChecked(false);
    const Refill filling(List3);
    for (auto& row :
         Recordset(app_.主连接,
                   "SELECT  YZ_组表.组代号,YZ_组表.组名称, 管理处代号, 设置日期, 终止日期 FROM "
                   "YZ_组对应管理项目设置 Inner Join YZ_组表 ON  YZ_组对应管理项目设置.组代号=YZ_组表.组代号 "
                   "Where 终止日期 is Null "))
        List3.addItem(row["组代号"].text() + " " + row["组名称"].text());
    List3.hint = "没有在用的引驻组";
}

void Frm客户分类统计::readAgencies() {
    中介公司_.clear();
    for (auto& row :
         Recordset(app_.主连接, sql("Select * From YZ_中介公司设置 Where 管理处代号='{}'", Combo1.code())))
        中介公司_.push_back(row["公司名称"].text());
    List4.hint = "没有这样的中介公司";
    const Refill filling(List4);
    for (const auto& name : 中介公司_) List4.addItem(name);
}

void Frm客户分类统计::search() {
    const LikePattern wanted("*" + Text1.text() + "*");
    const Refill filling(List4);
    for (const auto& name : 中介公司_)
        if (wanted.fits(name)) List4.addItem(name);
}

std::vector<std::string> Frm客户分类统计::markedTeams() const {
    std::vector<std::string> codes;
    for (const auto& entry : List3.selectedTexts()) codes.emplace_back(codeBeforeBlank(entry));
    return codes;
}

std::string Frm客户分类统计::统计语句() const {
    const Fragment agency =
        Text1.text().empty() ? fragment("") : fragment(" AND A.中介公司名称='{}'", Text1.text());
    // The office does not restrict the customers: it only lists the agencies.
    return sql(
        "Select A.公司名称,A.企业性质,A.客户姓名,A.客户电话,A.从事行业,A.中介公司名称,A.备注,C.组名称 From "
        "YZ_引驻客户信息 A Left Join YZ_引驻客户分配 B ON A.登记编号=B.登记编号 Inner Join YZ_组表 C ON "
        "B.组代号=C.组代号 Where A.企业性质 IN ({}) AND A.从事行业 IN ({}) AND C.组代号 IN ({}){}",
        literals(List1.selectedTexts()), literals(List2.selectedTexts()), literals(markedTeams()), agency);
}

/// What is not marked is not asked for, without a word: the focus goes there.
void Frm客户分类统计::analyse() {
    for (ListBox* list : {&List1, &List2, &List3})
        if (list->index() < 0) return list->focus();
    const Hourglass busy(app_.desktop);
    showResult();
}

void Frm客户分类统计::showResult() {
    Recordset customers(app_.主连接, 统计语句());
    const Batch showing(MSFlexGrid1);
    MSFlexGrid1.setFormat(resultFormat);
    fillGrid(MSFlexGrid1, customers,
             {"组名称", "公司名称", "企业性质", "客户姓名", "客户电话", "", "中介公司名称", "备注"});
    MSFlexGrid1.hint = "没有符合条件的客户";
    MSFlexGrid1.setMerging(Merge::restrictColumns);
    MSFlexGrid1.setMergesColumn(组别列, true);
    列宽自适应(app_, MSFlexGrid1, *this);
}

}  // namespace desk
