#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace desk {

/// A line of a file of cases: its fields with arrows between them.
struct Case {
    std::string where;
    std::vector<std::string> fields;
};

/// What stands for itself, but for a few bytes that are written as \n, \r, \t, \b, \e, \0, \\ or \x7F.
inline std::string plain(std::string_view written) {
    constexpr std::string_view names = "nrtbe0\\";
    constexpr std::string_view bytes("\n\r\t\b\x1B\0\\", 7);
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (written[i] != '\\') {
            text += written[i];
        } else if (written[++i] != 'x') {
            text += bytes.at(names.find(written[i]));
        } else {
            text += static_cast<char>(std::stoi(std::string(written.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        }
    }
    return text;
}

/// The cases in a file of the test's folder, where each is a line with arrows in it; others are comments.
inline std::vector<Case> casesIn(const std::string& name) {
    const std::string arrow = " → ";
    std::ifstream file(TEST_FOLDER "/" + name);
    std::vector<Case> all;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        Case found{name + ":" + std::to_string(++number), {}};
        if (line.starts_with('#') || line.find(arrow) == std::string::npos) continue;
        std::size_t from = 0;
        for (auto at = line.find(arrow); at != std::string::npos; at = line.find(arrow, from)) {
            found.fields.push_back(plain(line.substr(from, at - from)));
            from = at + arrow.size();
        }
        found.fields.push_back(plain(line.substr(from)));
        all.push_back(std::move(found));
    }
    if (all.empty()) throw std::runtime_error("no cases in " + name);
    return all;
}

}  // namespace desk
