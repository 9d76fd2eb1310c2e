#pragma once

#include <string_view>

#include "db/statement.h"
#include "reference/setup_pages.h"
#include "session/application.h"

namespace desk {

/// What tells the duties from the teams.
struct CodedKind {
    std::string_view title;
    Name table;
    Name codeColumn;
    Name nameColumn;
    Name noteColumn;
    std::string_view gridFormat;
    const char* frame;  ///< names of the controls
    const char* grid;
    const char* code;
    const char* named;
    const char* note;
};

extern const CodedKind 主职种类;
extern const CodedKind 组种类;

/// The tab of a list whose entries have a code, a name and a note. The code of an entry stays as it is.
class CodedTab {
  public:
    CodedTab(Screen& screen, Application& app, SetupStatus& status, const CodedKind& kind);
    CodedTab(const CodedTab&) = delete;
    CodedTab& operator=(const CodedTab&) = delete;

    /// Reads the table.
    void load();
    Recordset entries();

    const CodedKind& kind;
    Frame 框;
    SetupGrid 列表;
    TextBox 代号;
    TextBox 名称;
    TextBox 说明;
    Button 确定;
    Button 删除;
    Button 退出;

    Signal<> written;  ///< an entry has come, gone or changed in the table

  private:
    void showEntry();
    void clearFields();
    void focusCode();
    void save();
    bool add();
    /// Whether the row that is to be changed was still there.
    bool change();
    void remove();

    Application& app_;
    SetupStatus& status_;
};

}  // namespace desk
