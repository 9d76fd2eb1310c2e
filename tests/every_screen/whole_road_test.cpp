#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "analysis/classification.h"
#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "analysis/weekly_analysis.h"
#include "base/text.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "db/embedded/embedded.h"
#include "db/statement.h"
#include "intent/approval.h"
#include "intent/letter.h"
#include "intent/unit_map.h"
#include "money/deposits.h"
#include "money/tax_invoice.h"
#include "session/login.h"
#include "session/main_window.h"
#include "support/test_program.h"
#include "ui/menu.h"
#include "wire/engine_choice.h"

namespace desk {
namespace {

using Lines = std::vector<std::string>;

/// Who works at the property, and what each may open.
struct Person {
    const char* number;
    const char* name;
    const char* department;
    const char* position;
    std::vector<const char*> entries;
};

const Person consultant{"E01",
                        "林晓",
                        "01",
                        "0101",
                        {"引驻信息管理", "客户信息登记", "客户跟进管理", "意向客户管理", "意向客户登记"}};
const Person manager{"E02",
                     "周平",
                     "01",
                     "0102",
                     {"引驻信息管理", "客户跟进分配", "意向客户管理", "意向客户审批", "统计报表",
                      "来客统计分析", "跟进状态分析", "客户分类统计"}};
const Person accountant{"E03", "吴江", "02", "0201", {"意向客户管理", "意向客户审批"}};
const Person cashier{"E04", "郑敏", "02", "0202", {"意向客户管理", "意向金收取"}};

/// One property from the morning on which a company first comes to it. Whoever works logs in, opens a screen
/// by the menu, works its controls and closes it; after each step the rows are looked at.
class WholeRoad : public testing::Test {
  protected:
    WholeRoad() {
        std::remove(path.c_str());
        embedded::createDatabase(path);
        program.settings.keys["DBname"] = path;
        program.app.主连接.open(testDatabaseIn(path), std::chrono::seconds(5));
        addOfficesAndDictionaries(program);
        for (const Person& person : {consultant, manager, accountant, cashier}) employ(person);
        layOutProperty();
        offer<Frm引驻客户信息登记, Frm客户跟进信息分配, Frm客户跟进记录, Frm意向书信息, Frm房源一览表,
              Frm意向书审批, Frm意向金收取, Frm税控发票打印, Frm每周来客统计分析, Frm客户跟进状态分析,
              Frm客户分类统计, FrmToExcel>();
    }
    ~WholeRoad() override { std::remove(path.c_str()); }

    template <class... Screens>
    void offer() {
        (program.app.screens.offer<Screens>(program.app), ...);
    }

    void employ(const Person& person) {
        auto& db = program.db();
        const std::string number = person.number;
        db.execute(sql("Insert Into 员工档案 (工号,姓名,帐号密码) Values ('{}','{}','pw{}')", number,
                       person.name, number));
        db.execute(
            sql("Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,岗位类别代号,工号) Values "
                "('{}','{}岗','{}','P','{}')",
                person.position, person.name, person.department, number));
        db.execute(sql("Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('{}','{}',1)", number,
                       person.position));
        db.execute(sql("Insert Into 岗位权限设置 (组代号,岗位代号,授权) Values ('{}','{}',1)", number,
                       person.position));
        for (const char* entry : person.entries)
            db.execute(sql(
                "Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('{}','{}',1,'引驻台账')",
                number, entry));
    }

