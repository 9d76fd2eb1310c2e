#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolTip>
#include <QTreeView>

#include "desktop/binding.h"
#include "desktop/ending.h"
#include "desktop/layout.h"
#include "desktop/person.h"
#include "desktop/screen_keys.h"
#include "desktop/tree_count.h"
#include "desktop/words.h"
#include "ui/batch.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/screen.h"
#include "ui/tree.h"

namespace desk::desktop {
namespace {

struct Form : Screen {
    Form() : Screen("form", "登记", WindowKind::child, 9000, 6000) {}

    Tree tree{*this, "tree"};
    Grid grid{*this, "grid", "<序|<名称  |<编号|>数量"};
    ListBox list{*this, "list", ListStyle::multiple};
    TextBox company{*this, "页.公司名称"};
    TextBox password{*this, "password", TextStyle::password};
    Button sure{*this, "sure", "确定"};
    Button add{*this, "add", "新增"};
    Frame panel{*this, "panel"};
    TextBox inPanel{panel, "inPanel"};
    Button panelSure{panel, "panelSure", "确定"};
};

/// A screen's content in a window that has the keyboard.
class Look : public testing::Test {
  protected:
    void show(QWidget* content) {
        window.reset(content);
        window->setWindowTitle("登记");
        addScreenKeys(content);
        window->resize(700, 500);
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    template <class Widget>
    Widget& widget(const char* name) {
        auto* found = window->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    static void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    static void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }

    void fillTree(int leads) {
        const Batch fill(form.tree);
        for (int i = 1; i <= leads; ++i) {
            const std::string no = "2026-" + std::to_string(1000 + i);
            form.tree.add(nullptr, no, "（引驻来人）" + no + " Company " + std::to_string(i));
        }
    }

    Form form;
    std::unique_ptr<QWidget> window;
};

TEST_F(Look, AnEmptyTreeSaysWhatToDoFirstAndAFullOneHowManyItHas) {
    form.tree.hint = "请先选择管理项目";
    show(layout::rows({counted(form.tree, "客户", Entries::top)}));
    auto& hint = widget<QLabel>("qt_hint");
    auto& count = widget<QLabel>("tree.数目");
    EXPECT_EQ(hint.text(), "请先选择管理项目");
    EXPECT_TRUE(hint.isVisible());
    EXPECT_EQ(count.text(), "");
    fillTree(3);
    EXPECT_FALSE(hint.isVisible());
    EXPECT_EQ(count.text(), "共 3 个");
    form.tree.hint = "没有客户";
    form.tree.clear();
    EXPECT_EQ(hint.text(), "没有客户");
    EXPECT_TRUE(hint.isVisible());
}

TEST_F(Look, FindingMarksAndEnterClicks) {
    show(layout::rows({widgetFor(form.company), widgetFor(form.tree)}));
    fillTree(300);
    std::vector<std::string> clicks;
    form.tree.nodeClicked += [&](TreeNode& node) { clicks.emplace_back(node.key()); };
    auto& view = widget<QTreeView>("tree");
    view.setFocus();
    form.tree.select(nullptr);
    clicks.clear();
    press(Qt::Key_F, Qt::ControlModifier);
    type("company 29");
    const auto found = [&] { return view.currentIndex().data().toString(); };
    EXPECT_TRUE(found().endsWith("Company 29"));
    press(Qt::Key_F3);
    EXPECT_TRUE(found().endsWith("Company 290"));
    EXPECT_TRUE(view.viewport()->rect().intersects(view.visualRect(view.currentIndex())));
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_TRUE(found().endsWith("Company 29"));
    // One more letter leads on, and nothing is selected by all this.
    type("9");
    EXPECT_TRUE(found().endsWith("Company 299"));
    EXPECT_EQ(form.tree.selected(), nullptr);
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().empty());
    EXPECT_TRUE(clicks.empty());
    press(Qt::Key_Return);
    EXPECT_EQ(clicks, std::vector<std::string>{"2026-1299"});
    EXPECT_EQ(QApplication::focusWidget(), &view);

    // The line covers nothing that it has found, at the very end either.
    const auto* bar = window->findChild<QFrame*>("qt_findbar");
    for (const char* wanted : {"company 4", "company 13", "company 299", "company 300"}) {
        press(Qt::Key_F, Qt::ControlModifier);
        type(wanted);
        const QRect at = view.visualRect(view.currentIndex()).translated(view.viewport()->pos());
        EXPECT_TRUE(view.viewport()->geometry().contains(QPoint(at.left(), at.bottom()))) << wanted;
        EXPECT_FALSE(bar->geometry().intersects(at)) << wanted;
    }
    press(Qt::Key_Escape);

