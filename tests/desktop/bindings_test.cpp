#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
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

TEST_F(Bindings, LinesOfAParagraphAreStoredAsOtherProgramsEndThem) {
    const Person person(shown({&form.note}));
    auto& edit = person.at<QPlainTextEdit>(form.note);
    form.note.setText("一\r\n二");
    EXPECT_EQ(edit.toPlainText(), "一\n二");
    EXPECT_EQ(form.note.text(), "一\r\n二");
    edit.moveCursor(QTextCursor::End);
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClicks(&edit, "3");
    EXPECT_EQ(form.note.text(), "一\r\n二\r\n3");
}

TEST_F(Bindings, AComboShowsItsNewLinesAfterARefillOfTheSameLength) {
    form.combo.addItem("01 东塔");
    const Person person(shown({&form.combo}));
    auto& box = person.at<QComboBox>(form.combo);
    form.combo.setIndex(0);
    {
        const Batch fill(form.combo);
        form.combo.clear();
        form.combo.addItem("02 西塔");
    }
    EXPECT_EQ(box.itemText(0), "02 西塔");
    EXPECT_EQ(box.currentIndex(), -1);
    int picked = 0;
    form.combo.selected += [&] { ++picked; };
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(form.combo.text(), "02 西塔");
    EXPECT_EQ(picked, 1);
}

TEST_F(Bindings, LinesOfAListAreToggledByMouseAndKeyboard) {
    for (const char* name : {"报纸", "网络", "展会"}) form.several.addItem(name);
    const Person person(shown({&form.several}));
    auto& list = person.at<QListWidget>(form.several);
    const auto clickLine = [&](int line) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(line)).center());
    };
    clickLine(0);
    clickLine(2);
    EXPECT_EQ(form.several.selectedTexts(), (std::vector<std::string>{"报纸", "展会"}));
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(form.several.selectedTexts(), std::vector<std::string>{"报纸"});
    form.several.clearSelection();
    EXPECT_TRUE(list.selectedItems().empty());
}

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

TEST_F(Bindings, ADayIsTypedAsOneReadsIt) {
    const Person person(shown({&form.first, &form.day}));
    form.day.setValue(DateTime(2026, 11, 25));
    form.first.focus();
    person.press({Qt::Key_Tab});
    person.type("2020-01-05");
    EXPECT_EQ(isoDay(form.day.value()), "2020-01-05");
    // Also where the whole text was selected first.
    person.press({Qt::Key_A}, Qt::ControlModifier);
    person.type("2011-03-15");
    EXPECT_EQ(isoDay(form.day.value()), "2011-03-15");
}

}  // namespace
}  // namespace desk::desktop

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