    void layOutProperty() {
        program.run({
            "Insert Into 职能部门类别 (部门类别代号,部门类别名称) Values ('A','业务')",
            "Insert Into 岗位类别 (岗位类别编号,岗位类别名称) Values ('P','专员')",
            "Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values ('01','招商部','A')",
            "Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values ('02','财务部','A')",
            "Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('02','01')",
            "Insert Into YZ_组表 (组代号,组名称) Values ('1','现场组')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('1','01')",
            "Insert Into YZ_组人员设置 (组代号,员工工号) Values ('1','E01')",
            "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','有意向',65280)",
            "Insert Into Temp_Type (TypeName,Value,Character) Values ('意向书登记','年份','YX')",
            "Insert Into YZ_意向书审批路径设置 (审批路径代号,管理处代号,单级流转) Values ('L1','01',0)",
            "Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) Values "
            "(1,1,'01','0102')",
            "Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) Values "
            "(1,2,'02','0201')",
            "Insert Into 楼表 (L_ID,楼编号,地址1,管理处,开始日期) Values (7,'1','一号楼','01','2001-1-1')",
            "Insert Into 楼域范围设置 (工号,L_ID) Values ('E01',7)",
            "Insert Into 室表 (S_ID,L_ID,层次,室,建筑面积,开始日期) Values (71,7,'1','101',120.5,'2001-1-1')",
            "Insert Into 室表 (S_ID,L_ID,层次,室,建筑面积,开始日期) Values (72,7,'1','102',80,'2001-1-1')",
            "Insert Into 单元出租状态 (单元ID,状态,设置日期) Values (71,'可出租','2010-1-1')",
            "Insert Into 单元出租状态 (单元ID,状态,设置日期) Values (72,'可出租','2010-1-1')",
            "Insert Into 票据类型 (票据类型代号,票据类型,定额) Values ('2','收据',0)",
            "Insert Into 票据入库单 (入库单编号,票据类型编号) Values ('B2','2')",
            "Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L1','02')",
            "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','B2')",
            "Insert Into 票据 (入库单编号,票据编号) Values ('B2','0001')",
            "Insert Into 财务科目 (科目代号,科目名称) Values ('2181','其他应付款')",
            "Insert Into SETUPSFXM (DH,XM,收费类别,对应科目) Values ('D1','租金意向金','押金','2181')",
            "Insert Into SETUPSFXM (DH,XM,收费类别,对应科目) Values ('D2','物管费意向金','押金','2181')",
            "Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('1','税控发票',1,0)",
            "Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('B1','1',1)",
            "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','B1')",
            "Insert Into 票据 (入库单编号,票据编号) Values ('B1','9001')",
            "Insert Into 票据 (入库单编号,票据编号) Values ('B1','9002')",
            "Insert Into 票据税控机 (使用单位,软件名称,启动后名称) Values ('02','c:\\税控.exe','税控软件')",
            "Insert Into SKOperator (SK_ID,OperatorNum,UserNum) Values (1,'E04','01')",
            "Insert Into SKSfxm (税控ID,项目编号,XM_Num,XM_Name,XM_Xu) Values (1,'D2','0102','物管费',2)",
            "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type) Values (1,1,'开票','获取发票编号')",
            "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type,Remark) Values "
            "(1,2,'开票','键盘操作','输入付款人')",
            "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type,Remark) Values "
            "(1,3,'开票','键盘操作','按经营项目编号1')",
            "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type,Remark) Values "
            "(1,4,'开票','键盘操作','输入金额1')",
        });
    }

    Lines rows(std::string_view statement) { return program.rows(statement); }

    /// The person takes the seat: at the start, or after whoever was there has logged off.
    void seat(const Person& person) {
        const auto logIn = [&person](FrmLogin& login) {
            login.TxtUser.type(person.number);
            login.txtPassword.type("pw" + std::string(person.number));
            login.cmdOK.click();
        };
        program.desktop.modalPerson = [&](Screen& login) { logIn(static_cast<FrmLogin&>(login)); };
        if (program.app.screens.loaded(MDIForm1::screenName) == nullptr) {
            program.app.start("");
            logIn(program.app.screens.get<FrmLogin>());
        } else {
            menu("注销").click();
        }
        ASSERT_EQ(program.app.session.登录姓名, person.name);
    }

    MenuEntry& menu(std::string_view caption) { return *program.app.screens.get<MDIForm1>().entry(caption); }

    /// Opens the screen of that entry, lets `work` be done on it, and closes it; `told` is what the boxes say
    /// meanwhile.
    template <class S>
    void at(std::string_view entry, const std::function<void(S&)>& work, const Lines& told = {}) {
        menu(entry).click();
        ASSERT_NE(program.app.screens.loaded(S::screenName), nullptr) << entry << " does not open";
        work(program.app.screens.get<S>());
        Lines boxes;
        for (const Message& message : program.desktop.messages)
            if (message.buttons == Buttons::ok) boxes.push_back(message.text);
        EXPECT_EQ(boxes, told);
        program.desktop.messages.clear();
        if (Screen* left = program.app.screens.loaded(S::screenName)) program.app.screens.unload(*left);
    }

