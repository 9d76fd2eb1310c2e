#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/eventually.h"
#include "platform/processes.h"
#include "platform/x11/x11_programs.h"
#include "support/failures.h"

namespace desk {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class Processes : public testing::Test {
  protected:
    Processes() {
        std::string name = (fs::temp_directory_path() / "desk-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~Processes() override {
        EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
        fs::remove_all(folder);
    }

    std::string folder;
};

TEST_F(Processes, GetTheirArgumentsAsTheyStand) {
    const std::string out = folder + "/out";
    ASSERT_TRUE(startProcess("/bin/sh", {"-c", R"(printf '%s|' "$@" > "$0.new"; mv "$0.new" "$0")", out,
                                         "两 词", "$HOME; `id`", "*"}));
    ASSERT_TRUE(becomesTrue([&] { return fs::exists(out); }));
    std::string told;
    std::getline(std::ifstream(out), told);
    EXPECT_EQ(told, "两 词|$HOME; `id`|*|");
}

TEST_F(Processes, AreNoneForWhatIsNotThere) {
    for (const std::string program : {"", "/no/such/program", "/tmp", "/etc/passwd"}) {
        EXPECT_FALSE(startProcess(program, {}));
        EXPECT_EQ(outcomeOf([&] { X11Programs().startMinimised(program); }),
                  (Outcome{failure::fileNotFound, "文件未找到：" + program}));
    }
    EXPECT_FALSE(X11Programs().start("c:\\program Files\\Internet Explorer\\IEXPLORE.EXE",
                                     {"https://www.example.com"}));
}

TEST_F(Processes, AreWatchedForAsLongAsAskedAlsoWhereEndsOfChildrenAreIgnored) {
    for (const auto handler : {SIG_DFL, SIG_IGN}) {
        const auto before = std::signal(SIGCHLD, handler);
        EXPECT_TRUE(startProcess("false", {}));
        EXPECT_FALSE(startProcess("false", {}, 10s));
        EXPECT_FALSE(startProcess("/no/such/program", {}));
        EXPECT_TRUE(startProcess("true", {}, 10s));
        EXPECT_TRUE(startProcess("sh", {"-c", "(exit 7) & wait $!; test $? = 7"}, 10s)) << "it inherits that";
        std::signal(SIGCHLD, before);
    }
    EXPECT_TRUE(startProcess("sh", {"-c", "exec >&- 2>&-; sleep 2; exit 1"}, 100ms))
        << "the watch was over by then";
}

TEST_F(Processes, AreKnownToRunUntilTheyEnd) {
    const std::string program = folder + "/税控 软件";
    // It runs for as long as the file is there.
    std::ofstream(program) << "#!/bin/sh\n: >\"$0.$$\"\nwhile [ -e \"$0\" ]; do sleep 0.02; done\n";
    fs::permissions(program, fs::perms::owner_all);
    X11Programs programs;
    const auto first = programs.startMinimised(program);
    const auto second = programs.startMinimised(program);
    EXPECT_NE(first, second);
    for (const auto process : {first, second})
        EXPECT_TRUE(becomesTrue([&] { return fs::exists(program + "." + std::to_string(process)); }));
    EXPECT_TRUE(programs.isRunning(first) && programs.isRunning(second));
    EXPECT_FALSE(programs.isRunning(::getpid())) << "this one was not started so";
    fs::remove(program);
    EXPECT_TRUE(becomesTrue([&] { return !programs.isRunning(first) && !programs.isRunning(second); }));
}

TEST(OpenedForUser, IsFalseWithoutAProgramForIt) {
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", "/nowhere", 1);
    EXPECT_FALSE(X11Programs().openForUser("https://www.example.com"));
    ::setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace desk
