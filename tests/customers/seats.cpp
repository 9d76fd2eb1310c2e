#include "seats.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>

#include "base/failure.h"
#include "support/transcripts_of_room.h"

namespace desk {

namespace {

/// In the process of a seat, which waits until the other end of the line is closed everywhere.
[[noreturn]] void work(const Seat& seat, const std::array<int, 2>& start) {
    ::close(start[1]);
    char none = 0;
    while (::read(start[0], &none, 1) > 0) {
    }
    const std::string wrong = seat();
    if (!wrong.empty()) std::fprintf(stderr, "%s\n", wrong.c_str());
    ::_exit(wrong.empty() ? 0 : 1);
}

}  // namespace

void runSeats(const std::vector<Seat>& seats) {
    // A process that is made while a server in this one is at work may get what it holds locked.
    std::array<int, 2> start{};
    ASSERT_EQ(::pipe(start.data()), 0);
    std::vector<pid_t> children;
    for (const auto& seat : seats) {
        const pid_t child = ::fork();
        if (child == 0) work(seat, start);
        children.push_back(child);
    }
    ::close(start[1]);
    ::close(start[0]);
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
}

std::string seated(const std::string& connectionString, const std::function<void(TestProgram&)>& work) {
    try {
        TestProgram program;
        program.db().open(connectionString, std::chrono::seconds(30));
        offerScreens<Frm引驻客户信息登记, Frm客户跟进信息分配, Frm客户跟进记录>(program);
        program.enter();
        work(program);
        return {};
    } catch (const RuntimeFailure& failure) {
        return std::to_string(failure.number()) + " " + failure.description();
    }
}

void addTeam(TestProgram& program) {
    program.run(
        {"Insert Into YZ_组表 (组代号,组名称) Values ('2','现场组')",
         "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('2','01','2010-1-1')",
         "Insert Into 员工档案 (工号,姓名) Values ('E01','林晓')",
         "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','招商专员','01')",
         "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E01','0101',1)",
         "Insert Into YZ_组人员设置 (组代号,员工工号) Values ('2','E01')",
         "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','初访',255)"});
}

void registerLead(TestProgram& program, 登记页& page, const std::string& company, const std::string& number) {
    page.新增.click();
    if (!number.empty()) page.登记编号.type(number);
    page.公司名称.type(company);
    page.客户姓名.type("陈先生");
    page.客户电话.type("电话" + company);
    page.区域.pick("浦东");
    page.企业性质->pick("外资");
    page.从事行业.pick("软件");
    page.媒体->列表.click(0);
    page.询问重点.列表.click(0);
    page.确定.click();
    page.新增.click();
    if (!program.desktop.messages.empty()) throw RuntimeFailure(0, program.desktop.takeMessage());
}

void assignLead(TestProgram& program, Frm客户跟进信息分配& screen, const std::string& number) {
    screen.客户.click(*screen.客户.find("D" + number));
    screen.选择组.pick("2 现场组");
    screen.选择人员.pick("E01 林晓");
    screen.分配日期.type("2011-3-5");
    screen.确定.click();
    const std::string said = program.desktop.takeMessage();
    if (said != "任务分配成功！") throw RuntimeFailure(0, said);
}

void recordVisit(Frm客户跟进记录& screen, const std::string& number) {
    screen.客户.click(*screen.客户.find("D" + number));
    screen.新增.click();
    screen.跟进日期.type("2011-3-5");
    screen.跟进人员.pick("E01 林晓");
    screen.跟进状态.pick("1 初访");
    screen.确定.click();
}

}  // namespace desk
