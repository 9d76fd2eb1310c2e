#include "admin_fixture.h"

#include <pty.h>
#include <unistd.h>

#include <fstream>

#include "db/embedded/sqlite.h"
#include "platform/settings.h"
#include "schema/definition.h"

namespace desk {
namespace {

TEST_F(Admin, TellsWhatIsWrongWithACommandLine) {
    for (const char* words :
         {"", "destroy x.db", "create", "create a b", "create --force x.db", "ddl oracle",
          "sample x.db --leads", "sample x.db --leads many", "sample x.db --leads 5 --leads 6",
          "sample x.db --staff 1", "sample x.db --today 2011-2-30", "settings --file a --server b",
          "settings --server b", "upgrade", "backup x.db", "create --server b", "create x.db --user sa",
          "create x.db --server b --database c", "check x.db"}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.code, 2) << words;
        EXPECT_TRUE(outcome.tells("错误：")) << words;
    }
    EXPECT_EQ(files(), 0U);
    const Outcome help = run("--help");
    EXPECT_EQ(help.code, 0);
    for (const char* command : {"create FILE", "ddl sqlite", "sample FILE", "logins FILE", "settings --file",
                                "upgrade FILE", "backup FILE TO", "check"})
        EXPECT_TRUE(help.tells(command)) << command;
}

TEST_F(Admin, NeverOverwritesAFile) {
    EXPECT_EQ(run("create empty.db").code, 0);
    const auto made = fs::file_size(folder / "empty.db");
    for (const char* words : {"create empty.db", "sample empty.db"}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.tells("已经存在"));
    }
    EXPECT_EQ(fs::file_size(folder / "empty.db"), made);
    EXPECT_EQ(files(), 1U);
}

