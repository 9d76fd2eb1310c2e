#pragma once

#include <string>

#include "db/connection.h"
#include "platform/platform.h"
#include "session/session_record.h"
#include "ui/desktop.h"
#include "ui/screens.h"

namespace desk {

/// The program's own name: the module name in privileges, the title of untitled boxes.
inline constexpr const char* 模块名 = "引驻台账";

struct Version {
    int major;
    int minor;
    int revision;
};

inline constexpr Version programVersion{1, 0, 0};

/// The values that live as long as the process, handed by reference to each screen. There are no globals.
class Application {
  public:
    Application(Desktop& shownBy, Platform runsOn);

    SessionRecord session;
    Connection 主连接;
    std::string 连接字符串;
    std::string 数据库版本;
    std::string 命令行参数;
    bool 专项审核权限 = false;

    Desktop& desktop;
    Platform platform;
    Screens screens;

    /// Starts the program: the login screen loads, and shows itself or the main window. `commandLine` is the
    /// whole command line behind the program's name, empty for a normal start.
    void start(std::string commandLine);

    /// A plain box with an OK button and no title of its own.
    void tell(std::string_view text);
    /// The same with an information icon.
    void inform(std::string_view text, std::string_view title = {});
    /// Tells in passing that `what` has been saved.
    void saved(std::string_view what);
    /// Tells in passing that a save has found no row to change: somebody has deleted it, or renamed it.
    void foundNothing();
    /// A Yes/No question titled "提醒"; true for Yes.
    bool confirm(std::string_view text);
    /// The same where something is to be deleted: a hasty Enter says No.
    bool confirmDeletion(std::string_view text);
};

}  // namespace desk
