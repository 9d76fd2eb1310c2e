#include <gtest/gtest.h>

#include "base/failure.h"
#include "db/transaction.h"
#include "session/coded_combo.h"
#include "session/document_number.h"
#include "session/grid_rows.h"
#include "session/row_fields.h"
#include "support/test_program.h"
#include "ui/entry_button.h"
#include "ui/fields.h"
#include "ui/grid.h"

namespace desk {
namespace {

/// A screen for pieces to lie on, over the offices and dictionaries of the other tests.
class SharedPieces : public testing::Test {
  protected:
    SharedPieces() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
    }
    Recordset recordset(std::string_view statement, Rows mode = Rows::forwardOnly) {
        return Recordset(program.db(), statement, mode);
    }
    long failureNumber(const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    TestProgram program;
    Screen screen{"试", "", WindowKind::child, 1, 1};
};

TEST_F(SharedPieces, ARecordsetIsARangeFromItsCurrentRowOn) {
    std::string seen;
    for (auto& row : recordset("Select GYD_DH From 设置管理处 Order By GYD_DH")) seen += row[0].text() + " ";
    EXPECT_EQ(seen, "01 02 10 ");
    for (auto& row : recordset("Select GYD_DH From 设置管理处 Where 1=0")) FAIL() << row[0].text();
    auto standing = recordset("Select GYD_DH From 设置管理处 Order By GYD_DH");
    standing.moveNext();
    seen.clear();
    for (auto& row : standing) seen += row[0].text() + " ";
    EXPECT_EQ(seen, "02 10 ");
    EXPECT_TRUE(standing.atEnd());
}

TEST_F(SharedPieces, ACodedComboKnowsCodesNamesAndColours) {
    CodedCombo combo(screen, "组合");
    combo.addItem("旧 项");
    combo.fill(recordset("Select * From 设置管理处 Order By GYD_DH"), {"GYD_DH", "GYD_Name"});
    ASSERT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.code() + "|" + combo.name(), "|");
    combo.selectCode("10");
    EXPECT_EQ(combo.code() + "|" + combo.name(), "10|裙楼");
    combo.selectName("西塔");
    EXPECT_EQ(combo.code(), "02");
    for (const char* unknown : {"1", "", "02 西塔"}) {
        combo.selectCode(unknown);
        combo.selectName(unknown);
    }
    EXPECT_EQ(combo.code(), "02");
    EXPECT_FALSE(combo.items()[0].colour);

