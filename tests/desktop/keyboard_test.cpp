#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

#include "desktop/screen_list.h"
#include "reference/customer_dictionaries.h"
#include "support/test_program.h"

namespace desk::desktop {
namespace {

/// The customer dictionaries in a window, and a person without a mouse.
class Keyboard : public testing::Test {
  protected:
    Keyboard() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.enter();
        screen = std::make_unique<Frm客户相关信息设置>(program.app);
        screen->load();
        window.reset(layoutOf(*screen));
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void press(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) QTest::keyClick(QApplication::focusWidget(), key);
    }
    void backTab(int times) {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }

    TestProgram program;
    std::unique_ptr<Frm客户相关信息设置> screen;
    std::unique_ptr<QWidget> window;
};

TEST_F(Keyboard, AnEntryIsAddedChangedAndDeletedWithoutAMouse) {
    window->findChild<QWidget*>("区域设置.名称")->setFocus();
    type("Bund");
    press({Qt::Key_Return});
    type("by the river");
    press({Qt::Key_Return});
    EXPECT_EQ(focused(), "区域设置.确定");
    press({Qt::Key_Return});
    EXPECT_EQ(program.rows("Select 说明 From YZ_区域设置 Where 区域名称='Bund'"),
              std::vector<std::string>{"by the river"});

    // Arrow keys look through the list, Enter takes the entry up.
    backTab(3);
    EXPECT_EQ(focused(), "区域设置.列表");
    press({Qt::Key_Up});
    EXPECT_EQ(focused(), "区域设置.列表");
    EXPECT_EQ(screen->状态栏.panel(0), "修改");
    press({Qt::Key_Down});
    EXPECT_EQ(screen->区域.名称.text(), "Bund");
    press({Qt::Key_Return});
    EXPECT_EQ(focused(), "区域设置.名称");
    type("West Bund");
    press({Qt::Key_Return, Qt::Key_Return, Qt::Key_Return});
    EXPECT_EQ(program.rows("Select 区域名称 From YZ_区域设置 Where 说明='by the river'"),
              std::vector<std::string>{"West Bund"});

    program.desktop.answers = {Answer::yes};
    press({Qt::Key_Tab, Qt::Key_Return});
    EXPECT_TRUE(program.rows("Select * From YZ_区域设置 Where 说明='by the river'").empty());
}

}  // namespace
}  // namespace desk::desktop
