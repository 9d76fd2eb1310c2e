#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "db/embedded/bring_up.h"
#include "db/embedded/embedded.h"
#include "db/embedded/sqlite.h"
#include "filled_database.h"
#include "odd_files.h"
#include "schema/definition.h"
#include "seat_process.h"
#include "temporary_folder.h"

namespace desk {
namespace {

namespace fs = std::filesystem;
using embedded::Sqlite;

constexpr std::chrono::seconds patience{30};

Sqlite bare(const std::string& path) {
    return {path, Sqlite::Missing::isFailure, patience};
}

void runAll(const Sqlite& sqlite, const std::string& statements) {
    char* problem = nullptr;
    sqlite3_exec(sqlite.handle(), statements.c_str(), nullptr, nullptr, &problem);
    EXPECT_EQ(problem, nullptr) << problem;
    sqlite3_free(problem);
}

std::string rowsOf(const Sqlite& sqlite, const std::string& statement) {
    std::string rows;
    for (auto row = sqlite.prepare(statement); row.step();) rows += std::string(row.text(0)) + "\n";
    return rows;
}

/// All tables with their columns, and all indexes, whatever their order.
std::string shapeOf(const Sqlite& sqlite) {
    return rowsOf(sqlite,
                  "SELECT t.name||' '||c.name||' '||c.type||' '||c.\"notnull\"||c.pk||c.hidden"
                  " FROM sqlite_schema t, pragma_table_xinfo(t.name) c WHERE t.type='table'"
                  " AND t.name NOT LIKE 'sqlite_stat%' ORDER BY 1") +
           rowsOf(sqlite,
                  "SELECT sql FROM sqlite_schema WHERE type='index' AND sql IS NOT NULL ORDER BY name");
}

std::string leadsOf(const Sqlite& sqlite) {
    return rowsOf(sqlite, "SELECT ID||' '||管理处代号||' '||登记编号||' '||公司名称 FROM YZ_引驻客户信息");
}

/// A file as the first program made it, with a lead in it.
class OldFile : public testing::Test {
  protected:
    OldFile() {
        const Sqlite made(path_, Sqlite::Missing::isCreated, patience);
        runAll(made, "BEGIN;" + bytesOf(std::string(TEST_FOLDER) + "/old/definition-1.sql"));
        runAll(
            made,
            "INSERT INTO YZ_引驻客户信息 (管理处代号,登记编号,公司名称) VALUES ('01','2011-000001','盛远')");
        runAll(made, "PRAGMA user_version=" + std::to_string(made.collation().version()) + ";COMMIT");
    }

    void change(const std::string& statements) { runAll(bare(path_), statements); }

    std::optional<Upgrade> open() {
        Connection connection;
        connection.open(fileConnection(path_), patience);
        return connection.takeUpgrade();
    }

    /// The text of the failure to open the file, which must be left as it was.
    std::string refusal() {
        const auto before = bytesOf(path_);
        const auto text = failureTextOf([&] { open(); });
        EXPECT_EQ(bytesOf(path_), before);
        return text;
    }

    std::vector<std::string> copies() {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder_.path("")))
            if (entry.path() != path_) found.push_back(entry.path().string());
        return found;
    }

    void expectPresent() {
        const Sqlite now = bare(path_);
        const TemporaryFolder folder;
        embedded::createDatabase(folder.path("new.db"));
        const Sqlite fresh = bare(folder.path("new.db"));
        EXPECT_EQ(shapeOf(now), shapeOf(fresh));
        EXPECT_EQ(rowsOf(now, "PRAGMA application_id"), rowsOf(fresh, "PRAGMA application_id"));
        EXPECT_EQ(leadsOf(now), lead);
    }

    static constexpr const char* lead = "1 01 2011-000001 盛远\n";
    TemporaryFolder folder_;
    const std::string path_ = folder_.path("引驻 台账.db");
};

