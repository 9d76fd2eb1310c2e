#include "platform/x11/x11_keyboard.h"

#include "base/failure.h"

namespace desk {

void X11Keyboard::send(std::string_view) {
    throw RuntimeFailure(failure::permissionDenied, "本机不能代替键盘输入");
}

}  // namespace desk
