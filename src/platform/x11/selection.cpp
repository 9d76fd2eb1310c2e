#include "platform/x11/selection.h"

#include <X11/Xatom.h>

#include <memory>

namespace desk::x11 {

namespace {

constexpr const char* clipboardName = "CLIPBOARD";
constexpr Atom carrier = XA_CUT_BUFFER0;  ///< the property of the own window that carries the text

std::string fromLatin1(const std::string& bytes) {
    std::string utf8;
    for (const char byte : bytes) {
        const auto character = static_cast<unsigned char>(byte);
        if (character < 0x80) {
            utf8 += byte;
        } else {
            utf8 += static_cast<char>(0xC0 | character >> 6);
            utf8 += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return utf8;
}

}  // namespace

void clearClipboard() {
    const Server server;
    if (!server.isConnected()) return;
    // Without a time of its own: the time of the last input here may lie before that of the copy.
    XSetSelectionOwner(server.display(), XInternAtom(server.display(), clipboardName, False), None,
                       CurrentTime);
}

ClipboardReading::ClipboardReading() {
    if (!server_.isConnected()) return;
    Display* display = server_.display();
    clipboard_ = XInternAtom(display, clipboardName, False);
    inPieces_ = XInternAtom(display, "INCR", False);
    holder_ = XGetSelectionOwner(display, clipboard_);
    if (holder_ == None) return;
    finished_ = false;
    own_ = XCreateSimpleWindow(display, server_.root(), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(display, own_, PropertyChangeMask);
    // A holder that ends answers nobody any more.
    XSelectInput(display, holder_, StructureNotifyMask);
    ask(Format::utf8);
}

int ClipboardReading::connection() const {
    return server_.isConnected() ? ConnectionNumber(server_.display()) : -1;
}

bool ClipboardReading::goOn() {
    while (!finished_ && XPending(server_.display()) > 0) {
        XEvent event;
        XNextEvent(server_.display(), &event);
        take(event);
    }
    return finished_;
}

void ClipboardReading::ask(Format format) {
    format_ = format;
    if (format == Format::none) {
        finished_ = true;
        return;
    }
    Display* display = server_.display();
    const Atom target = format == Format::utf8 ? XInternAtom(display, "UTF8_STRING", False) : XA_STRING;
    XConvertSelection(display, clipboard_, target, carrier, own_, CurrentTime);
    XFlush(display);
}

void ClipboardReading::take(const XEvent& event) {
    if (event.type == DestroyNotify && event.xdestroywindow.window == holder_) finished_ = true;
    if (event.type == SelectionNotify && event.xselection.requestor == own_) takeAnswer(event.xselection);
    if (event.type == PropertyNotify && event.xproperty.window == own_ &&
        event.xproperty.state == PropertyNewValue && piecewise_)
        takePiece();
}

void ClipboardReading::takeAnswer(const XSelectionEvent& answer) {
    if (answer.property == None) return ask(format_ == Format::utf8 ? Format::latin1 : Format::none);
    Atom type = None;
    const std::string all = property(&type);
    if (type == inPieces_) {
        // That it has been read and deleted is the sign to send the first piece.
        piecewise_ = true;
        return;
    }
    text_ = format_ == Format::latin1 ? fromLatin1(all) : all;
    finished_ = true;
}

void ClipboardReading::takePiece() {
    Atom type = None;
    const std::string piece = property(&type);
    text_ += format_ == Format::latin1 ? fromLatin1(piece) : piece;
    finished_ = piece.empty();
}

/// Reads the property, and deletes it.
std::string ClipboardReading::property(Atom* type) {
    constexpr long all = 1L << 26;  ///< in units of four bytes
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(server_.display(), own_, carrier, 0, all, True, AnyPropertyType, type, &format, &count,
                       &rest, &data);
    const std::unique_ptr<unsigned char, int (*)(void*)> owner(data, XFree);
    XFlush(server_.display());
    if (data == nullptr || format != 8) return {};
    return {reinterpret_cast<const char*>(data), count};
}

}  // namespace desk::x11