    program.run({"Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','初 谈',255)"});
    combo.fill(recordset("Select * From YZ_跟进状态设置"), {"状态编号", "状态名称", "颜色表示"});
    combo.setIndex(0);
    EXPECT_EQ(combo.name(), "初 谈");
    EXPECT_EQ(combo.selectedItem()->colour, Colour{255});
    EXPECT_EQ(combo.selectedItem()->data, 255);
}

TEST_F(SharedPieces, AGridIsFilledFromRows) {
    Grid grid(screen, "表格", "序|代号|空|名称");
    grid.addRow({"旧"});
    auto offices = recordset("Select * From 设置管理处 Order By GYD_DH Desc");
    std::string told;
    fillGrid(grid, offices, {"GYD_DH", "", "GYD_Name"}, [&](int row) {
        told += std::to_string(row) + offices["GYD_DH"].text() + " ";
        grid.setCellColour(row, 2, 255);
    });
    EXPECT_EQ(told, "110 202 301 ");
    ASSERT_EQ(grid.rows(), 4);
    EXPECT_EQ(grid.text(1, 0) + grid.text(1, 1) + grid.text(1, 2) + grid.text(1, 3), "110裙楼");
    EXPECT_EQ(grid.text(3, 0), "3");
    EXPECT_EQ(grid.cellColour(3, 2), Colour{255});
    auto none = recordset("Select * From 设置管理处 Where 1=0");
    fillGrid(grid, none, {"GYD_DH"});
    EXPECT_EQ(grid.rows(), 1);
}

TEST_F(SharedPieces, FieldsShowAndWriteTheirColumns) {
    TextBox name(screen, "名称");
    TextBox area(screen, "面积");
    DatePicker day(screen, "日期");
    RowFields fields;
    fields.add("公司名称", name);
    fields.addNumber("需求面积", area);
    fields.add("登记日期", day);
    program.run(
        {"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称,需求面积) Values ('1','01','甲',12.5)"});
    {
        auto lead = recordset("Select * From YZ_引驻客户信息", Rows::updatable);
        fields.show(lead);
        EXPECT_EQ(name.text() + "|" + area.text(), "甲|12.5");
        EXPECT_EQ(day.value(), DateTime(2000, 1, 1));
        name.setText("");
        area.setText("约80平");
        day.setValue({2011, 3, 5});
        fields.write(lead);
        EXPECT_EQ(program.rows("Select 公司名称 From YZ_引驻客户信息").front(), "甲");
        lead.update();
    }
    EXPECT_EQ(program.rows("Select 公司名称,需求面积,登记日期 From YZ_引驻客户信息").front(),
              "|0|2011-03-05");
    EXPECT_EQ(program.rows("Select 公司名称 From YZ_引驻客户信息 Where 公司名称 Is Null").size(), 1U);
    area.setText("80.5平");
    auto lead = recordset("Select * From YZ_引驻客户信息", Rows::updatable);
    fields.write(lead);
    lead.update();
    day.setValue({2000, 1, 1});
    fields.show(lead);
    EXPECT_EQ(name.text() + "|" + area.text(), "|80.5");
    EXPECT_EQ(day.value(), DateTime(2011, 3, 5));
}

TEST_F(SharedPieces, ADocumentDrawsTheFirstFreeNumber) {
    const auto none = [](const std::string&) { return false; };
    const auto draw = [&](const auto& taken) {
        const auto number = drawNumber(program.app, "引驻登记", "YZ_引驻客户信息", "01", taken);
        return number.text + "/" + std::to_string(number.流水号);
    };
    EXPECT_EQ(draw(none), "2011-000001/1");
    program.run({"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,流水号) Values ('x','01',41)",
                 "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,流水号) Values ('x','02',99)",
                 "Insert Into YZ_引驻客户信息 (登记编号,管理处代号) Values ('2011-000042','01')"});
    EXPECT_EQ(draw(none), "2011-000042/42");
    std::vector<std::string> asked;
    EXPECT_EQ(draw([&](const std::string& number) {
                  asked.push_back(number);
                  return asked.size() < 3;
              }),
              "2011-000044/44");
    EXPECT_EQ(asked, (std::vector<std::string>{"2011-000042", "2011-000043", "2011-000044"}));
    EXPECT_EQ(drawNumber(program.app, "没有", "YZ_意向书信息", "01", none).text, "-000001");
    EXPECT_EQ(firstFree(
                  7, [](long serial) { return "TK-" + std::to_string(serial); }, none)
                  .text,
              "TK-7");
}

TEST_F(SharedPieces, TheEntryButtonsCaptionIsTheMode) {
    EntryButton button(screen, "新增");
    EXPECT_EQ(button.caption(), "新增");
    EXPECT_FALSE(button.entering());
    button.startEntering();
    EXPECT_EQ(button.caption(), "取消");
    EXPECT_TRUE(button.entering());
    button.browse();
    EXPECT_EQ(button.caption(), "新增");
}

TEST_F(SharedPieces, ATransactionIsWrittenWholeOrNotAtAll) {
    const auto count = [&] { return program.rows("Select * From YZ_区域设置").size(); };
    const auto add = [&](bool committing) {
        Transaction all(program.db());
        program.run({"Insert Into YZ_区域设置 (区域名称) Values ('一')",
                     "Insert Into YZ_区域设置 (区域名称) Values ('二')"});
        if (committing) all.commit();
    };
    add(false);
    EXPECT_EQ(count(), 2U);
    add(true);
    EXPECT_EQ(count(), 4U);
    for (int statement = 1; statement <= 4; ++statement) {  // begin, two rows, commit
        program.fault = {statement, failure::violatedRule};
        EXPECT_EQ(failureNumber([&] { add(true); }), failure::violatedRule);
        EXPECT_EQ(count(), 4U) << statement;
    }
    Transaction outer(program.db());
    EXPECT_EQ(failureNumber([&] { Transaction inner(program.db()); }), failure::unspecified);
}

}  // namespace
}  // namespace desk
