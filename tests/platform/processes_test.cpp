#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/eventually.h"
#include "platform/processes.h"
#include "platform/x11/x11_programs.h"
#include "support/failures.h"

namespace desk {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// The lines of a file that another process writes, once there are `count` of them.
std::vector<std::string> awaitLines(const fs::path& path, std::size_t count) {
    std::vector<std::string> lines;
    for (int i = 0; i < 500 && lines.size() < count; ++i) {
        std::this_thread::sleep_for(20ms);
        lines.clear();
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);) lines.push_back(line);
    }
    return lines;
}

TEST(StartedProcess, GetsItsArgumentsAsTheyStandAndLeavesNoZombie) {
    std::string folder = (fs::temp_directory_path() / "desk-XXXXXX").string();
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    const std::string out = folder + "/out";

    ASSERT_TRUE(
        startProcess("/bin/sh", {"-c", R"(printf '%s\n' "$@" > "$0")", out, "两 词", "$HOME; `id`", "*"}));
    EXPECT_EQ(awaitLines(out, 3), (std::vector<std::string>{"两 词", "$HOME; `id`", "*"}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
    fs::remove_all(folder);
}

TEST(StartedProcess, IsFalseForWhatIsNotThere) {
    EXPECT_FALSE(startProcess("", {}));
    EXPECT_FALSE(startProcess("/no/such/program", {}));
    EXPECT_FALSE(startProcess("/tmp", {}));
    EXPECT_FALSE(X11Programs().start("c:\\program Files\\Internet Explorer\\IEXPLORE.EXE",
                                     {"https://www.example.com"}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
}

TEST(StartedProcess, IsWatchedForAsLongAsAsked) {
    EXPECT_TRUE(startProcess("false", {}));
    EXPECT_FALSE(startProcess("false", {}, 10s));
    EXPECT_TRUE(startProcess("true", {}, 10s));
    EXPECT_TRUE(startProcess("sh", {"-c", "exec >&- 2>&-; sleep 2; exit 1"}, 100ms))
        << "the watch was over by then";
}

TEST(StartedProcess, IsWatchedAlsoWhereEndsOfChildrenAreIgnored) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    EXPECT_FALSE(startProcess("false", {}, 10s));
    EXPECT_FALSE(startProcess("/no/such/program", {}));
    EXPECT_TRUE(startProcess("true", {}, 10s));
    EXPECT_TRUE(startProcess("sh", {"-c", "(exit 7) & wait $!; test $? = 7"}, 10s)) << "it inherits that";
    std::signal(SIGCHLD, before);
}

TEST(ProgramStartedMinimised, IsKnownToRunUntilItEnds) {
    std::string folder = (fs::temp_directory_path() / "desk-XXXXXX").string();
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
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
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
    fs::remove_all(folder);
}

TEST(ProgramStartedMinimised, FailsWith53WhenItCannotBe) {
    for (const std::string program : {"", "/no/such/program", "/tmp", "/etc/passwd"})
        EXPECT_EQ(outcomeOf([&] { X11Programs().startMinimised(program); }),
                  (Outcome{failure::fileNotFound, "文件未找到：" + program}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
}

TEST(OpenedForUser, IsFalseWithoutAProgramForIt) {
    const std::string path = std::getenv("PATH");
    ::setenv("PATH", "/nowhere", 1);
    EXPECT_FALSE(X11Programs().openForUser("https://www.example.com"));
    ::setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace desk
