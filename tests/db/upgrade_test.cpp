#include <signal.h>

#include "database_file.h"
#include "db/embedded/bring_up.h"
#include "db/embedded/embedded.h"
#include "processes.h"
#include "schema/definition.h"

namespace desk {
namespace {

namespace fs = std::filesystem;
using embedded::Sqlite;

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

/// A file as the first program made it, with a lead in it.
class OldFile : public DatabaseFile {
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

    std::optional<Upgrade> open() { return opened().takeUpgrade(); }

    void expectLead(const std::string& path) {
        EXPECT_EQ(rowsOf(bare(path),
                         "SELECT ID||' '||管理处代号||' '||登记编号||' '||公司名称 FROM YZ_引驻客户信息"),
                  "1 01 2011-000001 盛远\n");
    }

    /// The file is as one that is made now, and has kept its lead.
    void expectPresent() {
        const auto made = inFolder("new.db");
        embedded::createDatabase(made);
        EXPECT_EQ(shapeOf(bare(path_)), shapeOf(bare(made)));
        EXPECT_EQ(rowsOf(bare(path_), "PRAGMA application_id"), rowsOf(bare(made), "PRAGMA application_id"));
        fs::remove(made);
        expectLead(path_);
    }
};

TEST_F(OldFile, IsBroughtUpOnceWithACopyBesideIt) {
    const auto oldShape = shapeOf(bare(path_));
    const auto upgrade = open();
    ASSERT_TRUE(upgrade);
    EXPECT_EQ(upgrade->from, 1);
    EXPECT_EQ(upgrade->to, schema::definitionVersion);
    EXPECT_NE(upgrade->told().find(upgrade->copy), std::string::npos);
    expectPresent();
    EXPECT_EQ(otherFiles(), std::vector{upgrade->copy});
    EXPECT_EQ(shapeOf(bare(upgrade->copy)), oldShape);
    expectLead(upgrade->copy);

    EXPECT_FALSE(open());
    EXPECT_EQ(otherFiles().size(), 1U);
    // A restored copy is brought up as well, and does not write over the earlier one.
    fs::copy_file(upgrade->copy, path_, fs::copy_options::overwrite_existing);
    EXPECT_NE(open().value().copy, upgrade->copy);
    EXPECT_EQ(otherFiles().size(), 2U);
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
    expectRefused("唯一");
    change("ALTER TABLE YZ_引驻客户跟进记录 RENAME COLUMN ID TO 旧");
    expectRefused("YZ_引驻客户跟进记录");
}

TEST_F(OldFile, OfANewerOrAnotherProgramIsRefused) {
    change("PRAGMA application_id=" + std::to_string(0x595A0000 + schema::definitionVersion + 1));
    expectRefused("较新的程序");
    EXPECT_NE(failureTextOf([&] { embedded::upgrade(path_, patience); }).find("较新的程序"),
              std::string::npos);
    change("PRAGMA application_id=1196444487");
    expectRefused("另一个程序");
    EXPECT_TRUE(otherFiles().empty());
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
    expectRefused("'YZ_引驻客户信息' 缺少列 '洽谈重点'");
    expectRefused("缺少表 'YZ_区域设置'");
    EXPECT_TRUE(embedded::upgrade(path_, patience));
    expectPresent();
    EXPECT_FALSE(embedded::upgrade(path_, patience));
}

TEST_F(OldFile, IsBroughtUpOnceBySeatsThatOpenItAtOnce) {
    std::vector<pid_t> seats;
    for (int i = 0; i < 3; ++i) seats.push_back(inProcess([&] { open(); }));
    for (const pid_t seat : seats) EXPECT_EQ(endOf(seat), 0);
    EXPECT_EQ(otherFiles().size(), 1U);
    expectPresent();
}

TEST_F(OldFile, IsLeftAloneByASeatThatComesSecond) {
    embedded::Store second(std::make_unique<Sqlite>(path_, Sqlite::Missing::isFailure, patience));
    std::function<void()> onceItWaits;
    sqlite3_busy_handler(
        second.sqlite().handle(),
        [](void* work, int count) {
            if (count == 0) (*static_cast<std::function<void()>*>(work))();
            return 1;
        },
        &onceItWaits);
    const Sqlite first = bare(path_);
    first.run("BEGIN IMMEDIATE");
    onceItWaits = [&] {
        first.run("ROLLBACK");
        EXPECT_TRUE(open());
    };
    EXPECT_FALSE(embedded::bringUp(second, path_, embedded::Damage::isRefused));
    EXPECT_FALSE(second.sqlite().inTransaction());
    EXPECT_EQ(otherFiles().size(), 1U);
    expectPresent();
}

TEST_F(OldFile, IsTheOldOneOrTheNewOneWhereverItsUpgradeIsKilled) {
    change(
        "DROP TABLE YZ_区域设置; DROP INDEX 引驻客户_编号; ALTER TABLE YZ_引驻客户信息 DROP COLUMN "
        "洽谈重点;");
    const auto asMade = bytesOf(path_);
    const auto oldShape = shapeOf(bare(path_));
    int left = 0;  // how often a killed upgrade left the old file
    int step = 0;
    for (int end = -SIGKILL; end == -SIGKILL;) {
        SCOPED_TRACE(++step);
        writeBytes(path_, asMade);
        end = endOf(inProcess([&] {
            dieBeforeStep(step);
            open();
        }));
        EXPECT_TRUE(end == -SIGKILL || end == 0) << end;
        for (const auto& copy : otherFiles())
            if (copy.ends_with(".bak")) {
                EXPECT_EQ(shapeOf(bare(copy)), oldShape);
                expectLead(copy);
            }
        left += shapeOf(bare(path_)) == oldShape ? 1 : 0;
        open();
        expectPresent();
        for (const auto& other : otherFiles()) {
            EXPECT_TRUE(other.ends_with(".bak")) << other;
            fs::remove(other);
        }
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(step, 20);
    EXPECT_GT(left, 10);
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