TEST_F(OldFile, IsBroughtUpOnceWithACopyBesideIt) {
    const auto oldShape = shapeOf(bare(path_));
    const auto upgrade = open();
    ASSERT_TRUE(upgrade);
    EXPECT_EQ(upgrade->from, 1);
    EXPECT_EQ(upgrade->to, schema::definitionVersion);
    EXPECT_NE(upgrade->told().find(upgrade->copy), std::string::npos);
    expectPresent();
    EXPECT_EQ(copies(), std::vector{upgrade->copy});
    EXPECT_EQ(shapeOf(bare(upgrade->copy)), oldShape);
    EXPECT_EQ(leadsOf(bare(upgrade->copy)), lead);

    EXPECT_FALSE(open());
    EXPECT_EQ(copies().size(), 1U);
    // A restored copy is brought up as well, and does not write over the earlier one.
    fs::copy_file(upgrade->copy, path_, fs::copy_options::overwrite_existing);
    EXPECT_NE(open().value().copy, upgrade->copy);
    EXPECT_EQ(copies().size(), 2U);
}

TEST_F(OldFile, GetsTheTablesColumnsAndIndexesThatItLacks) {
    change(
        "DROP TABLE YZ_区域设置; DROP INDEX 引驻客户_编号; DROP INDEX 引驻客户_公司;"
        "CREATE INDEX 引驻客户_公司 ON YZ_引驻客户信息 (客户姓名);"
        "ALTER TABLE YZ_引驻客户信息 DROP COLUMN 洽谈重点;"
        "INSERT INTO YZ_中介公司设置 (管理处代号,公司名称) VALUES ('01','中介');"
        "DROP INDEX 中介公司_名称; ALTER TABLE YZ_中介公司设置 DROP COLUMN 公司名称;");
    ASSERT_TRUE(open());
    expectPresent();
    EXPECT_EQ(rowsOf(bare(path_), "SELECT 管理处代号||公司名称 FROM YZ_中介公司设置"), "01\n");
}

TEST_F(OldFile, StaysAsItWasWhereItCannotBeBroughtUp) {
    change(
        "DROP INDEX 组_代号; DROP INDEX 引驻客户_编号; INSERT INTO YZ_组表 (组代号) VALUES ('01'),('01 ')");
    EXPECT_NE(refusal().find("唯一"), std::string::npos);
    change("ALTER TABLE YZ_引驻客户跟进记录 RENAME COLUMN ID TO 旧");
    EXPECT_NE(refusal().find("YZ_引驻客户跟进记录"), std::string::npos);
}

TEST_F(OldFile, OfANewerOrAnotherProgramIsRefused) {
    change("PRAGMA application_id=" + std::to_string(0x595A0000 + schema::definitionVersion + 1));
    EXPECT_NE(refusal().find("较新的程序"), std::string::npos);
    EXPECT_NE(failureTextOf([&] { embedded::upgrade(path_, patience); }).find("较新的程序"),
              std::string::npos);
    change("PRAGMA application_id=1196444487");
    EXPECT_NE(refusal().find("另一个程序"), std::string::npos);
    EXPECT_TRUE(copies().empty());
}

/// A file of the present version that lacks a column has been tampered with: that is told before anything is
/// typed. A lost index loses nothing.
TEST_F(OldFile, OfThePresentVersionIsMendedOnlyWhenAsked) {
    open();
    change("DROP INDEX 引驻客户_编号");
    const auto mended = open();
    ASSERT_TRUE(mended);
    EXPECT_EQ(mended->from, mended->to);
    expectPresent();

    change("ALTER TABLE YZ_引驻客户信息 DROP COLUMN 洽谈重点; DROP TABLE YZ_区域设置");
    const auto text = refusal();
    EXPECT_NE(text.find("'YZ_引驻客户信息' 缺少列 '洽谈重点'"), std::string::npos) << text;
    EXPECT_NE(text.find("缺少表 'YZ_区域设置'"), std::string::npos) << text;
    EXPECT_TRUE(embedded::upgrade(path_, patience));
    expectPresent();
    EXPECT_FALSE(embedded::upgrade(path_, patience));
}

