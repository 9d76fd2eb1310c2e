#pragma once

#include <string>

#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/panel.h"

namespace desk {

/// The panel on which the tenant of a letter is picked: the customers, of all offices, in whose diary a state
/// stands.
class 客户选择 {
  public:
    /// Opens below `tenant`, which takes the company that is picked, and the customer's `ID` as its tag.
    客户选择(Screen& screen, Application& app, TextBox& tenant);
    客户选择(const 客户选择&) = delete;
    客户选择& operator=(const 客户选择&) = delete;

    /// Reads the states.
    void load();

    Panel 面板;
    CodedCombo 跟进状态;
    Grid 列表;
    Button 确定;
    Button 关闭;

  private:
    void showCustomers();
    void take();

    Application& app_;
    TextBox& tenant_;
};

}  // namespace desk
