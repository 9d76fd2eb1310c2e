#pragma once

#include "reference/setup_pages.h"
#include "session/application.h"

namespace desk {

/// The tab of the states that a follow-up can reach, each with a colour.
class StateTab {
  public:
    static constexpr const char* title = "跟进状态设置";

    StateTab(Screen& screen, Application& app, SetupStatus& status);
    StateTab(const StateTab&) = delete;
    StateTab& operator=(const StateTab&) = delete;

    /// Reads the table.
    void load();

    Frame 框;
    SetupGrid 列表;
    TextBox 状态编号;
    TextBox 状态名称;
    TextBox 说明;
    Swatch 颜色;
    Button 选择颜色;
    Button 确定;
    Button 删除;
    Button 退出;

  private:
    void showEntry();
    void clearFields();
    void focusCode();
    void chooseColour();
    void save();
    bool add();
    /// Whether the row that is to be changed was still there.
    bool change();
    void write(Recordset& state);
    void showSaved(bool added);
    void remove();

    Application& app_;
    SetupStatus& status_;
};

}  // namespace desk
