#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QHeaderView>
#include <QProxyStyle>
#include <QTableView>
#include <QTest>

#include "base/text.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "ui/batch.h"

namespace desk::desktop {
namespace {

/// What a person does at trees, grids and lists, and what of it clicks or marks something.
class Views : public testing::Test {
  protected:
    Views() {
        form.tree.nodeClicked += [this](TreeNode& node) { clicks.emplace_back(node.text()); };
        form.grid.clicked += [this] { clicks.push_back(std::to_string(form.grid.row())); };
        form.grid.doubleClicked += [this] { clicks.emplace_back("again"); };
    }

    void fillTree() {
        const Batch fill(form.tree);
        TreeNode& root = form.tree.add(nullptr, "L", "来人登记");
        for (const char* name : {"Alpha", "Bund", "Bund\r\nEast"}) form.tree.add(&root, name, name);
        form.tree.setExpanded(root, true);
    }
    void fillGrid() {
        for (const char* name : {"Alpha", "Bund", "Castle"}) form.grid.addRow({name});
    }
    std::string heard() {
        const std::string all = join(clicks, ",");
        clicks.clear();
        return all;
    }
    std::string current() const {
        return std::to_string(form.grid.row()) + "/" + std::to_string(form.grid.column());
    }

    Form form;
    std::vector<std::string> clicks;
};

TEST_F(Views, KeysClickWhereTheScreenFollowsThemAndMoveElsewhere) {
    fillTree();
    fillGrid();
    const Person person(shown({&form.tree, &form.grid}));
    form.tree.focus();
    person.press({Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(heard(), "来人登记,Alpha");
    person.type("b");
    EXPECT_EQ(heard(), "Bund");
    person.press({Qt::Key_Return});
    EXPECT_EQ(heard(), "Bund");
    form.tree.setMovingKeys(MovingKeys::move);
    person.press({Qt::Key_Up});
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(form.tree.selected()->text(), "Alpha");
    person.press({Qt::Key_Space});
    EXPECT_EQ(heard(), "Alpha");
    // The focus alone clicks nothing, also where a node is selected already.
    person.press({Qt::Key_Tab});
    person.backTab();
    EXPECT_EQ(heard(), "");

    form.grid.focus();
    person.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Right});
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(current(), "2/1");
    person.press({Qt::Key_Space, Qt::Key_Return});
    EXPECT_EQ(heard(), "2,2");
    form.grid.setMovingKeys(MovingKeys::click);
    form.grid.setSelection(GridSelection::row);
    person.press({Qt::Key_Down, Qt::Key_Left});
    EXPECT_EQ(heard(), "3");
    EXPECT_EQ(current(), "3/0");
    form.grid.setEnabled(false);
    form.grid.moveTo(1, 1);
    EXPECT_EQ(current(), "3/0");
}

TEST_F(Views, OnlyALeftClickMarks) {
    fillTree();
    fillGrid();
    form.several.addItem("报纸");
    const Person person(shown({&form.tree, &form.grid, &form.several}));
    const auto marked = [&] {
        QStringList texts;
        for (const Control* control : std::initializer_list<Control*>{&form.tree, &form.grid, &form.several})
            for (const auto& index :
                 person.at<QAbstractItemView>(*control).selectionModel()->selectedIndexes())
                texts << index.data().toString();
        return utf8(texts.join(","));
    };
    QWidget& tree = person.at(form.tree);
    QWidget& grid = person.at(form.grid);
    QWidget& several = person.at(form.several);
    Person::click(viewportOf(tree), lineOf(tree, {0, 0}));
    Person::click(viewportOf(grid), lineOf(grid, {0}));
    EXPECT_EQ(heard(), "Alpha,1");
    const std::pair<QWidget*, QPoint> others[] = {
        {&tree, lineOf(tree, {0, 1})}, {&grid, lineOf(grid, {1})}, {&several, lineOf(several, {0})}};
    for (const auto& [view, at] : others)
        for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
            // A menu opens at the press: by then nothing may be marked, and the release may never come.
            QTest::mousePress(&viewportOf(*view), button, {}, at);
            EXPECT_EQ(marked(), "Alpha,Alpha");
            Person::click(viewportOf(*view), at, button);
        }
    // A press that is let go elsewhere clicks nothing, and so marks nothing.
    for (const auto& [view, at] : {others[0], others[1]}) {
        QTest::mousePress(&viewportOf(*view), Qt::LeftButton, {}, at);
        QTest::mouseRelease(&viewportOf(*view), Qt::LeftButton, {}, QPoint(at.x(), 2000));
    }
    EXPECT_EQ(marked(), "Alpha,Alpha");
    // A click with Ctrl takes no mark away.
    QTest::mouseClick(&viewportOf(tree), Qt::LeftButton, Qt::ControlModifier, lineOf(tree, {0, 0}));
    EXPECT_EQ(heard(), "Alpha");
    EXPECT_EQ(marked(), "Alpha,Alpha");
    EXPECT_EQ(current(), "1/0");
}

TEST_F(Views, ADoubleClickIsOneClickAndOneMore) {
    fillGrid();
    const Person person(shown({&form.grid, &form.button}));
    QWidget& grid = person.at(form.grid);
    Person::doubleClick(viewportOf(grid), lineOf(grid, {1}));
    EXPECT_EQ(heard(), "2,again");

    int saves = 0;
    form.button.clicked += [&] { ++saves; };
    QWidget& button = person.at(form.button);
    Person::doubleClick(button, button.rect().center());
    EXPECT_EQ(saves, 1);
    // Nor does Enter save again and again while it is held.
    form.button.focus();
    for (const bool again : {false, true, true}) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", again);
        QApplication::sendEvent(&button, &enter);
    }
    EXPECT_EQ(saves, 2);
}

