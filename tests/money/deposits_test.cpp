#include "money/deposits.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/statement.h"
#include "support/test_program.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

using C = 收费列表;

/// A print screen that notes what it was asked for, and hands back what `tickets` holds next: an empty one is
/// a ticket that did not come out.
struct Invoices {
    std::vector<std::string> asked;
    std::vector<std::string> tickets;
};

class InvoiceStandIn : public 打印窗体 {
  public:
    InvoiceStandIn(const char* name, Invoices& invoices)
        : 打印窗体(name, name, WindowKind::dialog, 100, 100), invoices_(invoices) {}
    void 填写(const 开票内容& content) override {
        std::string all = tag + ":" + content.付款人;
        for (const auto& item : content.项目)
            all += "|" + join({item.名称, item.收费项目代号, item.单价, item.数量, item.金额}, ",");
        invoices_.asked.push_back(all);
    }

  private:
    Invoices& invoices_;
};

/// A letter of office 01 without any charges, a tax type and two others, with a book of ten blank tickets
/// each.
class Deposits : public testing::Test {
  protected:
    Deposits() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run(
            {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,流转通过) Values "
             "('1','01','甲公司',1),('2','01','乙公司',1)",
             "Insert Into 财务科目 (科目代号,科目名称) Values ('2181','其他应付款')",
             "Insert Into SETUPSFXM (DH,XM,收费类别,对应科目) Values ('D1','租金意向金','押金','2181')",
             "Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L1','01')",
             "Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values "
             "('1','税控',1,0),('2','收据',Null,0),('3','收据',Null,0)",
             "Insert Into 票据入库单 (入库单编号,票据类型编号) Values ('B1','1'),('B2','2'),('B3','3')",
             "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values "
             "('L1','B1'),('L1','B2'),('L1','B3')"});
        for (int book = 1; book <= 3; ++book)
            for (int ticket = 0; ticket < 10; ++ticket)
                program.db().execute(sql("Insert Into 票据 (入库单编号,票据编号) Values ('B{}','{}00{}')",
                                         book, book, ticket));
        program.enter();
        offerScreens<Frm意向金收取>(program);
        for (const char* name : {"frm税控发票打印", "frm票据打印"})
            program.app.screens.offer(
                name, [this, name] { return std::make_unique<InvoiceStandIn>(name, invoices); });
        program.desktop.modalPerson = [this](Screen& form) {
            const std::string ticket = invoices.tickets.empty() ? "" : invoices.tickets.front();
            if (!invoices.tickets.empty()) invoices.tickets.erase(invoices.tickets.begin());
            if (!ticket.empty()) screen().票据打印保存.tag = ticket;
            program.app.screens.unload(form);
        };
        screen().管理项目.pick("01 东塔");
        click("YM1");
    }

    Frm意向金收取& screen() { return program.app.screens.get<Frm意向金收取>(); }
    void click(const char* letter) { screen().意向书.click(*screen().意向书.find(letter)); }
    void type(int column, const std::string& text) {
        screen().收费.click(screen().收费.lastRow(), column);
        screen().单元格编辑.type(text);
    }
    /// Fills the last row with an item and a type, the amount standing for the line.
    void fill(const std::string& amount, int type) {
        auto& s = screen();
        s.收费.click(s.收费.lastRow(), C::收费项目);
        s.收费项目.button.click();
        s.收费项目.list.click(0);
        for (const int column : {C::数量, C::单价}) this->type(column, "1");
        this->type(C::金额, amount);
        s.收费.click(s.收费.lastRow(), C::票据类型);
        s.票据类型.button.click();
        s.票据类型.list.click(type - 1);
    }
    /// The same with the `ticket`th blank ticket of its book, which makes room for another row.
    void fillByHand(const std::string& amount, int type, int ticket) {
        auto& s = screen();
        fill(amount, type);
        s.票据簿.button.click();
        s.票据簿.list.click(0);
        s.收费.click(s.收费.lastRow(), C::票据编号);
        s.票据.button.click();
        s.票据.list.click(ticket);
    }
    void tick(std::initializer_list<int> rows) {
        for (const int row : rows) screen().收费.click(row, C::打印);
    }
    void press() { screen().票据打印保存.click(); }
    std::string cells(int row, std::initializer_list<int> columns) {
        std::vector<std::string> texts;
        for (const int column : columns) texts.push_back(screen().收费.text(row, column));
        return join(texts, " ");
    }
    std::vector<std::string> payments() {
        return program.rows("Select 金额,票据入库单编号,票据编号,票据打印 From YZ_意向金收款 Order By ID");
    }
    std::string pictures() {
        std::string all;
        for (int row = 1; row < screen().收费.rows(); ++row) all += screen().收费.picture(row).back();
        return all;
    }

    TestProgram program;
    Invoices invoices;
};

