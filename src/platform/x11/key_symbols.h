#pragma once

#include <X11/X.h>

#include "platform/key_string.h"

namespace desk::x11 {

KeySym symbolOf(Key key);
KeySym symbolOf(char32_t character);

}  // namespace desk::x11
