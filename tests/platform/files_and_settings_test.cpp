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
    IniSettings settings{(folder / "config").string()};

    void putIni(std::string_view bytes) {
        fs::create_directories(folder / "config");
        put("config/鸿序楼台.ini", bytes);
    }
    std::string ini() { return contents(folder / "config/鸿序楼台.ini"); }
    std::string read(std::string_view key, std::string_view fallback = "?") {
        return settings.read("鸿序楼台", "DBConfig", key, fallback);
    }
    void write(std::string_view key, std::string_view value) {
        settings.write("鸿序楼台", "DBConfig", key, value);
    }
};

TEST_F(Ini, GivesBackWhatWasWritten) {
    const std::vector<std::pair<std::string, std::string>> pairs = {
        {"Svr", "(embedded)"}, {"DBname", "/srv/数据/样板 库.db"}, {"PWD", "  a=b;[c] 'q' "}, {"UID", ""}};
    for (const auto& [key, value] : pairs) write(key, value);
    for (const auto& [key, value] : pairs) EXPECT_EQ(read(key), value) << key;

    write("PWD", "neu");
    EXPECT_EQ(read("PWD"), "neu");
    EXPECT_EQ(read("Edition", "2000"), "2000");
    EXPECT_EQ(settings.read("鸿序楼台", "Window", "Svr", "none"), "none");
    EXPECT_EQ(settings.read("别的程序", "DBConfig", "Svr", "none"), "none");
}

TEST_F(Ini, KeepsAllElseInTheFile) {
    putIni("; 手工维护\n[Other]\nSvr=elsewhere\n\n[DBConfig]\nSvr=old\nUnknown=1\n\n[Last]\nx=y\n");
    write("Svr", "new");
    write("PWD", "secret");
    write("Left", "10");
    EXPECT_EQ(ini(),
              "; "
              "手工维护\n[Other]\nSvr=elsewhere\n\n[DBConfig]\nSvr=new\nUnknown=1\nPWD=secret\nLeft=10\n\n["
              "Last]\nx=y\n");
    settings.write("鸿序楼台", "New", "a", "b");
    EXPECT_TRUE(ini().ends_with("[Last]\nx=y\n[New]\na=b\n"));
}

TEST_F(Ini, IsReadableByItsOwnerOnlyAndLeavesNothingBesideIt) {
    putIni("[DBConfig]\nPWD=open\n");
    fs::permissions(folder / "config/鸿序楼台.ini", fs::perms(0644));
    write("PWD", "secret");
    EXPECT_EQ(fs::status(folder / "config/鸿序楼台.ini").permissions(), fs::perms(0600));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "config"), {}), 1);
}

TEST_F(Ini, ReadsAFileOfAnotherSystemsEditor) {
    putIni("\xEF\xBB\xBF[DBConfig]\r\nSvr = server\\one \r\nDBname=库\r\n");
    EXPECT_EQ(read("Svr"), " server\\one ");
    EXPECT_EQ(read("DBname"), "库");
    write("UID", "sa");
    EXPECT_TRUE(ini().ends_with("DBname=库\r\nUID=sa\r\n"));
}

TEST_F(Ini, ReadsWhatADamagedFileStillTells) {
    putIni("Svr=outside\n[DBConfig\nSvr=broken\n\xFF\xFE\n]]\n=\n[DBConfig]\nnoise\nSvr=first\nSvr=second");
    EXPECT_EQ(read("Svr"), "first");
    EXPECT_EQ(read("noise"), "?");
    write("Svr", "mended");
    EXPECT_EQ(read("Svr"), "mended");
    EXPECT_NE(ini().find("\xFF\xFE"), std::string::npos);
}

TEST_F(Ini, StaysALinkWhereItIsOne) {
    putIni("[DBConfig]\nSvr=eins\n");
    fs::rename(folder / "config/鸿序楼台.ini", folder / "shared.ini");
    fs::create_symlink("../shared.ini", folder / "config/鸿序楼台.ini");
    settings.write("鸿序楼台", "DBConfig", "Svr", "zwei");
    EXPECT_TRUE(fs::is_symlink(folder / "config/鸿序楼台.ini"));
    EXPECT_EQ(contents(folder / "shared.ini"), "[DBConfig]\nSvr=zwei\n");
}

