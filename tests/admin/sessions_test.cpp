#include <fstream>
#include <optional>
#include <regex>
#include <sstream>

#include "admin_fixture.h"
#include "base/text.h"
#include "support/replaced.h"
#include "wire/server/server.h"

namespace desk {
namespace {

/// What a person types at a prompt, and below each line what comes of it: "$" leads the words for the tool,
/// ">" a line for the shell. {tool} stands for the tool, {programs} for the folder that it lies in, {steps}
/// for the first steps that come with the program, {folder} for the folder of the session. Filled in with
/// TRANSCRIPTS=rewrite, and then read. Where the name of the session says so there is a server at {server},
/// which gets an empty database, or a whole one, by "@ empty office" and "@ whole office".
class Sessions : public Admin, public testing::WithParamInterface<const char*> {
  protected:
    Sessions() {
        if (std::string_view(GetParam()).starts_with("server")) server.emplace(folder.string());
    }
    std::vector<std::pair<std::string, std::string>> names() const {
        const std::string tool = ADMIN_PROGRAM;
        return {{"{server}", server ? server->dataSource() : "{server}"},
                {"{folder}", folder.string()},
                {"{tool}", tool},
                {"{programs}", fs::path(tool).parent_path().string()},
                {"{steps}", FIRST_STEPS}};
    }
    std::string answerTo(std::string line) {
        for (const auto& [name, meaning] : names()) line = replaced(line, name, meaning);
        if (line.starts_with("@ empty ")) return server->createEmpty(line.substr(8)), "";
        if (line.starts_with("@ whole ")) return server->createDatabase(line.substr(8)), "";
        const Outcome outcome = line.starts_with("$") ? run(line.substr(2)) : runInShell(line.substr(2));
        std::string told;
        // What is another time and process each time.
        const auto timeless = std::regex_replace(outcome.output, std::regex("[0-9.]+ 秒"), "… 秒");
        std::istringstream lines(std::regex_replace(timeless, std::regex("\\.[0-9]+\\.new"), ".….new"));
        for (std::string output; std::getline(lines, output);) told += "    " + output + "\n";
        for (const auto& [name, meaning] : names()) told = replaced(told, meaning, name);
        return told + (outcome.code == 0 ? "" : "    ends with " + std::to_string(outcome.code) + "\n");
    }

    std::optional<wire::Server> server;
};

TEST_P(Sessions, GoAsIsWrittenDown) {
    const std::string path = TEST_FOLDER "/sessions/" + std::string(GetParam()) + ".txt";
    std::ifstream file(path, std::ios::binary);
    const std::string expected((std::istreambuf_iterator<char>(file)), {});
    std::string played;
    for (const auto& line : split(expected.substr(0, expected.size() - 1), '\n')) {
        if (line.starts_with("    ")) continue;
        played += line + "\n";
        if (!line.empty() && std::string_view("$>@").find(line[0]) != std::string_view::npos)
            played += answerTo(line);
    }
    if (std::getenv("TRANSCRIPTS") != nullptr)
        std::ofstream(path, std::ios::binary) << played;
    else
        EXPECT_EQ(played, expected);
}

INSTANTIATE_TEST_SUITE_P(All, Sessions,
                         testing::Values("definitions", "files", "sample", "scripts", "server",
                                         "server_check", "settings", "upgrading", "words"),
                         [](const auto& named) { return std::string(named.param); });

}  // namespace
}  // namespace desk
