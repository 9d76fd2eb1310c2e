#include "analysis/classification.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "analysis/excel_export.h"
#include "base/failure.h"
#include "base/text.h"
#include "db/statement.h"
#include "support/test_program.h"
#include "xls/fixture.h"

namespace desk {
namespace {

using Lines = std::vector<std::string>;

/// Two teams, of which one works for both offices and one for none any more, and leads of several kinds.
struct ClassifyingProgram : TestProgram {
    ClassifyingProgram() {
        openDatabase();
        addOfficesAndDictionaries(*this);
        run({
            "Insert Into YZ_组表 (组代号,组名称) Values ('1','一组')",
            "Insert Into YZ_组表 (组代号,组名称) Values ('2','二组 西区')",
            "Insert Into YZ_组表 (组代号,组名称) Values ('3','三组')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('1','01','2010-1-1')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('1','02','2010-1-1')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('2','02','2010-1-1')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期,终止日期) Values "
            "('3','01','2010-1-1','2011-1-1')",
        });
        enter();
        app.screens.offer<Frm客户分类统计>(app);
        app.screens.offer<FrmToExcel>(app);
    }

    /// A lead of office 01 with that company, kind and trade, assigned to these teams.
    void addLead(const std::string& company, const std::string& kind, const std::string& trade,
                 std::initializer_list<const char*> teams, const std::string& agency = "") {
        const int no = ++leads;
        db().execute(
            sql("Insert Into YZ_引驻客户信息 "
                "(登记编号,管理处代号,公司名称,企业性质,从事行业,中介公司名称,客户姓名,客户电话,备注) "
                "Values ('{}','01','{}','{}','{}','{}','{}先生','6{}','注{}')",
                no, company, kind, trade, agency, company, no, no));
        for (const char* team : teams)
            db().execute(
                sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号) Values ('{}','01','{}')", no,
                    team));
    }
    Frm客户分类统计& screen() { return app.screens.get<Frm客户分类统计>(); }

    int leads = 0;
};

class Classification : public testing::Test {
  protected:
    Classification() : form(program.screen()) {}

