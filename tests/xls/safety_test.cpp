#include <csignal>
#include <random>
#include <thread>

#include <sys/wait.h>

#include "platform/xls/container.h"
#include "platform/xls/record.h"
#include "platform/xls/workbook.h"
#include "xls/fixture.h"

namespace desk {
namespace {

using Safety = WorkbookTest;

pid_t start(const std::string& program, const std::string& file) {
    const pid_t child = fork();
    if (child == 0) {
        execl(program.c_str(), program.c_str(), file.c_str(), nullptr);
        _exit(127);
    }
    return child;
}

TEST_F(Safety, WhoeverIsKilledWhileSavingLeavesTheOldFileOrTheNewOne) {
    const std::string file = path("killed.xls");
    spreadsheets.create(file);
    const auto saved = [&](const char* times) {
        run(std::string(SAVER_PROGRAM) + " '" + file + "' " + times);
        return bytesOf(file);
    };
    saved("4");  // all texts of both states are in the file now
    const std::string first = saved("1");
    const std::string second = saved("2");
    ASSERT_NE(first, second);
    std::mt19937 random(20110305);
    std::uniform_int_distribution<int> delay(0, 20000);
    int changes = 0;
    std::string last = second;
    for (int i = 0; i < 200; ++i) {
        const pid_t child = start(SAVER_PROGRAM, file);
        ASSERT_GT(child, 0);
        std::this_thread::sleep_for(std::chrono::microseconds(4000 + delay(random)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string now = bytesOf(file);
        ASSERT_TRUE(now == first || now == second) << "after kill " << i;
        changes += now != last ? 1 : 0;
        last = now;
    }
    EXPECT_GT(changes, 0);
    EXPECT_EQ(linesOf(readBack(file), "cell").size(), 2000U);
}

TEST_F(Safety, FilesThatAreNoWorkbookAreLeftAlone) {
    Worksheet sheet("新");
    sheet.at(0, 0).text = "x";
    const auto refusedAs = [&](const std::string& name, const std::string& bytes) {
        std::ofstream(path(name), std::ios::binary) << bytes;
        const std::string why = refusal([&] { spreadsheets.put(path(name), sheet); });
        EXPECT_EQ(bytesOf(path(name)), bytes) << name;
        return why;
    };
    EXPECT_EQ(refusedAs("empty.xls", ""), "文件不是 .xls 格式的工作簿");
    EXPECT_EQ(refusedAs("text.xls", "序号,名称\n1,甲\n"), "文件不是 .xls 格式的工作簿");
    EXPECT_EQ(refusedAs("zip.xls", std::string("PK\3\4", 4) + std::string(3000, 'z')),
              "文件不是 .xls 格式的工作簿");

    xls::Entry root;
    root.isFolder = true;
    root.children.push_back({"Book", false, "BIFF5", {}, {}});
    EXPECT_EQ(refusedAs("old.xls", xls::writeContainer(root)), "文件不是 Excel 97-2003 格式的工作簿");

    const std::string stream = xls::emptyWorkbook();
    const std::size_t behindStart = xls::recordAt(stream, 0).end();
    std::string encrypted = stream;
    encrypted.insert(behindStart, xls::Bytes().record(xls::id::filePass, std::string(54, '\1')).get());
    root.children = {{"Workbook", false, encrypted, {}, {}}};
    EXPECT_EQ(refusedAs("encrypted.xls", xls::writeContainer(root)), "文件已加密，不能写入");

    std::string biff5 = stream;
    biff5[5] = 5;
    root.children = {{"Workbook", false, biff5, {}, {}}};
    EXPECT_EQ(refusedAs("biff5.xls", xls::writeContainer(root)), "文件不是 Excel 97-2003 格式的工作簿");
    EXPECT_NE(refusal([&] { spreadsheets.put(path("missing.xls"), sheet); }), "");
}

TEST_F(Safety, DamageAnywhereIsRefusedOrHarmless) {
    Worksheet filled("数据");
    for (int row = 0; row < 40; ++row)
        filled.at(row, 0) = {"文字" + std::to_string(row), CellLook{.fontSize = 9.0}};
    const std::string stream = xls::withSheet(xls::emptyWorkbook(), filled);
    Worksheet sheet("新");
    sheet.at(0, 0).text = "x";

    int refused = 0;
    const auto tryOn = [&](const std::string& bytes) {
        if (!refusal([&] { xls::withSheet(bytes, sheet); }).empty()) ++refused;
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
    root.children = {{"Workbook", false, stream, {}, {}},
                     {"目录", true, {}, {{"a", false, "b", {}, {}}}, {}}};
    const std::string file = xls::writeContainer(root);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes = file;
        // Where the container keeps its tables: at its head, and behind the contents.
        for (int change = 0; change < 3; ++change) {
            const std::size_t at = random() % 2 == 0 ? random() % 512 : bytes.size() - 1 - random() % 2048;
            bytes[at] = static_cast<char>(random());
        }
        if (i % 10 == 0) bytes.resize(random() % bytes.size());
        refusal([&] { xls::fileWithSheet(bytes, sheet); });
    }
}

TEST_F(Safety, EverythingElseInTheFileStays) {
    xls::Entry root;
    root.isFolder = true;
    root.classId = {1, 2, 3};
    xls::Entry macros{"_VBA_PROJECT_CUR", true, {}, {}, {}};
    macros.classId = {9, 8, 7};
    macros.children = {{"PROJECT", false, std::string(9000, 'p'), {}, {}}, {"dir", false, "d", {}, {}}};
    root.children = {{"Workbook", false, xls::emptyWorkbook(), {}, {}},
                     {"\005SummaryInformation", false, "summary", {}, {}},
                     macros};
    Worksheet sheet("新");
    sheet.at(0, 0).text = "x";
    const xls::Entry after = xls::readContainer(xls::fileWithSheet(xls::writeContainer(root), sheet));
    ASSERT_EQ(after.children.size(), 3U);
    EXPECT_EQ(after.classId, root.classId);
    for (const auto& entry : after.children) {
        if (entry.name == "\005SummaryInformation") {
            EXPECT_EQ(entry.bytes, "summary");
        }
        if (entry.name != "_VBA_PROJECT_CUR") continue;
        EXPECT_EQ(entry.classId, macros.classId);
        ASSERT_EQ(entry.children.size(), 2U);
        for (const auto& part : entry.children)
            EXPECT_EQ(part.bytes, part.name == "PROJECT" ? std::string(9000, 'p') : "d");
    }
}

}  // namespace
}  // namespace desk
