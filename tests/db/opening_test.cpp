#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "db/connection_string.h"
#include "db/embedded/embedded.h"
#include "filled_database.h"
#include "odd_files.h"
#include "temporary_folder.h"

namespace desk {
namespace {

TEST(ConnectionString, FollowsTheGrammarOfTheProvider) {
    const auto target = parseConnectionString(
        "Provider=SQLOLEDB.1;Password=p'w\"d;Persist Security Info=False;User ID=sa;Initial "
        "Catalog='物业';Data "
        "Source='(embedded)'");
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
    const auto fails = [&](const std::string& text) {
        EXPECT_EQ(failureOf([&] { connection.open(text, std::chrono::seconds(1)); }), failure::unspecified)
            << text;
        EXPECT_FALSE(connection.isOpen());
        return failureTextOf([&] { connection.open(text, std::chrono::seconds(1)); });
    };
    connection.open(memory, std::chrono::seconds(1));
    EXPECT_TRUE(connection.isOpen());
    EXPECT_NE(fails("Initial Catalog='';Data Source=''").find("未指定数据库服务器"), std::string::npos);
    EXPECT_NE(fails("Initial Catalog='x';Data Source='SRV1'").find("SRV1"), std::string::npos);
    EXPECT_NE(fails("Initial Catalog='';Data Source='(embedded)'").find("未指定数据库文件"),
              std::string::npos);
}

class OpeningFile : public testing::Test {
  protected:
    TemporaryFolder folder_;
    const std::string path_ = folder_.path("引驻 台账.db");

