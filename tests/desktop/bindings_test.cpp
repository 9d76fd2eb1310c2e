#include <gtest/gtest.h>

#include <QApplication>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "base/failure.h"
#include "desktop/edge.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "desktop/screen_windows.h"
#include "ui/batch.h"

namespace desk::desktop {
namespace {

class Bindings : public testing::Test {
  protected:
    Form form;
};

TEST_F(Bindings, ATreeThatIsFilledShowsWhatIsOpenAndMarked) {
    const Person person(shown({&form.tree}));
    auto& view = person.at<QTreeView>(form.tree);
    {
        const Batch fill(form.tree);
        TreeNode& root = form.tree.add(nullptr, "L", "管理项目列表");
        form.tree.add(&root, "G01", "01 东塔");
        form.tree.setExpanded(root, true);
        form.tree.select(form.tree.find("G01"));
    }
    const QModelIndex root = view.model()->index(0, 0);
    EXPECT_TRUE(view.isExpanded(root));
    EXPECT_TRUE(view.selectionModel()->isSelected(view.model()->index(0, 0, root)));
    view.collapse(root);
    EXPECT_FALSE(form.tree.find("L")->expanded());
    form.tree.select(nullptr);
    EXPECT_FALSE(view.selectionModel()->hasSelection());
    form.tree.select(form.tree.find("G01"));
    EXPECT_TRUE(view.selectionModel()->hasSelection());
    form.tree.clear();
    EXPECT_EQ(view.model()->rowCount(), 0);
}

TEST_F(Bindings, AGridShowsItsColumnsAndItsCurrentRow) {
    const Person person(shown({&form.grid}));
    auto& view = person.at<QTableView>(form.grid);
    form.grid.setColumnWidth(2, 0);
    form.grid.setSelection(GridSelection::row);
    for (const char* name : {"甲", "乙", "丙"}) form.grid.addRow({"", name, "7"});
    EXPECT_EQ(view.model()->rowCount(), 3);
    EXPECT_TRUE(view.isColumnHidden(2));
    EXPECT_FALSE(view.isColumnHidden(1));
    form.grid.setCurrent(3, 2);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(2));
    form.grid.setCurrent(0, 0);
    EXPECT_FALSE(view.selectionModel()->hasSelection()) << "of the fixed rows none is marked";
}

TEST_F(Bindings, ATimerTicksWhileItIsEnabled) {
    Timer timer(form, "timer", 10);
    int ticks = 0;
    timer.tick += [&] { ++ticks; };
    timer.setEnabled(false);
    QObject host;
    runTimers(form, &host);
    QTest::qWait(60);
    EXPECT_EQ(ticks, 0);
    timer.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 2; }));
}

/// Presses away the box that is up, so that the process can go on to its end.
void pressAwayTheBox() {
    QTimer::singleShot(50, qApp, [] {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
}

TEST(Edge, AFailureThatNobodyTrapsIsShownAndEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto fail = [] {
        pressAwayTheBox();
        enter([] { throw RuntimeFailure(failure::noCurrentRow, "BOF 或 EOF 中有一个是真"); });
    };
    EXPECT_EXIT(fail(), testing::ExitedWithCode(1), "运行时错误 '3021'.*BOF 或 EOF");
    const auto failInAStatement = [] {
        pressAwayTheBox();
        enter([] {
            RuntimeFailure refused(failure::wrongStatement, "对象名 '无' 无效。");
            refused.setStatement("Select * From 无");
            throw refused;
        });
    };
    EXPECT_EXIT(failInAStatement(), testing::ExitedWithCode(1), "无效。\n语句：Select \\* From 无");
}

}  // namespace
}  // namespace desk::desktop

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
