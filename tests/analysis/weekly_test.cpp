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

class Weekly : public testing::Test {
  protected:
    Weekly() {
        screen().选择区域.pick("01 东塔");
        span({2011, 3, 1}, {2011, 3, 3});
    }

    Frm每周来客统计分析& screen() { return program.app.screens.get<Frm每周来客统计分析>(); }
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
    bool isOpen() { return program.app.screens.loaded(Frm每周来客统计分析::screenName) != nullptr; }

    WeeklyProgram program;
};

TEST_F(Weekly, AnEmptyDictionaryHasAHeaderAndStillComesFirst) {
    program.run({"Delete From YZ_区域设置"});
    EXPECT_EQ(count({"QU", "XW"}), (Lines{"序|区域分析|人数|占比例", "|询问重点|人数|占比例",
                                          "2|租金|2|50.00%", "3|车位|2|50.00%"}));
    EXPECT_TRUE(isTitle(grid(), 1));
    // A new count begins anew, with no colours left.
    EXPECT_EQ(count({"XZ"}).size(), 3U);
    EXPECT_FALSE(isTitle(grid(), 1));
}

TEST_F(Weekly, APeriodWithoutLeadsHasCountsOfNothingAndNoShares) {
    EXPECT_EQ(grid().hint, "请选择区域、时段和项目，然后统计");
    span({2011, 6, 30}, {2011, 7, 1});
    EXPECT_EQ(count({"MT", "YS", "LR", "MJ"}),
              (Lines{"序|媒体分析|人数|占比例", "1|报纸|0|", "2|网络|0|",
                     "|预算租金（元/平米/天）|人次|占比例", "|每天来人量|人次|占比例", "5|06.30（周四）|0|",
                     "6|07.01（周五）|0|", "|面积分析|人次|占比例"}));
    EXPECT_EQ(grid().hint, "没有统计结果");
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
