#include <fmt/format.h>

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

class ServerEngine : public ServedOffice {
  protected:
    std::string text(const std::string& more = {}) const {
        return "Provider=SQLOLEDB.1;Password=Secret;User ID=sa;Initial Catalog='office';Data Source='" +
               server.dataSource() + "';" + more;
    }
    void enter(int seconds = 5) { office.open(text(), std::chrono::seconds(seconds)); }
    /// What is told where that text does not open the office, without the usual head; else nothing.
    std::string refusal(const std::string& more = {}, int seconds = 5) {
        const auto failed = outcomeOf([&] { office.open(text(more), std::chrono::seconds(seconds)); });
        EXPECT_EQ(failed.number, failed.text.empty() ? 0 : failure::unspecified);
        EXPECT_EQ(office.isOpen(), failed.text.empty());
        const auto head = "无法连接数据库服务器 '" + server.dataSource() + "'：";
        return failed.text.starts_with(head) ? failed.text.substr(head.size()) : failed.text;
    }
    void behave(Fate fate) {
        server.behave({.fate = [fate](std::string_view) { return fate; }});
    }
    long failing(const std::string& statement) {
        return failureOf([&] { office.execute(statement); });
    }
    std::string lastBatch() const { return server.batches().back().text; }
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

    const Outcome lost{failure::unspecified,
                       "与数据库服务器的连接已中断。请检查网络和服务器，然后重新登录。"};
    Connection office;
};

TEST_F(ServerEngine, TellsWhyItCannotConnect) {
    EXPECT_EQ(refusal("Password=wrong"), "用户 'sa' 登录失败。");
    EXPECT_EQ(server.logins().size(), 1U) << "a wrong password must not be tried twice";
    EXPECT_EQ(refusal("Initial Catalog=别处"), "无法打开登录所请求的数据库 \"别处\"。登录失败。");
    server.behave({.neverGreets = true});
    EXPECT_EQ(refusal("", 1), "服务器在 1 秒内没有应答。");
    for (const std::size_t bytes : {0, 10, 40, 150}) {
        server.behave({.cutAfter = bytes});
        EXPECT_EQ(refusal(), "服务器不存在、没有启动，或者网络不通。") << bytes;
    }
    EXPECT_EQ(refusal("Data Source='127.0.0.1,1'"),
              "无法连接数据库服务器 '127.0.0.1,1'：服务器不存在、没有启动，或者网络不通。");
    EXPECT_EQ(refusal("Data Source='127.0.0.1,x'"), "数据库服务器 '127.0.0.1,x' 的端口不正确。");
    EXPECT_EQ(refusal("Data Source=''"), "未指定数据库服务器。");
    ::setenv("TENANT_DESK_ODBC_DRIVER", "没有的驱动", 1);
    EXPECT_EQ(refusal(), "本机没有安装名为 '没有的驱动' 的 ODBC 驱动程序。");
    ::unsetenv("TENANT_DESK_ODBC_DRIVER");
}

TEST_F(ServerEngine, TellsTheServerNamesAndSecretsAsTheyAre) {
    for (const auto& [secret, quoted] :
         std::initializer_list<std::pair<const char*, const char*>>{{"密𠮷码", "密𠮷码"},
                                                                    {"a}b", "a}b"},
                                                                    {"}", "}"},
                                                                    {"{x}", "{x}"},
                                                                    {" 前后 ", " 前后 "},
                                                                    {"x';y\"=z", "x'';y\"=z"}}) {
        server.behave({.user = secret, .password = secret});
        EXPECT_EQ(refusal(fmt::format("User ID='{0}';Password='{0}'", quoted)), "") << secret;
        EXPECT_EQ(server.logins().back().user, secret);
        EXPECT_EQ(server.logins().back().database, "office");
    }
    EXPECT_NE(refusal("Password='a};b'"), "");
}

TEST_F(ServerEngine, EncryptsWhereverTheServerCan) {
    for (const bool can : {true, false}) {
        server.behave({.encrypts = can});
        enter();
        EXPECT_EQ(server.batches().back().encrypted, can);
    }
}

