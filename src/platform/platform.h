#pragma once

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/settings.h"

namespace desk {

/// What the program needs of the machine. Each member is the real one or a recording twin.
struct Platform {
    Clock& clock;
    SettingsStore& settings;
    Files& files;
    Programs& programs;
};

}  // namespace desk
