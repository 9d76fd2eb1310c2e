#pragma once

#include <optional>
#include <string>

#include "money/facsimile.h"
#include "money/tax_configuration.h"
#include "money/tax_machine.h"

namespace desk {

/// What a run needs of its screen beside the form.
struct 运行控件 {
    Button& 打印发票;  ///< its tag holds the path of the tax program
    Button& 关闭;
    Label& 出现错误;
};

/// How the two who walk a script take some of its steps.
struct 步骤方式 {
    bool 双击后等待;
    bool 选取号码;  ///< drags over the invoice number before it is copied
    std::string_view 复制键;
    bool 无号码可关闭;  ///< whether the screen can be closed when no number was read
};

inline constexpr 步骤方式 登录方式{false, true, "^({C})", true};
inline constexpr 步骤方式 运行方式{true, false, "^C", false};

/// Does single steps of a script.
class 税控步骤 {
  public:
    税控步骤(税控机器& machine, 发票样张& form, const 税控配置& configuration, 运行控件 controls)
        : machine_(machine), form_(form), configuration_(configuration), controls_(controls) {}

    /// False where the run is to be abandoned: the person has been told, and the buttons are back.
    bool 执行(const 税控操作步骤& step, const 步骤方式& how);

  private:
    void 键盘操作(const 税控操作步骤& step);
    void 输入(const 税控操作步骤& step);
    bool 获取发票编号(const 步骤方式& how);
    void 号码有误(std::string_view told, bool mayClose);
    const 税控收费项目* 对照项目(int line) const;

    税控机器& machine_;
    发票样张& form_;
    const 税控配置& configuration_;
    运行控件 controls_;
};

}  // namespace desk
