#include "platform/x11/server.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <poll.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "base/failure.h"

namespace desk::x11 {

namespace {

constexpr long wholeProperty = 1L << 20;  ///< in units of four bytes; the server gives what there is

struct FreedByX {
    void operator()(void* memory) const { XFree(memory); }
};

int passOver(Display*, XErrorEvent*) {
    return 0;
}

/// One property as the server holds it.
struct Property {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    std::unique_ptr<unsigned char, FreedByX> data;
};

Property read(Display* display, Window window, Atom name, Atom type) {
    Property property;
    unsigned char* data = nullptr;
    unsigned long rest = 0;
    if (XGetWindowProperty(display, window, name, 0, wholeProperty, False, type, &property.type,
                           &property.format, &property.count, &rest, &data) != Success)
        return {};
    property.data.reset(data);
    return property;
}

}  // namespace

Server::Server() : display_(XOpenDisplay(nullptr)) {
    if (isConnected()) formerHandler_ = XSetErrorHandler(passOver);
}

Server::~Server() {
    if (!isConnected()) return;
    XSync(display_, False);
    XSetErrorHandler(formerHandler_);
    XCloseDisplay(display_);
}

void Server::requireInput() {
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    if (isConnected() && XTestQueryExtension(display_, &event, &error, &major, &minor) != 0) return;
    const bool wayland = std::getenv("WAYLAND_DISPLAY") != nullptr && std::getenv("DISPLAY") == nullptr;
    throw RuntimeFailure(failure::permissionDenied,
                         wayland ? "Wayland 桌面不允许程序代替键盘和鼠标，请用 X11 会话登录系统"
                         : isConnected() ? "X 服务器不支持 XTEST 扩展，程序不能代替键盘和鼠标"
                                         : "没有 X11 桌面，程序不能代替键盘和鼠标");
}

Atom Server::atom(const char* name) {
    return XInternAtom(display_, name, False);
}

std::vector<unsigned long> Server::numbers(Window window, const char* property, Atom type) {
    const Property found = read(display_, window, atom(property), type);
    if (!found.data || found.type != type || found.format != 32) return {};
    // Whatever the server's word is, the library hands out longs.
    const auto* first = reinterpret_cast<const unsigned long*>(found.data.get());
    return {first, first + found.count};
}

std::string Server::utf8(Window window, const char* property) {
    const Atom type = atom("UTF8_STRING");
    const Property found = read(display_, window, atom(property), type);
    if (!found.data || found.type != type || found.format != 8) return {};
    return {reinterpret_cast<const char*>(found.data.get()), found.count};
}

std::string Server::oldStyleTitle(Window window) {
    XTextProperty text{};
    if (XGetWMName(display_, window, &text) == 0 || text.value == nullptr) return {};
    const std::unique_ptr<unsigned char, FreedByX> value(text.value);
    char** lines = nullptr;
    int count = 0;
    if (Xutf8TextPropertyToTextList(display_, &text, &lines, &count) < Success || lines == nullptr) return {};
    const std::string title = count > 0 ? lines[0] : "";
    XFreeStringList(lines);
    return title;
}

std::string Server::title(Window window) {
    const std::string name = utf8(window, "_NET_WM_NAME");
    return name.empty() ? oldStyleTitle(window) : name;
}

std::vector<Window> Server::children(Window window) {
    Window ofRoot = None;
    Window parent = None;
    Window* list = nullptr;
    unsigned count = 0;
    if (XQueryTree(display_, window, &ofRoot, &parent, &list, &count) == 0) return {};
    const std::unique_ptr<Window, FreedByX> owner(list);
    return {list, list + count};
}

std::vector<Window> Server::topLevelWindows() {
    if (hasWindowManager()) {
        const auto managed = numbers(root(), "_NET_CLIENT_LIST", XA_WINDOW);
        return {managed.begin(), managed.end()};
    }
    std::vector<Window> shown;
    for (const Window window : children(root())) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display_, window, &attributes) == 0 || attributes.map_state != IsViewable)
            continue;
        shown.push_back(window);
        // A window manager of the old kind puts a program's window into a frame, and this mark on it.
        for (const Window framed : children(window))
            if (!numbers(framed, "WM_STATE", atom("WM_STATE")).empty()) shown.push_back(framed);
    }
    return shown;
}

bool Server::hasWindowManager() {
    const auto check = numbers(root(), "_NET_SUPPORTING_WM_CHECK", XA_WINDOW);
    if (check.empty()) return false;
    // One that has died leaves its mark on the root window, but not the window that the mark names.
    const auto itself = numbers(check.front(), "_NET_SUPPORTING_WM_CHECK", XA_WINDOW);
    const auto can = numbers(root(), "_NET_SUPPORTED", XA_ATOM);
    return itself == check && std::find(can.begin(), can.end(), atom("_NET_ACTIVE_WINDOW")) != can.end();
}

std::optional<Window> Server::activeWindow() {
    const auto active = numbers(root(), "_NET_ACTIVE_WINDOW", XA_WINDOW);
    if (active.empty()) return std::nullopt;
    return active.front();
}

void Server::requestActivation(Window window) {
    // A window manager may refuse a program that pushes itself to the front, but not a tool that the user
    // handles.
    constexpr long fromTool = 2;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = atom("_NET_ACTIVE_WINDOW");
    event.xclient.format = 32;
    event.xclient.data.l[0] = fromTool;
    event.xclient.data.l[1] = CurrentTime;
    XSelectInput(display_, root(), PropertyChangeMask);
    XSendEvent(display_, root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XSync(display_, False);
}

void Server::raise(Window window) {
    XMapRaised(display_, window);
    XSetInputFocus(display_, window, RevertToParent, CurrentTime);
    XSync(display_, False);
}

bool Server::awaitActive(Window window, std::chrono::milliseconds patience) {
    using std::chrono::steady_clock;
    const auto deadline = steady_clock::now() + patience;
    while (activeWindow() != window) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - steady_clock::now());
        if (left.count() <= 0) return false;
        // Only a change of the root window's properties can be the one waited for.
        if (XPending(display_) == 0) {
            pollfd waiting{ConnectionNumber(display_), POLLIN, 0};
            ::poll(&waiting, 1, static_cast<int>(left.count()));
        }
        XEvent event;
        while (XPending(display_) > 0) XNextEvent(display_, &event);
    }
    return true;
}

void Server::movePointer(int x, int y) {
    XTestFakeMotionEvent(display_, DefaultScreen(display_), x, y, CurrentTime);
    XSync(display_, False);
}

void Server::movePointerBy(int dx, int dy) {
    XTestFakeRelativeMotionEvent(display_, dx, dy, CurrentTime);
    XSync(display_, False);
}

void Server::pressButton(unsigned button, bool down) {
    XTestFakeButtonEvent(display_, button, down ? True : False, CurrentTime);
    XSync(display_, False);
}

}  // namespace desk::x11