    void aCompanyComes();
    void itIsAssigned();
    void itIsFollowedUp();
    void aLetterIsWrittenWithUnits();
    void theLetterIsSubmitted();
    void itIsApprovedTwice();
    void theDepositIsTakenAndAPartPaidBack();
    void fillLine(Frm意向金收取& screen, int row, const char* item, const char* amount, const char* type);
    void theRestIsInvoiced(Frm意向金收取& screen);
    void theCustomersAreCounted();

    const std::string path = testing::TempDir() + "road_" + std::to_string(::getpid()) + ".db";
    TestProgram program;
};

void WholeRoad::aCompanyComes() {
    at<Frm引驻客户信息登记>("客户信息登记", [](Frm引驻客户信息登记& screen) {
        auto& page = screen.来人;
        page.管理项目.pick("01 东塔");
        page.采用自动编号.click();
        page.新增.click();
        page.公司名称.type("盛远国际贸易");
        page.客户姓名.type("陈先生");
        page.客户电话.type("13800010001");
        page.公司地址.type("世纪大道100号");
        page.需求面积.type("200");
        page.业务员.type("林晓");
        page.区域.pick("浦东");
        page.企业性质->pick("外资");
        page.从事行业.pick("贸易");
        page.媒体->列表.click(page.媒体->列表.find("报纸"));
        page.询问重点.列表.click(page.询问重点.列表.find("租金"));
        page.确定.click();
    });
    EXPECT_EQ(
        rows("Select 登记编号,管理处代号,客源类别,公司名称,企业性质,从事行业,媒体 From YZ_引驻客户信息"),
        Lines{"2011-000001|01|引驻来人|盛远国际贸易|外资|贸易|报纸"});
}

void WholeRoad::itIsAssigned() {
    at<Frm客户跟进信息分配>("客户跟进分配",
                            [](Frm客户跟进信息分配& screen) {
                                screen.管理项目.pick("01 东塔");
                                screen.客户.click(*screen.客户.find("D2011-000001"));
                                screen.选择组.pick("1 现场组");
                                screen.选择人员.pick("E01 林晓");
                                screen.分配日期.type("2011-3-5");
                                screen.确定.click();
                            },
                            {"任务分配成功！"});
    EXPECT_EQ(rows("Select 登记编号,组代号,员工工号,分配日期 From YZ_引驻客户分配"),
              Lines{"2011-000001|1|E01|2011-03-05"});
    EXPECT_EQ(rows("Select 分配日期 From YZ_引驻客户信息"), Lines{"2011-03-05"});
}

void WholeRoad::itIsFollowedUp() {
    at<Frm客户跟进记录>("客户跟进管理", [](Frm客户跟进记录& screen) {
        screen.管理项目.pick("01 东塔");
        screen.客户.click(*screen.客户.find("D2011-000001"));
        screen.新增.click();
        screen.跟进日期.type("2011-3-5");
        screen.跟进人员.pick("E01 林晓");
        screen.跟进状态.pick("1 有意向");
        screen.跟进情况.type("要两间相邻的");
        screen.确定.click();
    });
    EXPECT_EQ(rows("Select 登记编号,跟进人工号,跟进状态编号,跟进情况 From YZ_引驻客户跟进记录"),
              Lines{"2011-000001|E01|1|要两间相邻的"});
}

void WholeRoad::aLetterIsWrittenWithUnits() {
    at<Frm意向书信息>("意向客户登记", [this](Frm意向书信息& screen) {
        screen.管理项目.pick("01 东塔");
        screen.Check5.click();
        screen.新增.click();
        screen.选择承租方.click();
        screen.客户.跟进状态.pick("1 有意向");
        screen.客户.列表.click(1, 1);
        screen.客户.确定.click();
        screen.单元.面板.open();
        screen.单元.单元选择.click();
        auto& map = program.app.screens.get<Frm房源一览表>();
        map.地图.resize(4 * 700 + 200, 3000);
        for (const int column : {0, 1}) map.地图.click(1, column);
        map.房源选择确定.click();
        screen.单元.关闭.click();
        EXPECT_EQ(screen.信息["租赁面积"].text(), "200.5");
        screen.信息["租赁起始日期"].type("2011-4-1");
        screen.信息["租金意向金"].type("5000");
        screen.信息["物业管理费意向金"].type("1200");
        screen.确定.click();
    });
    EXPECT_EQ(rows("Select 意向书编号,承租方,租赁面积,意向金合计,引驻客户信息ID From YZ_意向书信息"),
              Lines{"YX2011-000001|盛远国际贸易|200.5|6200|1"});
    EXPECT_EQ(rows("Select 单元ID,意向书ID From YZ_意向书单元信息 Order By 单元ID"), (Lines{"71|1", "72|1"}));
}

void WholeRoad::theLetterIsSubmitted() {
    at<Frm意向书信息>("意向客户登记", [this](Frm意向书信息& screen) {
        screen.管理项目.pick("01 东塔");
        screen.意向书.click(*screen.意向书.find("YMYX2011-000001"));
        program.desktop.answers = {Answer::yes};
        screen.提交.click();
    });
    EXPECT_EQ(rows("Select 意向书ID,环节序号,岗位代号 From YZ_意向书审批情况"), Lines{"1|1|0102"});
    EXPECT_EQ(rows("Select 意向书编号 From YZ_意向书信息 Where 提交日期 Is Not Null"),
              Lines{"YX2011-000001"});
}

void WholeRoad::itIsApprovedTwice() {
    const auto agree = [this] {
        at<Frm意向书审批>("意向客户审批", [](Frm意向书审批& screen) {
            screen.待审批.click(*screen.待审批.find("YM1"));
            screen.您的审批意见.type("同意出租");
            screen.同意.click();
        });
    };
    seat(manager);
    agree();
    EXPECT_EQ(rows("Select 流转通过 From YZ_意向书信息"), Lines{""});
    seat(accountant);
    agree();
    EXPECT_EQ(rows("Select 环节序号,审批人,审批内容,同意 From YZ_意向书审批情况 Order By 环节序号"),
              (Lines{"1|周平|同意出租|1", "2|吴江|同意出租|1"}));
    EXPECT_EQ(rows("Select 流转通过 From YZ_意向书信息"), Lines{"1"});
}

/// Takes the text from the list beside the cell.
void pick(Frm意向金收取& screen, int row, CellList& cell, 收费列表::Column column, std::string_view text) {
    screen.收费.click(row, column);
    cell.button.click();
    ASSERT_GE(cell.list.find(text), 0) << text;
    cell.list.click(cell.list.find(text));
}

void WholeRoad::fillLine(Frm意向金收取& screen, int row, const char* item, const char* amount,
                         const char* type) {
    using 列 = 收费列表::Column;
    pick(screen, row, screen.收费项目, 列::收费项目, item);
    for (const auto& [column, text] :
         {std::pair{列::数量, "1"}, std::pair{列::单价, amount}, std::pair{列::金额, amount}}) {
        screen.收费.click(row, column);
        screen.单元格编辑.type(text);
    }
    pick(screen, row, screen.票据类型, 列::票据类型, type);
}

/// The tax program shows the second ticket of its book, and prints what is typed.
void WholeRoad::theRestIsInvoiced(Frm意向金收取& screen) {
    fillLine(screen, 2, "物管费意向金", "1200", "1 税控发票");
    screen.收费.click(2, 收费列表::打印);
    program.programs.windows = {"税控软件", "税控发票打印"};
    program.machine.hook = [this](const std::string& call) {
        if (call == "send ^C") program.clipboard.held = "9002";
    };
    program.desktop.modalPerson = [this](Screen& shown) {
        auto& form = static_cast<Frm税控发票打印&>(shown);
        form.样张.票据本.pick("B1 税控发票");
        program.desktop.answers = {Answer::yes};
        form.打印发票.click();
    };
    program.machine.lines.clear();
    screen.票据打印保存.click();
    EXPECT_EQ(program.machine.take(), (Lines{"has window 税控软件", "activate 税控软件", "clipboard clear",
                                             "send ^C", "clipboard text", "send 盛远国际贸易", "send 0102",
                                             "send {ENTER}", "send 1200", "activate 税控发票打印"}));
    EXPECT_EQ(rows("Select 收费项目,票据编号,票据打印 From YZ_意向金收款 Order By ID"),
              (Lines{"租金意向金|0001|0", "物管费意向金|9002|1"}));
    EXPECT_EQ(rows("Select 票据编号,金额 From 票据 Where 开票日期 Is Not Null Order By 票据编号"),
              (Lines{"0001|5000", "9002|1200"}));
}

void WholeRoad::theDepositIsTakenAndAPartPaidBack() {
    at<Frm意向金收取>("意向金收取", [this](Frm意向金收取& screen) {
        using 列 = 收费列表::Column;
        screen.管理项目.pick("01 东塔");
        screen.意向书.click(*screen.意向书.roots().front()->children().front());
        fillLine(screen, 1, "租金意向金", "5000", "2 收据");
        screen.票据簿.button.click();
        screen.票据簿.list.click(screen.票据簿.list.find("B2"));
        pick(screen, 1, screen.票据, 列::票据编号, "0001");
        screen.收费.click(1, 列::票据类型);
        screen.票据打印保存.click();
        EXPECT_EQ(rows("Select 意向书ID,收费项目,金额,票据编号 From YZ_意向金收款"),
                  Lines{"1|租金意向金|5000|0001"});
        EXPECT_EQ(rows("Select 金额,付款人 From 票据 Where 票据编号='0001'"), Lines{"5000|盛远国际贸易"});
        theRestIsInvoiced(screen);

        screen.收费.click(1, 列::科目编号);
        screen.退款处理.click();
        screen.退款.借方金额.type("500");
        screen.退款.收款人.type("陈先生");
        screen.退款.相关情况说明.type("少租一间");
        screen.退款.确定.click();
    });
    EXPECT_EQ(rows("Select 退款金额 From YZ_意向金收款 Order By ID"), (Lines{"500", ""}));
    EXPECT_EQ(rows("Select 报销单编号,报销人,报销单类型 From 报销单表"),
              Lines{"02-00000001|陈先生|意向金退款"});
}

void WholeRoad::theCustomersAreCounted() {
    at<Frm每周来客统计分析>("来客统计分析", [](Frm每周来客统计分析& screen) {
        screen.选择区域.pick("01 东塔");
        screen.开始日期.pick(DateTime(2011, 3, 1));
        screen.结束日期.pick(DateTime(2011, 3, 7));
        screen.全部.click();
        screen.统计.click();
        const Grid& result = screen.统计结果;
        Lines found;
        for (int row = 1; row < result.rows(); ++row)
            if (result.text(row, 2) == "1") found.push_back(result.text(row, 1));
        EXPECT_EQ(found, (Lines{"报纸", "浦东", "贸易", "外资", "租金", "03.05（周六）", "200"}));
    });
    at<Frm客户跟进状态分析>("跟进状态分析", [](Frm客户跟进状态分析& screen) {
        screen.Check6.click();
        screen.Command1.click();
        ASSERT_EQ(screen.MSFlexGrid1.rows(), 2);
        EXPECT_EQ(screen.MSFlexGrid1.text(1, 1), "有意向");
        EXPECT_EQ(screen.MSFlexGrid1.text(1, 3), "1");
    });
    at<Frm客户分类统计>("客户分类统计", [this](Frm客户分类统计& screen) {
        screen.Combo1.pick("01 东塔");
        for (CheckBox* all : {&screen.Check1, &screen.Check2, &screen.Check3}) all->click();
        screen.Command1.click();
        ASSERT_EQ(screen.MSFlexGrid1.rows(), 2);
        EXPECT_EQ(screen.MSFlexGrid1.text(1, 1), "现场组");
        program.desktop.modalPerson = [](Screen& shown) {
            auto& out = static_cast<FrmToExcel&>(shown);
            out.文件.type("/data/分类.xls");
            out.Command2.click();
        };
        screen.Command13.click();
    });
    const auto& sheet = program.spreadsheets.books.at("/data/分类.xls").front().rows();
    EXPECT_EQ(sheet.at(4).at(2).text, "盛远国际贸易");
}

TEST_F(WholeRoad, LeadsFromTheFirstVisitToTheExportedTables) {
    seat(consultant);
    aCompanyComes();
    seat(manager);
    itIsAssigned();
    seat(consultant);
    itIsFollowedUp();
    aLetterIsWrittenWithUnits();
    theLetterIsSubmitted();
    itIsApprovedTwice();
    seat(cashier);
    theDepositIsTakenAndAPartPaidBack();
    seat(manager);
    theCustomersAreCounted();
}

}  // namespace
}  // namespace desk
