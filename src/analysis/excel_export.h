#pragma once

#include <string>

#include "platform/spreadsheets.h"
#include "session/application.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"

namespace desk {

/// Turns the table of an analysis into a sheet of a workbook: the file, the titles and the columns that go
/// out.
class FrmToExcel : public Screen {
  public:
    static constexpr const char* screenName = "frmToExcel";

    explicit FrmToExcel(Application& app);
    void load() override;

    /// Takes over a table: its columns are all chosen, the title and the name of the sheet are set.
    void Config(Grid& grid, std::string_view 工作表名称, std::string_view 文档标题);
    /// Writes the file; `结果` tells whether that was done. The two texts are not used: the fields are.
    void To_Execl(Grid& grid, const std::string& 参数一, const std::string& 参数二, bool& 结果);
    /// The cell's name, empty from the 157th column on. Columns are counted from 0, rows from 1.
    static std::string RangeNom(int 列, int 行);

    TextBox 文件{*this, "Text1(0)"};
    Button Command1{*this, "Command1", "浏览"};
    TextBox 文档标题{*this, "Text1(1)"};
    TextBox 工作表名称{*this, "Text1(2)"};
    CheckBox Check1{*this, "Check1", "输出时启动Microsoft Excel程序"};
    Grid Grid1{*this, "Grid1"};  ///< a click chooses a column, a double click gives it up
    Button Command2{*this, "Command2", "确定", ButtonRole::main};
    Button Command3{*this, "Command3", "退出"};
    StatusBar StatusBar1{*this, "StatusBar1", 1};

    Grid* 源表格 = nullptr;

  private:
    void browse();
    std::string targetName(const std::string& name) const;
    std::string proposedName() const;
    void output();
    void tellWhere();
    void write(Grid& grid);
    std::vector<int> chosenColumns() const;

    Application& app_;
    std::string lastError_;
};

/// What an analysis screen does for its output: hands `grid` over and shows the export until it is closed.
void 输出表格(Application& app, Grid& grid, const std::string& 名称, const std::string& 副标题 = {});

/// The same where the table counts a span of days, which is the subtitle.
void 输出表格(Application& app, Grid& grid, const std::string& 名称, const DateTime& from,
              const DateTime& to);

}  // namespace desk
