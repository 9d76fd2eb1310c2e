#include <gtest/gtest.h>

#include <QListWidget>
#include <QTest>

#include "base/text.h"
#include "desktop/form.h"
#include "desktop/person.h"

namespace desk::desktop {
namespace {

/// A list of which several lines are marked, and one of which one line is chosen.
class Lists : public testing::Test {
  protected:
    Lists() {
        for (const char* line : {"a", "b", "c", "d", "e"}) {
            form.several.addItem(line);
            form.list.addItem(line);
        }
        form.several.clicked += [this](int) { ++clicks; };
        form.list.clicked += [this](int line) { chosen = line; };
        form.list.setMovingKeys(MovingKeys::move);
    }

    void click(Control& list, int line, Qt::KeyboardModifiers with = {}) const {
        QTest::mouseClick(&viewportOf(person.at(list)), Qt::LeftButton, with,
                          lineOf(person.at(list), {line}));
    }
    /// The marked lines, as the control holds them and as they are shown.
    std::string marked() const {
        std::string shownLines;
        auto& view = person.at<QListWidget>(form.several);
        for (int line = 0; line < view.count(); ++line)
            if (view.item(line)->isSelected()) shownLines += utf8(view.item(line)->text());
        EXPECT_EQ(shownLines, join(form.several.selectedTexts(), ""));
        return shownLines;
    }
    int current() const { return person.at<QListWidget>(form.several).currentRow(); }

    Form form;
    int clicks = 0;
    int chosen = -1;
    Person person{shown({&form.first, &form.several, &form.list})};
};

TEST_F(Lists, AClickTurnsAMarkAndLeavesTheOthers) {
    click(form.several, 3);
    click(form.several, 1, Qt::ControlModifier);
    EXPECT_EQ(marked(), "bd");
    click(form.several, 3);
    click(form.several, 1, Qt::ControlModifier);
    EXPECT_EQ(marked(), "");
    EXPECT_EQ(clicks, 4);
}

TEST_F(Lists, ShiftGivesTheLinesBetweenTheMarkOfTheFirst) {
    click(form.several, 3);
    click(form.several, 1, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "bcd");
    EXPECT_EQ(clicks, 3);
    click(form.several, 4, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "bcde");
    click(form.several, 2);
    click(form.several, 4, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "b");
}

TEST_F(Lists, TheKeyboardMovesTurnsMarksAndExtends) {
    person.at(form.several).setFocus(Qt::TabFocusReason);
    person.press({Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(marked(), "");
    EXPECT_EQ(current(), 2);
    person.press({Qt::Key_Space});
    EXPECT_EQ(marked(), "c");
    person.press({Qt::Key_Down, Qt::Key_Up}, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "cd");
    person.press({Qt::Key_Up}, Qt::ControlModifier);
    person.press({Qt::Key_Up});
    EXPECT_EQ(marked(), "cd");
    person.press({Qt::Key_Down}, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "abcd");
    person.press({Qt::Key_Space});
    person.press({Qt::Key_End}, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "a");
    person.press({Qt::Key_A}, Qt::ControlModifier);
    EXPECT_EQ(marked(), "abcde");
}

TEST_F(Lists, AllMarksComeAndGoWithTheScreen) {
    form.several.setAllSelected(true);
    EXPECT_EQ(marked(), "abcde");
    form.several.setAllSelected(false);
    EXPECT_EQ(marked(), "");
    // Shift goes on from where no line is any more.
    click(form.several, 4);
    form.several.clear();
    for (const char* line : {"f", "g"}) form.several.addItem(line);
    click(form.several, 0, Qt::ShiftModifier);
    EXPECT_EQ(marked(), "fg");
    EXPECT_EQ(clicks, 3);
}

TEST_F(Lists, KeysMoveThroughOneThatActsOnAClickAndSpaceAndEnterClickIt) {
    person.at(form.list).setFocus(Qt::TabFocusReason);
    person.press({Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(form.list.index(), 2);
    EXPECT_EQ(chosen, -1);
    person.press({Qt::Key_Return});
    EXPECT_EQ(chosen, 2);
    person.press({Qt::Key_Up, Qt::Key_Space});
    EXPECT_EQ(chosen, 1);
    click(form.list, 4);
    EXPECT_EQ(chosen, 4);
    form.list.setMovingKeys(MovingKeys::click);
    person.press({Qt::Key_Up});
    EXPECT_EQ(chosen, 3);
}

}  // namespace
}  // namespace desk::desktop
