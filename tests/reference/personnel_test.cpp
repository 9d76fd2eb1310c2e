#include "reference/personnel.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/test_program.h"

namespace desk {
namespace {

TEST(Personnel, AnOfficeThatCannotBeGivenStaysAsItIsStored) {
    TestProgram program;
    program.openDatabase();
    addOfficesAndDictionaries(program);
    program.run({"Insert Into YZ_组表 (组代号,组名称) Values ('1','一组')"});
    program.enter();
    program.app.screens.offer<Frm人员设置>(program.app);
    auto& screen = program.app.screens.get<Frm人员设置>();
    screen.页签.click(1);
    screen.组.列表.click(1, 0);
    auto& offices = screen.组管理处.TreeView3;
    TreeNode& office = *offices.find("G01");
    offices.tick(office, true);
    program.fault = {2, failure::unspecified};
    offices.tick(office, false);
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].text, Fault::text);
    EXPECT_EQ(program.desktop.messages[0].icon, Icon::information);
    EXPECT_TRUE(office.checked());
}

}  // namespace
}  // namespace desk