TEST_F(Ini, FailsWith75WhereNothingCanBeWritten) {
    put("file", "in the way");
    IniSettings nowhere((folder / "file" / "config").string());
    EXPECT_EQ(failureOf([&] { nowhere.write("鸿序楼台", "DBConfig", "Svr", "x"); }), failure::pathAccess);
    EXPECT_EQ(nowhere.read("鸿序楼台", "DBConfig", "Svr", "none"), "none");

    // A folder of the file's name cannot be read, so it must not be taken for an empty file.
    fs::create_directories(folder / "config/鸿序楼台.ini");
    EXPECT_EQ(failureOf([&] { write("Svr", "x"); }), failure::pathAccess);
    EXPECT_TRUE(fs::is_directory(folder / "config/鸿序楼台.ini"));
}

TEST_F(Ini, RefusesWhatAnotherLineWouldBeMadeOf) {
    write("Svr", "kept");
    EXPECT_EQ(failureOf([&] { write("PWD", "a\nSvr=stolen"); }), failure::invalidCall);
    EXPECT_EQ(failureOf([&] { write("Svr=x\n", "1"); }), failure::invalidCall);
    EXPECT_EQ(read("Svr"), "kept");
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

using WrittenFiles = InAFolder;

TEST_F(WrittenFiles, AreCreatedOrEmptiedFirst) {
    SystemFiles files;
    const std::string path = (folder / "Command.Dll").string();
    EXPECT_FALSE(files.exists(path));
    files.write(path, "a longer text\r\n");
    files.write(path, "\xD7\xA2\xCF\xFA\r\n");
    EXPECT_TRUE(files.exists(path));
    EXPECT_EQ(contents(path), "\xD7\xA2\xCF\xFA\r\n");
    EXPECT_EQ(failureOf([&] { files.write(path + "/Command.Dll", "x"); }), failure::pathAccess);
    EXPECT_FALSE(files.exists(path + "/Command.Dll"));
    // A full disk shows only when the bytes go out.
    EXPECT_EQ(failureOf([&] { files.write("/dev/full", "x"); }), failure::pathAccess);
}

TEST_F(WrittenFiles, ReplaceTheOldOneWholeOrNotAtAll) {
    const std::string path = (folder / "book.xls").string();
    replaceFile(path, "first", Readers::asUsual);
    fs::permissions(path, fs::perms(0640));
    replaceFile(path, "second", Readers::asUsual);
    EXPECT_EQ(contents(path), "second");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));

    // A folder cannot be renamed over: the new file must not stay behind.
    fs::create_directory(folder / "taken");
    EXPECT_EQ(failureOf([&] { replaceFile((folder / "taken").string(), "x", Readers::asUsual); }),
              failure::pathAccess);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(WrittenFiles, ReplaceWhatALinkLeadsTo) {
    fs::create_directories(folder / "far/away");
    put("far/away/book", "first");
    fs::create_symlink("away/book", folder / "far/link");
    fs::create_symlink(folder / "far/link", folder / "link");
    replaceFile((folder / "link").string(), "second", Readers::asUsual);
    EXPECT_EQ(contents(folder / "far/away/book"), "second");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "far/link"));
    EXPECT_FALSE(fs::is_symlink(folder / "far/away/book"));

    fs::create_symlink("not/yet", folder / "nowhere");
    EXPECT_EQ(failureOf([&] { replaceFile((folder / "nowhere").string(), "x", Readers::asUsual); }),
              failure::pathAccess);
    fs::create_directory(folder / "not");
    replaceFile((folder / "nowhere").string(), "made", Readers::asUsual);
    EXPECT_EQ(contents(folder / "not/yet"), "made");

    fs::create_symlink("circle", folder / "circle");
    EXPECT_EQ(failureOf([&] { replaceFile((folder / "circle").string(), "x", Readers::asUsual); }),
              failure::pathAccess);
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
    EXPECT_GE(shown, utc);
    EXPECT_LE(shown, utc + std::chrono::minutes(1));
    ::unsetenv("TZ");
    ::tzset();
}

}  // namespace
}  // namespace desk
