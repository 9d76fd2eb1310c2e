#pragma once

namespace desk {

class Clipboard;
class Clock;
class Files;
class Keyboard;
class Pointer;
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
    Keyboard& keyboard;
    Pointer& pointer;
    Clipboard& clipboard;
};

}  // namespace desk