TEST_F(Admin, MakesASampleWhoseLoginsItPrints) {
    const Outcome made = run("sample 样板.db --leads 60 --units 40 --staff 20 --today=2011-03-05");
    EXPECT_EQ(made.code, 0) << made.output;
    EXPECT_TRUE(made.tells("YZ_引驻客户信息 60 行"));
    // The program that prints its invoices is the one beside the tool.
    std::ifstream file(folder / "样板.db", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    EXPECT_NE(bytes.find(fs::path(ADMIN_PROGRAM).parent_path().string() + "/tax-program"), std::string::npos);
    const Outcome logins = run("logins 样板.db");
    EXPECT_EQ(logins.code, 0) << logins.output;
    EXPECT_TRUE(logins.tells("1002    hx1002"));
    EXPECT_TRUE(logins.tells("招商部 招商部经理(主要)"));
    EXPECT_TRUE(logins.tells("鸿序物业总部 副总经理(兼职)："));
    EXPECT_EQ(files(), 1U);
}

TEST_F(Admin, LeavesNothingBehindWhereItFails) {
    std::ofstream(folder / "file") << "in the way";
    EXPECT_EQ(run("create file/x.db").code, 1);
    EXPECT_EQ(run("sample file/x.db --leads 0 --units 0").code, 1);
    EXPECT_EQ(run("logins nowhere.db").code, 1);
    EXPECT_EQ(run("logins file").code, 1);
    EXPECT_EQ(files(), 1U);
}

TEST_F(Admin, UpgradesAndBacksUp) {
    ASSERT_EQ(run("create a.db").code, 0);
    EXPECT_TRUE(run("upgrade a.db").tells("无须升级"));
    EXPECT_EQ(run("backup a.db b.db").code, 0);
    EXPECT_TRUE(run("backup a.db b.db").tells("已经存在"));
    EXPECT_EQ(run("backup b.db c.db").code, 0);
    EXPECT_EQ(run("upgrade nowhere.db").code, 1);
    EXPECT_EQ(files(), 3U);

    // Without a mark in its head a file is one of the first program.
    std::fstream(folder / "a.db", std::ios::in | std::ios::out | std::ios::binary).seekp(68)
        << std::string(4, 0);
    const Outcome upgraded = run("upgrade a.db");
    EXPECT_EQ(upgraded.code, 0);
    EXPECT_TRUE(upgraded.tells("a.db.v1.bak")) << upgraded.output;
    EXPECT_TRUE(fs::exists(folder / "a.db.v1.bak"));
    EXPECT_TRUE(run("upgrade a.db").tells("无须升级"));
}

TEST_F(Admin, RunsAScriptWholeOrNotAtAll) {
    ASSERT_EQ(run("create a.db").code, 0);
    EXPECT_TRUE(run("logins a.db").code == 0 && !run("logins a.db").tells("1001"));
    std::ofstream(folder / "wrong.sql")
        << "-- 员工\n\nInsert Into 员工档案 (工号,姓名) Values ('1001','甲')\nDelete From 无\n";
    const Outcome refused = run("run a.db wrong.sql");
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(refused.tells("第 4 行")) << refused.output;
    EXPECT_EQ(run("run a.db nowhere.sql").code, 1);

    // The first steps that come with the program make one person who can log in and use the menus.
    const Outcome done = run("run a.db '" FIRST_STEPS "'");
    EXPECT_EQ(done.code, 0) << done.output;
    const Outcome logins = run("logins a.db");
    for (const char* told : {"1001", "please-change", "招商主管", "客户信息登记"})
        EXPECT_TRUE(logins.tells(told)) << told << "\n" << logins.output;
}

TEST_F(Admin, PrintsTheDefinitionForBothEngines) {
    for (const char* engine : {"sqlite", "sqlserver"}) {
        const Outcome outcome = run(std::string("ddl ") + engine);
        EXPECT_EQ(outcome.code, 0);
        EXPECT_TRUE(outcome.tells("YZ_引驻客户信息"));
        EXPECT_TRUE(outcome.tells("报销附件"));
    }
}

TEST_F(Admin, TellsWhichColumnsOfAFileAreOfAnotherKind) {
    ASSERT_EQ(run("create a.db").code, 0);
    ASSERT_EQ(run("settings --folder config --file a.db").code, 0);
    EXPECT_TRUE(run("check --folder config").tells("可以使用"));
    const auto remake = [&](std::string_view name, std::string_view wanted, std::string_view other) {
        auto statement = schema::tableStatement(schema::Dialect::sqlite, *schema::table(name));
        statement.replace(statement.find(wanted), wanted.size(), other);
        const embedded::Sqlite file((folder / "a.db").string(), embedded::Sqlite::Missing::isFailure,
                                    std::chrono::seconds(1));
        file.run("DROP TABLE " + std::string(name));
        file.run(statement);
    };
    remake("设置管理处", "\"GYD_DH\" TEXT COLLATE desk_zh NOT NULL",
           "\"GYD_DH\" INTEGER,多出 TEXT NOT NULL,另有 TEXT NOT NULL DEFAULT '',\"别的\" TEXT");
    remake("YZ_意向书信息", " GENERATED ALWAYS AS (\"ID\") VIRTUAL", "");
    remake("YZ_意向书审批情况", " PRIMARY KEY AUTOINCREMENT", "");
    remake("YZ_区域设置", "\"说明\" TEXT", "\"说明\" TEXT NOT NULL");
    const Outcome told = run("check --folder config");
    EXPECT_EQ(told.code, 1);
    for (const char* line :
         {"表 设置管理处 的列 GYD_DH 是 INTEGER，应为 TEXT", "表 设置管理处 的列 多出 本程序没有这一列",
          "表 YZ_意向书信息 的列 意向书ID 应由数据库计算", "表 YZ_意向书审批情况 的列 ID 没有自动编号",
          "表 YZ_区域设置 的列 说明 不能为空", "5 处不符"})
        EXPECT_TRUE(told.tells(line)) << line << "\n" << told.output;
}

TEST_F(Admin, WritesSettingsThatTheProgramReads) {
    ASSERT_EQ(run("create house.db").code, 0);
    const Outcome written = run("settings --folder config --file house.db");
    EXPECT_EQ(written.code, 0) << written.output;
    const IniSettings settings((folder / "config").string());
    const auto read = [&](const char* key) { return settings.read("鸿序楼台", "DBConfig", key, "?"); };
    EXPECT_EQ(read("Svr"), "(embedded)");
    EXPECT_EQ(read("DBname"), fs::canonical(folder / "house.db").string());
    EXPECT_EQ(read("Edition"), "2000");

    EXPECT_EQ(run("settings --folder config --server one --database house --user sa --password geheim").code,
              0);
    EXPECT_EQ(read("Svr"), "one");
    EXPECT_EQ(read("PWD"), "geheim");
    const Outcome shown = run("settings --folder config");
    EXPECT_TRUE(shown.tells("Svr=one"));
    EXPECT_FALSE(shown.tells("geheim"));

    EXPECT_EQ(run("settings --folder config --file nowhere.db").code, 1);
    EXPECT_EQ(read("Svr"), "one");
}

TEST_F(Admin, TakesAPasswordThatNobodyElseSees) {
    const std::string words = "settings --folder config --server one --database house --user sa";
    const IniSettings settings((folder / "config").string());
    const auto kept = [&] { return settings.read("鸿序楼台", "DBConfig", "PWD", "?"); };
    EXPECT_EQ(run(words, "TENANT_DESK_PASSWORD='密 码;1'").code, 0);
    EXPECT_EQ(kept(), "密 码;1");
    EXPECT_EQ(run(words + " --password -", "printf 'second\\r\\nline\\n' |").code, 0);
    EXPECT_EQ(kept(), "second");
    EXPECT_EQ(run("settings --folder config --server one --database house", "TENANT_DESK_PASSWORD=x").code,
              0);
    EXPECT_EQ(kept(), "");

    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        ::unsetenv("TENANT_DESK_PASSWORD");
        const std::string folders = (folder / "config").string();
        ::execl(ADMIN_PROGRAM, ADMIN_PROGRAM, "settings", "--folder", folders.c_str(), "--server", "one",
                "--database", "house", "--user", "sa", nullptr);
        ::_exit(9);
    }
    std::string shown;
    bool answered = false;
    for (char c = 0; ::read(terminal, &c, 1) == 1;) {
        shown += c;
        if (answered || !shown.ends_with("用户 sa 的密码：")) continue;
        answered = ::write(terminal, "third\n", 6) == 6;
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(terminal);
    EXPECT_EQ(WEXITSTATUS(status), 0) << shown;
    EXPECT_EQ(kept(), "third");
    EXPECT_EQ(shown.find("third"), std::string::npos) << shown;
}

}  // namespace
}  // namespace desk
