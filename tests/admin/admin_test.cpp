#include "admin_fixture.h"

#include <pty.h>
#include <unistd.h>

#include "db/embedded/sqlite.h"
#include "platform/settings.h"
#include "schema/definition.h"

namespace desk {
namespace {

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

TEST_F(Admin, AsksForAPasswordThatNobodySees) {
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
    EXPECT_EQ(IniSettings((folder / "config").string()).read("鸿序楼台", "DBConfig", "PWD", "?"), "third");
    EXPECT_EQ(shown.find("third"), std::string::npos) << shown;
}

}  // namespace
}  // namespace desk
