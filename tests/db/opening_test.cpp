#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "database_file.h"
#include "db/connection_string.h"
#include "db/embedded/embedded.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

TEST(ConnectionString, FollowsTheGrammarOfTheProvider) {
    const auto target = parseConnectionString(
        "Provider=SQLOLEDB.1;Password=p'w\"d;Persist Security Info=False;User ID=sa;Initial "
        "Catalog='物业';Data Source='(embedded)'");
    EXPECT_EQ(target.dataSource, "(embedded)");
    EXPECT_EQ(target.initialCatalog, "物业");
    EXPECT_EQ(target.userId, "sa");
    EXPECT_EQ(target.password, "p'w\"d");

    const auto quoted = parseConnectionString("DATA SOURCE = \"a;b\" ; initial catalog='it''s';;");
    EXPECT_EQ(quoted.dataSource, "a;b");
    EXPECT_EQ(quoted.initialCatalog, "it's");
    EXPECT_EQ(parseConnectionString("Data Source=a b ;Data Source= c").dataSource, "c");
    // A semicolon in the password begins a new part, and that may well be another server.
    EXPECT_EQ(parseConnectionString("Data Source=a;Password=x;Data Source='b'").dataSource, "b");
    for (const auto* wrong :
         {"Password=a;b;Data Source='x'", "Data Source='x", "Data Source='x'y", "=x", "x"})
        EXPECT_EQ(failureOf([&] { parseConnectionString(wrong); }), failure::unspecified) << wrong;
}

TEST(Opening, TellsWhenThereIsNoServer) {
    Connection connection;
    connection.open(memory, std::chrono::seconds(1));
    EXPECT_TRUE(connection.isOpen());
    const struct {
        const char* text;
        const char* told;
    } failing[] = {{"Initial Catalog='';Data Source=''", "未指定数据库服务器"},
                   {"Initial Catalog='x';Data Source='SRV1'", "SRV1"},
                   {"Initial Catalog='';Data Source='(embedded)'", "未指定数据库文件"}};
    for (const auto& each : failing) {
        const auto failed = outcomeOf([&] { connection.open(each.text, std::chrono::seconds(1)); });
        EXPECT_EQ(failed.number, failure::unspecified) << each.text;
        EXPECT_NE(failed.text.find(each.told), std::string::npos) << failed.text;
        EXPECT_FALSE(connection.isOpen());
    }
}

using OpeningAFile = DatabaseFile;

TEST_F(OpeningAFile, RefusesWhatIsNoSoundDatabaseOfThisSystem) {
    expectRefused("文件不存在");
    EXPECT_FALSE(fs::exists(path_));
    fs::create_directory(path_);
    expectRefused("目录");
    fs::remove(path_);
    writeBytes(path_, "");
    expectRefused("不是本系统的数据库");
    writeBytes(path_, std::string(page, 'x'));
    expectRefused("不是数据库");
    writeBytes(path_, "");
    bare(path_).run("CREATE TABLE notes (text)");
    expectRefused("YZ_");
    fs::remove(path_);

    embedded::createDatabase(path_);
    const auto whole = bytesOf(path_);
    writeBytes(path_, whole.substr(0, 3 * page));
    expectRefused("损坏");
    writeBytes(path_, whole.substr(0, 100) + std::string(page - 100, 'x') + whole.substr(page));
    expectRefused("损坏");
    EXPECT_TRUE(otherFiles().empty());
}

/// A database that has been made, without rows.
class MadeFile : public DatabaseFile {
  protected:
    MadeFile() { embedded::createDatabase(path_); }
};

TEST_F(MadeFile, KeepsWhatWasWritten) {
    opened().execute("Insert Into YZ_组表 (组代号) Values ('01')");
    EXPECT_EQ(failureOf([&] { embedded::createDatabase(path_); }), failure::unspecified);
    EXPECT_EQ(failureOf([&] { embedded::createDatabase(inFolder("没有/x.db")); }), failure::unspecified);
    auto again = opened();
    EXPECT_TRUE(anyRow(again, "Select * From YZ_组表 Where 组代号='01'"));
}

TEST_F(MadeFile, FailsWhileDamagedPagesAreRead) {
    {
        auto connection = opened();
        connection.begin();
        for (int i = 0; i < 500; ++i)
            connection.execute(sql("Insert Into YZ_区域设置 Values ('{}','{}')", i, std::string(100, 'x')));
        connection.commit();
    }
    const auto whole = bytesOf(path_);
    writeBytes(path_, whole.substr(0, whole.size() - 8 * page) + std::string(8 * page, 'x'));
    auto connection = opened();
    EXPECT_EQ(failureOf([&] {
                  for (auto& row : Recordset(connection, "Select * From YZ_区域设置")) row[0].text();
              }),
              failure::unspecified);
}

