#pragma once

#include <cstdint>
#include <vector>

#include "money/tax_steps.h"

namespace desk {

/// Makes the tax program, which alone may print a tax invoice, do it: starts it or finds it, logs in, and
/// walks the script of the device as a person would, by keys and pointer. What the tax program really does
/// cannot be seen.
class 税控运行 {
  public:
    税控运行(Screen& screen, Application& app, 发票样张& form, const 税控配置& configuration,
             运行控件 controls);

    /// What a run is for.
    enum class 用途 { 打印, 退票 };

    /// Walks the script; false where the run was left before its end, which the person knows by then. Any
    /// failure of a step leaves the buttons as they are at that moment.
    bool 运行(用途 what);

    /// The steps of logging in of the print script. `结果` receives the index of the first step behind them,
    /// 0 where all belong to them. False where the run is to be abandoned.
    bool 未登录(std::int16_t& 结果) { return 登录(configuration_.打印步骤, 结果); }
    /// The same of the script that takes an invoice back.
    bool 退票未登录(std::int16_t& 结果) { return 登录(configuration_.退票步骤, 结果); }
    /// Waits `n` ticks of 250 ms.
    void 延时(const std::int16_t& n) { machine_.延时(n); }
    /// A fixed way to the invoice number of a program that is logged in.
    void 已登录();

  private:
    const std::vector<税控操作步骤>& 步骤(用途 what) const;
    bool 登录(const std::vector<税控操作步骤>& steps, std::int16_t& 结果);
    bool 启动(用途 what, std::int16_t& 起始);

    Screen& screen_;
    发票样张& form_;
    const 税控配置& configuration_;
    运行控件 controls_;
    税控机器 machine_;
    税控步骤 step_;
    std::int32_t x_ = 25;
    std::int32_t y_ = 25;
};

}  // namespace desk
