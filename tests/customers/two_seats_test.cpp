#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "base/failure.h"
#include "customers/registration.h"
#include "db/embedded/embedded.h"
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

TEST(TwoSeats, RegisterAtTheSameTimeAndLoseNothing) {
    const std::string path = testing::TempDir() + "two_seats_" + std::to_string(::getpid()) + ".db";
    std::remove(path.c_str());
    embedded::createDatabase(path);
    {
        TestProgram program;
        openFile(program, path);
        addOfficesAndDictionaries(program);
    }
    std::vector<pid_t> seats;
    for (const std::string seat : {"甲", "乙"}) {
        const pid_t child = ::fork();
        if (child == 0) {
            const std::string wrong = registerLeads(path, seat);
            if (!wrong.empty()) std::fprintf(stderr, "seat %s: %s\n", seat.c_str(), wrong.c_str());
            ::_exit(wrong.empty() ? 0 : 1);
        }
        seats.push_back(child);
    }
    for (const pid_t seat : seats) {
        int status = 0;
        ::waitpid(seat, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    TestProgram program;
    openFile(program, path);
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户信息"),
              std::vector<std::string>{std::to_string(2 * leadsPerSeat)});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From (Select Distinct 公司名称 From YZ_引驻客户信息) A"),
              std::vector<std::string>{std::to_string(2 * leadsPerSeat)});
    std::remove(path.c_str());
}

}  // namespace
}  // namespace desk
