#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <thread>

#include "platform/eventually.h"
#include "platform/virtual_display.h"
#include "platform/x11/x11_programs.h"
#include "support/failures.h"

// Behind all others: its macros have the commonest of names.
#include <X11/Xutil.h>

#include "platform/x11/server.h"

namespace desk {
namespace {

using namespace std::chrono_literals;

/// A window of another program: it has a connection of its own to the display.
class OtherProgram {
  public:
    explicit OtherProgram(const std::string& title) : display_(XOpenDisplay(nullptr)) {
        window = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 10, 10, 200, 100, 0, 0, 0);
        // An old program has no other title than one in Latin letters.
        XStoreName(display_, window, title.c_str());
        if (title.find("Invoice") == std::string::npos)
            XChangeProperty(display_, window, XInternAtom(display_, "_NET_WM_NAME", False),
                            XInternAtom(display_, "UTF8_STRING", False), 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(title.data()),
                            static_cast<int>(title.size()));
        XWMHints takesInput{};
        takesInput.flags = InputHint;
        takesInput.input = True;
        XSetWMHints(display_, window, &takesInput);
        XMapWindow(display_, window);
        XSync(display_, False);
    }
    ~OtherProgram() { XCloseDisplay(display_); }

    void minimise() {
        XIconifyWindow(display_, window, DefaultScreen(display_));
        XSync(display_, False);
    }
    bool hasKeyboard() {
        Window focused = None;
        int revertsTo = 0;
        XGetInputFocus(display_, &focused, &revertsTo);
        return focused == window;
    }

    Window window = None;

  private:
    Display* display_;
};

long failureOf(std::string_view title) {
    return desk::failureOf([&] { X11Programs().activate(title); });
}

bool isManaged(Window window) {
    x11::Server server;
    const auto all = server.topLevelWindows();
    return server.hasWindowManager() && std::find(all.begin(), all.end(), window) != all.end();
}

TEST(WithWindowManager, BringsTheWindowWithExactlyThatTitleToTheFront) {
    const VirtualDisplay display(VirtualDisplay::Manager::openbox);
    ASSERT_TRUE(display.isUp());
    OtherProgram launcher("鸿序楼台");
    OtherProgram longer("鸿序楼台 zhuxiao");
    OtherProgram latin("Invoice 2011");
    for (OtherProgram* program : {&launcher, &longer, &latin})
        ASSERT_TRUE(becomesTrue([&] { return isManaged(program->window); }));

    X11Programs programs;
    EXPECT_TRUE(programs.hasWindow("鸿序楼台") && programs.hasWindow("Invoice 2011"));
    EXPECT_FALSE(programs.hasWindow("INVOICE 2011") || programs.hasWindow(""));
    for (const auto* other : {"鸿序楼", "鸿序楼台 ZHUXIAO"}) {
        EXPECT_FALSE(programs.hasWindow(other));
        EXPECT_EQ(failureOf(other), failure::invalidCall);
    }
    programs.activate("鸿序楼台");
    EXPECT_TRUE(becomesTrue([&] { return launcher.hasKeyboard(); }));
    programs.activate("鸿序楼台 zhuxiao");
    EXPECT_EQ(x11::Server().activeWindow(), longer.window) << "the call waits until it took effect";
    programs.activate("Invoice 2011");
    EXPECT_EQ(x11::Server().activeWindow(), latin.window);

    launcher.minimise();
    EXPECT_TRUE(programs.hasWindow("鸿序楼台"));
    programs.activate("鸿序楼台");
    EXPECT_TRUE(becomesTrue([&] { return launcher.hasKeyboard(); }));
}

TEST(WithoutWindowManager, GivesTheWindowTheKeyboardDirectly) {
    VirtualDisplay display(VirtualDisplay::Manager::none);
    ASSERT_TRUE(display.isUp());
    OtherProgram first("税控发票开票软件");
    OtherProgram second("税控发票打印");

    X11Programs().activate("税控发票开票软件");
    EXPECT_TRUE(first.hasKeyboard());
    X11Programs().activate("税控发票打印");
    EXPECT_TRUE(second.hasKeyboard());
    EXPECT_EQ(failureOf("鸿序楼台"), failure::invalidCall);
}

TEST(WithoutDisplay, ThereIsNoWindowAndBringingOneFailsWith5) {
    ::setenv("DISPLAY", ":9999", 1);
    EXPECT_FALSE(X11Programs().hasWindow("鸿序楼台"));
    EXPECT_EQ(failureOf("鸿序楼台"), failure::invalidCall);
    ::unsetenv("DISPLAY");
    EXPECT_EQ(failureOf("鸿序楼台"), failure::invalidCall);
}

}  // namespace
}  // namespace desk
