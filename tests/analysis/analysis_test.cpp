#include <fmt/format.h>
#include <gtest/gtest.h>

#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "base/text.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {
namespace {

class Analysis : public testing::Test {
  protected:
    Analysis() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run({
            "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('10','签约',255)",
            "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('2','洽谈',65280)",
            "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('3','放弃',16711680)",
        });
        program.enter();
        auto& screens = program.app.screens;
        screens.offer(Frm客户跟进状态分析::screenName,
                      [this] { return std::make_unique<Frm客户跟进状态分析>(program.app); });
        screens.offer(FrmToExcel::screenName, [this] { return std::make_unique<FrmToExcel>(program.app); });
    }

    void addLead(int no, const std::string& office, const std::string& day,
                 std::initializer_list<std::pair<const char*, const char*>> diary) {
        program.db().execute(
            sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,登记日期) Values "
                "('{}','{}','引驻来人','{}')",
                no, office, day));
        for (const auto& [when, state] : diary)
            program.db().execute(
                sql("Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,跟进状态编号) Values "
                    "('{}','{}','{}','{}')",
                    office, no, when, state));
    }
    Frm客户跟进状态分析& screen() { return program.app.screens.get<Frm客户跟进状态分析>(); }
    void analyse() {
        if (!screen().Check6.checked()) screen().Check6.click();
        screen().Command1.click();
    }
    std::vector<std::string> result() {
        std::vector<std::string> lines;
        const Grid& grid = screen().MSFlexGrid1;
        for (int row = 1; row < grid.rows(); ++row) {
            std::vector<std::string> cells;
            for (int column = 0; column < grid.columns(); ++column) cells.push_back(grid.text(row, column));
            lines.push_back(join(cells, "|"));
        }
        return lines;
    }

    TestProgram program;
};

TEST_F(Analysis, EachCustomerCountsOnceUnderTheLatestState) {
    addLead(1, "01", "2011-3-5", {{"2011-3-1", "10"}, {"2011-3-4", "2"}});
    addLead(2, "02", "2011-3-5", {{"2011-3-1", "2"}});
    addLead(3, "01", "2011-3-5", {{"2011-3-1", "2"}, {"2011-3-2", "10"}});
    addLead(4, "01", "2011-3-4", {{"2011-3-1", "3"}});
    addLead(5, "01", "2011-3-5", {});
    auto& form = screen();
    EXPECT_EQ(isoDay(form.DTPicker1.value()), "2011-03-05");
    EXPECT_EQ(form.TreeView2.roots().front()->key(), "S2");
    EXPECT_EQ(form.TreeView2.roots().back()->text(), "签约");
    form.Command1.click();
    EXPECT_EQ(program.desktop.messages.front().title, "提示");
    EXPECT_EQ(program.desktop.messages.front().icon, Icon::information);
    EXPECT_EQ(program.desktop.takeMessage(), "请选择跟进状态!");

    form.Picture1.resize(9000, 6000, 1.0 / 15);
    form.Combo1.pick("02 西塔");  // narrows nothing
    analyse();
    EXPECT_EQ(result(), (std::vector<std::string>{"1|签约||1|33", "2|洽谈||2|67"}));
    EXPECT_EQ(form.MSFlexGrid1.cellColour(1, 2), 255);
    EXPECT_TRUE(form.结果面板.visible());
    EXPECT_EQ(form.图例.rows(), 2);
    EXPECT_EQ(form.图例.text(1, 1), "洽谈");
    EXPECT_EQ(form.图例.text(1, 2), "67%");

    form.DTPicker1.pick(DateTime(2011, 3, 1));
    form.TreeView2.tick(*form.TreeView2.find("S2"), false);
    form.Command1.click();
    EXPECT_EQ(result(), (std::vector<std::string>{"1|签约||1|50", "2|放弃||1|50"}));
}

TEST_F(Analysis, WithoutCustomersThereIsOnlyTheHeader) {
    screen().Picture1.resize(9000, 6000, 1.0 / 15);
    analyse();
    EXPECT_TRUE(result().empty());
    EXPECT_FALSE(screen().结果面板.visible());
    EXPECT_EQ(screen().图例.rows(), 0);
    EXPECT_EQ(screen().Picture1.point(4500, 3000), windowColour);
}

