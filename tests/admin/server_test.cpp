#include "wire/server/server.h"

#include "admin_fixture.h"

namespace desk {
namespace {

/// The tool on a database of a server, which is in the tool's folder.
class AdminOnAServer : public Admin {
  protected:
    std::string database(const std::string& name) const {
        return " --server " + server.dataSource() + " --database " + name + " --user sa --password Secret";
    }
    Outcome checked(const std::string& settings) {
        EXPECT_EQ(run("settings --folder config" + settings).code, 0);
        return run("check --folder config");
    }

    wire::Server server{folder.string()};
};

TEST_F(AdminOnAServer, MakesAnEmptyDatabaseAndRunsScriptsOnIt) {
    server.createEmpty("office");
    EXPECT_TRUE(checked(database("office")).tells("缺少表 YZ_引驻客户信息"));
    const Outcome made = run("create" + database("office"));
    EXPECT_EQ(made.code, 0) << made.output;
    EXPECT_TRUE(made.tells("office"));
    const Outcome again = run("create" + database("office"));
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.tells("已存在")) << again.output;

    const Outcome done = run("run '" FIRST_STEPS "'" + database("office"));
    EXPECT_EQ(done.code, 0) << done.output;
    const Outcome logins = run("logins" + database("office"));
    for (const char* told : {"1001", "please-change", "招商主管"})
        EXPECT_TRUE(logins.tells(told)) << told << "\n" << logins.output;
    EXPECT_TRUE(checked(database("office")).tells("可以使用"));
}

TEST_F(AdminOnAServer, MakesTheSampleThatItMakesInAFile) {
    server.createEmpty("office");
    const std::string size = " --leads 30 --units 40 --staff 20 --today 2011-03-05";
    const Outcome made = run("sample" + database("office") + size);
    EXPECT_EQ(made.code, 0) << made.output;
    EXPECT_TRUE(made.tells("YZ_引驻客户信息 30 行"));
    ASSERT_EQ(run("sample file.db" + size).code, 0);
    const Outcome logins = run("logins" + database("office"));
    EXPECT_TRUE(logins.tells("1002    hx1002"));
    EXPECT_EQ(logins.output, run("logins file.db").output);
}

TEST_F(AdminOnAServer, TellsInPlainWordsWhatIsWrongWithTheSettings) {
    EXPECT_TRUE(run("check --folder nowhere").tells("还没有设置数据库"));
    server.createDatabase("office");
    const Outcome good = checked(database("office"));
    EXPECT_EQ(good.code, 0) << good.output;
    EXPECT_FALSE(good.tells("Secret"));
    const Outcome login = checked(" --server " + server.dataSource() + " --database office --user sa");
    EXPECT_EQ(login.code, 1);
    EXPECT_TRUE(login.tells("用户 'sa' 登录失败。")) << login.output;
    EXPECT_TRUE(checked(database("别处")).tells("无法打开登录所请求的数据库"));
    const Outcome gone = checked(" --server 127.0.0.1,1 --database office --user sa --password Secret");
    EXPECT_EQ(gone.code, 1);
    EXPECT_TRUE(gone.tells("网络不通")) << gone.output;

    server.createEmpty("half");
    const Outcome half = checked(database("half"));
    EXPECT_EQ(half.code, 1);
    EXPECT_TRUE(half.tells("缺少表 设置管理处")) << half.output;
    EXPECT_TRUE(half.tells(std::to_string(schema::tables().size()) + " 处不符"));
}

}  // namespace
}  // namespace desk
