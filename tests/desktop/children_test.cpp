#include <QMdiArea>

#include "analysis/classification.h"
#include "desktop/sheet_windows.h"

namespace desk::desktop {
namespace {

/// The children of the main window: which is in front, how large, and where the keyboard is.
using Children = SheetWindows;

TEST_F(Children, CarryTheTitlesOfTheirScreens) {
    Sheet& sheet = open("sheet");
    EXPECT_EQ(child("sheet")->windowTitle(), "表");
    sheet.setCaption("新表");
    EXPECT_EQ(child("sheet")->windowTitle(), "新表");
}

TEST_F(Children, ComeBeforeAMaximisedOneInTheirOwnSizeAndOutOfTheTaskBar) {
    open("sheet");
    child("sheet")->showMaximized();
    for (int time = 0; time < 2; ++time) {
        const Sheet& other = open("other");
        EXPECT_FALSE(child("other")->isMaximized());
        EXPECT_EQ(child("other")->widget()->width(), pixels(other.width()));
        // The buttons in the menu bar would be those of the one behind.
        EXPECT_FALSE(child("sheet")->isMaximized());
        open("sheet");
        child("sheet")->showMaximized();
        open("sheet");
        EXPECT_TRUE(child("sheet")->isMaximized());
    }
    child("sheet")->showMinimized();
    open("sheet");
    EXPECT_FALSE(child("sheet")->isMinimized());
}

TEST_F(Children, HaveTheFocusWhereItWasWhenTheyComeBack) {
    for (const char* size : {"", "large"}) {
        SCOPED_TRACE(size);
        step = [&](Sheet& sheet) { sheet.tag = size; };
        Sheet& sheet = open("sheet");
        auto* first = at(sheet.first);
        first->setFocus();
        QTest::keyClicks(first, "half a");
        int told = 0;
        for (Control* field : {&sheet.first, &sheet.second}) field->focused += [&] { ++told; };
        Sheet& other = open("other");
        open("sheet");
        QTest::keyClicks(QApplication::focusWidget(), " word");
        EXPECT_EQ(sheet.first.text(), "half a word");

        // By the keys that go from child to child, and when the one before it goes.
        open("other");
        child("sheet")->mdiArea()->activatePreviousSubWindow();
        QApplication::processEvents();
        EXPECT_EQ(QApplication::focusWidget(), first);
        EXPECT_EQ(told, 0) << "it comes back, and is not entered anew";

        // A click into another field of a window at the back goes there.
        if (sheet.tag.empty()) {
            open("other");
            QTest::mouseClick(at(sheet.second), Qt::LeftButton);
            QApplication::processEvents();
            EXPECT_EQ(QApplication::focusWidget(), at(sheet.second));
        }
        unload(sheet);
        unload(other);
        QApplication::processEvents();
    }
}

TEST_F(Children, HaveTheFocusInAFieldThatIsShownAsSoonAsTheyOpen) {
    for (const KnownScreen& known : screenList()) {
        if (known.make(*app)->kind() != WindowKind::child) continue;
        SCOPED_TRACE(known.name);
        bring(known.name);
        const QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        EXPECT_TRUE(child(known.name)->isAncestorOf(focused) && focused->isVisible());
    }
    // No matter what else is open: Tab stays in the window that one sees.
    bring(Frm客户分类统计::screenName);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(child(Frm客户分类统计::screenName)->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Children, StandInTheMiddleWithTheirFramesWhereTheyAreCentred) {
    bring("frmAbout");
    const QRect at = child("frmAbout")->geometry();
    EXPECT_LE(std::abs(at.left() - (area().width() - at.right() - 1)), 1);
    EXPECT_LE(std::abs(at.top() - (area().height() - at.bottom() - 1)), 1);
}

}  // namespace
}  // namespace desk::desktop