TEST_F(Analysis, TheSliceUnderThePointerRisesAndSinksAgain) {
    addLead(1, "01", "2011-3-5", {{"2011-3-1", "2"}});
    addLead(2, "01", "2011-3-5", {{"2011-3-1", "10"}});
    auto& form = screen();
    form.Picture1.resize(9000, 6000, 1.0 / 15);
    analyse();
    const Picture flat = form.Picture1.picture();
    // The pie lies in the middle of what the table leaves of the area.
    EXPECT_EQ(form.Picture1.point(4500, 1400), 255);
    EXPECT_EQ(form.Picture1.point(4500, 1600), 65280);
    form.Picture1.movePointer(4500, 1000);
    EXPECT_NE(form.Picture1.picture().pixels, flat.pixels);
    EXPECT_EQ(form.Picture1.point(4500, 1500 - 1152 - 60), 255);
    form.Picture1.movePointer(100, 100);
    EXPECT_EQ(form.Picture1.picture().pixels, flat.pixels);
    // A new size of the picture draws it anew.
    form.Picture1.resize(12000, 6000, 1.0 / 15);
    EXPECT_EQ(form.Picture1.point(6000, 1400), 255);
}

TEST_F(Analysis, AllTicksAndUnticksEveryState) {
    auto& form = screen();
    const auto ticked = [&] {
        std::vector<std::string> names;
        for (const auto& state : form.TreeView2.roots())
            if (state->checked()) names.emplace_back(state->text());
        return names;
    };
    form.Check6.click();
    EXPECT_EQ(ticked(), (std::vector<std::string>{"洽谈", "放弃", "签约"}));
    form.Check6.click();
    EXPECT_TRUE(ticked().empty());
    form.Command1.click();
    EXPECT_EQ(program.desktop.takeMessage(), "请选择跟进状态!");
}

TEST_F(Analysis, HalvesOfAPercentGoToTheEvenNeighbour) {
    int no = 0;
    for (const char* state : {"10", "2", "2", "2", "3", "3", "3", "3"})
        addLead(++no, "01", "2011-3-5", {{"2011-3-1", state}});
    analyse();
    EXPECT_EQ(result(), (std::vector<std::string>{"1|签约||1|12", "2|洽谈||3|38", "3|放弃||4|50"}));
}

TEST_F(Analysis, TheHiddenNumberIsTheDepthOfThePie) {
    addLead(1, "01", "2011-3-5", {{"2011-3-1", "2"}});
    auto& form = screen();
    form.Picture1.resize(9000, 6000, 1.0 / 15);
    analyse();
    // Half axes of 1800 and 1152 about a centre at 1500: the wall begins at 2652.
    const auto wallReaches = [&](double y) { return form.Picture1.point(4500, y) == darkShade(65280); };
    EXPECT_TRUE(wallReaches(2652 + 570));
    EXPECT_FALSE(wallReaches(2652 + 660));
    EXPECT_EQ(form.Picture1.point(4500 - 1770, 1500), 65280);
    EXPECT_EQ(form.Picture1.point(4500 - 1830, 1500), windowColour);
    form.Text2.setText("900");
    form.Command1.click();
    EXPECT_TRUE(wallReaches(2652 + 870));
    EXPECT_FALSE(wallReaches(2652 + 960));
}

TEST_F(Analysis, OfTwoStatesWithOneColourTheFirstRises) {
    program.run({"Update YZ_跟进状态设置 Set 颜色表示=255"});
    addLead(1, "01", "2011-3-5", {{"2011-3-1", "2"}});
    addLead(2, "01", "2011-3-5", {{"2011-3-1", "10"}});
    auto& form = screen();
    form.Picture1.resize(9000, 6000, 1.0 / 15);
    analyse();
    const Picture flat = form.Picture1.picture();
    form.Picture1.movePointer(4500, 1000);
    const Picture first = form.Picture1.picture();
    EXPECT_TRUE(first.pixels != flat.pixels);
    form.Picture1.movePointer(4500, 2000);
    EXPECT_TRUE(form.Picture1.picture().pixels == first.pixels);
    EXPECT_EQ(form.Picture1.point(4500, 1500 - 1152 - 60), 255);
}

/// The hand-over and the chooser, with a person who leaves after looking.
class Export : public Analysis {
  protected:
    Export() {
        addLead(1, "01", "2011-3-5", {{"2011-3-1", "2"}});
        analyse();
    }
    /// Opens the export and lets `person` work it.
    void open(const std::function<void(FrmToExcel&)>& person) {
        program.desktop.modalPerson = [&](Screen& shown) {
            person(static_cast<FrmToExcel&>(shown));
            if (program.app.screens.loaded(FrmToExcel::screenName) != nullptr)
                static_cast<FrmToExcel&>(shown).Command3.click();
        };
        screen().Command13.click();
    }
};

