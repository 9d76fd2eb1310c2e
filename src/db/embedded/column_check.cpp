#include "db/embedded/column_check.h"

#include <fmt/format.h>

#include <algorithm>

#include "db/embedded/embedded.h"
#include "schema/definition.h"

namespace desk::embedded {

namespace {

/// A column as the file describes it.
struct Found {
    std::string name;
    std::string type;
    bool required = false;
    bool filled = false;  ///< with a default where nothing is said
    bool numbered = false;
    bool computed = false;
};

std::vector<Found> columnsOf(const Sqlite& sqlite, std::string_view table) {
    std::vector<Found> found;
    auto rows = sqlite.prepare(fmt::format(
        "SELECT name,type,\"notnull\",dflt_value IS NOT NULL,pk,hidden FROM pragma_table_xinfo('{}')",
        table));
    while (rows.step())
        found.push_back({std::string(rows.text(0)), std::string(rows.text(1)), rows.integer(2) != 0,
                         rows.integer(3) != 0, rows.integer(4) != 0, rows.integer(5) != 0});
    return found;
}

std::string judge(const Found& wanted, const Found& found) {
    if (!schema::sameName(wanted.type, found.type))
        return fmt::format("是 {}，应为 {}", found.type, wanted.type);
    if (wanted.numbered != found.numbered) return wanted.numbered ? "没有自动编号" : "不应自动编号";
    if (wanted.computed != found.computed) return wanted.computed ? "应由数据库计算" : "不应由数据库计算";
    if (found.required && !wanted.required && !found.filled) return "不能为空，留空的内容会被拒绝";
    return {};
}

std::string judgeUnknown(const Found& found) {
    if (!found.required || found.filled || found.numbered || found.computed) return {};
    return "本程序没有这一列，它又不能为空，新增的行会被拒绝";
}

}  // namespace

std::vector<Difference> differencesOf(const Sqlite& sqlite, const schema::Table& table) {
    const Sqlite pattern(inMemory, Sqlite::Missing::isCreated, std::chrono::seconds(0));
    pattern.run(schema::tableStatement(schema::Dialect::sqlite, table));
    const auto wanted = columnsOf(pattern, table.name);
    std::vector<Difference> differences;
    for (const auto& found : columnsOf(sqlite, table.name)) {
        const auto known = std::find_if(wanted.begin(), wanted.end(), [&](const Found& each) {
            return schema::sameName(each.name, found.name);
        });
        const auto reason = known == wanted.end() ? judgeUnknown(found) : judge(*known, found);
        if (!reason.empty())
            differences.push_back({fmt::format("表 {} 的列 {} {}", table.name, found.name, reason), true});
    }
    return differences;
}

}  // namespace desk::embedded
