#include "money/tax_recovery.h"

#include <algorithm>

namespace desk {

namespace {

/// What can be done for a reason; what can be is proposed.
struct 处理办法 {
    bool 重新打印;
    bool 退票;
    bool 取消收款;
};

constexpr std::array<处理办法, 4> remedies = {
    {{true, true, false}, {true, true, false}, {false, true, true}, {true, false, false}}};

void propose(CheckBox& box, bool possible) {
    box.setEnabled(possible);
    box.setChecked(possible);
}

}  // namespace

未正常打印::未正常打印(Screen& screen)
    : 面板(screen, "未正常打印", "未正常打印处理"),
      问原因(面板, "问原因", "请确定未能打印的原因："),
      选项{{{面板, "选项0", "打印机无动作（打印机联机正常）"},
            {面板, "选项1", "打印机送纸故障或打印字迹不清楚", &选项[0]},
            {面板, "选项2", "打印内容有误", &选项[0]},
            {面板, "选项3", "税控器不正常（报错误信息）", &选项[0]}}},
      问操作(面板, "问操作", "请您选择接下来的操作："),
      重新打印(面板, "重新打印", "重新打印"),
      退票(面板, "退票", "刚刚打印的发票做退票处理"),
      取消收款(面板, "取消收款", "取消收款记录"),
      确定(面板, "确定", "确定", ButtonRole::main) {
    // The buttons of the screen stay disabled: without an answer here there would be no way on.
    面板.closesOnEscape = false;
    for (std::size_t reason = 0; reason < 选项.size(); ++reason)
        选项[reason].clicked += [this, reason] { choose(reason); };
}

void 未正常打印::choose(std::size_t reason) {
    propose(重新打印, remedies[reason].重新打印);
    propose(退票, remedies[reason].退票);
    propose(取消收款, remedies[reason].取消收款);
}

std::string 未正常打印::原因(const std::string& before) const {
    const auto chosen =
        std::find_if(选项.begin(), 选项.end(), [](const OptionButton& option) { return option.chosen(); });
    return chosen == 选项.end() ? before : chosen->caption();
}

void 未正常打印::了结() {
    面板.tag = 非正常;
    面板.close();
}

}  // namespace desk
