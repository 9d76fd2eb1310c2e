#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "intent/letter_block.h"
#include "intent/opinions.h"
#include "session/application.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/panel.h"
#include "ui/tree.h"

namespace desk {

/// The approver's desk: the letters of intent that wait for the position of the session, the one that is
/// looked at, and the decision on it.
class Frm意向书审批 : public Screen {
  public:
    static constexpr const char* screenName = "Frm意向书审批";

    explicit Frm意向书审批(Application& app);
    void load() override;

    /// What becomes, after an agreement, of a letter whose approvers were asked all at once: it ends with the
    /// last of them.
    void 单级流转处理(const std::string& 意向书ID);
    /// The same where they are asked one after the other: the next one is asked, or the letter has passed.
    /// The opinions of that letter must be in the list: what is shown there tells how far it has come.
    void 多级流转处理(const std::string& 意向书ID);

    Tree 待审批{*this, "待审批"};
    TextBox 对应管理项目{*this, "对应管理项目"};
    意向书信息块 信息{*this, 意向书信息块::Use::locked};
    TextBox 您的审批意见{*this, "您的审批意见", TextStyle::paragraph};
    Button 同意{*this, "同意", "同意", ButtonRole::main};
    Button 不同意{*this, "不同意", "不同意"};
    Button 保存审批意见{*this, "保存审批意见", "保存审批意见"};
    Button 他人审批情况{*this, "他人审批情况", "他人审批情况"};
    Button 退出{*this, "退出", "退出"};
    Panel 他人面板{*this, "他人面板", "他人审批情况"};
    审批意见列表 他人意见;
    Button 关闭{他人面板, "关闭", "关闭", ButtonRole::main};
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    void fillInbox();
    void selectLetter(const TreeNode& node);
    bool showLetter(const std::string& id);
    void showOwnOpinion(const std::string& id);
    void showOthers();
    void saveOpinion();
    void agree();
    void refuse();
    /// The number of the first approval that the statement gives, nothing where there is none.
    std::optional<std::int64_t> stepOf(const std::string& statement);
    void 单级拒绝处理(const std::string& 意向书ID);
    void 拒绝意向书(const std::string& 意向书ID);
    void removeNode();
    std::string now() const;

    Application& app_;
};

}  // namespace desk