TEST_F(Deposits, FourTaxLinesGiveTwoInvoicesAndOneThatDidNotComeOutStopsTheSavingOfAll) {
    for (int line = 0; line < 4; ++line) fillByHand(std::to_string(line + 1), 1, line);
    EXPECT_EQ(pictures(), "11111");
    tick({1, 2, 3, 4});
    EXPECT_EQ(cells(2, {C::票据簿编号, C::票据编号}), " ");
    invoices.tickets = {"B1,1007,71", ""};
    press();
    EXPECT_EQ(invoices.asked.size(), 2U);
    // The first has been printed, and its lines say so.
    EXPECT_EQ(cells(3, {C::票据簿编号, C::票据编号}), "B1 1007");
    EXPECT_EQ(cells(4, {C::票据簿编号, C::票据编号}), " ");
    EXPECT_EQ(pictures(), "22221");
    // What an earlier press handed back does not count.
    press();
    EXPECT_TRUE(payments().empty());
    EXPECT_TRUE(program.desktop.notices.empty());
    EXPECT_TRUE(program.rows("Select ID From 票据开票数据").empty());

    invoices.asked.clear();
    invoices.tickets = {"B1,1007,71", "B1,1008,81"};
    press();
    EXPECT_EQ(invoices.asked,
              (std::vector<std::string>{
                  "意向金收取:甲公司|租金意向金,D1,1,1,1|租金意向金,D1,1,1,2|租金意向金,D1,1,1,3",
                  "意向金收取:甲公司|租金意向金,D1,1,1,4"}));
    EXPECT_EQ(payments(),
              (std::vector<std::string>{"1|B1|1007|1", "2|B1|1007|1", "3|B1|1007|1", "4|B1|1008|1"}));
    // The ticket of the last line takes the sum of all, and no other is used up.
    EXPECT_EQ(program.rows("Select 票据编号,金额 From 票据 Where 开票日期 Is Not Null"),
              std::vector<std::string>{"1008|10"});
    EXPECT_EQ(program.rows("Select 票据编号,票据ID,金额 From 票据开票数据 Order By ID"),
              (std::vector<std::string>{"1007|71|1", "1007|71|2", "1007|71|3", "1008|81|4"}));
    EXPECT_EQ(pictures(), "33331");
    // Said once; there is nothing to say where nothing was left to save.
    press();
    EXPECT_EQ(program.desktop.notices, std::vector<std::string>{"已保存 1"});
}

TEST_F(Deposits, GroupsGoTaxFirstAndThenByTypeInTheOrderOfRows) {
    std::vector<收费行票据信息> lines(8);
    const auto wait = [&](std::int16_t row, bool tax, const char* type) {
        lines[static_cast<std::size_t>(row)].行号 = row;
        lines[static_cast<std::size_t>(row)].税控 = tax;
        lines[static_cast<std::size_t>(row)].票据类型 = type;
    };
    wait(1, false, "3 收据");
    wait(2, true, "1 税控");
    wait(4, false, "2 收据");
    wait(5, false, "3 收据");
    wait(7, true, "1 税控");
    std::string all;
    for (const auto& group : 打印分组(lines)) {
        all += group.名称 + ":";
        for (const int row : group.行) all += std::to_string(row);
        all += " ";
    }
    EXPECT_EQ(all, "税控:27 3 收据:15 2 收据:4 ");

    // The screen goes by them: a receipt is asked for behind the invoices, and stops it all.
    fillByHand("1", 3, 0);
    fillByHand("2", 1, 0);
    tick({1, 2});
    invoices.tickets = {"B1,1000,1"};
    press();
    EXPECT_EQ(program.desktop.shown.back(), "frm票据打印");
    EXPECT_EQ(invoices.asked.size(), 2U);
    EXPECT_TRUE(payments().empty());
}

