#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/replaced_file.h"
#include "platform/settings.h"
#include "support/cases.h"
#include "support/failures.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder of the test's own, gone when the test ends.
class InAFolder : public testing::Test {
  protected:
    InAFolder() {
        std::string name = (fs::temp_directory_path() / "desk-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~InAFolder() override { fs::remove_all(folder); }

    void put(const std::string& name, std::string_view bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }

    fs::path folder;
};

class Ini : public InAFolder {
  protected:
    Ini() { fs::create_directory(folder / "config"); }

    std::string read(std::string_view key) { return settings.read("鸿序楼台", "DBConfig", key, "?"); }
    void write(std::string_view key, std::string_view value) {
        settings.write("鸿序楼台", "DBConfig", key, value);
    }

    IniSettings settings{(folder / "config").string()};
    fs::path file = folder / "config/鸿序楼台.ini";
};

TEST_F(Ini, GivesBackWhatWasWritten) {
    fs::remove(folder / "config");
    const std::vector<std::pair<std::string, std::string>> pairs = {
        {"Svr", "(embedded)"}, {"DBname", "/srv/数据/样板 库.db"}, {"PWD", "  a=b;[c] 'q' "}, {"UID", ""}};
    for (const auto& [key, value] : pairs) write(key, value);
    for (const auto& [key, value] : pairs) EXPECT_EQ(read(key), value) << key;
    EXPECT_EQ(read("Edition"), "?");
    EXPECT_EQ(settings.read("鸿序楼台", "Window", "Svr", "none"), "none");
    EXPECT_EQ(settings.read("别的程序", "DBConfig", "Svr", "none"), "none");
    // What another line would be made of is refused.
    EXPECT_EQ(failureOf([&] { write("PWD", "a\nSvr=stolen"); }), failure::invalidCall);
    EXPECT_EQ(failureOf([&] { write("Svr=x\n", "1"); }), failure::invalidCall);
    EXPECT_EQ(read("Svr"), "(embedded)");
}

TEST_F(Ini, ReadsWhatIsThereAndKeepsAllElse) {
    for (const auto& [where, fields] : casesIn("ini_files.txt")) {
        put("config/鸿序楼台.ini", fields[0]);
        EXPECT_EQ(read("Svr"), fields[1]) << where;
        write("Svr", "new");
        EXPECT_EQ(contents(file), fields[2]) << where;
    }
}

TEST_F(Ini, IsReadableByItsOwnerOnlyAndStaysALinkWhereItIsOne) {
    put("shared.ini", "[DBConfig]\nPWD=open\n");
    fs::permissions(folder / "shared.ini", fs::perms(0644));
    fs::create_symlink("../shared.ini", file);
    write("PWD", "secret");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(contents(folder / "shared.ini"), "[DBConfig]\nPWD=secret\n");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
}

TEST_F(Ini, FailsWith75WhereNothingCanBeWritten) {
    put("file", "in the way");
    IniSettings nowhere((folder / "file" / "config").string());
    EXPECT_EQ(failureOf([&] { nowhere.write("鸿序楼台", "DBConfig", "Svr", "x"); }), failure::pathAccess);
    EXPECT_EQ(nowhere.read("鸿序楼台", "DBConfig", "Svr", "none"), "none");
    // A folder of the file's name cannot be read, so it must not be taken for an empty file.
    fs::create_directory(file);
    EXPECT_EQ(failureOf([&] { write("Svr", "x"); }), failure::pathAccess);
    EXPECT_TRUE(fs::is_directory(file));
}

TEST(UserFolder, FollowsTheConfigurationFolderOfTheDesktop) {
    ::setenv("XDG_CONFIG_HOME", "/somewhere/config", 1);
    EXPECT_EQ(IniSettings::userFolder(), "/somewhere/config");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    ::setenv("HOME", "/home/anna", 1);
    EXPECT_EQ(IniSettings::userFolder(), "/home/anna/.config");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(IniSettings::userFolder(), "/home/anna/.config");
}

class WrittenFiles : public InAFolder {
  protected:
    long failureOfReplacing(const std::string& name) {
        return failureOf([&] { replaceFile((folder / name).string(), "new", Readers::asUsual); });
    }
};

TEST_F(WrittenFiles, AreCreatedOrEmptiedFirst) {
    SystemFiles files;
    const std::string path = (folder / "Command.Dll").string();
    EXPECT_FALSE(files.exists(path));
    for (const auto* text : {"a longer text\r\n", "\xD7\xA2\xCF\xFA\r\n"}) {
        files.write(path, text);
        EXPECT_EQ(contents(path), text);
    }
    EXPECT_TRUE(files.exists(path));
    // A full disk shows only when the bytes go out.
    for (const auto& nowhere : {path + "/Command.Dll", std::string("/dev/full")})
        EXPECT_EQ(failureOf([&] { files.write(nowhere, "x"); }), failure::pathAccess);
}

TEST_F(WrittenFiles, ReplaceTheOldOneWholeOrNotAtAll) {
    put("book.xls", "old");
    fs::permissions(folder / "book.xls", fs::perms(0640));
    EXPECT_EQ(failureOfReplacing("book.xls"), 0);
    EXPECT_EQ(contents(folder / "book.xls"), "new");
    EXPECT_EQ(fs::status(folder / "book.xls").permissions(), fs::perms(0640));
    // A folder cannot be renamed over: the new file must not stay behind.
    fs::create_directory(folder / "taken");
    EXPECT_EQ(failureOfReplacing("taken"), failure::pathAccess);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(WrittenFiles, ReplaceWhatALinkLeadsTo) {
    fs::create_directories(folder / "far/away");
    put("far/away/book", "old");
    fs::create_symlink("away/book", folder / "far/link");
    fs::create_symlink(folder / "far/link", folder / "link");
    EXPECT_EQ(failureOfReplacing("link"), 0);
    EXPECT_EQ(contents(folder / "far/away/book"), "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link") && fs::is_symlink(folder / "far/link"));
    EXPECT_FALSE(fs::is_symlink(folder / "far/away/book"));

    fs::create_symlink("not/yet", folder / "nowhere");
    EXPECT_EQ(failureOfReplacing("nowhere"), failure::pathAccess);
    fs::create_directory(folder / "not");
    EXPECT_EQ(failureOfReplacing("nowhere"), 0);
    EXPECT_EQ(contents(folder / "not/yet"), "new");
    fs::create_symlink("circle", folder / "circle");
    EXPECT_EQ(failureOfReplacing("circle"), failure::pathAccess);
}

TEST(ProgramDirectory, IsTheExecutablesUnlessSaidOtherwise) {
    ::unsetenv("TENANT_DESK_HOME");
    EXPECT_EQ(SystemFiles().programDirectory(), fs::read_symlink("/proc/self/exe").parent_path().string());
    ::setenv("TENANT_DESK_HOME", "/opt/desk/", 1);
    EXPECT_EQ(SystemFiles().programDirectory(), "/opt/desk");
    ::unsetenv("TENANT_DESK_HOME");
}

TEST(SystemClockTest, TellsLocalTime) {
    ::setenv("TZ", "UTC-8", 1);  // eight hours before Greenwich, as in Shanghai
    ::tzset();
    const auto utc = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const DateTime now = SystemClock().now();
    const auto shown = std::chrono::sys_days(now.day) + now.time - std::chrono::hours(8);
    EXPECT_TRUE(utc <= shown && shown <= utc + std::chrono::minutes(1));
    ::unsetenv("TZ");
    ::tzset();
}

}  // namespace
}  // namespace desk
