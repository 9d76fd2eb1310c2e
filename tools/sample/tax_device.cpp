#include "sample/tax_device.h"

#include <array>
#include <span>

#include "sample/filler.h"

namespace desk::sample {

namespace {

struct ScriptStep {
    const char* Stage;
    const char* Operate_type;
    const char* X;
    const char* Y;
    const char* KeyString;
    const char* Remark;
};

constexpr const char* login = "登录阶段";
constexpr const char* print = "开票阶段";
constexpr const char* takeBack = "退票阶段";

constexpr std::array<ScriptStep, 19> printing = {
    {{login, "键盘操作", nullptr, nullptr, nullptr, "输入用户名"},
     {login, "键盘操作", nullptr, nullptr, "{TAB}", nullptr},
     {login, "键盘操作", nullptr, nullptr, nullptr, "输入密码"},
     {login, "键盘操作", nullptr, nullptr, "{ENTER}", nullptr},
     {login, "延时", "8", nullptr, nullptr, nullptr},
     {print, "键盘操作", nullptr, nullptr, "{F2}", nullptr},
     {print, "延时", "2", nullptr, nullptr, nullptr},
     {print, "获取发票编号", nullptr, nullptr, nullptr, nullptr},
     {print, "键盘操作", nullptr, nullptr, "{TAB}", nullptr},
     {print, "键盘操作", nullptr, nullptr, nullptr, "输入付款人"},
     {print, "键盘操作", nullptr, nullptr, "{TAB}", nullptr},
     {print, "键盘操作", nullptr, nullptr, nullptr, "按经营项目编号1"},
     {print, "键盘操作", nullptr, nullptr, nullptr, "输入单价1"},
     {print, "键盘操作", nullptr, nullptr, "{TAB}", nullptr},
     {print, "键盘操作", nullptr, nullptr, nullptr, "输入数量1"},
     {print, "键盘操作", nullptr, nullptr, "{TAB}", nullptr},
     {print, "键盘操作", nullptr, nullptr, nullptr, "输入备注"},
     {print, "延时", "1", nullptr, nullptr, nullptr},
     {print, "键盘操作", nullptr, nullptr, "{F9}", "无"}}};

constexpr std::array<ScriptStep, 7> takingBack = {
    {{login, "键盘操作", nullptr, nullptr, nullptr, "输入用户名"},
     {login, "键盘操作", nullptr, nullptr, "{TAB}", nullptr},
     {login, "键盘操作", nullptr, nullptr, nullptr, "输入密码"},
     {login, "键盘操作", nullptr, nullptr, "{ENTER}", nullptr},
     {takeBack, "键盘操作", nullptr, nullptr, "{F5}", nullptr},
     {takeBack, "鼠标单击", "420", "310", nullptr, nullptr},
     {takeBack, "键盘操作", nullptr, nullptr, "{ENTER}", nullptr}}};

Value orNull(const char* text) {
    return text == nullptr ? Value() : Value(text);
}

void addScript(Connection& connection, Name table, std::int64_t device, std::span<const ScriptStep> steps) {
    Filler rows(connection, table,
                {"SK_ID", "Stage", "Operate_step", "Operate_type", "X", "Y", "KeyString", "Remark"});
    int number = 0;
    for (const ScriptStep& step : steps)
        rows.add({device, step.Stage, ++number, step.Operate_type, orNull(step.X), orNull(step.Y),
                  orNull(step.KeyString), orNull(step.Remark)});
}

}  // namespace

void addTaxDevice(Connection& connection, const Organisation& organisation, const DateTime& today) {
    Filler devices(connection, "票据税控机",
                   {"税控机编号", "启用日期", "使用单位", "税控码", "税务登记号", "开户银行", "银行帐号",
                    "软件名称", "启动后名称"});
    devices.add({"SK001", today.plusDays(-700), organisation.cashierDepartment, "8912", "310101000000000",
                 "工商银行", "6200000000000000", "c:\\税控开票\\Invoice.exe", "税控发票开票软件"});
    const std::int64_t device = devices.identity();

    Filler operators(connection, "SKOperator", {"SK_ID", "OperatorNum", "UserNum", "Password"});
    operators.add({device, organisation.cashier.工号, "01", "123456"});
    Filler items(connection, "SKSfxm", {"税控ID", "项目编号", "项目名称", "XM_Num", "XM_Name", "XM_Xu"});
    items.add({device, "YJ01", "租金意向金", "0101", "租金", 1});
    items.add({device, "YJ02", "物业管理费意向金", "0102", "物业管理费", 2});
    addScript(connection, "SKStep", device, printing);
    addScript(connection, "SKTPStep", device, takingBack);
}

}  // namespace desk::sample