/// As desktops that open things with one click ask for.
class OneClick : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_ItemView_ActivateItemOnSingleClick
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

TEST_F(Views, ADoubleClickIsADoubleClickEverywhere) {
    for (const char* line : {"招商专员", "主管"}) form.list.addItem(line);
    const Person person(shown({&form.list}));
    QWidget& list = person.at(form.list);
    OneClick style;
    list.setStyle(&style);
    std::vector<int> chosen;
    form.list.doubleClicked += [&](int line) { chosen.push_back(line); };
    Person::click(viewportOf(list), lineOf(list, {1}));
    EXPECT_TRUE(chosen.empty());
    Person::doubleClick(viewportOf(list), lineOf(list, {1}));
    EXPECT_EQ(chosen, std::vector<int>{1});
    person.press({Qt::Key_Up, Qt::Key_Return});
    EXPECT_EQ(chosen, (std::vector<int>{1, 0}));
    EXPECT_EQ(form.list.index(), 0);
    list.setStyle(nullptr);
}

TEST_F(Views, OneRowIsOneLineHigh) {
    fillTree();
    form.grid.setText(0, 1, "名称\r\n全称");
    const Person person(shown({&form.tree, &form.grid}));
    const auto& tree = person.at<QAbstractItemView>(form.tree);
    const auto& model = *tree.model();
    EXPECT_EQ(model.index(2, 0, model.index(0, 0)).data().toString(), "Bund East");
    const auto& grid = person.at<QAbstractItemView>(form.grid);
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal), "名称 全称");
}

/// A header of two rows: where equal titles are one there is no line between them.
TEST_F(Views, EqualTitlesAreOne) {
    form.grid.addRow({"名称", "名称", "编号"});
    for (const int column : {0, 1}) form.grid.setText(0, column, "客户");
    form.grid.setText(0, 2, "其它");
    form.grid.setFixedRows(2);
    form.grid.setMerging(Merge::free);
    form.grid.setMergesRow(0, true);  // the second row shows its equal titles apart
    const Person person(shown({&form.grid}));
    auto& header = *person.at<QTableView>(form.grid).horizontalHeader();
    const QImage picture = header.grab().toImage();
    const auto lineBehind = [&](int column, int row) {
        const int x = header.sectionViewportPosition(column) + header.sectionSize(column) - 1;
        const int y = header.height() * (2 * row + 1) / 4 + 6;
        return picture.pixelColor(x, y) != picture.pixelColor(x - 4, y);
    };
    EXPECT_FALSE(lineBehind(0, 0));
    EXPECT_TRUE(lineBehind(1, 0));
    EXPECT_TRUE(lineBehind(0, 1));
    EXPECT_TRUE(lineBehind(1, 1));
}

}  // namespace
}  // namespace desk::desktop
