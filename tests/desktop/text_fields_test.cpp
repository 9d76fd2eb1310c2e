#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include "desktop/form.h"
#include "desktop/person.h"

namespace desk::desktop {
namespace {

/// What a person does at fields that hold a text.
class TextFields : public testing::Test {
  protected:
    Form form;
};

TEST_F(TextFields, OfLinesFromAnInputMethodTheFirstIsTaken) {
    const Person person(shown({&form.first}));
    form.first.focus();
    QInputMethodEvent lines;
    lines.setCommitString("东塔\n西塔");
    QApplication::sendEvent(&person.at(form.first), &lines);
    EXPECT_EQ(form.first.text(), "东塔");
    // What the screen writes is read from its beginning, and typed in there.
    form.first.setText("西塔");
    person.type("1");
    EXPECT_EQ(form.first.text(), "1西塔");
    form.first.setText("东塔");
    person.press({Qt::Key_End});
    QInputMethodEvent blank;
    blank.setCommitString(" ");
    QApplication::sendEvent(&person.at(form.first), &blank);
    EXPECT_EQ(form.first.text(), "东塔 ");
}

TEST_F(TextFields, APasteIntoOneLineTakesOneLine) {
    const Person person(shown({&form.first, &form.note}));
    const struct {
        const char* pasted;
        const char* taken;
    } pastes[] = {
        {"Bund\r\nShanghai", "Bund"}, {"\nBund\tEast \n", "Bund East"}, {"Bund   ", "Bund"}, {"\n", ""}};
    for (const auto& each : pastes) {
        form.first.setText("<>");
        form.first.focus();
        person.press({Qt::Key_Home, Qt::Key_Right});
        person.paste(each.pasted);
        EXPECT_EQ(form.first.text(), std::string("<") + each.taken + ">");
    }
    person.press({Qt::Key_Z}, Qt::ControlModifier);
    EXPECT_EQ(form.first.text(), "<>");
    form.note.focus();
    person.paste("a\nb");
    EXPECT_EQ(form.note.text(), "a\r\nb");
    form.first.setLocked(true);
    form.first.focus();
    person.paste("x");
    EXPECT_EQ(form.first.text(), "<>");
}

TEST_F(TextFields, AClickLeavesATextSelectedThatIsToBeSoOnFocus) {
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

TEST_F(TextFields, ALockedFieldIsFlatAndGreyAndPassedBy) {
    const Person person(shown({&form.first, &form.second, &form.note, &form.password}));
    auto& edit = person.at<QLineEdit>(form.second);
    const int height = edit.height();
    for (TextBox* box : {&form.second, &form.note}) box->setLocked(true);
    form.first.focus();
    person.press({Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "password");
    EXPECT_EQ(edit.palette().color(QPalette::Base), edit.palette().color(QPalette::Window));
    EXPECT_FALSE(edit.hasFrame());
    EXPECT_TRUE(person.at<QPlainTextEdit>(form.note).isReadOnly());
    EXPECT_EQ(edit.sizeHint().expandedTo(edit.minimumSize()).height(), height);
    person.click(form.second);
    EXPECT_EQ(Person::focused(), "second") << "its text can be copied";
    for (TextBox* box : {&form.second, &form.note}) box->setLocked(false);
    form.first.focus();
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "second");
    EXPECT_NE(edit.palette().color(QPalette::Base), edit.palette().color(QPalette::Window));
}

TEST_F(TextFields, ANumberThatReadsOtherwiseGetsACueAndStays) {
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

}  // namespace
}  // namespace desk::desktop
