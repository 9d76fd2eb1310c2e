#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "platform/xls/xls_spreadsheets.h"
#include "support/failures.h"

namespace desk {

/// Workbooks in a folder of the test's own, and other programs that look at them.
class WorkbookTest : public testing::Test {
  protected:
    WorkbookTest() { std::filesystem::create_directories(folder); }
    ~WorkbookTest() override { std::filesystem::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    static std::string bytesOf(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    /// What the command prints, by line; its failure fails the test.
    static std::vector<std::string> run(const std::string& command) {
        std::string output;
        const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"),
                                                         [](FILE*) { return 0; });
        std::array<char, 4096> part;
        while (const auto got = fread(part.data(), 1, part.size(), pipe.get()))
            output.append(part.data(), got);
        EXPECT_EQ(pclose(pipe.get()), 0) << command;
        if (output.ends_with('\n')) output.pop_back();
        return split(output, '\n');
    }

    /// The workbook as xlrd sees it.
    static std::vector<std::string> readBack(const std::string& file) {
        return run("/usr/bin/python3 " TEST_FOLDER "/../xls/read_back.py '" + file + "'");
    }
    static std::vector<std::string> linesOf(const std::vector<std::string>& all, const std::string& kind) {
        std::vector<std::string> found;
        for (const auto& line : all)
            if (line.starts_with(kind + "|")) found.push_back(line.substr(kind.size() + 1));
        return found;
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                         ("workbooks-" + std::to_string(::getpid()) + "-" +
                                          testing::UnitTest::GetInstance()->current_test_info()->name());
    XlsSpreadsheets spreadsheets;
};

}  // namespace desk
