#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "db/recordset.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/settings.h"
#include "platform/spreadsheets.h"
#include "session/application.h"
#include "support/failing_engine.h"
#include "support/recording_machine.h"
#include "support/scripted_desktop.h"

namespace desk {

class FixedClock : public Clock {
  public:
    DateTime present{std::chrono::year(2011) / 3 / 5, std::chrono::hours(14) + std::chrono::minutes(5)};
    DateTime now() const override { return present; }
};

class MemorySettings : public SettingsStore {
  public:
    std::map<std::string, std::string, std::less<>> keys;
    std::string read(std::string_view, std::string_view, std::string_view key,
                     std::string_view fallback) const override {
        const auto found = keys.find(key);
        return found == keys.end() ? std::string(fallback) : found->second;
    }
};

/// Notes what would have been written; `broken` makes every write fail.
class RecordingFiles : public Files {
  public:
    std::map<std::string, std::string, std::less<>> written;
    std::set<std::string, std::less<>> present;  ///< others that are there
    bool broken = false;
    std::string programDirectory() const override { return "/program"; }
    bool exists(std::string_view path) const override {
        return written.contains(path) || present.contains(path);
    }
    void write(std::string_view path, std::string_view bytes) override;
};

/// Keeps the workbooks in memory, each as the sheets that were put into it; `refusal` makes a save fail.
/// `real` writes them, too, where it is set.
class MemorySpreadsheets : public Spreadsheets {
  public:
    std::map<std::string, std::vector<Worksheet>> books;
    std::string refusal;
    Spreadsheets* real = nullptr;
    void create(const std::string& path) override;
    void put(const std::string& path, const Worksheet& sheet) override;
};

/// A whole program without windows, on a database in memory, at 2011-03-05 14:05.
struct TestProgram {
    TestProgram();

    FixedClock clock;
    MemorySettings settings;
    RecordingFiles files;
    MachineJournal machine;
    RecordingPrograms programs{machine};
    RecordingKeyboard keyboard{machine};
    RecordingPointer pointer{machine};
    RecordingClipboard clipboard{machine};
    MemorySpreadsheets spreadsheets;
    Platform platform{clock, settings, files, programs, spreadsheets, keyboard, pointer, clipboard};
    ScriptedDesktop desktop;
    Fault fault;  ///< of `主连接`
    Application app;

    Connection& db() { return app.主连接; }
    /// Opens the database in memory as `主连接`, without a login.
    void openDatabase();
    /// Fills the session as the position 0101 of staff E01 in department 01, and shows the main window.
    void enter();
    /// Runs statements, one after the other.
    void run(std::initializer_list<std::string_view> statements);
    /// All rows of a statement, fields joined by "|".
    std::vector<std::string> rows(std::string_view statement);
};

/// Two offices (01 东塔, 02 西塔) for department 01, one for department 02; the five dictionaries; three
/// agencies; the rule "年份" for numbers of registered customers.
void addOfficesAndDictionaries(TestProgram& program);

}  // namespace desk
