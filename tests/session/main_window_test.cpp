#include "session/main_window.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "session/document_number.h"
#include "session/helpers.h"
#include "support/test_program.h"
#include "ui/grid.h"

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

TEST_F(MainWindow, InAFamilyOfModulesLoggingOffLeavesALineForTheLauncher) {
    program.app.命令行参数 = "E01,…";
    program.enter();
    program.app.screens.open("frmAbout");
    EXPECT_THROW(main().entry("注销")->click(), RuntimeFailure);  // no launcher is there
    EXPECT_EQ(program.machine.take(), std::vector<std::string>{"activate 鸿序楼台 zhuxiao"});
    EXPECT_EQ(program.app.screens.loaded("frmAbout"), nullptr);
    program.programs.windows = {"鸿序楼台", "鸿序楼台 zhuxiao"};
    main().entry("注销")->click();
    EXPECT_EQ(program.files.written["/program/Command.Dll"], "\xD7\xA2\xCF\xFA\r\n");
    main().entry("其它模块")->click();
    EXPECT_EQ(program.machine.take(),
              (std::vector<std::string>{"activate 鸿序楼台 zhuxiao", "activate 鸿序楼台"}));
    EXPECT_EQ(program.app.session.登录工号, "E01");

    program.files.broken = true;
    EXPECT_THROW(main().entry("注销")->click(), RuntimeFailure);
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

TEST_F(MainWindow, SpecialAuditIsAMatterOfDepartmentAndPosition) {
    program.run({"Insert Into 专项审核权限表 (类型,部门代号,岗位代号) Values ('引驻台账','01','0102')",
                 "Insert Into 专项审核权限表 (类型,部门代号,岗位代号) Values ('别的模块','01','0101')"});
    program.enter();
    EXPECT_FALSE(program.app.专项审核权限);
    program.run({"Insert Into 专项审核权限表 (类型,部门代号,岗位代号) Values ('引驻台账','01','0101')"});
    读取专项审核权限(program.app);
    EXPECT_TRUE(program.app.专项审核权限);
}

struct Sheet : Screen {
    Sheet() : Screen("sheet", "", WindowKind::child, 3000, 30000) {}
    Grid grid{*this, "grid", "<a|<b|c|<d"};
};

TEST_F(MainWindow, ColumnsFitTheirTextInTwoWays) {
    program.enter();
    Sheet sheet;
    sheet.grid.addRow({"1", "四个汉字", "x", ""});
    sheet.grid.setText(0, 3, "");
    const int general = sheet.grid.columnWidth(2);
    列宽自适应(program.app, sheet.grid, sheet);
    EXPECT_EQ(sheet.grid.columnWidth(0), 150 + 90);
    EXPECT_EQ(sheet.grid.columnWidth(1), 600 + 90);
    EXPECT_EQ(sheet.grid.columnWidth(2), general);
    EXPECT_EQ(sheet.grid.columnWidth(3), 90);

    sheet.grid.setColumnWidth(0, 777);
    列宽自适应1(program.app, sheet.grid, sheet);
    EXPECT_EQ(sheet.grid.columnWidth(0), 777);
    EXPECT_EQ(sheet.grid.columnWidth(2), 0);
    sheet.grid.setRows(0);
    列宽自适应(program.app, sheet.grid, sheet);
    EXPECT_EQ(sheet.grid.columnWidth(1), 690);

    main().setSize(10000, 8000);
    窗体居中(program.app, sheet);
    EXPECT_EQ(sheet.left(), 3500);
    EXPECT_EQ(sheet.top(), -11000);
}

}  // namespace
}  // namespace desk
