#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "base/failure.h"
#include "platform/x11/x11_keyboard.h"

namespace desk {
namespace {

/// The program itself is busy typing, and could not learn in time what the spare keys mean.
TEST(TypingIntoAnOwnWindow, TakesTheKeysOfTheLayoutAloneAndRefusesTheRestAtOnce) {
    QLineEdit field;
    field.show();
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));

    X11Keyboard().send("aB1{LEFT}");
    EXPECT_TRUE(QTest::qWaitFor([&] { return field.text() == "aB1"; }, 60'000));
    try {
        X11Keyboard().send("c中");
        ADD_FAILURE() << "typed";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::permissionDenied);
        EXPECT_EQ(failure.description(), "键盘在本程序自己的窗口上，不能输入布局以外的字符");
    }
    X11Keyboard().send("d");
    EXPECT_TRUE(QTest::qWaitFor([&] { return field.text().size() > 3; }, 60'000));
    EXPECT_EQ(field.text(), "aBd1");
}

}  // namespace
}  // namespace desk
