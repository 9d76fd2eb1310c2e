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
