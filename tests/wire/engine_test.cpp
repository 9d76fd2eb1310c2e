#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "db/recordset.h"
#include "db/statement.h"
#include "db/transaction.h"
#include "support/failures.h"
#include "wire/server_fixture.h"

namespace desk::wire {
namespace {

constexpr const char* lostText = "与数据库服务器的连接已中断。请检查网络和服务器，然后重新登录。";

class ServerEngine : public ServedOffice {
  protected:
    std::string text(const std::string& more = {}) const {
        return "Provider=SQLOLEDB.1;Password=Secret;User ID=sa;Initial Catalog='office';Data Source='" +
               server.dataSource() + "';" + more;
    }
    void enter(int seconds = 5) { office.open(text(), std::chrono::seconds(seconds)); }
    /// All rows of a statement, fields joined by "|".
    std::vector<std::string> rows(std::string_view statement) {
        std::vector<std::string> lines;
        for (auto& row : Recordset(office, statement)) {
            std::vector<std::string> fields;
            for (int i = 0; i < row.columnCount(); ++i)
                fields.push_back(row[i].isNull() ? "-" : row[i].text());
            lines.push_back(join(fields, "|"));
        }
        return lines;
    }

    Connection office;
};

TEST_F(ServerEngine, TellsWhyItCannotConnect) {
    const auto opened = [&](const std::string& connectionString) {
        const auto failed = outcomeOf([&] { office.open(connectionString, std::chrono::seconds(1)); });
        EXPECT_EQ(failed.number, failure::unspecified);
        EXPECT_FALSE(office.isOpen());
        const auto head = "无法连接数据库服务器 '" + server.dataSource() + "'：";
        return failed.text.starts_with(head) ? failed.text.substr(head.size()) : failed.text;
    };
    EXPECT_EQ(opened(text("Password=wrong")), "用户 'sa' 登录失败。");
    EXPECT_EQ(server.logins().size(), 1U) << "a wrong password must not be tried twice";
    EXPECT_EQ(opened(text("Initial Catalog=别处")), "无法打开登录所请求的数据库 \"别处\"。登录失败。");
    behave([](Behaviour& b) { b.neverGreets = true; });
    EXPECT_EQ(opened(text()), "服务器在 1 秒内没有应答。");
    for (const std::size_t bytes : {0, 10, 40, 150}) {
        behave([&](Behaviour& b) { b.cutAfter = bytes; });
        EXPECT_EQ(opened(text()), "服务器不存在、没有启动，或者网络不通。") << bytes;
    }
    EXPECT_EQ(opened(text("Data Source='127.0.0.1,1'")),
              "无法连接数据库服务器 '127.0.0.1,1'：服务器不存在、没有启动，或者网络不通。");
    EXPECT_EQ(opened(text("Data Source='127.0.0.1,x'")), "数据库服务器 '127.0.0.1,x' 的端口不正确。");
    EXPECT_EQ(opened(text("Data Source=''")), "未指定数据库服务器。");
    ::setenv("TENANT_DESK_ODBC_DRIVER", "没有的驱动", 1);
    EXPECT_EQ(opened(text()), "本机没有安装名为 '没有的驱动' 的 ODBC 驱动程序。");
    ::unsetenv("TENANT_DESK_ODBC_DRIVER");
}

TEST_F(ServerEngine, TellsTheServerNamesAndSecretsAsTheyAre) {
    for (const auto* secret : {"密𠮷码", "a}b", "}", "{x}", " 前后 ", "x';y\"=z"}) {
        behave([&](Behaviour& b) { b.user = b.password = secret; });
        std::string doubled;
        for (const char* c = secret; *c != '\0'; ++c) doubled += std::string(*c == '\'' ? 2 : 1, *c);
        EXPECT_EQ(outcomeOf([&] {
                      office.open(text("User ID='" + doubled + "';Password='" + doubled + "'"),
                                  std::chrono::seconds(5));
                  }).text,
                  "")
            << secret;
        EXPECT_EQ(server.logins().back().user, secret);
        EXPECT_EQ(server.logins().back().database, "office");
    }
    EXPECT_EQ(outcomeOf([&] { office.open(text("Password='a};b'"), std::chrono::seconds(5)); }).number,
              failure::unspecified);
}

TEST_F(ServerEngine, EncryptsWhereverTheServerCan) {
    for (const auto mode : {Encryption::on, Encryption::forLogin, Encryption::required}) {
        behave([&](Behaviour& b) { b.encryption = mode; });
        const int before = server.encryptedBatches();
        enter();
        EXPECT_EQ(server.encryptedBatches(), before + 1);
    }
    behave([](Behaviour& b) { b.encryption = Encryption::notSupported; });
    enter();
    EXPECT_EQ(rows("Select 1 As a").size(), 1U);
}

TEST_F(ServerEngine, TrustsTheServerWhoseCertificateIsNamed) {
    behave([](Behaviour& b) { b.encryption = Encryption::on; });
    const auto own = folder + "/可信.pem";
    const auto other = folder + "/other.pem";
    std::ofstream(own) << server.certificate().pem();
    std::ofstream(other) << Certificate("127.0.0.1").pem();
    const auto withCertificates = [&](const std::string& file, const std::string& more = {}) {
        ::setenv("TENANT_DESK_CERTIFICATES", file.c_str(), 1);
        ::setenv("TMPDIR", folder.c_str(), 1);
        const auto failed = outcomeOf([&] { office.open(text(more), std::chrono::seconds(5)); });
        ::unsetenv("TMPDIR");
        ::unsetenv("TENANT_DESK_CERTIFICATES");
        // What the driver was told by lies about no longer.
        EXPECT_STREQ(std::getenv("FREETDSCONF"), "/office.conf");
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            EXPECT_FALSE(entry.path().filename().string().starts_with("tenant-desk-")) << entry.path();
        return failed.text;
    };
    const auto port = std::to_string(server.port());
    ::setenv("FREETDSCONF", "/office.conf", 1);
    EXPECT_EQ(withCertificates(own), "");
    EXPECT_EQ(rows("Select '密' As a"), std::vector<std::string>{"密"});
    const auto refusal = [&](const std::string& source, const std::string& file) {
        return "无法连接数据库服务器 '" + source +
               "'：不能建立可信的加密连接：服务器的证书或名称与可信证书文件 '" + file +
               "' 不符，或者服务器不支持加密。";
    };
    EXPECT_EQ(withCertificates(other), refusal(server.dataSource(), other));
    EXPECT_EQ(withCertificates(own, "Data Source='localhost," + port + "'"),
              refusal("localhost," + port, own));
    EXPECT_EQ(withCertificates(folder + "/没有.pem"), "不能读取可信证书文件 '" + folder + "/没有.pem'。");
    behave([](Behaviour& b) { b.encryption = Encryption::notSupported; });
    EXPECT_EQ(withCertificates(own), refusal(server.dataSource(), own));
    ::unsetenv("FREETDSCONF");
}

TEST_F(ServerEngine, StoresTextsAsTheyAre) {
    enter();
    std::string longest;
    while (characterCount(longest) < 4000) longest += "长𠮷文";
    for (const auto& each : {std::string("甲乙"), std::string("𠮷𠀀"), std::string("O'Brien''s"), longest,
                             std::string(), std::string("{fn now()} ?;--"), std::string("a\0乙\0", 6)}) {
        office.execute("Delete From YZ_引驻客户跟进记录");
        office.execute(sql(
            "Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进情况) Values ('01','1','{}')", each));
        const auto sent = server.batches().back();
        if (each.find_first_of(std::string("'\0", 2)) == std::string::npos) {
            EXPECT_NE(sent.find(utf16Bytes("'" + each + "'")), std::string::npos) << each;
            const bool wide = sent.find(utf16Bytes("N'" + each + "'")) != std::string::npos;
            EXPECT_EQ(wide, toUtf16(each).size() != each.size()) << each;
        }
        EXPECT_EQ(Recordset(office, "Select 跟进情况 From YZ_引驻客户跟进记录")[0].text(), each);
        EXPECT_EQ(rows(sql("Select Count(*) From YZ_引驻客户跟进记录 Where 跟进情况 Like'{}'", each)),
                  std::vector<std::string>{"1"});
        Recordset diary(office, "Select * From YZ_引驻客户跟进记录", Rows::updatable);
        diary["跟进情况"] = each + "乙";
        diary.update();
        EXPECT_EQ(Recordset(office, "Select 跟进情况 From YZ_引驻客户跟进记录")[0].text(), each + "乙");
    }
    Recordset diary(office, "Select * From YZ_引驻客户跟进记录", Rows::updatable);
    diary["跟进情况"] = Value();
    diary.update();
    EXPECT_EQ(rows("Select 跟进情况,预约日期 From YZ_引驻客户跟进记录"), std::vector<std::string>{"-|-"});
}

TEST_F(ServerEngine, SeesNothingOfTheRowBeforeWhereAFieldIsNull) {
    enter();
    office.execute("Insert Into YZ_区域设置 (区域名称,说明) Values ('1','有')");
    office.execute("Insert Into YZ_区域设置 (区域名称) Values ('2')");
    std::string seenTexts;
    for (auto& row : Recordset(office, "Select 说明 From YZ_区域设置 Order By 区域名称"))
        seenTexts.append(row[0].view()).append("|");
    EXPECT_EQ(seenTexts, "有||");
}

TEST_F(ServerEngine, AddressesARowByWhatKeepsItApart) {
    enter();
    office.execute("Insert Into YZ_组表 (组代号,组名称) Values ('01','甲')");
    Recordset team(office, "Select * From YZ_组表", Rows::updatable);
    team["组名称"] = "O'乙";
    team["组代号"] = "02";
    team.update();
    EXPECT_EQ(lastBatch(), "Update [YZ_组表] Set [组代号]='02',[组名称]=N'O''乙' Where [组代号]='01'");
    team["组说明"] = "后";
    team.update();
    EXPECT_EQ(lastBatch(), "Update [YZ_组表] Set [组说明]=N'后' Where [组代号]='02'");

    office.execute(
        "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values "
        "('01','01','2011-12-31 23:59:59'),('01','01','2011-12-30 10:00:00')");
    Recordset offices(office, "Select * From YZ_组对应管理项目设置", Rows::updatable);
    offices["终止日期"] = "2012-1-1";
    offices.update();
    EXPECT_EQ(lastBatch(),
              "Update Top (1) [YZ_组对应管理项目设置] Set [终止日期]='2012-01-01' Where [组代号]='01' And "
              "[管理处代号]='01' And [设置日期]>='2011-12-31 23:59:59' And [设置日期]<'2012-01-01 00:00:00' "
              "And [终止日期] Is Null");
    offices.moveNext();
    offices["终止日期"] = "2012-1-1";
    offices.update();
    EXPECT_NE(lastBatch().find("[设置日期]>='2011-12-30 10:00:00' And [设置日期]<'2011-12-30 10:00:01'"),
              std::string::npos);

    Recordset lead(office, "Select * From YZ_引驻客户跟进记录 Where 1=0", Rows::updatable);
    lead.addNew();
    lead["管理处代号"] = "01";
    lead["登记编号"] = "1";
    lead.update();
    EXPECT_EQ(lastBatch(),
              "Insert Into [YZ_引驻客户跟进记录] ([管理处代号],[登记编号]) Values ('01','1'); Select "
              "SCOPE_IDENTITY()");
    lead["跟进情况"] = "x";
    lead.update();
    EXPECT_EQ(lastBatch(), "Update [YZ_引驻客户跟进记录] Set [跟进情况]='x' Where [ID]=1");
    office.execute("Delete From YZ_引驻客户跟进记录");
    lead["跟进情况"] = "y";
    EXPECT_EQ(outcomeOf([&] { lead.update(); }).number, failure::rowGone);

    Recordset partly(office, "Select 组名称 From YZ_组表", Rows::updatable);
    partly["组名称"] = "x";
    EXPECT_EQ(outcomeOf([&] { partly.update(); }).number, failure::updateNotSupported);
}

TEST_F(ServerEngine, TellsServerFailuresByTheNumbersThatUsersKnow) {
    enter();
    const std::vector<std::pair<int, long>> numbers = {
        {102, failure::wrongStatement}, {156, failure::wrongStatement}, {207, failure::wrongStatement},
        {208, failure::unknownTable},   {229, failure::unspecified},    {241, failure::badConversion},
        {242, failure::badConversion},  {245, failure::badConversion},  {8114, failure::badConversion},
        {8115, failure::badConversion}, {515, failure::violatedRule},   {547, failure::violatedRule},
        {2601, failure::violatedRule},  {2627, failure::violatedRule},  {8152, failure::textTooLong},
        {2628, failure::textTooLong},   {1222, failure::timedOut},      {1205, failure::unspecified},
        {50000, failure::unspecified},  {9002, failure::unspecified}};
    for (const auto& [told, known] : numbers) {
        behave([number = told](Behaviour& b) {
            b.failure = [number](std::string_view) { return Failure{number, "服务器的话"}; };
        });
        const auto failed = outcomeOf([&] { office.execute("Delete From YZ_组表"); });
        EXPECT_EQ(failed.number, known) << told;
        EXPECT_EQ(failed.text == "服务器的话", known != failure::timedOut) << failed.text;
        EXPECT_EQ(outcomeOf([&] { rows("Select * From YZ_组表"); }).number, known) << told;
    }
    server.behave({});
    EXPECT_TRUE(rows("Select * From YZ_组表").empty());
}

TEST_F(ServerEngine, FailsWhenTheLineHasGone) {
    for (const auto fate : {Fate::lostBefore, Fate::lostAfter, Fate::lostWithin}) {
        server.behave({});
        enter();
        Recordset open(office, "Select 1 As a");
        behave([&](Behaviour& b) { b.fate = [fate](std::string_view) { return fate; }; });
        const Outcome lost{failure::unspecified, lostText};
        EXPECT_EQ(outcomeOf([&] { office.execute("Delete From YZ_组表"); }), lost);
        EXPECT_EQ(outcomeOf([&] { office.execute("Delete From YZ_组表"); }), lost);
        EXPECT_EQ(outcomeOf([&] { rows("Select * From YZ_组表"); }), lost);
        EXPECT_EQ(outcomeOf([&] { office.begin(); }), lost);
        EXPECT_EQ(open[0].integer(), 1);
    }
}

/// Nobody asks anything while the server stops.
TEST_F(ServerEngine, FailsWhenTheServerHasStopped) {
    for (const auto encryption : {Encryption::notSupported, Encryption::on}) {
        auto other = std::make_unique<Server>(folder, Behaviour{.encryption = encryption});
        office.open(text("Data Source='" + other->dataSource() + "'"), std::chrono::seconds(5));
        other.reset();
        const Outcome lost{failure::unspecified, lostText};
        EXPECT_EQ(outcomeOf([&] { rows("Select * From YZ_组表"); }), lost);
        EXPECT_EQ(outcomeOf([&] { office.execute("Delete From YZ_组表"); }), lost);
    }
}

/// A long answer that breaks off: what has come is read, and then the failure.
TEST_F(ServerEngine, FailsInTheMidstOfRows) {
    enter();
    Transaction all(office);
    for (int i = 0; i < 500; ++i)
        office.execute(sql("Insert Into YZ_区域设置 Values ('{}','说明说明说明说明说明说明说明')", i));
    all.commit();
    behave([](Behaviour& b) { b.fate = [](std::string_view) { return Fate::lostWithin; }; });
    int count = 0;
    const auto failed = outcomeOf([&] {
        for (auto& row : Recordset(office, "Select * From YZ_区域设置")) {
            EXPECT_EQ(row["说明"].text(), "说明说明说明说明说明说明说明");
            ++count;
        }
    });
    EXPECT_EQ(failed, (Outcome{failure::unspecified, lostText}));
    EXPECT_LT(count, 500);
    server.behave({});
    enter();
    behave([](Behaviour& b) { b.fate = [](std::string_view) { return Fate::lostWithin; }; });
    EXPECT_EQ(outcomeOf([&] { office.execute("Select * From YZ_区域设置"); }), failed);
}

TEST_F(ServerEngine, GivesUpWaitingAfterItsTime) {
    enter(1);
    behave([](Behaviour& b) {
        b.fate = [](std::string_view batch) {
            return batch.starts_with("Delete") ? Fate::waitsUntilCalled : Fate::answered;
        };
    });
    const Outcome timedOut{failure::timedOut,
                           "超时已过期：数据库服务器没有及时应答，或所需的数据正被其他工作站占用。"};
    EXPECT_EQ(outcomeOf([&] { office.execute("Delete From YZ_组表"); }), timedOut);
    EXPECT_EQ(server.calledOff(), 1);
    EXPECT_EQ(rows("Select 1 As a").size(), 1U);
    behave([](Behaviour& b) { b.fate = [](std::string_view) { return Fate::unanswered; }; });
    EXPECT_EQ(outcomeOf([&] { rows("Select 1 As a"); }), timedOut);
    EXPECT_EQ(outcomeOf([&] { rows("Select 1 As a"); }), (Outcome{failure::unspecified, lostText}));
}

TEST_F(ServerEngine, KeepsATransactionTogether) {
    enter();
    {
        Transaction all(office);
        office.execute("Insert Into YZ_组表 (组代号) Values ('1')");
        EXPECT_EQ(outcomeOf([&] { office.execute("Insert Into YZ_组表 (组代号) Values (Null)"); }).number,
                  failure::violatedRule);
    }
    EXPECT_TRUE(rows("Select * From YZ_组表").empty());
    Transaction all(office);
    EXPECT_NE(outcomeOf([&] { office.execute("Insert Into YZ_组表 (组代号) Values (Null)"); }).number, 0);
    office.execute("Insert Into YZ_组表 (组代号) Values ('1')");
    all.commit();
    EXPECT_EQ(rows("Select 组代号 From YZ_组表"), std::vector<std::string>{"1"});
    EXPECT_EQ(fromUtf16Bytes(server.batches().front()), "Set DateFormat ymd");
}

/// Whoever goes on after a failure writes nothing outside the transaction that the failure has undone.
TEST_F(ServerEngine, WritesNoMoreInATransactionThatTheServerHasUndone) {
    enter();
    behave([](Behaviour& b) {
        b.failure = [](std::string_view batch) -> std::optional<Failure> {
            if (!batch.starts_with("Delete")) return std::nullopt;
            return Failure{Failure::lostToAnother, "已被选作死锁牺牲品。", 13};
        };
    });
    const Outcome undone{failure::unspecified, "数据库服务器已撤消了这一事务，其中的写入都没有保存。"};
    {
        Transaction all(office);
        office.execute("Insert Into YZ_组表 (组代号) Values ('1')");
        EXPECT_NE(outcomeOf([&] { office.execute("Delete From YZ_组表"); }).number, 0);
        EXPECT_EQ(outcomeOf([&] { office.execute("Insert Into YZ_组表 (组代号) Values ('2')"); }), undone);
        EXPECT_EQ(outcomeOf([&] { rows("Select * From YZ_组表"); }), undone);
    }
    EXPECT_TRUE(rows("Select * From YZ_组表").empty());
    office.begin();
    EXPECT_NE(outcomeOf([&] { office.execute("Delete From YZ_组表"); }).number, 0);
    EXPECT_NE(outcomeOf([&] { office.commit(); }).number, 0);
    office.execute("Insert Into YZ_组表 (组代号) Values ('3')");
    EXPECT_EQ(rows("Select 组代号 From YZ_组表"), std::vector<std::string>{"3"});
}

/// The line goes at each statement of a save: it is told, and what comes after sees the row once or not at
/// all.
TEST_F(ServerEngine, SavesNothingTwiceWhereverTheLineGoes) {
    const auto save = [&](const std::string& number) {
        const auto lead = sql("Select * From YZ_引驻客户信息 Where 登记编号='{}'", number);
        if (anyRow(office, lead)) return;
        Recordset rows(office, "Select * From YZ_引驻客户信息 Where 1=0", Rows::updatable);
        rows.addNew();
        rows["管理处代号"] = "01";
        rows["登记编号"] = number;
        rows.update();
        office.execute(sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号) Values ('{}','01')", number));
    };
    constexpr int statements = 4;
    int number = 0;
    for (int at = 0; at < statements; ++at)
        for (const auto fate : {Fate::lostBefore, Fate::lostAfter, Fate::lostWithin}) {
            server.behave({});
            enter();
            auto left = std::make_shared<std::atomic<int>>(at);
            behave([&](Behaviour& b) {
                b.fate = [left, fate](std::string_view) { return (*left)-- == 0 ? fate : Fate::answered; };
            });
            const auto key = std::to_string(++number);
            EXPECT_EQ(outcomeOf([&] { save(key); }), (Outcome{failure::unspecified, lostText})) << at;
            server.behave({});
            enter();
            save(key);
            EXPECT_EQ(rows(sql("Select Count(*) From YZ_引驻客户信息 Where 登记编号='{}'", key)),
                      std::vector<std::string>{"1"});
        }
}

}  // namespace
}  // namespace desk::wire
