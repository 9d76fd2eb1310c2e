#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "db/embedded/embedded.h"
#include "money/deposits.h"
#include "support/test_program.h"
#include "wire/process/engine_choice.h"

namespace desk {
namespace {

using C = 收费列表;

/// A cashier at one of several programs on the same database, with the letter on the screen.
struct Seat {
    explicit Seat(const std::string& path) {
        program.db().open(testDatabaseIn(path), std::chrono::seconds(30));
    }
    void begin(const char* name) {
        program.enter();
        program.app.session.登录姓名 = name;
        program.app.screens.offer<Frm意向金收取>(program.app);
        program.app.screens.open(Frm意向金收取::screenName);
        screen().管理项目.pick("01 东塔");
        chooseLetter();
    }
    Frm意向金收取& screen() { return program.app.screens.get<Frm意向金收取>(); }
    void chooseLetter() { screen().意向书.click(*screen().意向书.find("YM1")); }
    /// A line with the first blank ticket that this seat sees.
    void charge(const char* amount) {
        auto& s = screen();
        const int row = s.收费.lastRow();
        for (const int column : {C::收费项目, C::数量, C::单价, C::金额}) {
            s.收费.click(row, column);
            s.单元格编辑.type(column == C::收费项目 ? "租金" : amount);
        }
        s.收费.click(row, C::票据类型);
        s.票据类型.button.click();
        s.票据类型.list.click(0);
        s.票据簿.button.click();
        s.票据簿.list.click(0);
        s.收费.click(row, C::票据编号);
        s.票据.button.click();
        s.票据.list.click(0);
    }
    void save() { screen().票据打印保存.click(); }
    void openRefund(int row) {
        screen().收费.click(row, C::金额);
        screen().退款处理.click();
    }

    TestProgram program;
};

class TwoCashiers : public testing::Test {
  protected:
    TwoCashiers() {
        std::remove(path.c_str());
        embedded::createDatabase(path);
        one = std::make_unique<Seat>(path);
        addOfficesAndDictionaries(one->program);
        one->program.run(
            {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,流转通过) Values ('1','01','甲公司',1)",
             "Insert Into 票据类型 (票据类型代号,票据类型,定额) Values ('2','收据',0)",
             "Insert Into 票据入库单 (入库单编号,票据类型编号) Values ('B2','2')",
             "Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L1','01')",
             "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','B2')",
             "Insert Into 票据 (入库单编号,票据编号) Values ('B2','0001')",
             "Insert Into 票据 (入库单编号,票据编号) Values ('B2','0002')"});
        other = std::make_unique<Seat>(path);
        one->begin("林晓");
        other->begin("周宁");
    }
    ~TwoCashiers() override {
        one.reset();
        other.reset();
        std::remove(path.c_str());
    }
    std::vector<std::string> rows(std::string_view statement) { return one->program.rows(statement); }
    /// Two lines are charged. The other pays back one of them just as this one, paying back the first, looks
    /// whether the number that it has drawn is free; so this one looks twice.
    void refundAtTheLook() {
        one->charge("8");
        one->save();
        one->charge("9");
        one->save();
        other->chooseLetter();
        one->openRefund(1);
        other->openRefund(2);
        int looks = 0;
        one->program.fault.seen = [&](std::string_view statement) {
            // Behind the MAX, before the look.
            if (statement.starts_with("Select * From 报销单表 Where 报销单编号") && ++looks == 1)
                other->screen().退款.确定.click();
        };
        one->screen().退款.确定.click();
        one->program.fault.seen = [](std::string_view) {};
        EXPECT_EQ(looks, 2);
    }

    const std::string path = testing::TempDir() + "deposits_" + std::to_string(::getpid()) + ".db";
    std::unique_ptr<Seat> one;
    std::unique_ptr<Seat> other;
};

/// The other cashier pays back between two statements of this one: each number is looked for before it is
/// taken, and no line is harmed.
TEST_F(TwoCashiers, NumberTheirVouchersAtTheSameMoment) {
    refundAtTheLook();
    EXPECT_EQ(
        rows("Select 报销单编号,流水号,凭证编号,凭证流水号 From 报销单表 Order By 报销单ID"),
        (std::vector<std::string>{"01-00000001|1|TK-201100000001|1", "01-00000002|2|TK-201100000002|2"}));
    EXPECT_EQ(rows("Select 退款支付凭证编号,退款金额,处理结束 From YZ_意向金收款 Order By ID"),
              (std::vector<std::string>{"TK-201100000002|8|1", "TK-201100000001|9|1"}));
    EXPECT_EQ(one->screen().退款.凭证编号.caption(), "TK-201100000002");
    EXPECT_EQ(rows("Select 报销单ID,金额 From 报销单明细 Order By ID"),
              (std::vector<std::string>{"1|9", "2|8"}));
}

/// One line, paid back by both: the first look finds the voucher of the other.
TEST_F(TwoCashiers, SeeTheRefundOfTheOther) {
    one->charge("8");
    one->save();
    other->chooseLetter();
    one->openRefund(1);
    one->screen().退款.确定.click();
    other->openRefund(1);
    EXPECT_FALSE(other->screen().退款.确定.enabled());
    EXPECT_EQ(other->screen().退款.凭证编号.caption(), "TK-201100000001");
    EXPECT_EQ(rows("Select 报销单ID From 报销单表").size(), 1U);
}

}  // namespace
}  // namespace desk