TEST_F(Export, TheTableIsHandedOverWhole) {
    open([&](FrmToExcel& form) {
        EXPECT_EQ(form.文档标题.text(), "客户跟进状态分析");
        EXPECT_EQ(form.工作表名称.text(), "客户跟进状态分析");
        EXPECT_EQ(form.tag, "统计时段：2011年03月05日至2011年03月05日");
        EXPECT_EQ(form.Grid1.columns(), 5);
        EXPECT_EQ(form.Grid1.text(0, 1), "状态名称");
        // The first column is of general alignment and keeps its width; the others fit their titles.
        EXPECT_EQ(form.Grid1.columnWidth(0), screen().MSFlexGrid1.columnWidth(0));
        EXPECT_EQ(form.Grid1.columnWidth(1), 4 * 150 + 90);
        EXPECT_EQ(form.源表格, &screen().MSFlexGrid1);
        form.Grid1.click(1, 2);
        form.Grid1.doubleClick(1, 2);
        EXPECT_EQ(form.Grid1.text(1, 2), "");

        form.Command2.click();
        EXPECT_EQ(program.desktop.messages.front().text, "请确定输出的文件名");
        EXPECT_EQ(program.desktop.messages.front().title, "引驻台账");
        EXPECT_EQ(program.desktop.takeMessage(), "输出到Execl失败: ");
        program.desktop.files = {std::nullopt, "/data/周报"};
        form.Command1.click();
        EXPECT_EQ(form.文件.text(), "");
        form.Command1.click();
        EXPECT_EQ(form.文件.text(), "/data/周报.xls");
        EXPECT_EQ(program.desktop.fileQuestions.back().purpose, FilePurpose::save);
        EXPECT_EQ(program.desktop.fileQuestions.back().proposal, "客户跟进状态分析 2011-03-05.xls");
        EXPECT_EQ(program.desktop.fileQuestions.back().directory, "/program");
        EXPECT_EQ(program.desktop.fileQuestions.back().filter, "Excel Flie *.xls|*.xls|All flie *.*|*.*");
        form.Check1.click();
        form.Command2.click();
    });
    EXPECT_EQ(program.app.screens.loaded(FrmToExcel::screenName), nullptr);
    EXPECT_EQ(program.machine.take(), std::vector<std::string>{"open /data/周报.xls"});
    EXPECT_EQ(program.desktop.notices, std::vector<std::string>{"已输出到 /data/周报.xls"});
    EXPECT_TRUE(program.desktop.messages.empty());
    const Worksheet& sheet = program.spreadsheets.books.at("/data/周报.xls").front();
    EXPECT_EQ(sheet.rows()[0][0].text, "客户跟进状态分析");
    EXPECT_EQ(sheet.rows()[1][0].text, "统计时段：2011年03月05日至2011年03月05日");
    EXPECT_EQ(sheet.rows()[2][0].text, "打印日期：2011年03月05日");
    ASSERT_EQ(sheet.rows()[3].size(), 4U);
    EXPECT_EQ(sheet.rows()[3][2].text, "数量");
    EXPECT_EQ(sheet.rows()[4][1].text, "洽谈");
    EXPECT_EQ(sheet.rows()[4][1].look.format, CellLook::Format::text);
    EXPECT_EQ(sheet.rows()[4][2].look.format, CellLook::Format::number);
    EXPECT_EQ(sheet.rows()[4][0].look.format,
              CellLook::Format::number);  // general alignment is none of text's
    EXPECT_EQ(sheet.columnWidths().at(1), screen().MSFlexGrid1.columnWidth(1) / 100.0);
    EXPECT_EQ(sheet.merges().size(), 3U);
}

TEST_F(Export, FailuresAreToldAndTheScreenStays) {
    open([&](FrmToExcel& form) {
        form.文档标题.type("");
        form.Command2.click();
        EXPECT_EQ(program.desktop.takeMessage(), "请输入标题内容");
        form.文档标题.type("标题");
        form.文件.type("/data/a.xls");
        program.spreadsheets.refusal = "文件已加密，不能写入";
        form.Command2.click();
        EXPECT_EQ(program.desktop.messages.back().icon, Icon::information);
        EXPECT_EQ(program.desktop.takeMessage(), "输出到Execl失败: 文件已加密，不能写入");
        program.spreadsheets.refusal.clear();
        for (int column = 0; column < form.Grid1.columns(); ++column) form.Grid1.doubleClick(1, column);
        form.Command2.click();
        EXPECT_EQ(program.desktop.takeMessage(), "输出到Execl失败: 没有可以合并的单元格");
        EXPECT_EQ(program.desktop.busyDepth, 0);
    });
    EXPECT_TRUE(program.spreadsheets.books.at("/data/a.xls").empty());
}

