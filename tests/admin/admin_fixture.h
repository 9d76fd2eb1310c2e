#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace desk {

namespace fs = std::filesystem;

struct Outcome {
    int code = -1;
    std::string output;  ///< and errors

    bool tells(std::string_view words) const { return output.find(words) != std::string::npos; }
};

/// The tool as a person calls it, in a folder of its own.
class Admin : public testing::Test {
  protected:
    Admin() {
        std::string name = (fs::temp_directory_path() / "desk-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~Admin() override { fs::remove_all(folder); }

    /// `before` stands in front of the tool's name.
    Outcome run(const std::string& words, const std::string& before = "") {
        return runInShell(before + " '" ADMIN_PROGRAM "' " + words);
    }
    Outcome runInShell(const std::string& line) {
        const std::string command =
            "exec </dev/null 2>&1; unset TENANT_DESK_PASSWORD; cd '" + folder.string() + "' && " + line;
        FILE* pipe = ::popen(command.c_str(), "r");
        Outcome outcome;
        for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
            outcome.output += static_cast<char>(byte);
        outcome.code = WEXITSTATUS(::pclose(pipe));
        return outcome;
    }

    /// What lies in the folder.
    std::size_t files() {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
    }

    fs::path folder;
};

}  // namespace desk
