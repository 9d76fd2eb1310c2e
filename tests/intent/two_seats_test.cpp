#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "db/embedded/embedded.h"
#include "intent/letter.h"
#include "support/test_program.h"
#include "wire/process/engine_choice.h"

namespace desk {
namespace {

/// One of several programs on the same database, with a new letter of office 01 on its screen.
struct Seat {
    explicit Seat(const std::string& path) {
        program.db().open(testDatabaseIn(path), std::chrono::seconds(30));
    }
    void begin() {
        program.enter();
        program.app.screens.offer<Frm意向书信息>(program.app);
        program.app.screens.open(Frm意向书信息::screenName);
        screen().Check5.click();
        screen().管理项目.pick("01 东塔");
        screen().新增.click();
    }
    Frm意向书信息& screen() { return program.app.screens.get<Frm意向书信息>(); }
    void choose(int unit) {
        screen().单元列表.append({"A座", std::to_string(unit), 10, unit});
        screen().单元.面板.open();
        screen().单元.关闭.click();
    }

    TestProgram program;
};

class TwoSeatsWithLetters : public testing::Test {
  protected:
    TwoSeatsWithLetters() {
        std::remove(path.c_str());
        embedded::createDatabase(path);
        one = std::make_unique<Seat>(path);
        addOfficesAndDictionaries(one->program);
        other = std::make_unique<Seat>(path);
        one->begin();
        other->begin();
    }
    ~TwoSeatsWithLetters() override {
        one.reset();
        other.reset();
        std::remove(path.c_str());
    }

    const std::string path = testing::TempDir() + "letters_" + std::to_string(::getpid()) + ".db";
    std::unique_ptr<Seat> one;
    std::unique_ptr<Seat> other;
};

TEST_F(TwoSeatsWithLetters, OneGetsTheUnitAndTheOtherChoosesAgain) {
    one->choose(7);
    other->choose(7);
    one->screen().确定.click();
    other->screen().确定.click();
    EXPECT_TRUE(one->program.desktop.messages.empty());
    EXPECT_EQ(
        other->program.desktop.takeMessage(),
        "您所选择的单元中存在已经被使用的单元，请核对！\r\n您重新进入房源选择，重新选择后再按确定按钮保存");
    // The letter is there; it is changed from now on.
    other->screen().新增.click();
    other->screen().单元列表.removeUnsaved();
    other->choose(8);
    other->screen().确定.click();
    EXPECT_TRUE(other->program.desktop.messages.empty());
    EXPECT_EQ(
        one->program.rows("Select 意向书编号,租赁单元,单元ID From YZ_意向书信息 Inner Join "
                          "YZ_意向书单元信息 On YZ_意向书信息.ID=YZ_意向书单元信息.意向书ID Order By 单元ID"),
        (std::vector<std::string>{"-000001|[A座]7|7", "-000002|[A座]8|8"}));
}

/// The other seat saves between two statements of this one: while it looks for a free number, and behind its
/// last look.
TEST_F(TwoSeatsWithLetters, BothDrawANumber) {
    int probes = 0;
    one->program.fault.seen = [&](std::string_view statement) {
        if (statement.starts_with("SELECT * From YZ_意向书信息") && ++probes == 1)
            other->screen().确定.click();
    };
    one->screen().确定.click();
    EXPECT_EQ(probes, 2);
    EXPECT_EQ(one->program.rows("Select 意向书编号,流水号 From YZ_意向书信息 Order By ID"),
              (std::vector<std::string>{"-000001|1", "-000002|2"}));
    EXPECT_EQ(one->screen().信息.登记编号.text(), "-000002");
    EXPECT_EQ(other->screen().信息.登记编号.text(), "-000001");

    // Behind the last look both have the same number, and none of the letters is lost.
    for (Seat* seat : {one.get(), other.get()}) {
        seat->screen().新增.click();
        seat->screen().新增.click();
    }
    bool done = false;
    one->program.fault.seen = [&](std::string_view statement) {
        if (statement.starts_with("adds") && !std::exchange(done, true)) other->screen().确定.click();
    };
    one->screen().确定.click();
    EXPECT_EQ(one->program.rows("Select 意向书编号,流水号 From YZ_意向书信息 Order By ID").size(), 4U);
    EXPECT_EQ(one->screen().意向书.roots().front()->children().size(), 4U);
    EXPECT_TRUE(one->program.desktop.messages.empty());
}

}  // namespace
}  // namespace desk
