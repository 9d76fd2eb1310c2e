#include "desktop/panel.h"

#include "desktop/sheet_windows.h"

namespace desk::desktop {
namespace {

/// A panel over the sheet, whose second field has the focus.
class Panels : public SheetWindows {
  protected:
    Panels() {
        panelOver(content, panel, layout::rows({layout::plain(above), layout::plain(close)}));
        at(sheet.second)->setFocus();
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    static std::string focused() { return utf8(QApplication::focusWidget()->objectName()); }

    Sheet& sheet = open("sheet");
    QWidget* content = at(sheet.first)->parentWidget();
    Panel panel{sheet, "panel", "选择"};
    TextBox above{panel, "above"};
    Button close{panel, "close", "关闭"};
};

TEST_F(Panels, TakeTheFocusKeepItAndGiveItBackOnEscape) {
    int entered = 0;
    sheet.second.focused += [&] { ++entered; };
    EXPECT_FALSE(at(panel)->isVisible());
    panel.open();
    EXPECT_TRUE(at(panel)->isVisible());
    EXPECT_EQ(at(panel)->geometry().top(), content->height() / 2);
    EXPECT_EQ(focused(), "above");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "close");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "above");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "close");
    // In a field beside it the key means something else.
    at(sheet.first)->setFocus();
    press(Qt::Key_Escape);
    EXPECT_TRUE(at(panel)->isVisible());
    at(close)->setFocus();
    press(Qt::Key_Escape);
    EXPECT_FALSE(panel.isOpen());
    EXPECT_FALSE(at(panel)->isVisible());
    EXPECT_EQ(focused(), "second");
    EXPECT_EQ(entered, 0);
}

TEST_F(Panels, LieBelowTheirFieldAndLeaveThePersonWhoHasGoneElsewhereThere) {
    panel.setAnchor(&sheet.first);
    panel.open();
    EXPECT_EQ(at(panel)->geometry().top(), at(sheet.first)->geometry().bottom() + 1);
    at(sheet.first)->setFocus();
    panel.close();
    EXPECT_EQ(focused(), "first");
}

}  // namespace
}  // namespace desk::desktop
