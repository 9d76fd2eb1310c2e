#include <gtest/gtest.h>

#include "customers/follow_up.h"
#include "customers/registration.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// A lead of office 01 that is the session's own, with two entries in its diary, on the screen `S`.
template <class S>
struct AtWork {
    AtWork() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run({"Insert Into 员工档案 (工号,姓名) Values ('E01','林晓')",
                     "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','专员','01')",
                     "Insert Into 岗位员工new (员工代号,岗位代号) Values ('E01','0101')",
                     "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','初访',255)",
                     "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称) Values "
                     "('7','01','引驻来人','甲公司')",
                     "Insert Into YZ_引驻客户分配 (登记编号,管理处代号,员工工号) Values ('7','01','E01')",
                     "Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,跟进人工号,跟进情况,"
                     "跟进状态编号) Values ('01','7','2011-2-1','E01','来访','1'),"
                     "('01','7','2011-2-9','E01','回访','1')"});
        program.enter();
        program.app.screens.offer<S>(program.app);
        program.app.screens.open(S::screenName);
    }
    S& screen() { return program.app.screens.template get<S>(); }

    TestProgram program;
};

TEST(AfterASave, TheLeadIsInViewUnselectedAndToldOf) {
    AtWork<Frm引驻客户信息登记> at;
    登记页& page = at.screen().来电;
    page.管理项目.pick("01 东塔");
    std::string revealed;
    page.客户.revealAsked += [&](const TreeNode& node) { revealed = node.key(); };
    page.新增.click();
    page.登记编号.type("31");
    page.客户电话.type("138");
    page.区域.pick("浦东");
    page.从事行业.pick("软件");
    page.媒体->列表.click(0);
    page.询问重点.列表.click(0);
    page.确定.click();
    EXPECT_EQ(revealed, "DM31");
    EXPECT_EQ(page.客户.selected(), nullptr);
    EXPECT_EQ(at.program.desktop.notices, std::vector<std::string>{"已保存 31"});
    // Each page has keys of its own.
    std::string keys;
    for (const 登记页* each : at.screen().pages()) keys += std::string(each->rules().键前缀) + " ";
    EXPECT_EQ(keys, "RM DM ZM ");
}

TEST(AfterASave, TheEntryOfTheDiaryIsInView) {
    AtWork<Frm客户跟进记录> at;
    auto& screen = at.screen();
    screen.管理项目.pick("01 东塔");
    screen.客户.click(*screen.客户.find("D7"));
    int revealed = 0;
    screen.跟进列表.revealAsked += [&](int row) { revealed = row; };
    screen.页签.click(0);
    screen.新增.click();
    screen.跟进日期.type("2011-2-5");
    screen.跟进人员.pick("E01 林晓");
    screen.跟进状态.pick("1 初访");
    screen.确定.click();
    EXPECT_EQ(revealed, 2) << "between the two others";
    EXPECT_EQ(at.program.desktop.notices, std::vector<std::string>{"已保存 7"});
}

}  // namespace
}  // namespace desk
