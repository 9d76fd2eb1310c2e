#include "money/tax_device.h"

#include <algorithm>

#include "base/failure.h"
#include "base/number.h"

namespace desk {

税控运行::税控运行(Screen& screen, Application& app, 发票样张& form, const 税控配置& configuration,
                   运行控件 controls)
    : screen_(screen),
      form_(form),
      configuration_(configuration),
      controls_(controls),
      machine_(screen, app),
      step_(machine_, form, configuration, controls) {}

const std::vector<税控操作步骤>& 税控运行::步骤(用途 what) const {
    const auto& steps = what == 用途::打印 ? configuration_.打印步骤 : configuration_.退票步骤;
    // Without a device nothing has been read.
    if (steps.empty()) throw RuntimeFailure(failure::subscript, "下标越界");
    return steps;
}

bool 税控运行::运行(用途 what) {
    if (!form_.票据本.hasSelection()) {
        machine_.tell("未选择票据簿");
        return false;
    }
    // The trap of a run would keep it from the person.
    if (const auto why = machine_.refusal(); !why.empty()) {
        machine_.tell(why);
        return false;
    }
    controls_.关闭.setEnabled(false);
    controls_.打印发票.setEnabled(false);
    std::int16_t start = 0;
    if (!启动(what, start)) return false;
    const auto& steps = 步骤(what);
    for (auto at = static_cast<std::size_t>(start); at < steps.size(); ++at)
        if (!step_.执行(steps[at], 运行方式)) return false;
    machine_.延时(4);
    machine_.activate(screen_.caption());
    return true;
}

bool 税控运行::启动(用途 what, std::int16_t& 起始) {
    const std::string& title = form_.标题.tag;
    if (machine_.hasWindow(title)) {
        machine_.activate(title);
        machine_.延时(3);
        const auto& steps = 步骤(what);
        const auto first = std::find_if_not(steps.begin(), steps.end(),
                                            [](const 税控操作步骤& step) { return step.登录(); });
        起始 = toInt16(static_cast<double>(first - steps.begin()));
        return true;
    }
    if (!machine_.hasFile(configuration_.软件.目录 + configuration_.软件.文件名)) {
        machine_.tell("未找到税控软件，请确认是否安装了税控发票打印软件");
        return false;
    }
    machine_.start(controls_.打印发票.tag);
    machine_.延时(8);
    return what == 用途::打印 ? 未登录(起始) : 退票未登录(起始);
}

bool 税控运行::登录(const std::vector<税控操作步骤>& steps, std::int16_t& 结果) {
    结果 = 0;
    for (std::size_t at = 0; at < steps.size(); ++at) {
        if (!steps[at].登录()) {
            结果 = toInt16(static_cast<double>(at));
            return true;
        }
        if (!step_.执行(steps[at], 登录方式)) return false;
    }
    return true;
}

void 税控运行::已登录() {
    machine_.moveTo(x_, y_);
    machine_.click();
    machine_.moveTo(x_, y_ + 50 + 10);
    machine_.click();
    machine_.延时(1);
    machine_.moveTo(0, 0);
    machine_.moveTo(462, 70);
    machine_.letEventsRun();
    machine_.press();
    machine_.moveBy(35, 0);
    machine_.release();
    machine_.延时(1);
    machine_.clearClipboard();
    machine_.send("^({C})");
    machine_.延时(1);
}

}  // namespace desk
