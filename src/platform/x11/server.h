#pragma once

#include <X11/Xlib.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace desk::x11 {

/// A connection to the X server that DISPLAY names, with the few questions that driving other windows needs.
/// While it lives, errors that the server reports are passed over: other programs' windows come and go as
/// they like.
class Server {
  public:
    Server();
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// False when there is no server. Nothing else may be called then.
    bool isConnected() const { return display_ != nullptr; }

    /// Why no program can type and point there, in words for a person; empty where it can.
    std::string inputRefusal();
    /// Fails with 70 where there is no server, or it takes no keys and no mouse from a program.
    void requireInput();

    Window root() const { return DefaultRootWindow(display_); }

    /// The top-level windows of all programs, hidden ones too where there is a window manager.
    std::vector<Window> topLevelWindows();
    /// The window's title in UTF-8; empty without one.
    std::string title(Window window);
    /// Whether a window manager is there that activates windows for others.
    bool hasWindowManager();
    /// The window that the window manager holds for active.
    std::optional<Window> activeWindow();

    /// Asks the window manager to bring the window to the front and give it the keyboard.
    void requestActivation(Window window);
    /// Does the same without one.
    void raise(Window window);
    /// Waits until the window is the active one; false when `patience` ran out.
    bool awaitActive(Window window, std::chrono::milliseconds patience);

    Display* display() const { return display_; }

    /// What keys go to now: a window or a part of one, or None or PointerRoot.
    Window focus();
    /// The program's window that the part belongs to; itself where it is none.
    Window topLevelOf(Window part);
    /// Whether this very process made the window.
    bool isOwn(Window window);
    /// Whether the window's program says when it has dealt with all that it was told.
    bool answersPings(Window window);
    /// Waits until it does; false when `patience` ran out.
    bool ping(Window window, std::chrono::milliseconds patience);
    /// Waits until the window manager has dealt with all that programs have asked of it so far; false when
    /// `patience` ran out, or nobody there says so.
    bool pingWindowManager(std::chrono::milliseconds patience);

    /// In pixels of the screen; the pointer stays inside.
    void movePointer(int x, int y);
    void movePointerBy(int dx, int dy);
    /// 1 left, 2 middle, 3 right.
    void pressButton(unsigned button, bool down);

  private:
    using Clock = std::chrono::steady_clock;

    /// Waits for the server to tell something; false when the time is up.
    bool awaitEvents(Clock::time_point deadline);
    /// Waits for an event that answers; false when the time is up.
    template <class Question>
    bool awaitAnswer(Clock::time_point deadline, Question answers);
    bool supports(const char* feature);
    void send(Window window, Window about, const char* type, long first, long second, long third, long mask);
    Atom atom(const char* name);
    std::vector<unsigned long> numbers(Window window, const char* property, Atom type);
    std::string utf8(Window window, const char* property);
    std::string oldStyleTitle(Window window);
    std::vector<Window> children(Window window);
    Window parent(Window window);
    /// The one above and those below.
    std::pair<Window, std::vector<Window>> relatives(Window window);

    Display* display_ = nullptr;
    XErrorHandler formerHandler_ = nullptr;
};

}  // namespace desk::x11
