#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "platform/x11/x11_keyboard.h"
#include "support/failures.h"

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
    EXPECT_EQ(outcomeOf([] { X11Keyboard().send("c中"); }),
              (Outcome{failure::permissionDenied, "键盘在本程序自己的窗口上，不能输入布局以外的字符"}));
    X11Keyboard().send("d");
    EXPECT_TRUE(QTest::qWaitFor([&] { return field.text().size() > 3; }, 60'000));
    EXPECT_EQ(field.text(), "aBd1");
}

}  // namespace
}  // namespace desk
