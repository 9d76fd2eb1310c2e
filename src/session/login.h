#pragma once

#include <vector>

#include "session/application.h"
#include "ui/choices.h"
#include "ui/fields.h"

namespace desk {

/// The first screen: checks staff number and password, lets the user choose a position, fills the session
/// record. `tag` is the mode: empty at a normal start, "切换" when a user logs off.
class FrmLogin : public Screen {
  public:
    static constexpr const char* screenName = "frmLogin";

    explicit FrmLogin(Application& app);
    void load() override;
    void closeAsked() override;

    /// Takes back the offer of positions.
    void withdrawChoice();

    TextBox TxtUser{*this, "TxtUser"};
    TextBox txtPassword{*this, "txtPassword", TextStyle::password};
    Button cmdOK{*this, "cmdOK", "登录", ButtonRole::main};
    Button cmdCancel{*this, "cmdCancel", "取消"};
    Label Label2{*this, "Label2", "请您选择要登录的岗位"};
    ListBox List1{*this, "List1"};
    Label 选择提示{*this, "选择提示", "双击或按回车选择"};
    Label Label1{*this, "Label1"};

  private:
    bool 打开数据库();
    bool takeHandOff();
    void clearSession();
    void logIn();
    void checkStaff();
    /// False without a position; the list then stands as it stood.
    bool readPositions();
    void offerChoice();
    void choosePosition(int line);
    void enterMainWindow();
    void openMainWindow();

    Application& app_;
    std::vector<SessionRecord> positions_;  ///< beside the rows of List1
};

}  // namespace desk
