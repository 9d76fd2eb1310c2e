#pragma once

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/settings.h"
#include "platform/spreadsheets.h"

namespace desk {

/// What the program needs of the machine. Each member is the real one or a recording twin.
struct Platform {
    Clock& clock;
    SettingsStore& settings;
    Files& files;
    Programs& programs;
    Spreadsheets& spreadsheets;
};

}  // namespace desk