TEST_F(ServerEngine, TrustsTheServerWhoseCertificateIsNamed) {
    server.behave({.encrypts = true});
    const auto own = folder + "/可信.pem";
    const auto other = folder + "/other.pem";
    std::ofstream(own) << server.certificate().pem();
    std::ofstream(other) << Certificate().pem();
    const auto refusalOf = [&](const std::string& file, const std::string& more = {}) {
        ::setenv("TENANT_DESK_CERTIFICATES", file.c_str(), 1);
        ::setenv("TMPDIR", folder.c_str(), 1);
        const auto told = refusal(more);
        ::unsetenv("TMPDIR");
        ::unsetenv("TENANT_DESK_CERTIFICATES");
        // What the driver was told by lies about no longer.
        EXPECT_STREQ(std::getenv("FREETDSCONF"), "/office.conf");
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            EXPECT_FALSE(entry.path().filename().string().starts_with("tenant-desk-")) << entry.path();
        return told;
    };
    const auto untrusted = [](const std::string& file) {
        return "不能建立可信的加密连接：服务器的证书或名称与可信证书文件 '" + file +
               "' 不符，或者服务器不支持加密。";
    };
    const auto byName = "localhost," + std::to_string(server.port());
    ::setenv("FREETDSCONF", "/office.conf", 1);
    EXPECT_EQ(refusalOf(own), "");
    EXPECT_EQ(rows("Select '密' As a"), std::vector<std::string>{"密"});
    EXPECT_EQ(refusalOf(other), untrusted(other));
    EXPECT_EQ(refusalOf(own, "Data Source='" + byName + "'"),
              "无法连接数据库服务器 '" + byName + "'：" + untrusted(own));
    EXPECT_EQ(refusalOf(folder + "/没有.pem"), "不能读取可信证书文件 '" + folder + "/没有.pem'。");
    server.behave({});
    EXPECT_EQ(refusalOf(own), untrusted(own));
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
        EXPECT_EQ(Recordset(office, "Select 跟进情况 From YZ_引驻客户跟进记录")[0].text(), each);
        EXPECT_EQ(rows(sql("Select Count(*) From YZ_引驻客户跟进记录 Where 跟进情况 Like'{}'", each)),
                  std::vector<std::string>{"1"});
        Recordset diary(office, "Select * From YZ_引驻客户跟进记录", Rows::updatable);
        diary["跟进情况"] = each + "乙";
        diary.update();
        EXPECT_EQ(Recordset(office, "Select 跟进情况 From YZ_引驻客户跟进记录")[0].text(), each + "乙");
    }
    for (const auto& [value, sent] : {std::pair("x", "'x'"), std::pair("甲𠮷", " N'甲𠮷'")}) {
        office.execute(sql("Delete From YZ_组表 Where 组代号='{}'", value));
        EXPECT_EQ(lastBatch(), "Delete From YZ_组表 Where 组代号=" + std::string(sent));
    }
    office.execute("Insert Into YZ_区域设置 (区域名称,说明) Values ('1','有'),('2',Null)");
    std::string seenTexts;
    for (auto& row : Recordset(office, "Select 说明 From YZ_区域设置 Order By 区域名称"))
        seenTexts.append(row[0].view()).append("|");
    EXPECT_EQ(seenTexts, "有||") << "nothing of the row before is seen where a field is null";
}

TEST_F(ServerEngine, AddressesARowByWhatKeepsItApart) {
    enter();
    office.execute("Insert Into YZ_组表 (组代号,组名称) Values ('01','甲')");
    office.execute(
        "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values "
        "('01','01','2011-12-31 23:59:59'),('01','02','2011-12-30')");
    EXPECT_EQ(join(rows("Select 设置日期 From YZ_组对应管理项目设置"), ","),
              "2011-12-31 23:59:59,2011-12-30");
    Recordset team(office, "Select * From YZ_组表", Rows::updatable);
    Recordset offices(office, "Select * From YZ_组对应管理项目设置", Rows::updatable);
    Recordset lead(office, "Select * From YZ_引驻客户跟进记录 Where 1=0", Rows::updatable);
    const auto sentFor = [&](Recordset& rows, std::initializer_list<std::pair<const char*, Value>> changes) {
        for (const auto& [column, value] : changes) rows[column] = value;
        rows.update();
        return lastBatch();
    };
    EXPECT_EQ(sentFor(team, {{"组名称", "O'乙"}, {"组代号", "02"}}),
              "Update [YZ_组表] Set [组代号]='02',[组名称]=N'O''乙' Where [组代号]='01'");
    EXPECT_EQ(sentFor(team, {{"组说明", "后"}}), "Update [YZ_组表] Set [组说明]=N'后' Where [组代号]='02'");
    EXPECT_EQ(sentFor(offices, {{"终止日期", "2012-1-1"}}),
              "Update Top (1) [YZ_组对应管理项目设置] Set [终止日期]='2012-01-01' Where [组代号]='01' And "
              "[管理处代号]='01' And [设置日期]>='2011-12-31 23:59:59' And [设置日期]<'2012-01-01 00:00:00' "
              "And [终止日期] Is Null");
    lead.addNew();
    EXPECT_EQ(sentFor(lead, {{"管理处代号", "01"}, {"登记编号", "1"}}),
              "Insert Into [YZ_引驻客户跟进记录] ([管理处代号],[登记编号]) Values ('01','1'); Select "
              "SCOPE_IDENTITY()");
    EXPECT_EQ(sentFor(lead, {{"跟进情况", "x"}}),
              "Update [YZ_引驻客户跟进记录] Set [跟进情况]='x' Where [ID]=1");
    EXPECT_EQ(sentFor(lead, {{"跟进情况", Value()}}),
              "Update [YZ_引驻客户跟进记录] Set [跟进情况]=NULL Where [ID]=1");
    office.execute("Delete From YZ_引驻客户跟进记录");
    EXPECT_EQ(failureOf([&] { sentFor(lead, {{"跟进情况", "y"}}); }), failure::rowGone);
    Recordset partly(office, "Select 组名称 From YZ_组表", Rows::updatable);
    EXPECT_EQ(failureOf([&] { sentFor(partly, {{"组名称", "x"}}); }), failure::updateNotSupported);
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
        server.behave({.failure = [number = told](std::string_view) {
            return Failure{number, "服务器的话"};
        }});
        const auto failed = outcomeOf([&] { office.execute("Delete From YZ_组表"); });
        EXPECT_EQ(failed.number, known) << told;
        EXPECT_EQ(failed.text == "服务器的话", known != failure::timedOut) << failed.text;
        EXPECT_EQ(failureOf([&] { rows("Select * From YZ_组表"); }), known) << told;
    }
    server.behave({});
    EXPECT_TRUE(rows("Select * From YZ_组表").empty());
}

