#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "reference/setup_pages.h"
#include "session/application.h"
#include "ui/tree.h"

namespace desk {

/// The estate agencies that bring in customers, by office.
class Frm中介公司设置 : public Screen {
  public:
    static constexpr const char* screenName = "frm中介公司设置";

    struct Field {
        std::string_view caption;
        std::string_view column;
    };
    /// In the order of the grid's columns; the first is the name.
    static const std::vector<Field> fields;

    explicit Frm中介公司设置(Application& app);
    void load() override;

    Tree 管理项目{*this, "管理项目"};
    SetupGrid 列表;
    std::deque<TextBox> boxes;  ///< one a field, named after its column
    Button 确定{*this, "确定", "确定", ButtonRole::main};
    Button 删除{*this, "删除", "删除"};
    Button 退出{*this, "退出", "退出"};
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    void chooseNode(const TreeNode& node);
    void showEntry();
    void save();
    bool add();
    /// Whether the row that is to be changed was still there.
    bool change();
    void write(Recordset& agency, std::size_t firstField);
    void remove();

    Application& app_;
    SetupStatus status_{状态栏};
    std::string 管理处代号_;  ///< of the selected office, empty without one
};

}  // namespace desk
