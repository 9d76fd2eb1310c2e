#include "session/main_window.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "session/document_number.h"
#include "support/test_program.h"

namespace desk {
namespace {

class MainWindow : public testing::Test {
  protected:
    MainWindow() { program.openDatabase(); }

    MDIForm1& main() { return program.app.screens.get<MDIForm1>(); }
    TestProgram program;
};

TEST_F(MainWindow, AFailureWhileReadingPrivilegesLeavesTheMenuGrey) {
    program.fault = {1, failure::unspecified};
    program.enter();
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].text,
              "错误号：-2147467259\r\n错误描述：" + std::string(Fault::text));
    EXPECT_EQ(program.desktop.messages[0].title, "提示");
    EXPECT_FALSE(main().entry("客户信息登记")->enabled());
    EXPECT_TRUE(main().entry("注销")->usable());
}

TEST_F(MainWindow, BackgroundAndBannerFillWhateverWidth) {
    program.desktop.pictureOnDisk = Picture(1028, 54, rgb(9, 9, 9));
    for (int y = 0; y < 54; ++y) {
        for (int x = 590; x < 610; ++x) program.desktop.pictureOnDisk->set(x, y, rgb(1, 1, 1));
        for (int x = 610; x < 857; ++x) program.desktop.pictureOnDisk->set(x, y, rgb(2, 2, 2));
    }
    program.enter();
    main().setSize(15000, 9000);
    EXPECT_EQ(main().background().width, 1000);
    EXPECT_EQ(main().background().height, 600);
    EXPECT_EQ(program.app.screens.loaded("Frmtu"), nullptr);

    main().Picture1.resize(1500 * 15, 54 * 15, 1.0 / 15);
    const Picture& banner = main().Picture1.picture();
    const int rightEnd = 1500 - 4000 / 15;
    EXPECT_EQ(banner.at(10, 10), rgb(9, 9, 9));
    EXPECT_EQ(banner.at(612, 10), rgb(1, 1, 1));
    EXPECT_EQ(banner.at(rightEnd - 5, 10), rgb(1, 1, 1));
    EXPECT_EQ(banner.at(rightEnd + 25, 10), rgb(2, 2, 2));

    // A narrow window has the right end drawn over the rest.
    main().Picture1.resize(800 * 15, 54 * 15, 1.0 / 15);
    EXPECT_EQ(main().Picture1.picture().at(800 - 266 + 25, 10), rgb(2, 2, 2));

    program.desktop.pictureOnDisk.reset();
    main().setSize(12000, 9000);
    EXPECT_TRUE(main().background().empty());
}

TEST_F(MainWindow, ThePrefixFollowsItsRule) {
    program.enter();
    EXPECT_EQ(生成单据前缀(program.app, "引驻登记"), "");
    const auto prefix = [&](std::string_view value, std::string_view character) {
        program.run({"Delete From Temp_Type"});
        program.db().execute("Insert Into Temp_Type (TypeName,Value,Character) Values ('引驻登记'," +
                             std::string(value) + "," + std::string(character) + ")");
        return 生成单据前缀(program.app, "引驻登记");
    };
    EXPECT_EQ(prefix("'年份'", "Null"), "2011");
    EXPECT_EQ(prefix("'年份+月份'", "'YZ'"), "YZ201103");
    EXPECT_EQ(prefix("'日期'", "''"), "20110305");
    EXPECT_EQ(prefix("'部门名称'", "Null"), "招商部");
    EXPECT_EQ(prefix("'部门编号'", "'-'"), "-01");
    EXPECT_EQ(prefix("'字面'", "'甲'"), "甲字面");
    EXPECT_EQ(prefix("Null", "Null"), "");
}

}  // namespace
}  // namespace desk
