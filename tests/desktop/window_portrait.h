#pragma once

#include "desktop/person.h"
#include "support/portrait.h"

namespace desk::desktop {

/// What a person sees of a screen in its window: each control that is in view, what its widget shows, marks
/// and says where the pointer rests on it, where it floats, and what has the focus. Where a widget shows
/// something else than its control holds, that is said, too. Sizes and places are told against other
/// controls, never in pixels.
Portrait seenBy(const Person& person, Screen& screen);

}  // namespace desk::desktop
