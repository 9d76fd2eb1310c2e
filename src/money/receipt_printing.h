#pragma once

#include "money/facsimile.h"
#include "session/application.h"

namespace desk {

/// Stands where receipts that need no tax device will be printed: the form is shown, and nothing prints it.
/// It never hands a ticket back, so that its caller saves nothing.
class Frm票据打印 : public 打印窗体 {
  public:
    static constexpr const char* screenName = "frm票据打印";

    explicit Frm票据打印(Application& app);
    void 填写(const 开票内容& content) override { 样张.填写(content); }

    发票样张 样张{*this};
    Label 首项名称{样张.发票, "首项名称"};  ///< follows the first item line
    Button 打印发票{*this, "打印发票", "打印发票", ButtonRole::main};
    Button 关闭{*this, "关闭", "关 闭"};
};

}  // namespace desk
