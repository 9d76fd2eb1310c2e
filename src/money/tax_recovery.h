#pragma once

#include <array>
#include <string>

#include "ui/fields.h"
#include "ui/panel.h"

namespace desk {

/// The panel that asks why an invoice did not come out, and what is to be done.
class 未正常打印 {
  public:
    explicit 未正常打印(Screen& screen);
    未正常打印(const 未正常打印&) = delete;
    未正常打印& operator=(const 未正常打印&) = delete;

    /// The caption of the reason that is chosen; `before` where none is.
    std::string 原因(const std::string& before) const;
    /// The person is done with it, and has nothing more to do.
    void 了结();

    static constexpr const char* 非正常 = "非正常";

    Panel 面板;  ///< its tag is empty or 非正常
    Label 问原因;
    std::array<OptionButton, 4> 选项;
    Label 问操作;
    CheckBox 重新打印;
    CheckBox 退票;
    CheckBox 取消收款;
    Button 确定;

  private:
    void choose(std::size_t reason);
};

}  // namespace desk
