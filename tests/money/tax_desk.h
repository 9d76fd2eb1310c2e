#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "db/statement.h"
#include "money/deposits.h"
#include "money/tax_invoice.h"
#include "support/transcripts_of_room.h"

namespace desk {

/// Department 01 with a tax device, which E01 works, and with a book of the tickets 9001 and 9002.
inline void 加税控台(Connection& connection) {
    for (const char* statement :
         {"Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('1','税控发票',1,0)",
          "Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('B1','1',1)",
          "Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L1','01')",
          "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','B1')",
          "Insert Into 票据 (入库单编号,票据编号) Values ('B1','9001')",
          "Insert Into 票据 (入库单编号,票据编号) Values ('B1','9002')",
          "Insert Into 票据税控机 (使用单位,软件名称,启动后名称) Values "
          "('01','c:\\税控\\开票.exe','税控软件')",
          "Insert Into SKOperator (SK_ID,OperatorNum,UserNum,Password) Values (1,'E01','01','123456')",
          "Insert Into SKSfxm (税控ID,项目编号,XM_Num,XM_Name,XM_Xu) Values (1,'D1','0101','租金',1)",
          "Insert Into SKSfxm (税控ID,项目编号,XM_Num,XM_Name,XM_Xu) Values (1,'D2','0102','物管费',3)"})
        connection.execute(statement);
}

/// A cashier's desk. The tax program is there and not yet running; it shows the number that `number` says.
struct 税控台 : TestProgram {
    税控台() {
        openDatabase();
        加税控台(db());
        files.present = {"c:\\税控\\开票.exe"};
        programs.windows = {"税控发票打印"};
        offerScreens<Frm意向金收取, Frm税控发票打印>(*this);
        enter();
        machine.hook = [this](const std::string& call) { seen(call); };
        desktop.events = [this] { seen("waits"); };
        desktop.note = [this](const std::string& words) {
            if (words.find("box") != std::string::npos) meanwhile("box");
        };
    }

    std::string number = "9001";
    /// Called at each call of the machine, at each wait and as each box comes up.
    std::function<void(const std::string& what)> meanwhile = [](const std::string&) {};

    /// Adds a step to the script that prints, or to the one that takes back.
    void step(const std::string& Stage, const std::string& Operate_type, const std::string& X = "",
              const std::string& Y = "", const std::string& KeyString = "", const std::string& Remark = "",
              Name table = "SKStep") {
        db().execute(
            sql("Insert Into {} (SK_ID,Operate_step,Stage,Operate_type,X,Y,KeyString,Remark) Values "
                "(1,{},'{}','{}','{}','{}','{}','{}')",
                table, ++steps_, Stage, Operate_type, X, Y, KeyString, Remark));
    }
    void types(const std::string& KeyString, const std::string& Stage = "开票") {
        step(Stage, "键盘操作", "", "", KeyString);
    }
    void typesText(const std::string& Remark, const std::string& X = "") {
        step("开票", "键盘操作", X, "", "", Remark);
    }
    static constexpr const char* login = "登录阶段";

    /// The screen, with the book chosen and the form filled in; the tax program runs if it has been told so.
    Frm税控发票打印& open() {
        app.screens.open(Frm税控发票打印::screenName);
        auto& screen = app.screens.get<Frm税控发票打印>();
        screen.tag = "意向金收取";
        screen.填写({"甲公司", {{"租金", "D1", "1.5", "2", "3"}, {"物管费", "D2", "4", "5", "20"}}});
        screen.样张.票据本.pick("B1 税控发票");
        machine.take();
        return screen;
    }
    bool isOpen() const { return app.screens.loaded(Frm税控发票打印::screenName) != nullptr; }

    void isRunning() { programs.windows.push_back("税控软件"); }
    /// Presses the button, and gives what came of it; the question is answered so.
    std::vector<std::string> print(Frm税控发票打印& screen, Answer answer = Answer::no) {
        desktop.answers = {answer};
        screen.打印发票.click();
        return machine.take();
    }
    /// What the steps of the script do at a program that runs, without what stands around them.
    std::vector<std::string> doneBySteps(Frm税控发票打印& screen) {
        auto all = print(screen);
        if (all.size() < 10) {
            ADD_FAILURE() << "no run: " << testing::PrintToString(all);
            return all;
        }
        const std::vector<std::string> before = {"has window 税控软件", "activate 税控软件", "waits", "waits",
                                                 "waits"};
        EXPECT_EQ(std::vector(all.begin(), all.begin() + 5), before);
        all.erase(all.begin(), all.begin() + 5);
        const std::vector<std::string> behind = {"waits", "waits", "waits", "waits", "activate 税控发票打印"};
        EXPECT_EQ(std::vector(all.end() - 5, all.end()), behind);
        all.erase(all.end() - 5, all.end());
        return all;
    }
    std::string handedBack() { return app.screens.get<Frm意向金收取>().票据打印保存.tag; }

  private:
    void seen(const std::string& what) {
        if (what.starts_with("send ^")) clipboard.held = number;
        if (what == "waits") machine.lines.push_back(what);
        meanwhile(what);
    }

    int steps_ = 0;
};

using Journal = std::vector<std::string>;

}  // namespace desk
