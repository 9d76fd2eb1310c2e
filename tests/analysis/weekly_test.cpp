#include <fmt/format.h>
#include <gtest/gtest.h>

#include "analysis/weekly_program.h"
#include "base/failure.h"
#include "base/text.h"

namespace desk {
namespace {

using Lines = std::vector<std::string>;

Lines linesOf(const Grid& grid) {
    Lines lines;
    for (int row = 0; row < grid.rows(); ++row) {
        Lines cells;
        for (int column = 0; column < grid.columns(); ++column) cells.push_back(grid.text(row, column));
        lines.push_back(join(cells, "|"));
    }
    return lines;
}

/// Whether a row is a title row of a later view: coloured and bold in all of its cells, or in none.
bool isTitle(const Grid& grid, int row) {
    const bool title = grid.cellBold(row, 0);
    for (int column = 0; column < grid.columns(); ++column) {
        EXPECT_EQ(grid.cellBold(row, column), title) << row << "," << column;
        EXPECT_EQ(grid.cellColour(row, column), title ? std::optional<Colour>(10987465) : std::nullopt);
    }
    return title;
}

template <class S>
class WeeklyScreen : public testing::Test {
  protected:
    WeeklyScreen() {
        screen().选择区域.pick("01 东塔");
        span({2011, 3, 1}, {2011, 3, 3});
    }

    S& screen() { return program.app.screens.get<S>(); }
    Grid& grid() { return screen().统计结果; }
    void span(const DateTime& from, const DateTime& to) {
        screen().开始日期.pick(from);
        screen().结束日期.pick(to);
    }
    /// The lines that these views give, the header first.
    Lines count(std::initializer_list<const char*> keys) {
        for (TreeNode* node : screen().统计项目.roots()) screen().统计项目.setChecked(*node, false);
        for (const char* key : keys) screen().统计项目.tick(*screen().统计项目.find(key), true);
        screen().统计.click();
        return linesOf(grid());
    }
    bool isOpen() { return program.app.screens.loaded(S::screenName) != nullptr; }

