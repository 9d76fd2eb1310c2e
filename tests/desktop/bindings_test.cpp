#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "base/failure.h"
#include "desktop/binding.h"
#include "desktop/layout.h"
#include "desktop/screen_windows.h"
#include "ui/batch.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/screen.h"
#include "ui/tree.h"

namespace desk::desktop {
namespace {

struct Form : Screen {
    Form() : Screen("form", "", WindowKind::dialog, 6000, 4000) {}

    TextBox first{*this, "first"};
    TextBox second{*this, "second"};
    TextBox note{*this, "note", TextStyle::paragraph};
    ComboBox combo{*this, "combo"};
    ListBox list{*this, "list", ListStyle::multiple};
    Tree tree{*this, "tree", Tree::Style::checkBoxes};
    Grid grid{*this, "grid", "<序|<名称    |编号"};
    DatePicker day{*this, "day"};
};

class Bindings : public testing::Test {
  protected:
    /// The widget of the control, in a window that has the keyboard.
    template <class Widget>
    Widget& show(std::initializer_list<Control*> controls) {
        std::vector<QWidget*> parts;
        for (Control* control : controls) parts.push_back(widgetFor(*control));
        window.reset(layout::rows(parts));
        layout::orderTabs(window.get());
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        return *static_cast<Widget*>(parts.front());
    }

    Form form;
    std::unique_ptr<QWidget> window;
};

TEST_F(Bindings, ATextGoesBothWaysAndNotIntoALockedBox) {
    auto& edit = show<QLineEdit>({&form.first, &form.second});
    edit.setFocus();
    QTest::keyClicks(&edit, "350");
    EXPECT_EQ(form.first.text(), "350");
    form.first.setText("甲");
    EXPECT_EQ(edit.text(), "甲");
    form.first.setLocked(true);
    QTest::keyClicks(&edit, "9");
    EXPECT_EQ(form.first.text(), "甲");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "second");
    form.first.setEnabled(false);
    EXPECT_FALSE(edit.isEnabled());
}

TEST_F(Bindings, LinesOfAParagraphAreStoredAsOtherProgramsEndThem) {
    auto& edit = show<QPlainTextEdit>({&form.note});
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
    auto& box = show<QComboBox>({&form.combo});
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
    for (const char* name : {"报纸", "网络", "展会"}) form.list.addItem(name);
    auto& list = show<QListWidget>({&form.list});
    const auto clickLine = [&](int line) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(line)).center());
    };
    clickLine(0);
    clickLine(2);
    EXPECT_EQ(form.list.selectedTexts(), (std::vector<std::string>{"报纸", "展会"}));
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(form.list.selectedTexts(), std::vector<std::string>{"报纸"});
    form.list.clearSelection();
    EXPECT_TRUE(list.selectedItems().empty());
}

TEST_F(Bindings, ATreeIsClickedByArrowKeysAndTickedByItsBoxes) {
    auto& view = show<QTreeView>({&form.tree});
    std::vector<std::string> clicks;
    form.tree.nodeClicked += [&](TreeNode& node) { clicks.push_back(node.text()); };
    {
        const Batch fill(form.tree);
        TreeNode& root = form.tree.add(nullptr, "L", "管理项目列表");
        form.tree.add(&root, "G01", "01 东塔");
        form.tree.setExpanded(root, true);
    }
    EXPECT_TRUE(view.isExpanded(view.model()->index(0, 0)));
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Down);
    ASSERT_FALSE(clicks.empty());
    EXPECT_EQ(clicks.back(), "01 东塔");
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_TRUE(form.tree.find("G01")->checked());
    form.tree.select(nullptr);
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().empty());
    form.tree.clear();
    EXPECT_EQ(view.model()->rowCount(), 0);
}

TEST_F(Bindings, AGridHidesAndMergesAndIsClickedByArrowKeys) {
    auto& view = show<QTableView>({&form.grid});
    int clicks = 0;
    form.grid.clicked += [&] { ++clicks; };
    form.grid.setColumnWidth(2, 0);
    form.grid.setMerging(Merge::free);
    form.grid.setMergesColumn(1, true);
    for (const char* name : {"甲", "甲", "乙"}) form.grid.addRow({"", name, "7"});
    EXPECT_EQ(view.model()->rowCount(), 3);
    EXPECT_TRUE(view.isColumnHidden(2));
    EXPECT_EQ(view.rowSpan(0, 1), 2);
    view.setFocus();
    form.grid.setCurrent(1, 0);
    EXPECT_EQ(clicks, 0);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(form.grid.row(), 2);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      view.visualRect(view.model()->index(2, 1)).center());
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(form.grid.row(), 3);
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
}

TEST_F(Bindings, ADayIsTypedAsOneReadsIt) {
    show<QWidget>({&form.first, &form.day});
    form.day.setValue(DateTime(2026, 11, 25));
    window->findChild<QWidget*>("first")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "2020-01-05");
    EXPECT_EQ(isoDay(form.day.value()), "2020-01-05");
    // Also where the whole text was selected first.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), "2011-03-15");
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
