#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "base/text.h"
#include "desktop/floating.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "desktop/sharp_frames.h"
#include "ui/batch.h"

namespace desk::desktop {
namespace {

/// What stands between a person's hand and the controls: what it does by the way must change nothing.
class Hand : public testing::Test {
  protected:
    Hand() {
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

TEST_F(Hand, TheWheelBelongsToWhatHasTheFocus) {
    for (const char* line : {"一", "二", "三"}) form.combo.addItem(line);
    form.combo.setIndex(1);
    form.day.setValue(DateTime(2026, 11, 25));
    form.tabs.setIndex(1);
    const Person person(shown({&form.first, &form.combo, &form.day, &form.tabs}));
    form.first.focus();
    for (const Control* control : std::initializer_list<Control*>{&form.combo, &form.day, &form.tabs})
        person.wheel(*control);
    EXPECT_EQ(form.combo.index(), 1);
    EXPECT_EQ(isoDay(form.day.value()), "2026-11-25");
    EXPECT_EQ(form.tabs.index(), 1);
    EXPECT_EQ(Person::focused(), "first");
    form.combo.focus();
    person.wheel(form.combo);
    EXPECT_EQ(form.combo.index(), 2);
}

TEST_F(Hand, TheWheelOverACalendarTurnsItsMonthWithTheFocusAlone) {
    form.calendar.setValue(DateTime(2026, 11, 25));
    const Person person(shown({&form.first, &form.calendar}));
    auto& months = person.at<QCalendarWidget>(form.calendar);
    auto* days = months.findChild<QAbstractItemView*>();
    form.first.focus();
    Person::wheel(*days->viewport());
    EXPECT_EQ(months.monthShown(), 11);
    days->setFocus();
    Person::wheel(*days->viewport());
    EXPECT_EQ(months.monthShown(), 12);
}

TEST_F(Hand, OfLinesFromAnInputMethodTheFirstIsTaken) {
    const Person person(shown({&form.first}));
    form.first.focus();
    QInputMethodEvent lines;
    lines.setCommitString("东塔\n西塔");
    QApplication::sendEvent(&person.at(form.first), &lines);
    EXPECT_EQ(form.first.text(), "东塔");
    QInputMethodEvent blank;
    blank.setCommitString(" ");
    QApplication::sendEvent(&person.at(form.first), &blank);
    EXPECT_EQ(form.first.text(), "东塔 ");
}

TEST_F(Hand, TheFocusSelectsAndClicksNothing) {
    fillTree();
    fillGrid();
    const Person person(shown({&form.first, &form.tree, &form.grid, &form.list}));
    form.list.addItem("岗位");
    form.first.focus();
    person.press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "list");
    person.backTab(2);
    EXPECT_EQ(Person::focused(), "tree");
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(form.tree.selected(), nullptr);
    EXPECT_EQ(form.list.index(), -1);
    for (const Control* view : std::initializer_list<Control*>{&form.tree, &form.grid, &form.list})
        EXPECT_FALSE(person.at<QAbstractItemView>(*view).selectionModel()->hasSelection());
    // A selected node that gets the focus again is not clicked again either.
    form.tree.select(form.tree.find("Bund"));
    person.press({Qt::Key_Tab});
    person.backTab();
    EXPECT_EQ(heard(), "");
}

TEST_F(Hand, KeysClickWhereTheScreenFollowsThemAndMoveElsewhere) {
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

TEST_F(Hand, OnlyALeftClickMarks) {
    fillTree();
    fillGrid();
    for (const char* line : {"报纸", "网络"}) form.several.addItem(line);
    const Person person(shown({&form.tree, &form.grid, &form.several}));
    const auto markedIn = [&](const Control& control) {
        QStringList texts;
        for (const auto& index : person.at<QAbstractItemView>(control).selectionModel()->selectedIndexes())
            texts << index.data().toString();
        return utf8(texts.join(","));
    };
    QWidget& tree = person.at(form.tree);
    QWidget& grid = person.at(form.grid);
    Person::click(viewportOf(tree), lineOf(tree, {0, 0}));
    Person::click(viewportOf(grid), lineOf(grid, {0}));
    EXPECT_EQ(heard(), "Alpha,1");
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        // A menu opens at the press: by then nothing may be marked, and the release may never come.
        QTest::mousePress(&viewportOf(tree), button, {}, lineOf(tree, {0, 1}));
        QTest::mousePress(&viewportOf(grid), button, {}, lineOf(grid, {1}));
        EXPECT_EQ(markedIn(form.tree) + markedIn(form.grid), "AlphaAlpha");
        Person::click(viewportOf(tree), lineOf(tree, {0, 1}), button);
        Person::click(viewportOf(grid), lineOf(grid, {1}), button);
        Person::click(viewportOf(person.at(form.several)), lineOf(person.at(form.several), {0}), button);
    }
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(markedIn(form.tree), "Alpha");
    EXPECT_EQ(markedIn(form.grid), "Alpha");
    EXPECT_EQ(current(), "1/0");
    EXPECT_TRUE(form.several.selectedTexts().empty());

    // A press that is let go elsewhere clicks nothing, and so marks nothing.
    for (QWidget* view : {&tree, &grid}) {
        const QPoint from = view == &tree ? lineOf(tree, {0, 1}) : lineOf(grid, {1});
        QTest::mousePress(&viewportOf(*view), Qt::LeftButton, {}, from);
        QTest::mouseRelease(&viewportOf(*view), Qt::LeftButton, {}, QPoint(from.x(), 2000));
    }
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(markedIn(form.tree), "Alpha");
    EXPECT_EQ(markedIn(form.grid), "Alpha");
    // A click with Ctrl takes no mark away.
    QTest::mouseClick(&viewportOf(tree), Qt::LeftButton, Qt::ControlModifier, lineOf(tree, {0, 0}));
    EXPECT_EQ(markedIn(form.tree), "Alpha");
}

TEST_F(Hand, ADoubleClickIsOneClickAndOneMore) {
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

TEST_F(Hand, ADoubleClickIsADoubleClickEverywhere) {
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

TEST_F(Hand, APasteIntoOneLineTakesOneLine) {
    const Person person(shown({&form.first, &form.password, &form.note}));
    const struct {
        const char* pasted;
        const char* taken;
    } pastes[] = {{"Bund\r\nShanghai", "Bund"},
                  {"\nBund\tEast \n", "Bund East"},
                  {"Bund   ", "Bund"},
                  {"\n", ""},
                  {"Bund", "Bund"}};
    for (const auto& each : pastes) {
        form.first.setText("<>");
        form.first.focus();
        person.press({Qt::Key_Home, Qt::Key_Right});
        person.paste(each.pasted);
        EXPECT_EQ(form.first.text(), std::string("<") + each.taken + ">");
    }
    person.press({Qt::Key_Z}, Qt::ControlModifier);
    EXPECT_EQ(form.first.text(), "<>");
    form.password.focus();
    person.paste("secret\n");
    EXPECT_EQ(form.password.text(), "secret");
    form.note.focus();
    person.paste("a\nb");
    EXPECT_EQ(form.note.text(), "a\r\nb");
    form.first.setLocked(true);
    form.first.focus();
    person.paste("x");
    EXPECT_EQ(form.first.text(), "<>");
}

TEST_F(Hand, OneRowIsOneLineHigh) {
    fillTree();
    form.grid.setText(0, 1, "名称\r\n全称");
    const Person person(shown({&form.tree, &form.grid}));
    const auto& tree = person.at<QAbstractItemView>(form.tree);
    const auto& model = *tree.model();
    EXPECT_EQ(model.index(2, 0, model.index(0, 0)).data().toString(), "Bund East");
    const auto& grid = person.at<QAbstractItemView>(form.grid);
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal), "名称 全称");
}

TEST_F(Hand, AClickIntoADaySelectsThePartUnderIt) {
    form.day.setValue(DateTime(2026, 11, 25));
    const Person person(shown({&form.first, &form.day}));
    auto& edit = person.at<QDateEdit>(form.day);
    auto& line = *edit.findChild<QLineEdit*>();
    const auto clickAt = [&](int cursor) {
        form.first.focus();
        for (int x = 0; x < line.width(); ++x)
            if (line.cursorPositionAt(QPoint(x, 5)) == cursor)
                return Person::click(line, QPoint(x, line.height() / 2));
        FAIL() << "no place for " << cursor;
    };
    clickAt(9);
    person.type("17");
    EXPECT_EQ(isoDay(form.day.value()), "2026-11-17");
    clickAt(6);
    person.type("03");
    EXPECT_EQ(isoDay(form.day.value()), "2026-03-17");
    clickAt(1);
    person.type("2012");
    EXPECT_EQ(isoDay(form.day.value()), "2012-03-17");
}

TEST_F(Hand, TheKeysOfADropDownOpenTheCalendarAndChangeNothing) {
    form.day.setValue(DateTime(2026, 11, 25));
    const Person person(shown({&form.day}));
    form.day.focus();
    const auto opens = [&](Qt::Key key, Qt::KeyboardModifiers with) {
        QTest::keyClick(&person.at(form.day), key, with);
        QWidget* popup = QApplication::activePopupWidget();
        if (popup == nullptr) return false;
        popup->close();
        return true;
    };
    EXPECT_TRUE(opens(Qt::Key_Down, Qt::AltModifier));
    EXPECT_TRUE(opens(Qt::Key_F4, {}));
    EXPECT_FALSE(opens(Qt::Key_Up, Qt::AltModifier));
    EXPECT_EQ(isoDay(form.day.value()), "2026-11-25");
    EXPECT_FALSE(opens(Qt::Key_Down, {}));
    EXPECT_NE(isoDay(form.day.value()), "2026-11-25");
}

TEST_F(Hand, TheKeysOfADropDownPressTheArrowOfAField) {
    Button arrow(form, "arrow", "▼");
    int pressed = 0;
    arrow.clicked += [&] { ++pressed; };
    QWidget* window = shown({&form.first, &form.second});
    floatOver(window, arrow, widgetFor(arrow), FloatsAt::rightEdge);
    arrow.setAnchor(&form.first);
    const Person person(window);
    QApplication::processEvents();
    QTest::keyClick(&person.at(form.first), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(pressed, 1);
    QTest::keyClick(&person.at(form.second), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(&person.at(form.first), Qt::Key_Down);
    EXPECT_EQ(pressed, 1);
    arrow.setAnchor(&form.second);
    QApplication::processEvents();
    QTest::keyClick(&person.at(form.first), Qt::Key_F4);
    EXPECT_EQ(pressed, 1);
    QTest::keyClick(&person.at(form.second), Qt::Key_F4);
    EXPECT_EQ(pressed, 2);
}

/// Whether a line darker than the ground of the list goes along all its edges.
bool isFramed(QWidget& list, double scale) {
    QImage picture(list.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    list.render(&picture);
    const int right = picture.width() - 1;
    const int bottom = picture.height() - 1;
    const auto isLine = [&](int x, int y, int dx, int dy) {
        const auto darkness = [&](int step) {
            return 255 - qGray(picture.pixel(x + step * dx, y + step * dy));
        };
        return std::max({darkness(0), darkness(1), darkness(2)}) > 40;
    };
    return isLine(0, bottom / 2, 1, 0) && isLine(right, bottom / 2, -1, 0) && isLine(right / 2, 0, 0, 1) &&
           isLine(right / 2, bottom, 0, -1);
}

TEST_F(Hand, AListIsFramedAtAnyScale) {
    const std::unique_ptr<QProxyStyle> style(sharpFrames());
    const Person person(shown({&form.list}));
    QWidget& list = person.at(form.list);
    list.setStyle(style.get());
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) EXPECT_TRUE(isFramed(list, scale)) << scale;
    list.setStyle(nullptr);
}

TEST_F(Hand, AClickLeavesATextSelectedThatIsToBeSoOnFocus) {
    form.first.setText("1002");
    form.first.focused += [this] { form.first.selectAll(); };
    const Person person(shown({&form.second, &form.first}));
    auto& edit = person.at<QLineEdit>(form.first);
    form.second.focus();
    QTest::mousePress(&edit, Qt::LeftButton, {}, edit.rect().center());
    QMouseEvent jitter(QEvent::MouseMove, QPointF(5, 5), edit.mapToGlobal(QPointF(5, 5)), Qt::NoButton,
                       Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &jitter);
    QTest::mouseRelease(&edit, Qt::LeftButton, {}, edit.rect().center());
    EXPECT_EQ(edit.selectedText(), "1002");
    // The next click goes into the text, as in any other.
    person.click(form.first);
    EXPECT_EQ(edit.selectedText(), "");
}

TEST_F(Hand, ALockedFieldIsFlatAndGreyAndPassedBy) {
    const Person person(shown({&form.first, &form.second, &form.note, &form.password}));
    auto& edit = person.at<QLineEdit>(form.second);
    const int height = edit.height();
    for (TextBox* box : {&form.second, &form.note}) box->setLocked(true);
    form.first.focus();
    person.press({Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "password");
    EXPECT_EQ(edit.palette().color(QPalette::Base), edit.palette().color(QPalette::Window));
    EXPECT_FALSE(edit.hasFrame());
    EXPECT_EQ(edit.sizeHint().expandedTo(edit.minimumSize()).height(), height);
    person.click(form.second);
    EXPECT_EQ(Person::focused(), "second") << "its text can be copied";
    for (TextBox* box : {&form.second, &form.note}) box->setLocked(false);
    form.first.focus();
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "second");
    EXPECT_NE(edit.palette().color(QPalette::Base), edit.palette().color(QPalette::Window));
}

TEST_F(Hand, ANumberThatReadsOtherwiseGetsACueAndStays) {
    form.first.setNumeric(true);
    const Person person(shown({&form.first}));
    const auto& edit = person.at<QLineEdit>(form.first);
    const struct {
        const char* text;
        const char* cue;
    } texts[] = {{"", ""},
                 {"350.5", ""},
                 {" 12 ", ""},
                 {"350㎡", "不是纯数字，将按 350 保存"},
                 {"1,200", "不是纯数字，将按 1 保存"},
                 {"约300", "不是纯数字，将按 0 保存"}};
    for (const auto& each : texts) {
        form.first.setText(each.text);
        EXPECT_EQ(utf8(edit.toolTip()), each.cue) << each.text;
        // Without a cue nothing stands behind the text that would take its room.
        EXPECT_EQ(edit.actions().size(), *each.cue != 0 ? 1 : 0) << each.text;
        EXPECT_EQ(utf8(edit.text()), each.text);
    }
    form.first.setNumeric(false);
    EXPECT_TRUE(edit.toolTip().isEmpty());
    EXPECT_TRUE(edit.actions().isEmpty());
}

TEST_F(Hand, ARefilledComboShowsItsNewColours) {
    const auto fill = [this](Colour colour) {
        const Batch filling(form.combo);
        form.combo.clear();
        form.combo.addItem("1 洽谈", 1, colour);
        form.combo.addItem("2 签约", 2);
    };
    fill(rgb(255, 0, 0));
    const Person person(shown({&form.combo}));
    const auto& combo = person.at<QComboBox>(form.combo);
    const auto shownColour = [&] { return combo.itemIcon(0).pixmap(8).toImage().pixelColor(4, 3); };
    EXPECT_EQ(shownColour(), QColor(255, 0, 0));
    fill(rgb(0, 0, 255));
    EXPECT_EQ(shownColour(), QColor(0, 0, 255));
    EXPECT_TRUE(combo.itemIcon(1).isNull());
}

/// A header of two rows: where equal titles are one there is no line between them.
TEST_F(Hand, EqualTitlesAreOne) {
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
