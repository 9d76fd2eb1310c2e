#include "platform/x11/server.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <poll.h>
#include <unistd.h>

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

std::string Server::inputRefusal() {
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    if (isConnected() && XTestQueryExtension(display_, &event, &error, &major, &minor) != 0) return {};
    const bool wayland = std::getenv("WAYLAND_DISPLAY") != nullptr && std::getenv("DISPLAY") == nullptr;
    if (wayland) return "Wayland 桌面不允许程序代替键盘和鼠标，请用 X11 会话登录系统";
    return isConnected() ? "X 服务器不支持 XTEST 扩展，程序不能代替键盘和鼠标"
                         : "没有 X11 桌面，程序不能代替键盘和鼠标";
}

void Server::requireInput() {
    if (const auto why = inputRefusal(); !why.empty()) throw RuntimeFailure(failure::permissionDenied, why);
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
    return relatives(window).second;
}

Window Server::parent(Window window) {
    return relatives(window).first;
}

std::pair<Window, std::vector<Window>> Server::relatives(Window window) {
    Window ofRoot = None;
    Window above = None;
    Window* list = nullptr;
    unsigned count = 0;
    if (XQueryTree(display_, window, &ofRoot, &above, &list, &count) == 0) return {None, {}};
    const std::unique_ptr<Window, FreedByX> owner(list);
    return {above, {list, list + count}};
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
    return itself == check && supports("_NET_ACTIVE_WINDOW");
}

bool Server::supports(const char* feature) {
    const auto can = numbers(root(), "_NET_SUPPORTED", XA_ATOM);
    return std::find(can.begin(), can.end(), atom(feature)) != can.end();
}

std::optional<Window> Server::activeWindow() {
    const auto active = numbers(root(), "_NET_ACTIVE_WINDOW", XA_WINDOW);
    if (active.empty()) return std::nullopt;
    return active.front();
}

void Server::send(Window window, Window about, const char* type, long first, long second, long third,
                  long mask) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = about;
    event.xclient.message_type = atom(type);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = second;
    event.xclient.data.l[2] = third;
    XSendEvent(display_, window, False, mask, &event);
    XSync(display_, False);
}

void Server::requestActivation(Window window) {
    // A window manager may refuse a program that pushes itself to the front, but not a tool that the user
    // handles.
    constexpr long fromTool = 2;
    XSelectInput(display_, root(), PropertyChangeMask);
    send(root(), window, "_NET_ACTIVE_WINDOW", fromTool, CurrentTime, None,
         SubstructureRedirectMask | SubstructureNotifyMask);
}

void Server::raise(Window window) {
    XMapRaised(display_, window);
    XSetInputFocus(display_, window, RevertToParent, CurrentTime);
    XSync(display_, False);
}

bool Server::awaitEvents(Clock::time_point deadline) {
    while (XPending(display_) == 0) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) return false;
        pollfd waiting{ConnectionNumber(display_), POLLIN, 0};
        ::poll(&waiting, 1, static_cast<int>(left.count()));
    }
    return true;
}

template <class Question>
bool Server::awaitAnswer(Clock::time_point deadline, Question answers) {
    while (awaitEvents(deadline)) {
        XEvent event;
        XNextEvent(display_, &event);
        if (answers(event)) return true;
    }
    return false;
}

bool Server::awaitActive(Window window, std::chrono::milliseconds patience) {
    const auto deadline = Clock::now() + patience;
    while (activeWindow() != window) {
        // Only a change of the root window's properties can be the one waited for.
        if (!awaitEvents(deadline)) return false;
        XEvent event;
        while (XPending(display_) > 0) XNextEvent(display_, &event);
    }
    return true;
}

Window Server::focus() {
    Window focused = None;
    int revertsTo = 0;
    XGetInputFocus(display_, &focused, &revertsTo);
    return focused;
}

Window Server::topLevelOf(Window part) {
    if (part == None || part == PointerRoot) return part;
    while (true) {
        // The window manager's mark is on what it put into a frame, which is a window too.
        if (!numbers(part, "WM_STATE", atom("WM_STATE")).empty()) return part;
        const Window above = parent(part);
        if (above == None || above == root()) return part;
        part = above;
    }
}

bool Server::isOwn(Window window) {
    const auto process = numbers(window, "_NET_WM_PID", XA_CARDINAL);
    return process == std::vector{static_cast<unsigned long>(::getpid())};
}

bool Server::answersPings(Window window) {
    const auto protocols = numbers(window, "WM_PROTOCOLS", XA_ATOM);
    return std::find(protocols.begin(), protocols.end(), atom("_NET_WM_PING")) != protocols.end();
}

bool Server::ping(Window window, std::chrono::milliseconds patience) {
    const auto now = Clock::now();
    const auto deadline = now + patience;
    // The answer goes to the root window, with the stamp that tells it from those to the window manager. Some
    // toolkits send it for the one mask, some for the other.
    const long stamp = static_cast<long>(now.time_since_epoch().count() & 0x7FFFFFFF);
    XSelectInput(display_, root(), StructureNotifyMask | SubstructureNotifyMask);
    send(window, window, "WM_PROTOCOLS", static_cast<long>(atom("_NET_WM_PING")), stamp,
         static_cast<long>(window), NoEventMask);
    return awaitAnswer(deadline, [&](const XEvent& event) {
        return event.type == ClientMessage && event.xclient.window == root() &&
               event.xclient.data.l[1] == stamp && event.xclient.data.l[2] == static_cast<long>(window);
    });
}

bool Server::pingWindowManager(std::chrono::milliseconds patience) {
    if (!hasWindowManager() || !supports("_NET_REQUEST_FRAME_EXTENTS")) return false;
    const auto deadline = Clock::now() + patience;
    // It answers the question what frame a window would get, behind all that it was asked before.
    const Window asking = XCreateSimpleWindow(display_, root(), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(display_, asking, PropertyChangeMask);
    send(root(), asking, "_NET_REQUEST_FRAME_EXTENTS", 0, 0, 0,
         SubstructureRedirectMask | SubstructureNotifyMask);
    const bool answered = awaitAnswer(deadline, [&](const XEvent& event) {
        return event.type == PropertyNotify && event.xproperty.window == asking;
    });
    XDestroyWindow(display_, asking);
    return answered;
}

void Server::movePointer(int x, int y) {
    // What goes over the wire has sixteen bits.
    const int screen = DefaultScreen(display_);
    XTestFakeMotionEvent(display_, screen, std::clamp(x, 0, DisplayWidth(display_, screen) - 1),
                         std::clamp(y, 0, DisplayHeight(display_, screen) - 1), CurrentTime);
    XSync(display_, False);
}

void Server::movePointerBy(int dx, int dy) {
    constexpr int farthest = 32767;
    XTestFakeRelativeMotionEvent(display_, std::clamp(dx, -farthest, farthest),
                                 std::clamp(dy, -farthest, farthest), CurrentTime);
    XSync(display_, False);
}

void Server::pressButton(unsigned button, bool down) {
    XTestFakeButtonEvent(display_, button, down ? True : False, CurrentTime);
    XSync(display_, False);
}

}  // namespace desk::x11