    // From a field the first tree or grid is searched; Escape leaves all as it was.
    widget<QLineEdit>("页.公司名称").setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    type("nobody");
    EXPECT_EQ(window->findChild<QFrame*>("qt_findbar")->findChild<QLabel*>()->text(), "未找到");
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->findChild<QFrame*>("qt_findbar")->isVisible());
    EXPECT_EQ(clicks.size(), 1U);
}

TEST_F(Look, TypedLettersFindANumberBehindItsMark) {
    show(layout::rows({widgetFor(form.tree)}));
    fillTree(20);
    auto& view = widget<QTreeView>("tree");
    view.setFocus();
    type("2026-1012");
    EXPECT_EQ(view.currentIndex().row(), 11);
}

TEST_F(Look, WhatIsRevealedIsInViewAndNotSelected) {
    show(layout::columns({widgetFor(form.tree), widgetFor(form.grid)}));
    fillTree(300);
    for (int i = 1; i <= 300; ++i) form.grid.addRow({std::to_string(i), "甲"});
    auto& tree = widget<QTreeView>("tree");
    auto& grid = widget<QTableView>("grid");
    form.tree.reveal(*form.tree.roots().back());
    form.grid.reveal(300);
    EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualRect(tree.model()->index(299, 0)).center()));
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(grid.model()->index(299, 0)).center()));
    EXPECT_TRUE(tree.selectionModel()->selectedIndexes().empty());
    EXPECT_NE(form.grid.row(), 300);
    // The key finds where the keyboard is.
    grid.setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(grid.isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Look, RowsAreCopiedAsASpreadsheetTakesThem) {
    show(layout::rows({widgetFor(form.grid)}));
    form.grid.setColumnWidth(2, 0);
    form.grid.addRow({"1", "甲", "K", "7"});
    form.grid.addRow({"2", "a\"b", "K", "9"});
    int clicks = 0;
    form.grid.clicked += [&] { ++clicks; };
    auto& view = widget<QTableView>("grid");
    view.setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "1\t甲\t7\n2\t\"a\"\"b\"\t9");
    EXPECT_EQ(clicks, 0);
    form.grid.setSelection(GridSelection::row);
    form.grid.setCurrent(1, 1);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "1\t甲\t7");

    // The menu takes the row below the pointer, and marks nothing.
    const auto choose = [&](const char* start) {
        view.customContextMenuRequested(view.visualRect(view.model()->index(1, 1)).center());
        const std::unique_ptr<QMenu> menu(view.findChild<QMenu*>());
        for (QAction* entry : menu->actions()) {
            EXPECT_EQ(entry->isEnabled(), form.grid.rows() > 1 || entry->isSeparator());
            if (entry->text().startsWith(start)) entry->trigger();
        }
        return clipboard();
    };
    EXPECT_EQ(choose("复制此行"), "2\t\"a\"\"b\"\t9");
    EXPECT_EQ(choose("复制此格"), "\"a\"\"b\"");
    EXPECT_EQ(choose("复制全部"), "1\t甲\t7\n2\t\"a\"\"b\"\t9");
    EXPECT_EQ(choose("连同标题"), "序\t名称\t数量\n1\t甲\t7\n2\t\"a\"\"b\"\t9");
    choose("查找");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "qt_find");
    EXPECT_EQ(form.grid.row(), 1);
    EXPECT_EQ(clicks, 0);
    form.grid.setRows(1);
    choose("");
}

TEST_F(Look, SpareWidthGoesToTextsAndNumbersHaveRoom) {
    show(layout::rows({widgetFor(form.grid)}));
    form.grid.addRow({"1234", "盛远国际贸易有限公司", "17", "5"});
    form.grid.addRow({"→", "佳信", "18", "6"});
    auto& view = widget<QTableView>("grid");
    int whole = 0;
    for (int column = 0; column < 4; ++column) whole += view.columnWidth(column);
    EXPECT_EQ(whole, view.viewport()->width());
    EXPECT_GE(view.columnWidth(0), view.fontMetrics().horizontalAdvance("1234") + 6);
    EXPECT_LT(view.columnWidth(0), 60);
    EXPECT_GT(view.columnWidth(1), 400);
    EXPECT_LT(view.columnWidth(2), 100);
    const int before = view.columnWidth(1);
    window->resize(900, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.columnWidth(1) > before; }));

    // A width that a person has given stays with these rows.
    auto& header = viewportOf(*view.horizontalHeader());
    const QPoint edge(view.columnWidth(0) + view.columnWidth(1) - 1, header.height() / 2);
    QTest::mousePress(&header, Qt::LeftButton, {}, edge);
    QTest::mouseMove(&header, edge - QPoint(100, 0));
    QTest::mouseRelease(&header, Qt::LeftButton, {}, edge - QPoint(100, 0));
    const int dragged = view.columnWidth(1);
    form.grid.setText(1, 1, "佳");
    EXPECT_EQ(view.columnWidth(1), dragged);
    form.grid.addRow({"3", "盛远"});
    EXPECT_GT(view.columnWidth(1), dragged);
}