    WeeklyProgram program;
};

using Weekly = WeeklyScreen<Frm每周来客统计分析>;
using WeeklyCalls = WeeklyScreen<Frm每周来电统计分析>;

TEST_F(Weekly, EachViewHasItsHeaderItsColumnAndItsNames) {
    EXPECT_EQ(count({"MT"}), (Lines{"序|媒体分析|人数|占比例", "1|报纸|1|33.33%", "2|网络|2|66.67%"}));
    EXPECT_EQ(count({"QU"}), (Lines{"序|区域分析|人数|占比例", "1|浦东|2|66.67%", "2|静安|1|33.33%"}));
    EXPECT_EQ(count({"HY"}), (Lines{"序|公司行业|人数|占比例", "1|软件|2|66.67%", "2|贸易|1|33.33%"}));
    EXPECT_EQ(count({"XZ"}), (Lines{"序|企业性质|人数|占比例", "1|外资|2|66.67%", "2|民营|1|33.33%"}));
    EXPECT_EQ(count({"XW"}), (Lines{"序|询问重点|人数|占比例", "1|租金|2|50.00%", "2|车位|2|50.00%"}));
    // A lead that names no rent is no row.
    EXPECT_EQ(count({"YS"}),
              (Lines{"序|预算租金（元/平米/天）|人次|占比例", "1|2.5|1|50.00%", "2|3|1|50.00%"}));
    EXPECT_EQ(count({"LR"}), (Lines{"序|每天来人量|人次|占比例", "1|03.01（周二）|2|66.67%",
                                    "2|03.02（周三）|0|0.00%", "3|03.03（周四）|1|33.33%"}));
    EXPECT_EQ(count({"MJ"}), (Lines{"序|面积分析|人次|占比例", "1|80.5|1|33.33%", "2|100|2|66.67%"}));
    for (int column = 0; column < grid().columns(); ++column)
        EXPECT_EQ(grid().alignment(column), Align::general);
}

TEST_F(Weekly, AnEmptyTableTellsWhatToDoOrThatNothingWasFound) {
    EXPECT_EQ(grid().hint, "请选择区域、时段和项目，然后统计");
    span({2011, 6, 30}, {2011, 7, 1});
    EXPECT_EQ(count({"MJ"}).size(), 1U);
    EXPECT_EQ(grid().hint, "没有统计结果");
}

TEST_F(Weekly, ViewsStandBelowEachOtherUnderColouredTitlesAndTheirNumbersRunOn) {
    EXPECT_EQ(count({"LR", "MT"}), (Lines{"序|媒体分析|人数|占比例", "1|报纸|1|33.33%", "2|网络|2|66.67%",
                                          "|每天来人量|人次|占比例", "4|03.01（周二）|2|66.67%",
                                          "5|03.02（周三）|0|0.00%", "6|03.03（周四）|1|33.33%"}));
    for (int row = 0; row < grid().rows(); ++row) EXPECT_EQ(isTitle(grid(), row), row == 3) << row;

    screen().全部.click();
    screen().统计.click();
    std::vector<std::string> titles;
    for (int row = 0; row < grid().rows(); ++row)
        if (isTitle(grid(), row)) titles.push_back(linesOf(grid())[static_cast<std::size_t>(row)]);
    EXPECT_EQ(titles, (Lines{"|区域分析|人数|占比例", "|公司行业|人数|占比例", "|企业性质|人数|占比例",
                             "|询问重点|人数|占比例", "|预算租金（元/平米/天）|人次|占比例",
                             "|每天来人量|人次|占比例", "|面积分析|人次|占比例"}));
    EXPECT_EQ(linesOf(grid()).back(), "24|100|2|66.67%");

    // A new count begins anew, with no colours left.
    EXPECT_EQ(count({"XZ"}).size(), 3U);
    for (int row = 0; row < grid().rows(); ++row) EXPECT_FALSE(isTitle(grid(), row)) << row;
}

TEST_F(Weekly, AnEmptyDictionaryHasAHeaderAndStillComesFirst) {
    program.run({"Delete From YZ_区域设置"});
    EXPECT_EQ(count({"QU", "XW"}), (Lines{"序|区域分析|人数|占比例", "|询问重点|人数|占比例",
                                          "2|租金|2|50.00%", "3|车位|2|50.00%"}));
    EXPECT_TRUE(isTitle(grid(), 1));
}

TEST_F(Weekly, APeriodWithoutLeadsHasCountsOfNothingAndNoShares) {
    span({2011, 6, 30}, {2011, 7, 1});
    EXPECT_EQ(count({"MT", "YS", "LR", "MJ"}),
              (Lines{"序|媒体分析|人数|占比例", "1|报纸|0|", "2|网络|0|",
                     "|预算租金（元/平米/天）|人次|占比例", "|每天来人量|人次|占比例", "5|06.30（周四）|0|",
                     "6|07.01（周五）|0|", "|面积分析|人次|占比例"}));
}

TEST_F(Weekly, DaysAreCountedFromTheFirstToTheLastOverMonthsAndYears) {
    span({2011, 3, 3}, {2011, 3, 3});
    EXPECT_EQ(count({"LR"}), (Lines{"序|每天来人量|人次|占比例", "1|03.03（周四）|1|100.00%"}));
    span({2011, 12, 31}, {2012, 1, 2});
    EXPECT_EQ(count({"LR"}), (Lines{"序|每天来人量|人次|占比例", "1|12.31（周六）|0|", "2|01.01（周日）|0|",
                                    "3|01.02（周一）|0|"}));
    span({2012, 1, 1}, {2012, 12, 31});
    EXPECT_EQ(count({"LR"}).size(), 367U);
    EXPECT_EQ(grid().text(60, 1), "02.29（周三）");
}

TEST_F(Weekly, ANameCountsWhereItIsPartOfWhatWasChosen) {
    program.run({"Insert Into YZ_媒体设置 (媒体名称,说明) Values ('络','')",
                 "Insert Into YZ_媒体设置 (媒体名称,说明) Values ('O''Brien','')",
                 "Update YZ_引驻客户信息 Set 媒体='O''Brien,络' Where 登记日期='2011-3-3'"});
    EXPECT_EQ(count({"MT"}), (Lines{"序|媒体分析|人数|占比例", "1|报纸|1|14.29%", "2|网络|2|28.57%",
                                    "3|络|3|42.86%", "4|O'Brien|1|14.29%"}));
}

TEST_F(WeeklyCalls, CallsAreAskedForNoRentAndCountAlone) {
    EXPECT_EQ(screen().caption(), "每周来电统计分析");
    Lines nodes;
    for (const TreeNode* node : screen().统计项目.roots()) nodes.emplace_back(node->text());
    EXPECT_EQ(nodes,
              (Lines{"媒体分析", "区域分析", "公司行业", "企业性质", "询问重点", "每天来人量", "面积分析"}));
    EXPECT_EQ(count({"MT"}), (Lines{"序|媒体分析|人数|占比例", "1|报纸|1|100.00%", "2|网络|0|0.00%"}));
    EXPECT_EQ(count({"LR", "MJ"}),
              (Lines{"序|每天来人量|人次|占比例", "1|03.01（周二）|1|100.00%", "2|03.02（周三）|0|0.00%",
                     "3|03.03（周四）|0|0.00%", "|面积分析|人次|占比例", "5|100|1|100.00%"}));
}

TEST(Shares, AreReckonedInSinglePrecision) {
    EXPECT_EQ(占比例(0, 0), "");
    EXPECT_EQ(占比例(0, 7), "0.00%");
    EXPECT_EQ(占比例(1, 3), "33.33%");
    EXPECT_EQ(占比例(2, 3), "66.67%");
    EXPECT_EQ(占比例(5, 5), "100.00%");
    // Halves by the digits that are seen, wherever the binary neighbour lies.
    EXPECT_EQ(占比例(1, 800), "0.13%");
    EXPECT_EQ(占比例(3, 800), "0.38%");
    EXPECT_EQ(占比例(1, 32), "3.13%");
    // Seven digits: with more, this would be 12.34%.
    EXPECT_EQ(占比例(1234499, 9999995), "12.35%");
}

TEST_F(Weekly, WhatIsMissingIsToldAndNothingIsAsked) {
    auto& form = screen();
    count({"MT"});
    const auto before = linesOf(grid());
    program.fault.statements.clear();
    span({2011, 3, 4}, {2011, 3, 3});
    form.选择区域.setIndex(-1);
    form.全部.click();
    form.全部.click();
    form.统计.click();
    EXPECT_EQ(program.desktop.messages.back().icon, Icon::none);
    EXPECT_EQ(program.desktop.messages.back().title, "");
    EXPECT_EQ(program.desktop.takeMessage(), "统计开始日期不能大于结束日期，请重新选择日期！");
    span({2011, 3, 3}, {2011, 3, 3});
    int asked = 0;
    const Subscription watch = form.选择区域.focusAsked.connect([&] { ++asked; });
    form.统计.click();
    EXPECT_TRUE(program.desktop.messages.empty());
    EXPECT_EQ(asked, 1);
    form.选择区域.pick("02 西塔");
    form.统计.click();
    EXPECT_EQ(program.desktop.messages.back().icon, Icon::none);
    EXPECT_EQ(program.desktop.takeMessage(), "请选择统计项目");
    EXPECT_EQ(linesOf(grid()), before);
    EXPECT_TRUE(program.fault.statements.empty());
}

TEST_F(Weekly, ColumnsFitTheirTextsButForTheFirst) {
    const int first = grid().columnWidth(0);
    count({"MT"});
    // Ten pixels a character, and 180 twips.
    EXPECT_EQ(grid().columnWidth(0), first);
    EXPECT_EQ(grid().columnWidth(1), 4 * 150 + 180);
    EXPECT_EQ(grid().columnWidth(2), 2 * 150 + 180);
    EXPECT_EQ(grid().columnWidth(3), 6 * 150 + 180);
    program.run({"Insert Into YZ_媒体设置 (媒体名称,说明) Values ('户外广告牌','')"});
    count({"MT"});
    EXPECT_EQ(grid().columnWidth(1), 5 * 150 + 180);
}

/// What a person does while the count runs, at each of its reports in turn.
class WeeklyInterrupted : public Weekly {
  protected:
    /// Counts all views once for each report, at which `act` is done; gives how many reports there are.
    void atEachReport(const std::function<bool()>& act, const std::function<void()>& check) {
        long reports = 0;
        program.desktop.watcher = [&](std::string_view, long, long) { return ++reports, true; };
        screen().全部.setChecked(true);
        screen().统计.click();
        whole = linesOf(grid());
        ASSERT_GT(reports, 14);
        for (long at = 1; at <= reports; ++at) {
            SCOPED_TRACE(at);
            long report = 0;
            program.desktop.watcher = [&](std::string_view, long, long) {
                return ++report == at ? act() : true;
            };
            screen().选择区域.pick("01 东塔");
            span({2011, 3, 1}, {2011, 3, 3});
            for (TreeNode* node : screen().统计项目.roots()) screen().统计项目.setChecked(*node, true);
            screen().统计.click();
            EXPECT_FALSE(program.desktop.showsProgress);
            EXPECT_EQ(program.desktop.busyDepth, 0);
            check();
            program.app.screens.dropUnloaded();
        }
    }

