#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

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
            XCloseDisplay(std::exchange(display_, nullptr));
            return;
        }
        const bool answers =
            manner_ != Manner::refuses && (manner_ != Manner::latin || request.target == XA_STRING);
        if (answers && manner_ == Manner::inPieces) {
            reader_ = request;
            XSelectInput(display_, request.requestor, PropertyChangeMask);
            const long atLeast = 1;
            XChangeProperty(display_, request.requestor, request.property, atom("INCR"), 32, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(&atLeast), 1);
        } else if (answers) {
            write(request, text_);
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
        constexpr std::size_t piece = 7;
        write(reader_, text_.substr(0, piece));
        text_.erase(0, piece);
    }

    void write(const XSelectionRequestEvent& request, const std::string& bytes) {
        XChangeProperty(display_, request.requestor, request.property, request.target, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()));
        XFlush(display_);
    }

    const Manner manner_;
    std::string text_;
    Display* display_ = nullptr;
    Window window_ = None;
    XSelectionRequestEvent reader_{};  ///< in pieces
    std::atomic<bool> stop_ = false;
    std::thread answering_;
};

constexpr auto longEnough = 60s;

TEST(Clipboard, ReadsWhatIsHeldByWhomever) {
    QtClipboard clipboard(longEnough);
    EXPECT_EQ(clipboard.text(), "") << "nobody holds it";
    struct Case {
        Holder::Manner manner;
        std::string held;
        std::string read;
    };
    const std::vector<Case> cases = {
        {Holder::Manner::whole, "发票号码 00012345", "发票号码 00012345"},
        {Holder::Manner::inPieces, "发票号码 00012345，00012346", "发票号码 00012345，00012346"},
        {Holder::Manner::latin, "Caf\xE9 12", "Café 12"},
        {Holder::Manner::refuses, "x", ""},
        {Holder::Manner::ends, "x", ""}};
    for (const auto& [manner, held, read] : cases) {
        {
            const Holder other(manner, held);
            EXPECT_EQ(clipboard.text(), read);
        }
        EXPECT_EQ(clipboard.text(), "") << "its holder has ended";
    }
    QGuiApplication::clipboard()->setText("自己的 7");
    EXPECT_EQ(clipboard.text(), "自己的 7");
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
    for (int i = 0; i < 2; ++i) {
        clipboard.clear();
        EXPECT_EQ(clipboard.text(), "");
    }
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