TEST_F(OldFile, IsBroughtUpOnceBySeatsThatOpenItAtOnce) {
    const Sqlite holder = bare(path_);
    holder.run("BEGIN IMMEDIATE");
    std::vector<pid_t> seats;
    for (const char* name : {"甲", "乙", "丙"}) seats.push_back(startSeat(path_, name, 1));
    for (const pid_t seat : seats) awaitOpen(seat, path_);
    holder.run("ROLLBACK");
    for (const pid_t seat : seats) EXPECT_EQ(exitCode(seat), 0);
    EXPECT_EQ(copies().size(), 1U);
    EXPECT_EQ(rowsOf(bare(path_), "SELECT COUNT(*) FROM YZ_引驻客户信息"), "4\n");
}

/// What happens while a seat waits for its turn to write.
struct Meanwhile {
    std::function<void()> once;

    static int waited(void* self, int count) {
        if (count == 0) static_cast<Meanwhile*>(self)->once();
        return 1;
    }
};

TEST_F(OldFile, IsLeftAloneByASeatThatComesSecond) {
    embedded::Store second(std::make_unique<Sqlite>(path_, Sqlite::Missing::isFailure, patience));
    const Sqlite first = bare(path_);
    first.run("BEGIN IMMEDIATE");
    Meanwhile meanwhile{[&] {
        first.run("ROLLBACK");
        EXPECT_TRUE(open());
    }};
    sqlite3_busy_handler(second.sqlite().handle(), Meanwhile::waited, &meanwhile);
    EXPECT_FALSE(embedded::bringUp(second, path_, embedded::Damage::isRefused));
    EXPECT_EQ(copies().size(), 1U);
    expectPresent();
}

/// How a process ends that opens the file and dies before that step; whether it came to the step at all.
bool diesBeforeStep(int step, const std::string& path) {
    const pid_t child = fork();
    if (child == 0) {
        dieBeforeStep(step);
        try {
            Connection connection;
            connection.open(fileConnection(path), patience);
        } catch (const RuntimeFailure&) {
            _exit(2);
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0) << "step " << step;
    return WIFSIGNALED(status);
}

TEST_F(OldFile, IsTheOldOneOrTheNewOneWhereverItsUpgradeIsKilled) {
    change(
        "DROP TABLE YZ_区域设置; DROP INDEX 引驻客户_编号; ALTER TABLE YZ_引驻客户信息 DROP COLUMN "
        "洽谈重点;");
    const auto asMade = bytesOf(path_);
    const auto oldShape = shapeOf(bare(path_));
    int left = 0;  // how often a killed upgrade left the old file
    int step = 1;
    for (; diesBeforeStep(step, path_); ++step) {
        for (const auto& copy : copies())
            if (copy.ends_with(".bak")) {
                EXPECT_EQ(shapeOf(bare(copy)), oldShape) << "step " << step;
                EXPECT_EQ(leadsOf(bare(copy)), lead) << "step " << step;
            }
        left += shapeOf(bare(path_)) == oldShape ? 1 : 0;
        open();
        ASSERT_NO_FATAL_FAILURE(expectPresent()) << "step " << step;
        for (const auto& other : copies()) {
            EXPECT_TRUE(other.ends_with(".bak")) << other;
            fs::remove(other);
        }
        writeBytes(path_, asMade);
    }
    EXPECT_GT(step, 20);
    EXPECT_GT(left, 10);
    expectPresent();
}

TEST(Definition, HasAVersionOfItsOwn) {
    std::uint64_t sum = 14695981039346656037U;
    for (const auto& statement : schema::definition(schema::Dialect::sqlite))
        for (const char byte : statement) sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    EXPECT_EQ(std::make_pair(schema::definitionVersion, sum),
              std::make_pair(2, std::uint64_t{16534428713356016538U}))
        << "The catalogue has changed: raise schema::definitionVersion (files of the version before are then "
           "brought up), and note both here.";
}

}  // namespace
}  // namespace desk