TEST_F(Look, ACutTextIsShownInFullWhileThePointerRestsOnIt) {
    const auto tipAt = [](QWidget& shown, QPoint at) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
        QHelpEvent rest(QEvent::ToolTip, at, shown.mapToGlobal(at));
        QApplication::sendEvent(&shown, &rest);
        return utf8(QToolTip::text());
    };
    show(layout::rows({widgetFor(form.company), widgetFor(form.password), widgetFor(form.grid)}));
    const std::string name = "盛远国际贸易<上海>有限公司";
    std::string names;
    for (int i = 0; i < 9; ++i) names += name;
    form.grid.addRow({"1", names});
    form.grid.addRow({"2", name});
    const auto& view = widget<QTableView>("grid");
    const auto cell = [&](int row) { return view.visualRect(view.model()->index(row, 1)).center(); };
    EXPECT_NE(tipAt(*view.viewport(), cell(0)).find("贸易&lt;上海&gt;有限"), std::string::npos);
    EXPECT_EQ(tipAt(*view.viewport(), cell(1)), "");
    auto& company = widget<QLineEdit>("页.公司名称");
    auto& password = widget<QLineEdit>("password");
    form.company.setText(names);
    form.password.setText(names);
    EXPECT_NE(tipAt(company, {5, 5}).find("贸易&lt;上海&gt;有限"), std::string::npos);
    EXPECT_EQ(tipAt(password, {5, 5}), "");
    form.company.setText(name);
    EXPECT_EQ(tipAt(company, {5, 5}), "");
}

TEST_F(Look, KeysPressTheButtonsOfTheScreen) {
    auto* panel =
        layout::framed(form.panel, layout::rows({widgetFor(form.inPanel), widgetFor(form.panelSure)}));
    // The button of the panel is the last of its caption, and the nearest to what is typed in it.
    show(layout::rows({widgetFor(form.company), widgetFor(form.sure), widgetFor(form.add), panel}));
    std::string pressed;
    form.sure.clicked += [&] { pressed += "确定 "; };
    form.panelSure.clicked += [&] { pressed += "面板 "; };
    form.add.clicked += [&] { pressed += "新增 "; };
    widget<QLineEdit>("inPanel").setFocus();
    press(Qt::Key_S, Qt::ControlModifier);
    form.panel.setVisible(false);
    widget<QLineEdit>("页.公司名称").setFocus();
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(pressed, "面板 确定 新增 ");
    // The mode is in the caption: what is being entered is not given up by the key for a new one.
    form.add.setCaption("取消");
    press(Qt::Key_N, Qt::ControlModifier);
    form.sure.setEnabled(false);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(pressed, "面板 确定 新增 ");
    // One that is hidden does not stand before the others.
    form.sure.setEnabled(true);
    form.sure.setVisible(false);
    form.panel.setVisible(true);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(pressed, "面板 确定 新增 面板 ");
    EXPECT_EQ(widget<QPushButton>("add").text(), "取消(&C)");
    EXPECT_EQ(widget<QPushButton>("add").accessibleName(), "取消");
}

TEST_F(Look, TheFieldsOfShownWindowsCanBeCopiedWithoutPasswords) {
    form.list.addItem("报纸");
    form.list.addItem("网络");
    form.list.addItem("展会");
    show(layout::rows(
        {widgetFor(form.company), widgetFor(form.password), widgetFor(form.list), widgetFor(form.inPanel)}));
    form.company.setText("盛远国际");
    form.password.setText("secret");
    form.list.setSelected(0, true);
    form.list.setSelected(2, true);
    EXPECT_EQ(textsOfShownFields().toStdString(), "【登记】\n公司名称：盛远国际\nlist：报纸,展会");
    window->hide();
    EXPECT_EQ(textsOfShownFields().toStdString(), "");
}

TEST(ChineseWords, CoverWhatTheToolkitLeavesInEnglish) {
    const Words words;
    EXPECT_EQ(words.translate("QAbstractFileIconProvider", "Folder", nullptr, -1), "文件夹");
    EXPECT_EQ(words.translate("QAbstractFileIconProvider", "%1 File", nullptr, -1).arg("XLS"), "XLS 文件");
    EXPECT_EQ(words.translate("QLineEdit", "Folder", nullptr, -1), QString());
}

}  // namespace
}  // namespace desk::desktop