TEST_F(ServerEngine, FailsWhenTheLineHasGone) {
    for (const auto fate : {Fate::lostBefore, Fate::lostAfter, Fate::lostWithin}) {
        server.behave({});
        enter();
        Recordset open(office, "Select 1 As a");
        behave(fate);
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(outcomeOf([&] { office.execute("Delete From YZ_组表"); }), lost);
        EXPECT_EQ(outcomeOf([&] { rows("Select * From YZ_组表"); }), lost);
        EXPECT_EQ(outcomeOf([&] { office.begin(); }), lost);
        EXPECT_EQ(open[0].integer(), 1);
    }
}

/// Nobody asks anything while the server stops.
TEST_F(ServerEngine, FailsWhenTheServerHasStopped) {
    for (const bool encrypts : {false, true}) {
        auto other = std::make_unique<Server>(folder, Behaviour{.encrypts = encrypts});
        office.open(text("Data Source='" + other->dataSource() + "'"), std::chrono::seconds(5));
        other.reset();
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
    behave(Fate::lostWithin);
    int count = 0;
    EXPECT_EQ(outcomeOf([&] {
                  for (auto& row : Recordset(office, "Select * From YZ_区域设置")) {
                      EXPECT_EQ(row["说明"].text(), "说明说明说明说明说明说明说明");
                      ++count;
                  }
              }),
              lost);
    EXPECT_LT(count, 500);
    server.behave({});
    enter();
    behave(Fate::lostWithin);
    EXPECT_EQ(outcomeOf([&] { office.execute("Select * From YZ_区域设置"); }), lost);
}

TEST_F(ServerEngine, GivesUpWaitingAfterItsTime) {
    enter(1);
    const Outcome timedOut{failure::timedOut,
                           "超时已过期：数据库服务器没有及时应答，或所需的数据正被其他工作站占用。"};
    behave(Fate::waitsUntilCalled);
    EXPECT_EQ(outcomeOf([&] { office.execute("Delete From YZ_组表"); }), timedOut);
    server.behave({});
    EXPECT_EQ(rows("Select 1 As a").size(), 1U);
    behave(Fate::unanswered);
    EXPECT_EQ(outcomeOf([&] { rows("Select 1 As a"); }), timedOut);
    EXPECT_EQ(outcomeOf([&] { rows("Select 1 As a"); }), lost);
}

TEST_F(ServerEngine, KeepsATransactionTogether) {
    enter();
    EXPECT_EQ(server.batches().front().text, "Set DateFormat ymd");
    const auto teams = [&] { return join(rows("Select 组代号 From YZ_组表"), ","); };
    {
        Transaction all(office);
        office.execute("Insert Into YZ_组表 (组代号) Values ('1')");
        EXPECT_EQ(failing("Insert Into YZ_组表 (组代号) Values (Null)"), failure::violatedRule);
    }
    EXPECT_EQ(teams(), "");
    Transaction all(office);
    EXPECT_NE(failing("Insert Into YZ_组表 (组代号) Values (Null)"), 0);
    office.execute("Insert Into YZ_组表 (组代号) Values ('1')");
    all.commit();
    EXPECT_EQ(teams(), "1");
    // Whoever goes on after a failure writes nothing outside the transaction that the failure has undone.
    server.behave({.failure = [](std::string_view batch) -> std::optional<Failure> {
        if (!batch.starts_with("Delete")) return std::nullopt;
        return Failure{Failure::lostToAnother, "已被选作死锁牺牲品。"};
    }});
    const Outcome undone{failure::unspecified, "数据库服务器已撤消了这一事务，其中的写入都没有保存。"};
    {
        Transaction more(office);
        office.execute("Insert Into YZ_组表 (组代号) Values ('2')");
        EXPECT_NE(failing("Delete From YZ_组表"), 0);
        EXPECT_EQ(outcomeOf([&] { office.execute("Insert Into YZ_组表 (组代号) Values ('3')"); }), undone);
        EXPECT_EQ(outcomeOf([&] { teams(); }), undone);
    }
    EXPECT_EQ(teams(), "1");
    office.begin();
    EXPECT_NE(failing("Delete From YZ_组表"), 0);
    EXPECT_NE(failureOf([&] { office.commit(); }), 0);
    office.execute("Insert Into YZ_组表 (组代号) Values ('4')");
    EXPECT_EQ(teams(), "1,4");
}

}  // namespace
}  // namespace desk::wire
