#include "session/login.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "base/failure.h"
#include "db/embedded/embedded.h"
#include "session/main_window.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// The staff of the transcripts, in a file: a database in memory is made anew by every connection.
class Login : public testing::Test {
  protected:
    Login() {
        std::remove(path.c_str());
        embedded::createDatabase(path);
        program.settings.keys["DBname"] = path;
        Connection staff;
        staff.open("Initial Catalog='" + path + "';Data Source='(embedded)'", std::chrono::seconds(5));
        const std::string given = "given ";
        std::ifstream file(TEST_FOLDER "/transcripts/staff.given");
        for (std::string line; std::getline(file, line);) staff.execute(line.substr(given.size()));
        program.app.start("");
    }
    ~Login() override { std::remove(path.c_str()); }

    FrmLogin& login() { return program.app.screens.get<FrmLogin>(); }
    void logIn(std::string_view user, std::string_view password) {
        login().TxtUser.type(user);
        login().txtPassword.type(password);
        login().cmdOK.click();
    }
    MDIForm1& main() { return program.app.screens.get<MDIForm1>(); }

    TestProgram program;
    const std::string path = testing::TempDir() + "login_" + std::to_string(::getpid()) + ".db";
};

/// The main window fails behind its menu: the rights of whoever was about to enter must not stay for the
/// next.
TEST_F(Login, TheNextUserGetsRightsOfHisOwnWhereTheMainWindowHasFailed) {
    constexpr int specialRights = 4;  // behind staff, positions and menu
    program.fault = {specialRights, failure::unspecified};
    logIn("E01", "one");
    EXPECT_EQ(program.desktop.takeMessage(), "-2147467259 " + std::string(Fault::text));
    ASSERT_EQ(program.app.screens.loaded("MDIForm1"), nullptr);

    logIn("E02", "two");
    ASSERT_TRUE(login().List1.visible());
    login().List1.doubleClick(1);
    ASSERT_NE(program.app.screens.loaded("MDIForm1"), nullptr);
    EXPECT_TRUE(main().entry("跟进状态分析")->enabled());
    EXPECT_FALSE(main().entry("客户信息登记")->enabled());
    EXPECT_EQ(main().状态栏.panel(0), "E02 周平");
}

/// Also where the first try was refused, since that one has opened the file already.
TEST_F(Login, TellsOnceThatTheFileHasBeenBroughtUp) {
    constexpr std::streamoff mark = 68;  // where the file's head says which program has made it
    std::fstream(path, std::ios::in | std::ios::out | std::ios::binary).seekp(mark) << std::string(4, '\0');
    logIn("E01", "wrong");
    logIn("E01", "one");
    ASSERT_EQ(program.desktop.notices.size(), 1U);
    EXPECT_NE(program.desktop.notices[0].find(path + ".v1.bak"), std::string::npos)
        << program.desktop.notices[0];
    std::remove((path + ".v1.bak").c_str());

    program.desktop.modalPerson = [this](Screen&) { logIn("E01", "one"); };
    main().entry("注销")->click();
    EXPECT_EQ(program.desktop.notices.size(), 1U);
}

}  // namespace
}  // namespace desk
