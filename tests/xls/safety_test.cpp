#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <random>

#include "platform/xls/container.h"
#include "platform/xls/record.h"
#include "platform/xls/workbook.h"
#include "xls/fixture.h"

namespace desk {
namespace {

using Safety = WorkbookTest;

Worksheet report(const std::string& state) {
    Worksheet sheet("报表");
    for (int row = 0; row < 2000; ++row) sheet.at(row, 0).text = state + std::to_string(row);
    return sheet;
}

/// A workbook that holds one state of a report, and is to get another; both are as long as each other.
class Saving : public WorkbookTest {
  protected:
    Saving() {
        spreadsheets.create(file);
        for (const char* state : {"甲", "乙", "甲", "乙"}) spreadsheets.put(file, report(state));
        newBytes = bytesOf(file);
        spreadsheets.put(file, report("甲"));
        oldBytes = bytesOf(file);
    }
    std::vector<std::string> filesBeside() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path() != file) found.push_back(entry.path().string());
        return found;
    }

    const std::string file = path("saved.xls");
    std::string oldBytes;
    std::string newBytes;
};

/// The steps of one save, as they are asked for.
std::vector<SaveStep> stepsOfSave(const std::string& file) {
    std::vector<SaveStep> steps;
    XlsSpreadsheets watched([&](SaveStep step) {
        steps.push_back(step);
        return true;
    });
    watched.put(file, report("甲"));
    return steps;
}

TEST_F(Saving, WhoeverIsKilledLeavesTheOldFileOrTheNewOne) {
    ASSERT_TRUE(oldBytes != newBytes);
    const auto steps = stepsOfSave(file);
    ASSERT_TRUE(bytesOf(file) == oldBytes);
    ASSERT_GT(std::count(steps.begin(), steps.end(), SaveStep::write), 3);
    auto kinds = steps;
    kinds.erase(std::unique(kinds.begin(), kinds.end()), kinds.end());
    ASSERT_EQ(kinds, (std::vector<SaveStep>{SaveStep::open, SaveStep::write, SaveStep::sync, SaveStep::close,
                                            SaveStep::rename, SaveStep::syncFolder}));
    for (std::size_t last = 0; last < steps.size(); ++last) {
        const pid_t child = fork();
        if (child == 0) {
            std::size_t done = 0;
            XlsSpreadsheets doomed([&](SaveStep) {
                if (done++ == last) raise(SIGKILL);
                return true;
            });
            doomed.put(file, report("乙"));
            _exit(0);
        }
        ASSERT_GT(child, 0);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "step " << last;

        const bool renamed = steps[last] > SaveStep::rename;
        EXPECT_TRUE(bytesOf(file) == (renamed ? newBytes : oldBytes)) << "step " << last;
        const auto beside = filesBeside();
        ASSERT_EQ(beside.size(), renamed || steps[last] == SaveStep::open ? 0U : 1U) << "step " << last;
        if (steps[last] > SaveStep::write && !renamed) {
            EXPECT_TRUE(bytesOf(beside.front()) == newBytes) << "step " << last;
        }
        for (const auto& left : beside) std::filesystem::remove(left);
        spreadsheets.put(file, report("甲"));
        ASSERT_TRUE(bytesOf(file) == oldBytes);
    }
}

TEST_F(Saving, AStepThatTheMachineRefusesLeavesTheOldFileAlone) {
    const auto steps = stepsOfSave(file);
    for (std::size_t refused = 0; refused < steps.size(); ++refused) {
        std::size_t done = 0;
        XlsSpreadsheets hindered([&](SaveStep) { return done++ != refused; });
        const std::string why = failureTextOf([&] { hindered.put(file, report("乙")); });
        // A file system that cannot sync a folder has the new file all the same.
        const bool saved = steps[refused] == SaveStep::syncFolder;
        EXPECT_EQ(why.empty(), saved) << "step " << refused;
        EXPECT_TRUE(bytesOf(file) == (saved ? newBytes : oldBytes)) << "step " << refused;
        EXPECT_TRUE(filesBeside().empty()) << "step " << refused;
    }
}

TEST_F(Saving, AWorkbookBehindALinkIsWrittenWhereItLies) {
    std::filesystem::create_directory(path("elsewhere"));
    std::filesystem::rename(file, path("elsewhere/book.xls"));
    std::filesystem::create_symlink("elsewhere/book.xls", file);
    spreadsheets.put(file, report("乙"));
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_TRUE(bytesOf(path("elsewhere/book.xls")) == newBytes);
    std::filesystem::create_symlink("elsewhere/new.xls", path("new.xls"));
    spreadsheets.create(path("new.xls"));
    EXPECT_FALSE(std::filesystem::is_symlink(path("elsewhere/new.xls")));
    EXPECT_FALSE(bytesOf(path("elsewhere/new.xls")).empty());
}