    /// The text of the failure to open the file, which must be left as it was.
    std::string failureText() {
        const bool exists = std::filesystem::is_regular_file(path_);
        const auto before = exists ? bytesOf(path_) : std::string();
        Connection connection;
        const auto open = [&] { connection.open(fileConnection(path_), std::chrono::seconds(1)); };
        EXPECT_EQ(failureOf(open), failure::unspecified);
        EXPECT_FALSE(connection.isOpen());
        EXPECT_EQ(exists ? bytesOf(path_) : std::string(), before);
        const auto entries = std::filesystem::directory_iterator(folder_.path(""));
        EXPECT_LE(std::distance(begin(entries), end(entries)), 1);
        return failureTextOf(open);
    }
};

TEST_F(OpeningFile, KeepsWhatWasWritten) {
    embedded::createDatabase(path_);
    {
        Connection connection;
        connection.open(fileConnection(path_), std::chrono::seconds(1));
        connection.execute("Insert Into YZ_组表 (组代号) Values ('01')");
    }
    Connection again;
    again.open(fileConnection(path_), std::chrono::seconds(1));
    EXPECT_TRUE(anyRow(again, "Select * From YZ_组表 Where 组代号='01'"));
    EXPECT_EQ(failureOf([&] { embedded::createDatabase(path_); }), failure::unspecified);
    EXPECT_TRUE(anyRow(again, "Select * From YZ_组表 Where 组代号='01'"));
}

TEST_F(OpeningFile, RefusesAMissingFileAndMakesNone) {
    EXPECT_NE(failureText().find("文件不存在"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_EQ(failureOf([&] { embedded::createDatabase(folder_.path("没有/x.db")); }), failure::unspecified);
}

TEST_F(OpeningFile, RefusesADirectory) {
    std::filesystem::create_directory(path_);
    EXPECT_NE(failureText().find("目录"), std::string::npos);
}

TEST_F(OpeningFile, RefusesWhatIsNoDatabaseOfThisSystem) {
    writeBytes(path_, "");
    EXPECT_NE(failureText().find("不是本系统的数据库"), std::string::npos);
    writeBytes(path_, std::string(5000, 'x'));
    EXPECT_NE(failureText().find("不是数据库"), std::string::npos);
    std::filesystem::remove(path_);
    makeForeignDatabase(path_);
    EXPECT_NE(failureText().find("YZ_"), std::string::npos);
}

TEST_F(OpeningFile, RefusesADamagedDatabase) {
    embedded::createDatabase(path_);
    const auto whole = bytesOf(path_);
    writeBytes(path_, whole.substr(0, 3 * 4096));
    EXPECT_NE(failureText().find("损坏"), std::string::npos);
    auto scrambled = whole;
    for (std::size_t i = 100; i < 4096; ++i) scrambled[i] = static_cast<char>(i * 7);
    writeBytes(path_, scrambled);
    EXPECT_NE(failureText().find("损坏"), std::string::npos);
}

TEST_F(OpeningFile, FailsWhileReadingDamagedPages) {
    embedded::createDatabase(path_);
    auto bytes = bytesOf(path_);
    {
        Connection connection;
        connection.open(fileConnection(path_), std::chrono::seconds(1));
        connection.begin();
        for (int i = 0; i < 500; ++i)
            connection.execute(sql("Insert Into YZ_区域设置 Values ('{}','{}')", i, std::string(100, 'x')));
        connection.commit();
        bytes = bytesOf(path_);
    }
    for (std::size_t i = bytes.size() - 8 * 4096; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i);
    writeBytes(path_, bytes);
    Connection connection;
    connection.open(fileConnection(path_), std::chrono::seconds(1));
    EXPECT_EQ(failureOf([&] {
                  for (Recordset rows(connection, "Select * From YZ_区域设置"); !rows.atEnd();
                       rows.moveNext()) {
                  }
              }),
              failure::unspecified);
}

TEST_F(OpeningFile, MakesIndexesAnewThatAnotherOrderWrote) {
    embedded::createDatabase(path_);
    {
        Connection connection;
        connection.open(fileConnection(path_), std::chrono::seconds(1));
        connection.execute("Insert Into YZ_组表 (组代号) Values ('01'),('浦东'),('b')");
    }
    auto bytes = bytesOf(path_);
    constexpr std::size_t userVersion = 60;  // where the file notes the order it was written in
    const auto version = bytes.substr(userVersion, 4);
    bytes.replace(userVersion, 4, "\1\2\3\4");
    writeBytes(path_, bytes);
    Connection connection;
    connection.open(fileConnection(path_), std::chrono::seconds(1));
    EXPECT_TRUE(anyRow(connection, "Select * From YZ_组表 Where 组代号='浦东'"));
    connection = Connection();
    EXPECT_EQ(bytesOf(path_).substr(userVersion, 4), version);
}

/// This process without the rights of the machine's administrator, for whom no file is read-only.
class PlainUser {
  public:
    PlainUser() { change(nobody); }
    ~PlainUser() { change(0); }

  private:
    static constexpr uid_t nobody = 65534;
    static void change(uid_t user) {
        if (getuid() == 0) {
            EXPECT_EQ(seteuid(user), 0);
        }
    }
};

TEST_F(OpeningFile, TellsAtOnceThatNothingCanBeSaved) {
    embedded::createDatabase(path_);
    const auto folder = folder_.path("");
    const auto textWith = [&](mode_t folderMode, mode_t fileMode) {
        chmod(folder.c_str(), folderMode);
        chmod(path_.c_str(), fileMode);
        const PlainUser plain;
        return failureText();
    };
    EXPECT_NE(textWith(0777, 0444).find("文件是只读的"), std::string::npos);
    EXPECT_NE(textWith(0555, 0666).find("文件夹是只读的"), std::string::npos);
    chmod(folder.c_str(), 0755);
}

TEST_F(OpeningFile, TellsThatItsFileHasBeenMovedAway) {
    embedded::createDatabase(path_);
    Connection connection;
    connection.open(fileConnection(path_), std::chrono::seconds(1));
    std::filesystem::rename(path_, folder_.path("别处.db"));
    const auto text =
        failureTextOf([&] { connection.execute("Insert Into YZ_组表 (组代号) Values ('01')"); });
    EXPECT_NE(text.find("移动"), std::string::npos) << text;
}

TEST_F(OpeningFile, TellsThatItsFileHasBeenCutShort) {
    embedded::createDatabase(path_);
    for (const std::uintmax_t left : {10U * 4096 + 100, 4096U, 50U, 0U}) {
        SCOPED_TRACE(left);
        const auto whole = bytesOf(path_);
        Connection connection;
        connection.open(fileConnection(path_), std::chrono::seconds(1));
        std::filesystem::resize_file(path_, left);
        const auto readAll = [&] {
            for (const auto& table : schema::tables())
                anyRow(connection, "Select * From " + std::string(table.name));
        };
        EXPECT_EQ(failureOf(readAll), failure::unspecified);
        const auto text = failureTextOf(readAll);
        EXPECT_TRUE(text.starts_with("数据库文件已损坏")) << text;
        connection = Connection();
        writeBytes(path_, whole);
    }
}

TEST_F(OpeningFile, TellsThatItsDiskKnowsNoLocks) {
    embedded::createDatabase(path_);
    const UnlockableFiles disk;
    const auto told = failureText();
    EXPECT_TRUE(told.ends_with("无法锁定数据库文件：文件已被其他程序锁定，或所在的磁盘不支持锁定。")) << told;
}

TEST_F(OpeningFile, GivesUpAfterItsTimeWhenAnotherSeatHoldsTheFile) {
    embedded::createDatabase(path_);
    Connection holder;
    holder.open(fileConnection(path_), std::chrono::seconds(1));
    Connection waiting;
    waiting.open(fileConnection(path_), std::chrono::seconds(1));
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
TEST_F(OpeningFile, LooksAtOneRowWithoutHoldingTheFile) {
    embedded::createDatabase(path_);
    Connection first;
    first.open(fileConnection(path_), std::chrono::seconds(1));
    Connection second;
    second.open(fileConnection(path_), std::chrono::seconds(1));
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
    for (; !streamed.atEnd(); streamed.moveNext()) seen += streamed[0].text();
    EXPECT_EQ(seen, "010203");
}

}  // namespace
}  // namespace desk
