#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <functional>

#include "base/failure.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "db/embedded/embedded.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {
namespace {

constexpr int leadsPerSeat = 1000;

void openFile(TestProgram& program, const std::string& path) {
    program.db().open("Initial Catalog='" + path + "';Data Source='(embedded)'", std::chrono::seconds(30));
}

/// A seat of its own: registers its leads one after the other through the screen. Gives what went wrong, ""
/// if nothing.
std::string registerLeads(const std::string& path, const std::string& seat) {
    try {
        TestProgram program;
        openFile(program, path);
        program.app.screens.offer(Frm引驻客户信息登记::screenName,
                                  [&] { return std::make_unique<Frm引驻客户信息登记>(program.app); });
        program.enter();
        auto& page = program.app.screens.get<Frm引驻客户信息登记>().来人;
        page.管理项目.pick("01 东塔");
        page.采用自动编号.click();
        for (int i = 0; i < leadsPerSeat; ++i) {
            page.新增.click();
            page.公司名称.type(seat + std::to_string(i));
            page.客户姓名.type("陈先生");
            page.客户电话.type(seat + "-" + std::to_string(i));
            page.区域.pick("浦东");
            page.企业性质->pick("外资");
            page.从事行业.pick("软件");
            page.媒体->列表.click(0);
            page.询问重点.列表.click(0);
            page.确定.click();
            page.新增.click();
            if (!program.desktop.messages.empty()) return program.desktop.takeMessage();
        }
        return {};
    } catch (const RuntimeFailure& failure) {
        return std::to_string(failure.number()) + " " + failure.description();
    }
}

/// A database file that goes with the test.
class TwoSeats : public testing::Test {
  protected:
    TwoSeats() {
        std::remove(path.c_str());
        embedded::createDatabase(path);
        openFile(program, path);
        addOfficesAndDictionaries(program);
    }
    ~TwoSeats() override { std::remove(path.c_str()); }

    /// Runs each seat as a process of its own, at the same time. A seat gives what went wrong, "" if nothing.
    static void run(const std::vector<std::function<std::string()>>& seats) {
        std::vector<pid_t> children;
        for (const auto& seat : seats) {
            const pid_t child = ::fork();
            if (child == 0) {
                const std::string wrong = seat();
                if (!wrong.empty()) std::fprintf(stderr, "%s\n", wrong.c_str());
                ::_exit(wrong.empty() ? 0 : 1);
            }
            children.push_back(child);
        }
        for (const pid_t child : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
        }
    }

    const std::string path = testing::TempDir() + "two_seats_" + std::to_string(::getpid()) + ".db";
    TestProgram program;
};

TEST_F(TwoSeats, RegisterAtTheSameTimeAndLoseNothing) {
    run({[&] { return registerLeads(path, "甲"); }, [&] { return registerLeads(path, "乙"); }});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户信息"),
              std::vector<std::string>{std::to_string(2 * leadsPerSeat)});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From (Select Distinct 公司名称 From YZ_引驻客户信息) A"),
              std::vector<std::string>{std::to_string(2 * leadsPerSeat)});
}

constexpr int pipelineLeads = 300;

/// A seat of its own with one of the pipeline's screens on office 01.
template <class S>
std::string work(const std::string& path, const std::function<void(TestProgram&, S&)>& person) {
    try {
        TestProgram program;
        openFile(program, path);
        program.app.screens.offer(S::screenName, [&] { return std::make_unique<S>(program.app); });
        program.enter();
        auto& screen = program.app.screens.get<S>();
        screen.管理项目.pick("01 东塔");
        person(program, screen);
        return {};
    } catch (const RuntimeFailure& failure) {
        return std::to_string(failure.number()) + " " + failure.description();
    }
}

TEST_F(TwoSeats, OneAssignsWhileTheOtherRecords) {
    program.run(
        {"Insert Into YZ_组表 (组代号,组名称) Values ('2','现场组')",
         "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('2','01','2010-1-1')",
         "Insert Into 员工档案 (工号,姓名) Values ('E01','林晓')",
         "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','招商专员','01')",
         "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E01','0101',1)",
         "Insert Into YZ_组人员设置 (组代号,员工工号) Values ('2','E01')",
         "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','初访',255)"});
    for (int i = 0; i < 2 * pipelineLeads; ++i)
        program.db().execute(
            sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称) Values "
                "('{}','01','引驻来人','公司')",
                i));
    for (int i = 0; i < pipelineLeads; ++i)
        program.db().execute(
            sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号,员工工号,分配日期) "
                "Values ('{}','01','2','E01','2011-3-1')",
                i));
    const auto assigns = [](TestProgram& seat, Frm客户跟进信息分配& screen) {
        for (int i = pipelineLeads; i < 2 * pipelineLeads; ++i) {
            screen.客户.click(*screen.客户.find("D" + std::to_string(i)));
            screen.选择组.pick("2 现场组");
            screen.选择人员.pick("E01 林晓");
            screen.分配日期.type("2011-3-5");
            screen.确定.click();
            const std::string said = seat.desktop.takeMessage();
            if (said != "任务分配成功！") throw RuntimeFailure(0, said);
        }
    };
    const auto records = [](TestProgram&, Frm客户跟进记录& screen) {
        for (int i = 0; i < pipelineLeads; ++i) {
            screen.客户.click(*screen.客户.find("D" + std::to_string(i)));
            screen.新增.click();
            screen.跟进日期.type("2011-3-5");
            screen.跟进人员.pick("E01 林晓");
            screen.跟进状态.pick("1 初访");
            screen.确定.click();
        }
    };
    run({[&] { return work<Frm客户跟进信息分配>(path, assigns); },
         [&] { return work<Frm客户跟进记录>(path, records); }});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户分配"),
              std::vector<std::string>{std::to_string(2 * pipelineLeads)});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户信息 Where 分配日期='2011-3-5'"),
              std::vector<std::string>{std::to_string(pipelineLeads)});
    EXPECT_EQ(
        program.rows("Select Count(*) AS SL From (Select Distinct 登记编号 From YZ_引驻客户跟进记录) A"),
        std::vector<std::string>{std::to_string(pipelineLeads)});
}

}  // namespace
}  // namespace desk