    Lines whole;
};

TEST_F(WeeklyInterrupted, ClosingTheScreenEndsTheCount) {
    atEachReport(
        [&] {
            screen().退出.click();
            program.fault.statements.clear();
            return true;
        },
        [&] {
            EXPECT_FALSE(isOpen());
            EXPECT_TRUE(program.fault.statements.empty());
        });
}

TEST_F(WeeklyInterrupted, StoppingLeavesTheViewsThatWereDone) {
    atEachReport([] { return false; },
                 [&] {
                     const auto lines = linesOf(grid());
                     ASSERT_LT(lines.size(), whole.size());
                     // They end where a title row or the table begins.
                     if (lines.size() > 1) {
                         EXPECT_TRUE(std::equal(lines.begin(), lines.end(), whole.begin()));
                         EXPECT_EQ(whole[lines.size()].front(), '|');
                     }
                     EXPECT_TRUE(isOpen());
                 });
}

TEST_F(WeeklyInterrupted, WhatIsLeftOfAStoppedCountIsFittedAndTheFirstViewLeavesNothing) {
    count({"YS"});
    int reports = 0;
    const auto stopAfter = [&](int done) {
        reports = 0;
        program.desktop.watcher = [&reports, done](std::string_view, long, long) { return ++reports < done; };
    };
    stopAfter(1);
    EXPECT_EQ(count({"MT", "LR"}), Lines{"|||"});
    stopAfter(3);
    EXPECT_EQ(count({"MT", "LR"}).size(), 3U);
    EXPECT_EQ(grid().columnWidth(1), 4 * 150 + 180);
}

TEST_F(WeeklyInterrupted, NeitherAnotherCountNorTheExportBeginsMeanwhile) {
    atEachReport(
        [&] {
            const auto before = program.fault.statements.size();
            screen().统计.click();
            screen().输出.click();
            EXPECT_EQ(program.fault.statements.size(), before);
            EXPECT_EQ(program.app.screens.loaded(FrmToExcel::screenName), nullptr);
            return true;
        },
        [&] { EXPECT_EQ(linesOf(grid()), whole); });
    EXPECT_TRUE(program.desktop.messages.empty());
}

TEST_F(WeeklyInterrupted, WhatIsChangedMeanwhileIsForTheNextCount) {
    atEachReport(
        [&] {
            span({2011, 3, 9}, {2011, 3, 8});
            screen().选择区域.setIndex(-1);
            for (TreeNode* node : screen().统计项目.roots()) screen().统计项目.setChecked(*node, false);
            return true;
        },
        [&] { EXPECT_EQ(linesOf(grid()), whole); });
}

TEST_F(WeeklyInterrupted, ReportsTellTheViewAndHowFarItIs) {
    Lines reports;
    program.desktop.watcher = [&](std::string_view what, long done, long total) {
        EXPECT_EQ(program.desktop.busyDepth, 1);
        reports.push_back(fmt::format("{} {}/{}", what, done, total));
        return true;
    };
    count({"MT", "YS", "LR"});
    EXPECT_EQ(reports,
              (Lines{"正在统计：媒体分析 1/2", "正在统计：媒体分析 2/2", "正在统计：预算租金 1/1",
                     "正在统计：每天来人量 1/3", "正在统计：每天来人量 2/3", "正在统计：每天来人量 3/3"}));
}

TEST_F(WeeklyInterrupted, AFailureLeavesAScreenThatCanCountAgain) {
    program.fault.in = 4;
    program.fault.number = failure::unspecified;
    EXPECT_THROW(count({"MT", "LR"}), RuntimeFailure);
    EXPECT_EQ(program.desktop.busyDepth, 0);
    EXPECT_FALSE(program.desktop.showsProgress);
    EXPECT_EQ(count({"XZ"}).size(), 3U);
}

}  // namespace
}  // namespace desk
