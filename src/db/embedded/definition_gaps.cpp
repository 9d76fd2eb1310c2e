#include "db/embedded/definition_gaps.h"

#include <fmt/format.h>

#include <map>
#include <set>

#include "base/failure.h"
#include "schema/catalogue.h"
#include "schema/definition.h"

namespace desk::embedded {

namespace {

using schema::Dialect;

/// The statements that made the tables, or the indexes, of the file, by name.
using Made = std::map<std::string, std::string, std::less<>>;

Made madeOf(const Sqlite& sqlite, std::string_view type) {
    Made made;
    auto rows = sqlite.prepare(
        fmt::format("SELECT name,sql FROM sqlite_schema WHERE type='{}' AND sql IS NOT NULL", type));
    while (rows.step()) made.emplace(rows.text(0), rows.text(1));
    return made;
}

std::set<std::string, std::less<>> columnsOf(const Sqlite& sqlite, std::string_view table) {
    std::set<std::string, std::less<>> names;
    auto rows = sqlite.prepare(fmt::format("SELECT name FROM pragma_table_xinfo('{}')", table));
    while (rows.step()) names.emplace(rows.text(0));
    return names;
}

/// A file of this system holds its leads, whatever else came later.
void requireLeads(const Made& tables) {
    constexpr std::string_view leads = "YZ_引驻客户信息";
    if (!tables.contains(leads))
        throw RuntimeFailure(failure::unspecified, fmt::format("它不是本系统的数据库：没有表 '{}'。", leads));
}

void addColumnGaps(DefinitionGaps& gaps, const Sqlite& sqlite, const schema::Table& table) {
    const auto present = columnsOf(sqlite, table.name);
    for (const auto& column : table.columns) {
        if (present.contains(column.name)) continue;
        gaps.tablesAndColumns.push_back(fmt::format("表 '{}' 缺少列 '{}'", table.name, column.name));
        if (column.kind == schema::Kind::identity)
            throw RuntimeFailure(failure::unspecified,
                                 fmt::format("{}，且无法补建。", gaps.tablesAndColumns.back()));
        gaps.statements.push_back(schema::columnStatement(table, column));
    }
}

void addIndexGaps(DefinitionGaps& gaps, const Made& indexes, const schema::Table& table) {
    for (const auto& index : table.indexes) {
        const auto wanted = schema::indexStatement(Dialect::sqlite, table, index);
        const auto found = indexes.find(index.name);
        if (found != indexes.end() && found->second == wanted) continue;
        if (found != indexes.end()) gaps.statements.push_back(fmt::format("DROP INDEX \"{}\"", index.name));
        gaps.statements.push_back(wanted);
    }
}

}  // namespace

DefinitionGaps gapsOf(const Sqlite& sqlite) {
    const auto tables = madeOf(sqlite, "table");
    const auto indexes = madeOf(sqlite, "index");
    requireLeads(tables);
    DefinitionGaps gaps;
    for (const auto& table : schema::tables()) {
        const auto wanted = schema::tableStatement(Dialect::sqlite, table);
        const auto found = tables.find(table.name);
        if (found == tables.end()) {
            gaps.tablesAndColumns.push_back(fmt::format("缺少表 '{}'", table.name));
            gaps.statements.push_back(wanted);
        } else if (found->second != wanted) {
            addColumnGaps(gaps, sqlite, table);
        }
        addIndexGaps(gaps, indexes, table);
    }
    return gaps;
}

}  // namespace desk::embedded
