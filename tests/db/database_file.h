#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "db/embedded/sqlite.h"
#include "filled_database.h"

namespace desk {

/// Nothing where there is no such file.
inline std::string bytesOf(const std::string& path) {
    if (!std::filesystem::is_regular_file(path)) return {};
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A test with a folder of its own, which is gone when it ends, and the name of a database file in it.
class DatabaseFile : public testing::Test {
  protected:
    static constexpr std::chrono::seconds patience{30};
    static constexpr std::size_t page = 4096;

    DatabaseFile() {
        auto pattern = (std::filesystem::temp_directory_path() / "desk-db-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        path_ = inFolder("引驻 台账.db");
    }
    ~DatabaseFile() override { std::filesystem::remove_all(folder_); }

    std::string inFolder(const std::string& name) const { return (folder_ / name).string(); }

    std::vector<std::string> otherFiles() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder_))
            if (entry.path() != path_) found.push_back(entry.path().string());
        return found;
    }

    Connection opened(std::chrono::seconds wait = patience) const { return opened(path_, wait); }
    Connection opened(const std::string& path, std::chrono::seconds wait = patience) const {
        Connection connection;
        connection.open(fileConnection(path), wait);
        return connection;
    }

    /// The file as SQLite alone has it.
    static embedded::Sqlite bare(const std::string& path) {
        return {path, embedded::Sqlite::Missing::isFailure, patience};
    }

    /// Opening the file must fail in these words and leave it as it was.
    void expectRefused(const std::string& words) const {
        const auto before = bytesOf(path_);
        const auto refused = outcomeOf([&] { opened(std::chrono::seconds(1)); });
        EXPECT_EQ(refused.number, failure::unspecified);
        EXPECT_NE(refused.text.find(words), std::string::npos) << refused.text;
        EXPECT_EQ(bytesOf(path_), before);
    }

    std::filesystem::path folder_;
    std::string path_;
};

}  // namespace desk