TEST_F(Export, TypedNamesGetTheEndingAndAMissingProgramIsTold) {
    program.programs.canOpen = false;
    open([&](FrmToExcel& form) {
        form.文件.type("/data/d.1/2011.03");
        form.文档标题.type("一/二");
        program.desktop.files = {std::nullopt};
        form.Command1.click();
        EXPECT_EQ(program.desktop.fileQuestions.back().proposal, "一-二 2011-03-05.xls");
        form.Check1.click();
        form.Command2.click();
    });
    EXPECT_TRUE(program.spreadsheets.books.contains("/data/d.1/2011.03.xls"));
    EXPECT_EQ(program.desktop.messages.back().icon, Icon::information);
    EXPECT_EQ(program.desktop.takeMessage(), "没有可以打开表格的程序。文件已保存在\r\n/data/d.1/2011.03.xls");
}

TEST_F(Export, ColumnsWithoutAHeaderNeverGoOut) {
    Grid source(screen(), "source", "<序|<名称   ||>数量  ");
    source.addRow({"1", "甲", "键", "5"});
    auto& form = program.app.screens.get<FrmToExcel>();
    form.Config(source, "表", "题");
    EXPECT_EQ(form.Grid1.columnWidth(2), 0);
    EXPECT_EQ(form.Grid1.text(1, 2), "");
    form.文件.setText("/data/b.xls");
    bool done = false;
    form.To_Execl(source, "", "", done);
    EXPECT_TRUE(done);
    EXPECT_EQ(program.spreadsheets.books.at("/data/b.xls").front().rows()[4].size(), 3U);
}

TEST_F(Export, TwoHeaderRowsAreMergedInTheirOrder) {
    Grid source(screen(), "source", "<序|<来电|<来电|<来电|<合计");
    source.setRows(3);
    source.setFixedRows(2);
    const char* lower[] = {"序", "报纸", "网络", "其它", "合计"};
    for (int column = 0; column < 5; ++column) source.setText(1, column, lower[column]);
    auto& form = program.app.screens.get<FrmToExcel>();
    form.Config(source, "表", "题");
    form.文件.setText("/data/c.xls");
    bool done = false;
    form.To_Execl(source, "", "", done);
    const Worksheet& sheet = program.spreadsheets.books.at("/data/c.xls").front();
    std::vector<std::string> merges;
    for (const auto& range : sheet.merges())
        merges.push_back(fmt::format("{},{}:{},{}", range.top, range.left, range.bottom, range.right));
    EXPECT_EQ(merges,
              (std::vector<std::string>{"0,0:0,4", "1,0:1,4", "2,0:2,4", "3,0:4,0", "3,1:3,3", "3,4:4,4"}));
    EXPECT_EQ(sheet.rows()[3][1].text, "来电");
    EXPECT_EQ(sheet.rows()[3][2].text, "");
    EXPECT_EQ(sheet.rows()[4][0].text, "");
    EXPECT_EQ(sheet.rows()[4][3].text, "其它");
}

TEST_F(Export, ColumnsHaveNamesUpToTheHundredAndFiftySixth) {
    EXPECT_EQ(FrmToExcel::RangeNom(0, 4), "A4");
    EXPECT_EQ(FrmToExcel::RangeNom(25, 10), "Z10");
    EXPECT_EQ(FrmToExcel::RangeNom(26, 1), "AA1");
    EXPECT_EQ(FrmToExcel::RangeNom(155, 1), "EZ1");
    EXPECT_EQ(FrmToExcel::RangeNom(156, 1), "");
    std::string format = "<c0";
    for (int i = 1; i < 160; ++i) format += "|<c" + std::to_string(i);
    Grid source(screen(), "source", format);
    auto& form = program.app.screens.get<FrmToExcel>();
    form.Config(source, "表", "题");
    form.文件.setText("/data/d.xls");
    bool done = true;
    form.To_Execl(source, "", "", done);
    EXPECT_FALSE(done);
}

}  // namespace
}  // namespace desk