TEST_F(MadeFile, GetsIndexesAnewThatAnotherOrderWrote) {
    opened().execute("Insert Into YZ_组表 (组代号) Values ('01'),('浦东'),('b')");
    auto bytes = bytesOf(path_);
    constexpr std::size_t userVersion = 60;  // where the file notes the order it was written in
    const auto version = bytes.substr(userVersion, 4);
    writeBytes(path_, bytes.replace(userVersion, 4, "\1\2\3\4"));
    {
        auto connection = opened();
        EXPECT_TRUE(anyRow(connection, "Select * From YZ_组表 Where 组代号='浦东'"));
    }
    EXPECT_EQ(bytesOf(path_).substr(userVersion, 4), version);
}

TEST_F(MadeFile, IsRefusedAtOnceWhereNothingCanBeSaved) {
    // For the machine's administrator no file is read-only.
    constexpr uid_t nobody = 65534;
    const bool isAdministrator = geteuid() == 0;
    const auto expectRefusedWith = [&](mode_t folderMode, mode_t fileMode, const char* words) {
        chmod(folder_.c_str(), folderMode);
        chmod(path_.c_str(), fileMode);
        const int became = isAdministrator ? seteuid(nobody) : 0;
        expectRefused(words);
        const int isAgain = isAdministrator ? seteuid(0) : 0;
        EXPECT_EQ(std::pair(became, isAgain), std::pair(0, 0));
    };
    expectRefusedWith(0777, 0444, "文件是只读的");
    expectRefusedWith(0555, 0666, "文件夹是只读的");
    chmod(folder_.c_str(), 0755);
}

TEST_F(MadeFile, TellsThatItHasBeenMovedAway) {
    auto connection = opened();
    fs::rename(path_, inFolder("别处.db"));
    const auto text =
        failureTextOf([&] { connection.execute("Insert Into YZ_组表 (组代号) Values ('01')"); });
    EXPECT_NE(text.find("移动"), std::string::npos) << text;
}

TEST_F(MadeFile, TellsThatItHasBeenCutShort) {
    const auto whole = bytesOf(path_);
    for (const std::uintmax_t left : {10 * page + 100, page, std::size_t{50}, std::size_t{0}}) {
        writeBytes(path_, whole);
        auto connection = opened();
        fs::resize_file(path_, left);
        const auto failed = outcomeOf([&] {
            for (const auto& table : schema::tables())
                anyRow(connection, "Select * From " + std::string(table.name));
        });
        EXPECT_EQ(failed.number, failure::unspecified) << left;
        EXPECT_TRUE(failed.text.starts_with("数据库文件已损坏")) << left << " " << failed.text;
    }
}

TEST_F(MadeFile, IsGivenUpAfterItsTimeWhenAnotherSeatHoldsIt) {
    auto holder = opened();
    auto waiting = opened(std::chrono::seconds(1));
    holder.begin();
    const auto write = [&] { waiting.execute("Insert Into YZ_组表 (组代号) Values ('02')"); };
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(outcomeOf(write), (Outcome{failure::timedOut, "超时已过期：数据库文件正被其他工作站占用。"}));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_FALSE(anyRow(waiting, "Select * From YZ_组表"));
    holder.rollback();
    write();
    EXPECT_TRUE(anyRow(holder, "Select * From YZ_组表"));
}

/// A row that is being looked at, and the one row of a lookup, hold nobody off.
TEST_F(MadeFile, IsNotHeldByWhoLooksAtOneRow) {
    auto first = opened(std::chrono::seconds(1));
    auto second = opened(std::chrono::seconds(1));
    first.execute("Insert Into YZ_组表 (组代号) Values ('01'),('02'),('03')");
    Recordset one(first, "Select * From YZ_组表 Where 组代号='01'");
    second.execute("Update YZ_组表 Set 组名称='一'");
    EXPECT_FALSE(one.atEnd());
    Recordset several(first, "Select 组代号 From YZ_组表 Order By 组代号", Rows::updatable);
    second.execute("Update YZ_组表 Set 组名称='二'");
    // The reader of many rows can still write, whoever wrote in between.
    Recordset streamed(first, "Select 组代号 From YZ_组表 Order By 组代号");
    first.execute("Update YZ_组表 Set 组名称='三'");
    second.execute("Update YZ_组表 Set 组名称='四'");
    std::string seen;
    for (auto& row : streamed) seen += row[0].text();
    EXPECT_EQ(seen, "010203");
}

}  // namespace
}  // namespace desk
