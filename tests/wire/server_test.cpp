#include <algorithm>
#include <thread>

#include "schema/definition.h"
#include "wire/plain_client.h"
#include "wire/server_fixture.h"

namespace desk::wire {
namespace {

class WireServer : public ServedOffice {
  protected:
    void enter() { ASSERT_TRUE(client.connect(server.port(), "office")) << client.error(); }
    /// What the driver says of a batch that fails: the state, and the server's number.
    std::string refusalOf(std::string_view batch) {
        EXPECT_FALSE(client.run(batch)) << batch;
        return client.error().substr(0, client.error().find('['));
    }

    PlainClient client;
};

TEST_F(WireServer, LetsInWhoKnowsThePassword) {
    EXPECT_FALSE(client.connect(server.port(), "office", "", "Sekret"));
    EXPECT_EQ(client.error(), "42000 18456 [FreeTDS][SQL Server]用户 'sa' 登录失败。");
    EXPECT_FALSE(client.connect(server.port(), "nowhere"));
    EXPECT_EQ(client.error().substr(0, 10), "42000 4060");
    behave([](Behaviour& b) { b.password = "密𠮷}码;'\"= "; });
    EXPECT_TRUE(client.connect(server.port(), "office", "", "密𠮷}码;'\"= ")) << client.error();
    EXPECT_EQ(server.logins().back().database, "office");
    EXPECT_EQ(server.logins().back().version, 0x730B0003U);

    behave([](Behaviour& b) { b.refusesLogin = Failure{18486, "帐户已锁定。", 14}; });
    PlainClient other;
    EXPECT_FALSE(other.connect(server.port(), "office"));
    EXPECT_EQ(other.error().substr(6, 5), "18486");
}

TEST_F(WireServer, SpeaksOlderVersionsAsWell) {
    for (const auto version : {0x72090002U, 0x730B0003U, 0x74000004U}) {
        behave([&](Behaviour& b) { b.version = version; });
        for (const auto* asked : {"7.2", "7.3", "7.4"}) {
            PlainClient each;
            EXPECT_TRUE(each.connect(server.port(), "office", "TDS_Version=" + std::string(asked)));
            EXPECT_EQ(each.rows("Select 1 As a,'x' As b"), std::vector<std::string>{"1|x"}) << asked;
        }
    }
}

TEST_F(WireServer, GivesValuesOfEveryKind) {
    enter();
    ASSERT_TRUE(
        client.run("Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,租赁面积,提交日期,流转通过,"
                   "租赁起始日期,承租方背景) Values "
                   "('1','01',N'甲𠮷''',-12.5,'2011-3-5 14:05:59',1,'1899-12-31',N'')"))
        << client.error();
    EXPECT_EQ(client.changed(), 1);
    const std::string all =
        "Select ID,承租方,租赁面积,提交日期,流转通过,租赁起始日期,承租方背景,租赁单元,流水号,承租方+'x' From "
        "YZ_意向书信息";
    EXPECT_EQ(client.rows(all),
              std::vector<std::string>{
                  "1|甲𠮷'|-12.5|2011-03-05 14:05:59.000|1|1899-12-31 00:00:00.000||-|-|甲𠮷'x"});
    client.run(all);
    const auto kinds = {"ID 4 10",         "承租方 -9 200",
                        "租赁面积 8 53",   "提交日期 93 23",
                        "流转通过 -7 1",   "租赁起始日期 93 23",
                        "承租方背景 -9 0", "租赁单元 -9 0",
                        "流水号 4 10",     " -9 0"};
    SQLUSMALLINT column = 0;
    for (const auto* kind : kinds) EXPECT_EQ(client.describe(++column), kind);

    ASSERT_TRUE(
        client.run("Insert Into YZ_意向金收款 (单价,金额) Values (-0.0001,123456789.5),(Null,-3000000)"));
    EXPECT_EQ(client.rows("Select 单价,金额 From YZ_意向金收款"),
              (std::vector<std::string>{"-0.0001|123456789.5000", "-|-3000000.0000"}));
    EXPECT_EQ(client.describe(1), "单价 3 19");
    EXPECT_EQ(client.rows("Select Count(*) As n,Max(提交日期) As d From YZ_意向书信息"),
              std::vector<std::string>{"1|2011-03-05 14:05:59.000"});
}

TEST_F(WireServer, KeepsLongTextsWhole) {
    enter();
    for (const std::size_t length : {std::size_t{4000}, std::size_t{20000}}) {
        std::string text;
        while (text.size() < length * 3) text += "长文";
        ASSERT_TRUE(client.run("Update YZ_引驻客户信息 Set 备注=N'" + text + "'")) << client.error();
        ASSERT_TRUE(client.run("Insert Into YZ_引驻客户信息 (管理处代号,登记编号,备注) Values ('01','1',N'" +
                               text + "')"));
        EXPECT_EQ(client.rows("Select 备注 From YZ_引驻客户信息"), std::vector<std::string>{text});
        client.run("Delete From YZ_引驻客户信息");
    }
}

TEST_F(WireServer, ShowsTheBytesThatArrived) {
    enter();
    client.run("Select 'a' As 甲");
    EXPECT_EQ(server.batches().back(), utf16Bytes("Select 'a' As 甲"));
    server.forgetBatches();
    EXPECT_TRUE(server.batches().empty());
}

TEST_F(WireServer, TellsWhatWasDone) {
    enter();
    EXPECT_TRUE(client.run("Insert Into YZ_组表 (组代号) Values ('1'),('2'),('3')"));
    EXPECT_EQ(client.changed(), 3);
    EXPECT_TRUE(client.run("Update YZ_组表 Set 组名称='x' Where 组代号>'1'"));
    EXPECT_EQ(client.changed(), 2);
    EXPECT_TRUE(client.run("Update Top (1) YZ_组表 Set 组名称='y'"));
    EXPECT_EQ(client.changed(), 1);
    EXPECT_EQ(client.rows("Select 组代号 From YZ_组表 Where 组名称='y'").size(), 1U);
    EXPECT_TRUE(
        client.run("Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进情况) Values "
                   "('01','1','a;b'); Select SCOPE_IDENTITY()"));
    EXPECT_EQ(client.changed(), 1);
    ASSERT_TRUE(client.nextResult());
    EXPECT_EQ(client.rows(), std::vector<std::string>{"1"});
    EXPECT_EQ(client.rows("Select 跟进情况 From YZ_引驻客户跟进记录"), std::vector<std::string>{"a;b"});

    EXPECT_TRUE(client.run("Begin Transaction"));
    EXPECT_TRUE(client.run("Delete From YZ_组表"));
    EXPECT_TRUE(client.run("Rollback Transaction"));
    EXPECT_EQ(client.rows("Select Count(*) From YZ_组表"), std::vector<std::string>{"3"});
    EXPECT_TRUE(client.run("Begin Transaction"));
    EXPECT_TRUE(client.run("Delete From YZ_组表"));
    EXPECT_TRUE(client.run("Commit"));
    EXPECT_EQ(client.rows("Select Count(*) From YZ_组表"), std::vector<std::string>{"0"});
    EXPECT_EQ(refusalOf("Commit"), "25000 3902 ");
    EXPECT_TRUE(client.run("If @@TranCount>0 Rollback Transaction"));
}

TEST_F(WireServer, TellsFailuresByTheirNumbers) {
    enter();
    EXPECT_EQ(refusalOf("Select * From 没有"), "42S02 208 ");
    EXPECT_EQ(refusalOf("Select 没有 From YZ_组表"), "42S22 207 ");
    EXPECT_EQ(refusalOf("Select Select"), "42000 102 ");
    EXPECT_EQ(refusalOf("Insert Into YZ_组表 (组名称) Values ('x')"), "23000 515 ");
    EXPECT_EQ(refusalOf("Insert Into YZ_组表 (组代号) Values ('x'),('X')"), "23000 2601 ");
    EXPECT_EQ(refusalOf("Update YZ_意向书信息 Set 提交日期='明天'"), "22007 241 ");
    EXPECT_EQ(refusalOf("Update YZ_意向书信息 Set 租赁面积='大'"), "22018 245 ");
    EXPECT_TRUE(client.rows("Select * From YZ_组表").empty());
    behave([](Behaviour& b) {
        b.failure = [](std::string_view batch) {
            return batch.starts_with("Delete") ? std::optional(Failure{1205, "死锁", 13}) : std::nullopt;
        };
    });
    EXPECT_EQ(refusalOf("Delete From YZ_组表"), "42000 1205 ");
    EXPECT_TRUE(client.run("Select 1 As a"));
}

TEST_F(WireServer, EncryptsAsBothAgree) {
    struct Case {
        const char* client;
        Encryption server;
        bool enters, login, batches;
    };
    for (const auto& each : {Case{"request", Encryption::notSupported, true, false, false},
                             Case{"request", Encryption::forLogin, true, true, false},
                             Case{"request", Encryption::on, true, true, true},
                             Case{"require", Encryption::forLogin, true, true, true},
                             Case{"require", Encryption::required, true, true, true},
                             Case{"require", Encryption::notSupported, false, false, false}}) {
        behave([&](Behaviour& b) { b.encryption = each.server; });
        const int logins = server.encryptedLogins();
        const int batches = server.encryptedBatches();
        PlainClient one;
        EXPECT_EQ(one.connect(server.port(), "office", "Encryption=" + std::string(each.client)),
                  each.enters);
        EXPECT_EQ(one.rows("Select '密' As a").size(), each.enters ? 1U : 0U);
        EXPECT_EQ(server.encryptedLogins() - logins, each.login) << each.client;
        EXPECT_EQ(server.encryptedBatches() - batches, each.batches) << each.client;
    }
}

TEST_F(WireServer, LosesTheLineWhereItIsTold) {
    const auto lostBy = [&](Fate fate) {
        server.behave({});
        PlainClient one;
        EXPECT_TRUE(one.connect(server.port(), "office"));
        behave([&](Behaviour& b) {
            b.fate = [fate](std::string_view batch) {
                return batch.starts_with("Insert") ? fate : Fate::answered;
            };
        });
        EXPECT_FALSE(one.run("Insert Into YZ_组表 (组代号) Values ('" + std::to_string(int(fate)) + "')"));
        return one.error().substr(0, 11);
    };
    EXPECT_EQ(lostBy(Fate::lostBefore), "01000 20017");
    EXPECT_EQ(lostBy(Fate::lostAfter), "01000 20017");
    EXPECT_EQ(lostBy(Fate::lostWithin), "01000 20017");
    enter();
    EXPECT_EQ(client.rows("Select 组代号 From YZ_组表 Order By 组代号"),
              (std::vector<std::string>{std::to_string(int(Fate::lostAfter)),
                                        std::to_string(int(Fate::lostWithin))}));
    behave([](Behaviour& b) { b.cutAfter = 60; });
    PlainClient cut;
    EXPECT_FALSE(cut.connect(server.port(), "office"));
}

TEST_F(WireServer, StaysSilentWhereItIsTold) {
    enter();
    behave([](Behaviour& b) {
        b.fate = [](std::string_view batch) {
            return batch.starts_with("Delete") ? Fate::waitsUntilCalled : Fate::answered;
        };
    });
    EXPECT_FALSE(client.run("Delete From YZ_组表", 1));
    EXPECT_EQ(client.error().substr(0, 5), "HYT00");
    EXPECT_EQ(client.rows("Select 1 As a").size(), 1U) << client.error();
    EXPECT_EQ(server.calledOff(), 1);
    behave([](Behaviour& b) { b.fate = [](std::string_view) { return Fate::unanswered; }; });
    EXPECT_FALSE(client.run("Select 1 As a", 1));
    EXPECT_EQ(client.error().substr(0, 5), "HYT00");
}

TEST_F(WireServer, ServesSeveralAtOnce) {
    constexpr int seats = 4;
    constexpr int each = 10;
    std::vector<std::thread> working;
    for (int seat = 0; seat < seats; ++seat)
        working.emplace_back([this, seat] {
            PlainClient one;
            EXPECT_TRUE(one.connect(server.port(), "office")) << one.error();
            for (int i = 0; i < each; ++i)
                EXPECT_TRUE(one.run("Insert Into YZ_区域设置 Values ('" + std::to_string(seat) + "','')"))
                    << one.error();
        });
    for (auto& thread : working) thread.join();
    enter();
    EXPECT_EQ(client.rows("Select Count(*) From YZ_区域设置"),
              std::vector<std::string>{std::to_string(seats * each)});
    EXPECT_TRUE(PlainClient().connect(server.port(), ":memory:"));
    PlainClient alone;
    ASSERT_TRUE(alone.connect(server.port(), ":memory:"));
    EXPECT_EQ(alone.rows("Select Count(*) From YZ_区域设置"), std::vector<std::string>{"0"});
}

TEST_F(WireServer, KnowsATableWhenItHasBeenMade) {
    server.createEmpty("new");
    ASSERT_TRUE(client.connect(server.port(), "new"));
    EXPECT_EQ(refusalOf("Select * From YZ_组表"), "42S02 208 ");
    EXPECT_EQ(refusalOf("Delete From YZ_组表"), "42S02 208 ");
    const auto* teams = schema::table("YZ_组表");
    const auto made = schema::tableStatement(schema::Dialect::sqlServer, *teams);
    EXPECT_TRUE(client.run(made));
    EXPECT_TRUE(client.rows("Select * From YZ_组表").empty());
    EXPECT_EQ(refusalOf(made), "42S01 2714 ");
    EXPECT_EQ(refusalOf("CREATE TABLE [别的] ([a] int)"), "42000 102 ");
    EXPECT_TRUE(client.run("Begin Transaction"));
    EXPECT_TRUE(client.run(schema::tableStatement(schema::Dialect::sqlServer, *schema::table("YZ_主职表"))));
    EXPECT_TRUE(client.run("Rollback"));
    EXPECT_EQ(refusalOf("Select * From YZ_主职表"), "42S02 208 ");
}

}  // namespace
}  // namespace desk::wire