TEST_F(Safety, FilesThatAreNoWorkbookAreLeftAlone) {
    Worksheet sheet("新");
    sheet.at(0, 0).text = "x";
    const auto refusedAs = [&](const std::string& name, const std::string& bytes) {
        std::ofstream(path(name), std::ios::binary) << bytes;
        const std::string why = failureTextOf([&] { spreadsheets.put(path(name), sheet); });
        EXPECT_EQ(bytesOf(path(name)), bytes) << name;
        return why;
    };
    EXPECT_EQ(refusedAs("empty.xls", ""), "文件不是 .xls 格式的工作簿");
    EXPECT_EQ(refusedAs("text.xls", "序号,名称\n1,甲\n"), "文件不是 .xls 格式的工作簿");
    EXPECT_EQ(refusedAs("zip.xls", std::string("PK\3\4", 4) + std::string(3000, 'z')),
              "文件不是 .xls 格式的工作簿");

    xls::Entry root;
    root.isFolder = true;
    EXPECT_EQ(refusedAs("other.xls", xls::writeContainer(root)), "文件不是 Excel 97-2003 格式的工作簿");
    const std::string stream = xls::emptyWorkbook();
    const std::size_t behindStart = xls::recordAt(stream, 0).end();
    std::string encrypted = stream;
    encrypted.insert(behindStart, xls::Bytes().record(xls::id::filePass, std::string(54, '\1')).get());
    root.children = {{"Workbook", false, {encrypted}, {}, {}}};
    EXPECT_EQ(refusedAs("encrypted.xls", xls::writeContainer(root)), "文件已加密，不能写入");

    std::string biff5 = stream;
    biff5[5] = 5;
    for (const char* name : {"Book", "Workbook"}) {
        root.children = {{name, false, {biff5}, {}, {}}};
        EXPECT_EQ(refusedAs("biff5.xls", xls::writeContainer(root)), "文件不是 Excel 97-2003 格式的工作簿");
    }
    EXPECT_NE(failureTextOf([&] { spreadsheets.put(path("missing.xls"), sheet); }), "");
}

TEST_F(Safety, DamageAnywhereIsRefusedOrHarmless) {
    Worksheet filled("数据");
    for (int row = 0; row < 40; ++row)
        filled.at(row, 0) = {"文字" + std::to_string(row), CellLook{.fontSize = 9.0}};
    const std::string stream = join(xls::withSheet(xls::emptyWorkbook(), filled), "");
    Worksheet sheet("新");
    sheet.at(0, 0).text = "x";

    int refused = 0;
    const auto tryOn = [&](const std::string& bytes) {
        if (!failureTextOf([&] { xls::withSheet(bytes, sheet); }).empty()) ++refused;
    };
    for (std::size_t length = 0; length < stream.size(); length += 7) tryOn(stream.substr(0, length));
    EXPECT_EQ(refused, static_cast<int>((stream.size() + 6) / 7));

    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        std::string bytes = stream;
        for (int change = 0; change < 3; ++change)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        tryOn(bytes);
    }

    xls::Entry root;
    root.isFolder = true;
    root.children = {{"Workbook", false, {stream}, {}, {}},
                     {"目录", true, {}, {{"a", false, {"b"}, {}, {}}}, {}}};
    const std::string file = xls::writeContainer(root);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes = file;
        // Where the container keeps its tables: at its head, and behind the contents.
        for (int change = 0; change < 3; ++change) {
            const std::size_t at = random() % 2 == 0 ? random() % 512 : bytes.size() - 1 - random() % 2048;
            bytes[at] = static_cast<char>(random());
        }
        if (i % 10 == 0) bytes.resize(random() % bytes.size());
        failureTextOf([&] { xls::fileWithSheet(bytes, sheet); });
    }
}

TEST_F(Safety, EverythingElseInTheFileStays) {
    xls::Entry root;
    root.isFolder = true;
    root.classId = {1, 2, 3};
    xls::Entry macros{"_VBA_PROJECT_CUR", true, {}, {}, {}};
    macros.classId = {9, 8, 7};
    macros.children = {{"PROJECT", false, {std::string(9000, 'p')}, {}, {}}, {"dir", false, {"d"}, {}, {}}};
    root.children = {{"Workbook", false, {xls::emptyWorkbook()}, {}, {}},
                     {"\005SummaryInformation", false, {"summary"}, {}, {}},
                     macros};
    Worksheet sheet("新");
    sheet.at(0, 0).text = "x";
    const xls::Entry after = xls::readContainer(xls::fileWithSheet(xls::writeContainer(root), sheet));
    ASSERT_EQ(after.children.size(), 3U);
    EXPECT_EQ(after.classId, root.classId);
    for (const auto& entry : after.children) {
        if (entry.name == "\005SummaryInformation") {
            EXPECT_EQ(entry.parts.front(), "summary");
        }
        if (entry.name != "_VBA_PROJECT_CUR") continue;
        EXPECT_EQ(entry.classId, macros.classId);
        ASSERT_EQ(entry.children.size(), 2U);
        for (const auto& part : entry.children)
            EXPECT_EQ(part.parts.front(), part.name == "PROJECT" ? std::string(9000, 'p') : "d");
    }
}

}  // namespace
}  // namespace desk
