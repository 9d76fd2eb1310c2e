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

enum class TitleKind { modern, oldStyle };

/// A window of another program: it has a connection of its own to the display.
class OtherProgram {
  public:
    explicit OtherProgram(const std::string& title, TitleKind kind = TitleKind::modern)
        : display_(XOpenDisplay(nullptr)) {
        window = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 10, 10, 200, 100, 0, 0, 0);
        if (kind == TitleKind::modern) {
            XChangeProperty(display_, window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(title.data()),
                            static_cast<int>(title.size()));
        } else {
            XStoreName(display_, window, title.c_str());
        }
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
    Atom atom(const char* name) { return XInternAtom(display_, name, False); }
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

class WithWindowManager : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(display.isUp()); }
    VirtualDisplay display{VirtualDisplay::Manager::openbox};
};

TEST_F(WithWindowManager, BringsTheWindowWithExactlyThatTitleToTheFront) {
    OtherProgram launcher("鸿序楼台");
    OtherProgram longer("鸿序楼台 zhuxiao");
    OtherProgram latin("Invoice 2011", TitleKind::oldStyle);
    for (OtherProgram* program : {&launcher, &longer, &latin})
        ASSERT_TRUE(becomesTrue([&] { return isManaged(program->window); }));

    X11Programs programs;
    EXPECT_TRUE(programs.hasWindow("鸿序楼台") && programs.hasWindow("Invoice 2011"));
    EXPECT_FALSE(programs.hasWindow("鸿序楼") || programs.hasWindow("INVOICE 2011") ||
                 programs.hasWindow(""));
    programs.activate("鸿序楼台");
    EXPECT_TRUE(becomesTrue([&] { return launcher.hasKeyboard(); }));
    programs.activate("鸿序楼台 zhuxiao");
    EXPECT_EQ(x11::Server().activeWindow(), longer.window) << "the call waits until it took effect";
    programs.activate("Invoice 2011");
    EXPECT_EQ(x11::Server().activeWindow(), latin.window);
}

TEST_F(WithWindowManager, BringsAMinimisedWindowBack) {
    OtherProgram launcher("鸿序楼台");
    OtherProgram other("其它");
    ASSERT_TRUE(becomesTrue([&] { return isManaged(launcher.window) && isManaged(other.window); }));
    launcher.minimise();
    ASSERT_TRUE(becomesTrue([&] { return x11::Server().activeWindow() != launcher.window; }));
    EXPECT_TRUE(X11Programs().hasWindow("鸿序楼台"));

    X11Programs().activate("鸿序楼台");
    EXPECT_TRUE(becomesTrue([&] { return launcher.hasKeyboard(); }));
}

TEST_F(WithWindowManager, FailsWith5WhenNoWindowHasThatTitle) {
    OtherProgram launcher("鸿序楼台 zhuxiao");
    ASSERT_TRUE(becomesTrue([&] { return isManaged(launcher.window); }));
    EXPECT_EQ(failureOf("鸿序楼台"), failure::invalidCall);
    EXPECT_EQ(failureOf("鸿序楼台 ZHUXIAO"), failure::invalidCall);
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
