#include "steps.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "base/text.h"

namespace desk {

namespace {

constexpr const char* indent = "    ";

std::string pathOf(const std::string& name) {
    return std::string(TEST_FOLDER) + "/" + name;
}

std::vector<std::string> linesOf(const std::string& name) {
    std::ifstream file(pathOf(name));
    EXPECT_TRUE(file) << name;
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

void rewrite(const std::string& name, const std::vector<Step>& now) {
    const auto lines = linesOf(name);
    std::ofstream file(pathOf(name));
    auto step = now.begin();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].starts_with(indent)) continue;
        file << lines[i] << "\n";
        if (step == now.end() || step->line != static_cast<int>(i) + 1) continue;
        for (const auto& told : step->told) file << indent << told << "\n";
        ++step;
    }
}

}  // namespace

std::vector<Step> stepsOf(const std::string& name) {
    std::vector<Step> steps;
    int number = 0;
    for (const auto& line : linesOf(name)) {
        ++number;
        if (line.starts_with(indent))
            steps.at(steps.size() - 1).told.push_back(line.substr(4));
        else if (!line.empty() && !line.starts_with('#'))
            steps.push_back({number, line, {}});
    }
    return steps;
}

void compare(const std::string& name, const std::vector<Step>& now) {
    const char* mode = std::getenv("TRANSCRIPTS");
    if (mode != nullptr && std::string_view(mode) == "rewrite") return rewrite(name, now);
    const auto steps = stepsOf(name);
    for (std::size_t i = 0; i < steps.size(); ++i)
        EXPECT_EQ(join(steps[i].told, "\n"), join(now[i].told, "\n"))
            << pathOf(name) << ":" << steps[i].line << "\n"
            << steps[i].asked;
}

}  // namespace desk
