#include <gtest/gtest.h>

#include "db/transaction.h"
#include "session/document_number.h"
#include "session/main_window.h"
#include "session/row_fields.h"
#include "support/failures.h"
#include "support/test_program.h"
#include "ui/fields.h"

namespace desk {
namespace {

/// What no transcript tells of the main window and of what screens share.
class Session : public testing::Test {
  protected:
    Session() { program.openDatabase(); }

    MDIForm1& main() { return program.app.screens.get<MDIForm1>(); }
    TestProgram program;
};

TEST_F(Session, AFailureWhileReadingPrivilegesLeavesTheMenuGrey) {
    program.fault = {1, failure::unspecified};
    program.enter();
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].text,
              "错误号：-2147467259\r\n错误描述：" + std::string(Fault::text));
    EXPECT_EQ(program.desktop.messages[0].title, "提示");
    EXPECT_FALSE(main().entry("客户信息登记")->enabled());
    EXPECT_TRUE(main().entry("注销")->usable());
}

TEST_F(Session, BackgroundAndBannerFillWhateverWidth) {
    constexpr int left = 590;
    constexpr int right = 610;
    Picture banner(1028, 54, rgb(9, 9, 9));
    for (int y = 0; y < banner.height; ++y)
        for (int x = left; x < 857; ++x) banner.set(x, y, x < right ? rgb(1, 1, 1) : rgb(2, 2, 2));
    program.desktop.pictureOnDisk = banner;
    program.enter();
    main().setSize(15000, 9000);
    EXPECT_EQ(main().background().width, 1000);
    EXPECT_EQ(main().background().height, 600);
    EXPECT_EQ(program.app.screens.loaded("Frmtu"), nullptr);

    const auto shownAt = [&](int width, int x) {
        main().Picture1.resize(width * 15, 54 * 15, 1.0 / 15);
        return main().Picture1.picture().at(x, 10);
    };
    constexpr int rightEnd = 266;
    EXPECT_EQ(shownAt(1500, 10), rgb(9, 9, 9));
    EXPECT_EQ(shownAt(1500, 612), rgb(1, 1, 1));
    EXPECT_EQ(shownAt(1500, 1500 - rightEnd - 5), rgb(1, 1, 1));
    EXPECT_EQ(shownAt(1500, 1500 - rightEnd + 25), rgb(2, 2, 2));
    EXPECT_EQ(shownAt(800, 800 - rightEnd + 25), rgb(2, 2, 2)) << "drawn over the rest";

    program.desktop.pictureOnDisk.reset();
    main().setSize(12000, 9000);
    EXPECT_TRUE(main().background().empty());
}

TEST_F(Session, ThePrefixFollowsItsRule) {
    program.enter();
    EXPECT_EQ(生成单据前缀(program.app, "引驻登记"), "");
    const std::pair<const char*, const char*> prefixes[] = {
        {"'年份',Null", "2011"},   {"'年份+月份','YZ'", "YZ201103"},
        {"'日期',''", "20110305"}, {"'部门名称',Null", "招商部"},
        {"'部门编号','-'", "-01"}, {"'字面','甲'", "甲字面"},
        {"Null,Null", ""}};
    for (const auto& [rule, prefix] : prefixes) {
        program.run({"Delete From Temp_Type"});
        program.db().execute("Insert Into Temp_Type (TypeName,Value,Character) Values ('引驻登记'," +
                             std::string(rule) + ")");
        EXPECT_EQ(生成单据前缀(program.app, "引驻登记"), prefix) << rule;
    }
}

TEST_F(Session, ADayThatIsNotStoredLeavesThePickerAsItIs) {
    Screen screen{"试", "", WindowKind::child, 1, 1};
    DatePicker day(screen, "日期");
    RowFields fields;
    fields.add("登记日期", day);
    program.run({"Insert Into YZ_引驻客户信息 (登记编号,管理处代号) Values ('1','01')"});
    Recordset lead(program.db(), "Select * From YZ_引驻客户信息");
    fields.show(lead);
    EXPECT_EQ(day.value(), DateTime(2000, 1, 1));
}

TEST_F(Session, ATransactionIsWrittenWholeOrNotAtAll) {
    for (int statement = 1; statement <= 4; ++statement) {  // begin, two rows, commit
        program.fault = {statement, failure::violatedRule};
        EXPECT_EQ(failureOf([&] {
                      Transaction all(program.db());
                      program.run({"Insert Into YZ_区域设置 (区域名称) Values ('一')",
                                   "Insert Into YZ_区域设置 (区域名称) Values ('二')"});
                      all.commit();
                  }),
                  failure::violatedRule);
        EXPECT_TRUE(program.rows("Select * From YZ_区域设置").empty()) << statement;
    }
}

}  // namespace
}  // namespace desk