TEST_F(Deposits, EnterStoresAndMovesOneCellToTheRight) {
    type(C::收费项目, "手写");
    screen().单元格编辑.pressEnter();
    EXPECT_EQ(screen().收费.column(), C::科目编号);
    EXPECT_FALSE(screen().单元格编辑.visible());
    type(C::数量, "2.5");
    screen().单元格编辑.pressEnter();
    EXPECT_EQ(screen().收费.column(), C::单价);
    screen().单元格编辑.type("1.01");
    EXPECT_EQ(cells(1, {C::金额}), "") << "only Enter reckons";
    screen().单元格编辑.pressEnter();
    EXPECT_EQ(cells(1, {C::收费项目, C::数量, C::单价, C::金额}), "手写 2.5 1.01 2.53");
    EXPECT_EQ(screen().单元格编辑.text(), "2.53");
    screen().单元格编辑.pressEnter();
    EXPECT_TRUE(screen().票据类型.button.visible());
    EXPECT_FALSE(screen().单元格编辑.visible());
}

TEST_F(Deposits, ASavedLineIsLeftAlone) {
    fillByHand("8", 2, 0);
    press();
    EXPECT_EQ(payments(), std::vector<std::string>{"8|B2|2000|0"});
    EXPECT_FALSE(screen().单元格编辑.visible());
    for (int column = C::序; column <= C::票据编号; ++column) {
        screen().收费.click(1, column);
        EXPECT_EQ(screen().收费.selection(), GridSelection::row);
        EXPECT_FALSE(screen().单元格编辑.visible());
        for (const CellList* list :
             {&screen().收费项目, &screen().票据类型, &screen().票据簿, &screen().票据})
            EXPECT_FALSE(list->button.visible());
    }
    EXPECT_EQ(pictures(), "41");
    screen().收费.click(2, C::数量);
    EXPECT_EQ(screen().收费.selection(), GridSelection::cell);
}

TEST_F(Deposits, ALineThatIsNoLongerTickedOffersItsBooksAgain) {
    tick({1});
    EXPECT_EQ(screen().收费.rowData(1), 1);
    tick({1});
    screen().收费.click(1, C::票据簿编号);
    EXPECT_TRUE(screen().票据簿.button.visible());
    fill("8", 1);
    EXPECT_EQ(screen().票据簿.list.items().front().data, 1);
}

TEST_F(Deposits, AnotherLetterStartsWithNothingOfTheOne) {
    fillByHand("8", 2, 0);
    press();
    screen().收费.click(1, C::金额);
    screen().退款处理.click();
    EXPECT_TRUE(screen().退款.面板.isOpen());
    click("YM2");
    EXPECT_FALSE(screen().退款.面板.isOpen());
    EXPECT_EQ(screen().收费.selection(), GridSelection::cell);
    // There is nothing to pay back of a line without a record.
    screen().退款.open(1);
    EXPECT_FALSE(screen().退款.面板.isOpen());

    fill("8", 1);
    tick({1});
    screen().收费.click(2, C::收费项目);
    screen().收费项目.button.click();
    click("YM1");
    click("YM2");
    EXPECT_FALSE(screen().收费项目.panel.isOpen() || screen().收费项目.button.visible());
    EXPECT_FALSE(screen().单元格编辑.visible());
    EXPECT_EQ(screen().收费.行收费项目代号[1], "");
    EXPECT_FALSE(screen().收费.行打印标记[1] || screen().收费.行税控标记[1]);
    screen().收费.click(1, C::票据簿编号);
    EXPECT_TRUE(screen().票据簿.button.visible());

    // Another seat has deleted it.
    fill("8", 2);
    program.run({"Delete From YZ_意向书信息 Where ID=1"});
    click("YM1");
    EXPECT_EQ(screen().意向书信息["承租方"].text() + screen().意向书信息.id(), "");
    EXPECT_EQ(screen().收费.rows(), 1);
    press();
    EXPECT_EQ(payments().size(), 1U);
}

}  // namespace
}  // namespace desk
