#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <functional>
#include <thread>

#include "desktop/qt_clipboard.h"
#include "platform/x11/x11_keyboard.h"

// Behind all others: its macros have the commonest of names.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace desk::desktop {
namespace {

using namespace std::chrono_literals;

/// Another program that holds the clipboard, on a connection of its own.
class Holder {
  public:
    /// What it does when it is asked: hands the text out whole or in pieces, in Latin 1 alone, says that it
    /// has none, says nothing, or ends.
    enum class Manner { whole, inPieces, latin, refuses, silent, ends };

    Holder(Manner manner, std::string text) : manner_(manner), text_(std::move(text)) {
        display_ = XOpenDisplay(nullptr);
        window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display_, atom("CLIPBOARD"), window_, CurrentTime);
        XSync(display_, False);
        answering_ = std::thread([this] { run(); });
    }
    ~Holder() {
        stop_ = true;
        answering_.join();
        if (display_ != nullptr) XCloseDisplay(display_);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    /// Called as it is asked, on its own thread.
    std::function<void()> asked = [] {};

  private:
    static constexpr std::size_t piece = 7;

    Atom atom(const char* name) { return XInternAtom(display_, name, False); }

    void run() {
        while (!stop_ && display_ != nullptr) {
            if (XPending(display_) == 0) {
                std::this_thread::sleep_for(1ms);
                continue;
            }
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type == SelectionRequest) answer(event.xselectionrequest);
            if (event.type == PropertyNotify && event.xproperty.state == PropertyDelete) sendPiece();
        }
    }

    void answer(const XSelectionRequestEvent& request) {
        asked();
        if (manner_ == Manner::silent) return;
        if (manner_ == Manner::ends) {
            XCloseDisplay(display_);
            display_ = nullptr;
            return;
        }
        const bool isLatin = request.target == XA_STRING;
        const bool answers = manner_ != Manner::refuses && (manner_ != Manner::latin || isLatin);
        if (answers && manner_ == Manner::inPieces) {
            reader_ = request.requestor;
            property_ = request.property;
            XSelectInput(display_, reader_, PropertyChangeMask);
            const long atLeast = 1;
            XChangeProperty(display_, reader_, property_, atom("INCR"), 32, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(&atLeast), 1);
        } else if (answers) {
            write(request.requestor, request.property, request.target, text_);
        }
        XEvent told{};
        told.xselection.type = SelectionNotify;
        told.xselection.requestor = request.requestor;
        told.xselection.selection = request.selection;
        told.xselection.target = request.target;
        told.xselection.property = answers ? request.property : None;
        XSendEvent(display_, request.requestor, False, NoEventMask, &told);
        XFlush(display_);
    }

    void sendPiece() {
        write(reader_, property_, atom("UTF8_STRING"), text_.substr(0, piece));
        text_.erase(0, piece);
    }

    void write(Window window, Atom property, Atom type, const std::string& bytes) {
        XChangeProperty(display_, window, property, type, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()));
        XFlush(display_);
    }

    const Manner manner_;
    std::string text_;
    Display* display_ = nullptr;
    Window window_ = None;
    Window reader_ = None;
    Atom property_ = None;
    std::atomic<bool> stop_ = false;
    std::thread answering_;
};

constexpr auto longEnough = 60s;

TEST(Clipboard, ReadsWhatAnotherProgramHolds) {
    QtClipboard clipboard(longEnough);
    EXPECT_EQ(clipboard.text(), "") << "nobody holds it";
    {
        const Holder other(Holder::Manner::whole, "发票号码 00012345");
        EXPECT_EQ(clipboard.text(), "发票号码 00012345");
        EXPECT_EQ(clipboard.text(), "发票号码 00012345");
    }
    EXPECT_EQ(clipboard.text(), "") << "its holder has ended";
    {
        const std::string longText = "发票号码 00012345，发票号码 00012346";
        const Holder other(Holder::Manner::inPieces, longText);
        EXPECT_EQ(clipboard.text(), longText);
    }
    {
        const Holder other(Holder::Manner::latin, "Caf\xE9 12");
        EXPECT_EQ(clipboard.text(), "Café 12");
    }
    const Holder other(Holder::Manner::refuses, "x");
    EXPECT_EQ(clipboard.text(), "");
}

TEST(Clipboard, ReadsWhatThisProgramHoldsItself) {
    QGuiApplication::clipboard()->setText("自己的 7");
    EXPECT_EQ(QtClipboard(longEnough).text(), "自己的 7");
}

TEST(Clipboard, ClearsItWhoeverHoldsIt) {
    QtClipboard clipboard(longEnough);
    {
        // It has copied later than this program was last told a time.
        const Holder other(Holder::Manner::whole, "old");
        clipboard.clear();
        EXPECT_EQ(clipboard.text(), "");
    }
    QGuiApplication::clipboard()->setText("own");
    clipboard.clear();
    EXPECT_EQ(clipboard.text(), "");
    clipboard.clear();
    EXPECT_EQ(clipboard.text(), "");
}

TEST(Clipboard, AHolderThatEndsIsNotWaitedFor) {
    const Holder other(Holder::Manner::ends, "x");
    EXPECT_EQ(QtClipboard(longEnough).text(), "");
}

TEST(Clipboard, AHolderThatDoesNotAnswerIsWaitedForAWhileInWhichTheWindowLivesButTakesNoInput) {
    QLineEdit field;
    field.show();
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    Holder other(Holder::Manner::silent, "x");
    std::atomic<bool> typed = false;
    other.asked = [&] {
        X11Keyboard().send("a");
        typed = true;
    };
    int ticks = 0;
    QString seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        ++ticks;
        seen += field.text();
    });
    timer.start(10);
    EXPECT_EQ(QtClipboard(1500ms).text(), "");
    EXPECT_GT(ticks, 0);
    EXPECT_EQ(seen, "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed && field.text() == "a"; }, 60'000));
}

}  // namespace
}  // namespace desk::desktop
