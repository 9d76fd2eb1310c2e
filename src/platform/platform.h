#pragma once

namespace desk {

class Clock;
class Files;
class Programs;
class SettingsStore;
class Spreadsheets;

/// What the program needs of the machine. Each member is the real one or a recording twin.
struct Platform {
    Clock& clock;
    SettingsStore& settings;
    Files& files;
    Programs& programs;
    Spreadsheets& spreadsheets;
};

}  // namespace desk