    void chooseOffice() { form.Combo1.pick("01 东塔"); }
    void markEverything() {
        for (CheckBox* all : {&form.Check1, &form.Check2, &form.Check3})
            if (!all->checked()) all->click();
    }
    /// In the order of their bytes; their own is the server's business.
    static Lines linesOf(const ListBox& list) {
        Lines texts;
        for (const Item& item : list.items()) texts.push_back(item.text);
        std::sort(texts.begin(), texts.end());
        return texts;
    }
    /// The rows of the table behind their running numbers; in which order they come is the server's business.
    Lines result() const {
        Lines lines;
        for (int row = 1; row < form.MSFlexGrid1.rows(); ++row) {
            EXPECT_EQ(form.MSFlexGrid1.text(row, 0), std::to_string(row));
            Lines cells;
            for (int column = 1; column < form.MSFlexGrid1.columns(); ++column)
                cells.push_back(form.MSFlexGrid1.text(row, column));
            lines.push_back(join(cells, "|"));
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    Lines companies() const {
        Lines names;
        for (const auto& line : result()) names.push_back(split(line, '|')[1]);
        std::sort(names.begin(), names.end());
        return names;
    }

    ClassifyingProgram program;
    Frm客户分类统计& form;
};

TEST_F(Classification, AnOfficeListsAllTeamsInUseAndItsOwnAgencies) {
    EXPECT_EQ(form.Combo1.count(), 2);
    EXPECT_EQ(linesOf(form.List1), (Lines{"外资", "民营"}));
    EXPECT_EQ(linesOf(form.List2), (Lines{"贸易", "软件"}));
    EXPECT_TRUE(linesOf(form.List3).empty());
    chooseOffice();
    EXPECT_EQ(linesOf(form.List3), (Lines{"1 一组", "1 一组", "2 二组 西区"}));
    EXPECT_EQ(linesOf(form.List4), (Lines{"佳信", "安居"}));
    form.Check3.click();
    form.Combo1.pick("02 西塔");
    EXPECT_EQ(linesOf(form.List3).size(), 3U);
    EXPECT_EQ(linesOf(form.List4), (Lines{"远东"}));
    // Nothing is marked, and the box above does not say so.
    EXPECT_EQ(form.List3.index(), -1);
    EXPECT_FALSE(form.Check3.checked());
}

TEST_F(Classification, AllMarksAndUnmarksTheLinesOfItsOwnList) {
    chooseOffice();
    const std::pair<CheckBox*, ListBox*> pairs[] = {
        {&form.Check1, &form.List1}, {&form.Check2, &form.List2}, {&form.Check3, &form.List3}};
    for (const auto& [box, list] : pairs) {
        box->click();
        EXPECT_EQ(list->selectedTexts().size(), linesOf(*list).size());
        for (const auto& [other, otherList] : pairs)
            EXPECT_EQ(otherList->index() >= 0, otherList == list) << other->name();
        box->click();
        EXPECT_EQ(list->index(), -1);
    }
}

TEST_F(Classification, TheSearchBoxNarrowsTheAgenciesByAPatternInWhichCaseCounts) {
    program.run({"Insert Into YZ_中介公司设置 (管理处代号,公司名称) Values ('01','Best行2')",
                 "Insert Into YZ_中介公司设置 (管理处代号,公司名称) Values ('01','佳居')"});
    chooseOffice();
    const auto found = [&](const char* typed) {
        form.Text1.type(typed);
        return join(linesOf(form.List4), " ");
    };
    EXPECT_EQ(found("居"), "佳居 安居");
    EXPECT_EQ(found("佳?"), "佳信 佳居");
    EXPECT_EQ(found("best"), "");
    EXPECT_EQ(found("B*#"), "Best行2");
    EXPECT_EQ(found("[!佳]居"), "安居");
    // On the way to a closed bracket nothing breaks.
    EXPECT_EQ(found("[佳"), "");
    EXPECT_EQ(found(""), "Best行2 佳信 佳居 安居");
    form.Text1.type("居");
    form.List4.click(form.List4.find("佳居"));
    EXPECT_EQ(form.Text1.text(), "佳居");
    EXPECT_EQ(linesOf(form.List4), Lines{"佳居"});
    // A new office lists all of its agencies, whatever is in the box.
    form.Combo1.pick("02 西塔");
    EXPECT_EQ(linesOf(form.List4), Lines{"远东"});
    EXPECT_EQ(form.Text1.text(), "佳居");
    form.Text1.type("佳");
    EXPECT_TRUE(linesOf(form.List4).empty());
}

TEST_F(Classification, EachAssignmentIsARowUnderItsTeam) {
    program.addLead("甲", "外资", "软件", {"1", "2"}, "佳信");
    program.addLead("乙", "民营", "贸易", {"2"});
    program.addLead("丙", "外资", "软件", {});
    program.run({"Update YZ_引驻客户信息 Set 备注=Null,客户电话=Null Where 公司名称='乙'"});
    chooseOffice();
    markEverything();
    form.Command1.click();
    EXPECT_EQ(result(), (Lines{"一组|甲|外资|甲先生|61||佳信|注1", "二组 西区|乙|民营|乙先生||||",
                               "二组 西区|甲|外资|甲先生|61||佳信|注1"}));
    EXPECT_EQ(program.desktop.busyDepth, 0);
    EXPECT_TRUE(program.desktop.messages.empty());
}

TEST_F(Classification, KindTradeTeamAndAgencyEachNarrowIt) {
    program.addLead("甲", "外资", "软件", {"1"}, "佳信");
    program.addLead("乙", "民营", "软件", {"1"}, "佳信");
    program.addLead("丙", "外资", "贸易", {"1"}, "佳信");
    program.addLead("丁", "外资", "软件", {"2"}, "佳信");
    program.addLead("戊", "外资", "软件", {"1"}, "安居");
    chooseOffice();
    form.List1.click(form.List1.find("外资"));
    form.List2.click(form.List2.find("软件"));
    form.List3.click(form.List3.find("1 一组"));
    form.Text1.type("佳信");
    form.Command1.click();
    EXPECT_EQ(companies(), Lines{"甲"});
    form.List1.click(form.List1.find("民营"));
    form.Command1.click();
    EXPECT_EQ(companies(), (Lines{"乙", "甲"}));
    form.List1.click(form.List1.find("民营"));
    form.List2.click(form.List2.find("贸易"));
    form.Command1.click();
    EXPECT_EQ(companies(), (Lines{"丙", "甲"}));
    form.List2.click(form.List2.find("贸易"));
    form.List3.click(form.List3.find("2 二组 西区"));
    form.Command1.click();
    EXPECT_EQ(companies(), (Lines{"丁", "甲"}));
    form.List3.click(form.List3.find("2 二组 西区"));
    form.Text1.type("");
    form.Command1.click();
    EXPECT_EQ(companies(), (Lines{"戊", "甲"}));
    // The whole name counts, and no pattern.
    for (const char* agency : {"佳", "*", "没有这家"}) {
        form.Text1.type(agency);
        form.Command1.click();
        EXPECT_TRUE(companies().empty()) << agency;
    }
}

TEST_F(Classification, WithAListUnmarkedNothingHappensButThatTheFocusGoesThere) {
    program.addLead("甲", "外资", "软件", {"1"});
    chooseOffice();
    markEverything();
    form.Command1.click();
    ASSERT_EQ(companies(), Lines{"甲"});
    program.fault.statements.clear();
    const std::pair<CheckBox*, ListBox*> pairs[] = {
        {&form.Check3, &form.List3}, {&form.Check2, &form.List2}, {&form.Check1, &form.List1}};
    for (const auto& [box, list] : pairs) {
        box->click();
        int asked = 0;
        const Subscription watch = list->focusAsked.connect([&] { ++asked; });
        form.Command1.click();
        EXPECT_EQ(asked, 1) << list->name();
    }
    EXPECT_EQ(companies(), Lines{"甲"});
    EXPECT_TRUE(program.fault.statements.empty());
    EXPECT_TRUE(program.desktop.messages.empty());
}

TEST_F(Classification, TheTableIsMadeAnewMergedAndFitted) {
    program.addLead("一家名字很长很长的客户公司", "外资", "软件", {"1"});
    program.addLead("乙", "外资", "软件", {"2"});
    const Grid& grid = form.MSFlexGrid1;
    EXPECT_EQ(grid.text(0, 6), "完成情况");
    EXPECT_EQ(grid.columnWidth(2), 8 * 105 + 10 * 105 + 90);
    chooseOffice();
    markEverything();
    form.Command1.click();
    EXPECT_EQ(grid.merging(), Merge::restrictColumns);
    EXPECT_EQ(static_cast<int>(grid.merging()), 3);
    for (int column = 0; column < grid.columns(); ++column) {
        EXPECT_EQ(grid.mergesColumn(column), column == 1) << column;
        EXPECT_EQ(grid.alignment(column), Align::left) << column;
    }
    EXPECT_EQ(grid.columnWidth(2), 13 * 150 + 90);
    EXPECT_EQ(grid.columnWidth(6), 4 * 150 + 90);
    form.List3.clearSelection();
    form.List3.click(form.List3.find("2 二组 西区"));
    form.Command1.click();
    EXPECT_EQ(companies(), Lines{"乙"});
    // The header is the longest text by now.
    EXPECT_EQ(grid.columnWidth(2), 4 * 150 + 90);
}

TEST_F(Classification, AQuoteIsPartOfANameAndACodeEndsAtItsFirstBlank) {
    program.run({"Insert Into YZ_企业性质设置 (企业性质名称,说明) Values ('O''B','')",
                 "Insert Into YZ_行业设置 (行业名称,说明) Values ('''','')"});
    program.addLead("甲", "O'B", "'", {"2"}, "D'Or");
    program.app.screens.unload(form);
    auto& again = program.screen();
    again.Combo1.pick("01 东塔");
    again.List1.click(again.List1.find("O'B"));
    again.List2.click(again.List2.find("'"));
    again.List3.click(again.List3.find("2 二组 西区"));
    again.Text1.type("D'Or");
    again.Command1.click();
    EXPECT_EQ(again.MSFlexGrid1.rows(), 2);
    EXPECT_EQ(
        again.统计语句(),
        "Select A.公司名称,A.企业性质,A.客户姓名,A.客户电话,A.从事行业,A.中介公司名称,A.备注,C.组名称 From "
        "YZ_引驻客户信息 A Left Join YZ_引驻客户分配 B ON A.登记编号=B.登记编号 Inner Join YZ_组表 C ON "
        "B.组代号=C.组代号 Where A.企业性质 IN ('O''B') AND A.从事行业 IN ('''') AND C.组代号 IN ('2') AND "
        "A.中介公司名称='D''Or'");
}

TEST_F(Classification, ThePanelIsHiddenAndShownAndTheScreenCloses) {
    form.条件.隐藏.click();
    EXPECT_FALSE(form.Command1.usable());
    EXPECT_TRUE(form.MSFlexGrid1.usable());
    form.条件.显示.click();
    EXPECT_TRUE(form.Command1.usable());
    form.Command4.click();
    EXPECT_EQ(program.app.screens.loaded(Frm客户分类统计::screenName), nullptr);
}

TEST_F(Classification, AnEmptyListOrTableTellsWhatToDoOrThatNothingIsThere) {
    const auto hints = [&] { return Lines{form.List3.hint, form.List4.hint, form.MSFlexGrid1.hint}; };
    EXPECT_EQ(hints(), (Lines{"选择管理处后列出引驻组", "选择管理处后列出中介公司",
                              "选取企业性质、行业和引驻组，然后统计"}));
    chooseOffice();
    EXPECT_EQ(hints(),
              (Lines{"没有在用的引驻组", "没有这样的中介公司", "选取企业性质、行业和引驻组，然后统计"}));
    markEverything();
    form.Command1.click();
    EXPECT_EQ(hints().back(), "没有符合条件的客户");
}

TEST_F(Classification, ItIsBusyWhileItAsksAndALineIsMarkedAsAWhole) {
    EXPECT_EQ(form.MSFlexGrid1.selection(), GridSelection::row);
    // Keys that wander over the agencies take none of them.
    EXPECT_EQ(form.List4.movingKeys(), MovingKeys::move);
    chooseOffice();
    markEverything();
    std::vector<int> depths;
    program.fault.seen = [&](std::string_view) { depths.push_back(program.desktop.busyDepth); };
    form.Command1.click();
    program.fault.seen = [](std::string_view) {};
    EXPECT_EQ(depths, std::vector<int>{1});
}

/// The table as a workbook, read by another program.
class ClassificationWorkbook : public WorkbookTest {};

TEST_F(ClassificationWorkbook, HoldsEveryCellOfTheTable) {
    ClassifyingProgram program;
    program.spreadsheets.real = &spreadsheets;
    for (int i = 0; i < 30; ++i)
        program.addLead(fmt::format("客户{}", i), i % 2 == 0 ? "外资" : "民营", "软件", {i < 10 ? "1" : "2"},
                        i % 3 == 0 ? "佳信" : "");
    auto& form = program.screen();
    form.Combo1.pick("01 东塔");
    for (CheckBox* all : {&form.Check1, &form.Check2, &form.Check3}) all->click();
    form.Command1.click();
    const Grid& grid = form.MSFlexGrid1;
    ASSERT_EQ(grid.rows(), 31);
    program.desktop.modalPerson = [&](Screen& shown) {
        auto& out = static_cast<FrmToExcel&>(shown);
        EXPECT_EQ(out.文档标题.text(), "客户分类统计");
        EXPECT_EQ(out.工作表名称.text(), "客户分类统计");
        EXPECT_EQ(out.tag, "");
        EXPECT_EQ(out.源表格, &grid);
        out.文件.type(path("分类.xls"));
        out.Command2.click();
    };
    form.Command13.click();

    const auto all = readBack(path("分类.xls"));
    EXPECT_EQ(linesOf(all, "sheet"), (Lines{"Sheet1|0x0|visible=True", "客户分类统计|34x9|visible=True"}));
    EXPECT_EQ(linesOf(all, "merge"), (Lines{"0,0:0,8", "1,0:1,8", "2,0:2,8"}));
    Lines cells;
    for (const auto& line : linesOf(all, "cell")) {
        const auto fields = split(line, '|');
        if (fields[1] == "text") cells.push_back(fields[0] + "|" + fields[2] + "|" + fields[3]);
    }
    Lines expected{"0,0|客户分类统计|General", "2,0|打印日期：2011年03月05日|General"};
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column)
            if (!grid.text(row, column).empty())
                expected.push_back(fmt::format("{},{}|{}|@", row + 3, column, grid.text(row, column)));
    EXPECT_EQ(cells, expected);
    const auto widths = linesOf(all, "width");
    ASSERT_EQ(widths.size(), 9U);
    for (int column = 0; column < grid.columns(); ++column)
        EXPECT_NEAR(std::stod(split(widths[static_cast<std::size_t>(column)], '|')[1]),
                    grid.columnWidth(column) / 100.0 * 256, 256)
            << column;
}

}  // namespace
}  // namespace desk
