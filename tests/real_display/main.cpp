#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "platform/virtual_display.h"

#include <X11/Xlib.h>

/// Tests of what the toolkit does on a real display, which must be there before the application is made.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    XInitThreads();
    const desk::VirtualDisplay display(desk::VirtualDisplay::Manager::openbox);
    if (!display.isUp()) return 1;
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
