#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QTest>

#include "desktop/floating.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "ui/batch.h"

namespace desk::desktop {
namespace {

/// Days, calendars, combos and the arrows of fields, at which keys and the wheel must not choose by the way.
class DropDowns : public testing::Test {
  protected:
    Form form;
};

TEST_F(DropDowns, TheWheelBelongsToWhatHasTheFocus) {
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

TEST_F(DropDowns, TheWheelOverACalendarTurnsItsMonthWithTheFocusAlone) {
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
    std::string taken;
    form.calendar.dayClicked += [&](const DateTime& day) { taken = isoDay(day); };
    person.press({Qt::Key_Right, Qt::Key_Return});
    EXPECT_EQ(taken, "2026-12-26");
}

TEST_F(DropDowns, AClickIntoADaySelectsThePartUnderIt) {
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

TEST_F(DropDowns, TheKeysOfADropDownOpenTheCalendarAndChangeNothing) {
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

TEST_F(DropDowns, TheKeysOfADropDownPressTheArrowOfAField) {
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
    // A click on it leaves the person in the field.
    form.first.focus();
    Person::click(person.at(arrow), person.at(arrow).rect().center());
    EXPECT_EQ(std::exchange(pressed, 1), 2);
    EXPECT_EQ(Person::focused(), "first");
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

TEST_F(DropDowns, ARefilledComboShowsItsNewColours) {
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

}  // namespace
}  // namespace desk::desktop
