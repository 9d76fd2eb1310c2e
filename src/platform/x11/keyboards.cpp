#include "platform/x11/keyboards.h"

#include <X11/Xatom.h>
#include <X11/extensions/XInput.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <memory>

#include "base/failure.h"

namespace desk::x11 {

namespace {

[[noreturn]] void refuse() {
    throw RuntimeFailure(failure::permissionDenied, "X 服务器不支持输入设备扩展，程序不能代替键盘");
}

/// The server marks the keyboard that synthesised keys come from.
bool isSynthetic(Display* display, int device) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    const Atom mark = XInternAtom(display, "XTEST Device", False);
    if (XIGetProperty(display, device, mark, 0, 1, False, AnyPropertyType, &type, &format, &count, &rest,
                      &data) != Success)
        return false;
    const bool marked = data != nullptr && count == 1 && *data != 0;
    if (data != nullptr) XFree(data);
    return marked;
}

/// An opened device of the older input extension.
class OpenDevice {
  public:
    OpenDevice(Display* display, int number)
        : display_(display), device_(XOpenDevice(display, static_cast<XID>(number))) {}
    ~OpenDevice() {
        if (device_ != nullptr) XCloseDevice(display_, device_);
    }
    OpenDevice(const OpenDevice&) = delete;
    OpenDevice& operator=(const OpenDevice&) = delete;

    XDevice* get() const { return device_; }

  private:
    Display* display_;
    XDevice* device_;
};

}  // namespace

Keyboards Keyboards::of(Display* display) {
    int major = 2;
    int minor = 0;
    if (XIQueryVersion(display, &major, &minor) != Success) refuse();
    int count = 0;
    XIDeviceInfo* devices = XIQueryDevice(display, XIAllDevices, &count);
    if (devices == nullptr) refuse();
    const std::unique_ptr<XIDeviceInfo, void (*)(XIDeviceInfo*)> owner(devices, XIFreeDeviceInfo);

    Keyboards found{0, 0, {}};
    for (int i = 0; i < count && found.master == 0; ++i)
        if (devices[i].use == XIMasterKeyboard) found.master = devices[i].deviceid;
    for (int i = 0; i < count; ++i) {
        if (devices[i].use != XISlaveKeyboard || devices[i].attachment != found.master) continue;
        if (isSynthetic(display, devices[i].deviceid))
            found.synthetic = devices[i].deviceid;
        else
            found.physical.push_back(devices[i].deviceid);
    }
    if (found.master == 0 || found.synthetic == 0) refuse();
    return found;
}

std::vector<int> Keyboards::all() const {
    std::vector<int> each = physical;
    each.push_back(synthetic);
    each.push_back(master);
    return each;
}

std::vector<KeyCode> keysDown(Display* display, int keyboard) {
    const OpenDevice device(display, keyboard);
    XDeviceState* state = device.get() == nullptr ? nullptr : XQueryDeviceState(display, device.get());
    if (state == nullptr) return {};
    std::vector<KeyCode> down;
    const auto* each = state->data;
    for (int i = 0; i < state->num_classes; ++i) {
        if (each->c_class == KeyClass) {
            const auto* keys = reinterpret_cast<const XKeyState*>(each)->keys;
            for (int code = 0; code < 256; ++code)
                if ((keys[code / 8] >> (code % 8) & 1) != 0) down.push_back(static_cast<KeyCode>(code));
        }
        each = reinterpret_cast<const XInputClass*>(reinterpret_cast<const char*>(each) + each->length);
    }
    XFreeDeviceState(state);
    return down;
}

void pressAgain(Display* display, int keyboard, KeyCode key) {
    const OpenDevice device(display, keyboard);
    if (device.get() == nullptr) return;
    for (const Bool down : {False, True})
        XTestFakeDeviceKeyEvent(display, device.get(), key, down, nullptr, 0, CurrentTime);
}

}  // namespace desk::x11
