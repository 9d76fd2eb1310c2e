#include "support/worksheet_words.h"

#include <fmt/format.h>

#include "base/text.h"

namespace desk {

namespace {

std::string inWords(const CellLook& look) {
    static constexpr const char* formats[] = {"general", "text", "number"};
    static constexpr const char* across[] = {"general", "left", "centre", "right"};
    static constexpr const char* down[] = {"bottom", "top", "centre", "distributed"};
    return fmt::format("{} {} {}{} {}", formats[static_cast<int>(look.format)],
                       across[static_cast<int>(look.across)], down[static_cast<int>(look.down)],
                       look.bordered ? " bordered" : "", look.fontSize);
}

std::string inWords(const std::vector<Worksheet::Cell>& row) {
    std::vector<std::string> texts;
    std::vector<std::string> looks;
    for (std::size_t first = 0, i = 0; i < row.size(); ++i) {
        texts.push_back(row[i].text);
        if (i + 1 < row.size() && row[i + 1].look == row[i].look) continue;
        looks.push_back(fmt::format("{} x {}", i + 1 - first, inWords(row[i].look)));
        first = i + 1;
    }
    return fmt::format("\"{}\" {}", join(texts, "|"), join(looks, ", "));
}

}  // namespace

std::vector<std::string> inWords(const Worksheet& sheet) {
    std::string widths;
    for (const auto& [column, width] : sheet.columnWidths()) widths += fmt::format(" {}", width);
    std::string merges;
    for (const auto& [top, left, bottom, right] : sheet.merges())
        merges += fmt::format(" {},{}:{},{}", top, left, bottom, right);
    std::vector<std::string> lines = {
        fmt::format("sheet \"{}\", widths{}, merges{}", sheet.name(), widths, merges)};
    for (std::size_t row = 0; row < sheet.rows().size(); ++row) {
        lines.push_back(fmt::format("row {}: {}", row, inWords(sheet.rows()[row])));
        if (const auto look = sheet.rowLooks().find(static_cast<int>(row)); look != sheet.rowLooks().end())
            lines.back() += "; row " + inWords(look->second);
    }
    return lines;
}

}  // namespace desk
