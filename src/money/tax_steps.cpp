#include "money/tax_steps.h"

#include <algorithm>
#include <utility>

#include "base/number.h"

namespace desk {

namespace {

/// "输入单价2" is "输入单价" of the item line 2; 0 for what names no line.
std::pair<std::string_view, int> nameAndLine(std::string_view remark) {
    if (remark.empty() || remark.back() < '1' || remark.back() > '3') return {remark, 0};
    return {remark.substr(0, remark.size() - 1), remark.back() - '0'};
}

}  // namespace

bool 税控步骤::执行(const 税控操作步骤& step, const 步骤方式& how) {
    const std::string& type = step.Operate_type;
    if (type == "鼠标单击" || type == "鼠标双击") {
        const auto x = toInt32(step.X);
        machine_.moveTo(x, toInt32(step.Y));
        machine_.click();
        if (type == "鼠标双击") machine_.click();
        if (type == "鼠标单击" || how.双击后等待) machine_.延时(1);
    } else if (type == "鼠标移动") {
        machine_.moveBy(toInt32(step.X), 0);
    } else if (type == "鼠标选中") {
        machine_.press();
        machine_.moveBy(toInt32(step.X), 0);
        machine_.release();
    } else if (type == "键盘操作") {
        键盘操作(step);
    } else if (type == "获取发票编号") {
        return 获取发票编号(how);
    } else if (type == "延时") {
        machine_.延时(toInt16(val(step.X)));
    }
    return true;
}

void 税控步骤::键盘操作(const 税控操作步骤& step) {
    if (!step.KeyString.empty())
        machine_.send(step.KeyString);
    else
        输入(step);
}

void 税控步骤::输入(const 税控操作步骤& step) {
    const std::string& what = step.Remark;
    if (what == "输入用户名") return machine_.send(configuration_.操作员.用户名);
    if (what == "输入密码") return machine_.send(configuration_.操作员.密码);
    if (what == "输入付款人") return machine_.send(form_.付款单位.text());
    if (what == "输入备注") return machine_.send(form_.备注.text());
    const auto [name, line] = nameAndLine(what);
    if (line == 0) return;
    if (name == "输入单价") return machine_.send(form_.项(line).单价.text());
    if (name == "输入数量") return machine_.send(form_.项(line).数量.text());
    if (name == "输入金额") return machine_.send(form_.项(line).金额.text());
    if (name != "按经营项目编号" && name != "按经营项目位置") return;
    const 税控收费项目* item = 对照项目(line);
    if (item == nullptr) return;
    if (name == "按经营项目编号") {
        machine_.send(item->XM_Num);
        machine_.send("{ENTER}");
    } else {
        // `X` is the height of a row in the item list of the tax program.
        machine_.moveBy(0, toInt32(val(step.X) * toInt16(item->XM_Xu - 1.0)));
        machine_.click();
    }
}

const 税控收费项目* 税控步骤::对照项目(int line) const {
    const auto& items = configuration_.收费项目对照;
    const auto found = std::find_if(items.begin(), items.end(), [&](const 税控收费项目& item) {
        return item.项目编号 == form_.项(line).项目.tag;
    });
    return found == items.end() ? nullptr : &*found;
}

bool 税控步骤::获取发票编号(const 步骤方式& how) {
    constexpr std::int32_t widthOfNumber = 90;
    if (how.选取号码) {
        machine_.press();
        machine_.moveBy(widthOfNumber, 0);
        machine_.release();
        machine_.延时(2);
    }
    machine_.clearClipboard();
    machine_.send(how.复制键);
    machine_.延时(3);
    auto& tickets = form_.空白票据;
    tickets.tag = machine_.clipboardText();
    if (tickets.tag.empty()) {
        号码有误("未能获取税控机上的发票号码，请重新按[打印发票]按钮", how.无号码可关闭);
        return false;
    }
    tickets.setIndex(-1);
    tickets.setIndex(tickets.find(tickets.tag));
    if (tickets.hasSelection()) return true;
    号码有误("税控机上的发票号码与数据库内发票号码不匹配！\r\n可能选择票据簿有无，请重新选择票据簿", true);
    return false;
}

void 税控步骤::号码有误(std::string_view told, bool mayClose) {
    machine_.bringToFront();
    machine_.tell(told);
    controls_.打印发票.setEnabled(true);
    if (mayClose) controls_.关闭.setEnabled(true);
    controls_.出现错误.setVisible(true);
}

}  // namespace desk
