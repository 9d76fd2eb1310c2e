#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/virtual_display.h"
#include "platform/x11/x11_pointer.h"
#include "support/failures.h"

// Behind all others: its macros have the commonest of names.
#include <X11/Xlib.h>

namespace desk {
namespace {

/// A window over the whole screen, which notes the buttons that are pressed and let go.
class WholeScreen {
  public:
    WholeScreen() : display_(XOpenDisplay(nullptr)) {
        window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 800, 600, 0, 0, 0);
        XSelectInput(display_, window_, ButtonPressMask | ButtonReleaseMask);
        XMapWindow(display_, window_);
        XSync(display_, False);
    }
    ~WholeScreen() { XCloseDisplay(display_); }
    WholeScreen(const WholeScreen&) = delete;
    WholeScreen& operator=(const WholeScreen&) = delete;

    /// "25 85", where the pointer is.
    std::string place() {
        Window window = None;
        int x = 0;
        int y = 0;
        int inside = 0;
        unsigned buttons = 0;
        XQueryPointer(display_, window_, &window, &window, &x, &y, &inside, &inside, &buttons);
        return std::to_string(x) + " " + std::to_string(y);
    }
    /// "+1 -1" for the left button down and up, since it was asked last.
    std::string buttons() {
        XSync(display_, False);
        std::string all;
        while (XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type != ButtonPress && event.type != ButtonRelease) continue;
            all += (all.empty() ? "" : " ") + std::string(event.type == ButtonPress ? "+" : "-") +
                   std::to_string(event.xbutton.button);
        }
        return all;
    }

  private:
    Display* display_;
    Window window_;
};

TEST(PointerOfX11, GoesWhereItIsPutAndPressesWhatItIsTold) {
    const VirtualDisplay display(VirtualDisplay::Manager::none);
    ASSERT_TRUE(display.isUp());
    WholeScreen screen;
    X11Pointer pointer;
    const auto placeAfter = [&](unsigned flags, int dx, int dy) {
        pointer.event(flags, dx, dy);
        return screen.place();
    };
    pointer.moveTo(25, 85);
    EXPECT_EQ(screen.place(), "25 85");
    pointer.moveTo(-7, 100'000);
    EXPECT_EQ(screen.place(), "0 599");
    pointer.moveTo(462, 70);
    EXPECT_EQ(placeAfter(0, 90, 30), "462 70") << "no flags, no effect";
    EXPECT_EQ(screen.buttons(), "");
    EXPECT_EQ(placeAfter(Pointer::move, 90, -30), "552 40");
    EXPECT_EQ(placeAfter(Pointer::leftDown | Pointer::leftUp, 90, 30), "552 40")
        << "dx and dy belong to a move";
    EXPECT_EQ(screen.buttons(), "+1 -1");
    EXPECT_EQ(placeAfter(Pointer::move, -70'000, 0), "0 40");
    pointer.event(Pointer::rightDown, 0, 0);
    EXPECT_EQ(placeAfter(Pointer::middleDown | Pointer::move, 1, 2), "1 42");
    pointer.event(Pointer::middleUp, 0, 0);
    pointer.event(Pointer::rightUp, 0, 0);
    EXPECT_EQ(screen.buttons(), "+3 +2 -2 -3");
}

TEST(PointerOfX11, FailsWith70WithoutAServerWhereThereIsAnythingToDo) {
    ::unsetenv("DISPLAY");
    X11Pointer pointer;
    EXPECT_EQ(failureOf([&] { pointer.moveTo(0, 0); }), failure::permissionDenied);
    EXPECT_EQ(failureOf([&] { pointer.event(Pointer::leftDown, 0, 0); }), failure::permissionDenied);
    EXPECT_EQ(failureOf([&] { pointer.event(0, 90, 0); }), 0);
}

}  // namespace
}  // namespace desk
