#include "sample/tax_device.h"

#include <fmt/format.h>

#include <string>
#include <vector>

#include "sample/filler.h"

namespace desk::sample {

namespace {

/// A script while it is being written, stage by stage.
class Script {
  public:
    void stage(const char* name) { stage_ = name; }
    void press(const char* keys) { steps_.push_back({stage_, "键盘操作", {}, keys, {}}); }
    void type(std::string what) { steps_.push_back({stage_, "键盘操作", {}, {}, std::move(what)}); }
    void wait(int quartersOfASecond) {
        steps_.push_back({stage_, "延时", std::to_string(quartersOfASecond), {}, {}});
    }
    void readNumber() { steps_.push_back({stage_, "获取发票编号", {}, {}, {}}); }

    void addTo(Connection& connection, Name table, std::int64_t device) const {
        Filler rows(connection, table,
                    {"SK_ID", "Stage", "Operate_step", "Operate_type", "X", "KeyString", "Remark"});
        int number = 0;
        for (const Step& step : steps_)
            rows.add({device, step.stage, ++number, step.kind, nullIfEmpty(step.X),
                      nullIfEmpty(step.KeyString), nullIfEmpty(step.Remark)});
    }

  private:
    struct Step {
        const char* stage;
        const char* kind;
        std::string X;
        std::string KeyString;
        std::string Remark;
    };

    const char* stage_ = "";
    std::vector<Step> steps_;
};

/// The program is given a while to come up, and to show its main window.
Script loggingIn() {
    Script script;
    script.stage("登录阶段");
    script.wait(6);
    script.type("输入用户名");
    script.press("{TAB}");
    script.type("输入密码");
    script.press("{ENTER}");
    script.wait(8);
    return script;
}

/// A code that is typed goes on by itself; F6 goes to the next line also where the present one stayed empty.
Script printing() {
    Script script = loggingIn();
    script.stage("开票阶段");
    script.press("{F2}");
    script.wait(2);
    script.readNumber();
    script.press("{TAB}");
    script.type("输入付款人");
    script.press("{F6}");
    for (int line = 1; line <= 3; ++line) {
        script.type(fmt::format("按经营项目编号{}", line));
        script.type(fmt::format("输入单价{}", line));
        script.press("{TAB}");
        script.type(fmt::format("输入数量{}", line));
        script.press("{TAB}");
        script.type(fmt::format("输入金额{}", line));
        script.press("{F6}");
    }
    script.type("输入备注");
    script.wait(1);
    script.press("{F9}");
    script.wait(2);
    return script;
}

Script takingBack() {
    Script script = loggingIn();
    script.stage("退票阶段");
    script.press("{F5}");
    script.wait(2);
    script.readNumber();
    script.press("{ENTER}");
    script.wait(2);
    return script;
}

}  // namespace

void addTaxDevice(Connection& connection, const Organisation& organisation, const DateTime& today,
                  std::string_view program) {
    Filler devices(connection, "票据税控机",
                   {"税控机编号", "启用日期", "终止日期", "使用单位", "税控码", "税务登记号", "开户银行",
                    "银行帐号", "软件名称", "启动后名称"});
    const auto addDevice = [&](const char* number, int days, const Value& end, std::string_view path,
                               const char* title) {
        devices.add({number, today.plusDays(-days), end, organisation.cashierDepartment, "8912",
                     "310101000000000", "工商银行", "6200000000000000", path, title});
        return devices.identity();
    };
    Filler operators(connection, "SKOperator", {"SK_ID", "OperatorNum", "UserNum", "Password"});
    const std::int64_t former =
        addDevice("SK001", 2000, today.plusDays(-700), "c:\\税控开票\\Invoice.exe", "税控开票");
    operators.add({former, organisation.cashier.工号, "1", "1"});

    const std::int64_t device = addDevice("SK002", 700, {}, program, "税控发票开票软件");
    operators.add({device, organisation.cashier.工号, "01", "123456"});
    Filler items(connection, "SKSfxm", {"税控ID", "项目编号", "项目名称", "XM_Num", "XM_Name", "XM_Xu"});
    items.add({device, "YJ01", "租金意向金", "0101", "租金", 1});
    items.add({device, "YJ02", "物业管理费意向金", "0102", "物业管理费", 2});
    items.add({device, "YJ04", "水电押金", "0103", "水电押金", 3});
    items.add({device, "YJ05", "钥匙押金", "0104", "钥匙押金", 4});
    printing().addTo(connection, "SKStep", device);
    takingBack().addTo(connection, "SKTPStep", device);
}

}  // namespace desk::sample
