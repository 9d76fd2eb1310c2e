#include "db/embedded/statistics.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "base/failure.h"
#include "db/embedded/renderer.h"
#include "db/embedded/sqlite.h"

namespace desk::embedded {

namespace {

/// Below this many rows every way through a table is short.
constexpr std::int64_t fewRows = 64;
/// A table is looked at anew when it has so many times the rows it had.
constexpr std::int64_t growth = 4;
constexpr std::int64_t manyChanges = 1000;

using Sizes = std::map<std::string, std::int64_t, std::less<>>;

/// The sizes of which the statistics tell.
Sizes knownSizes(const Sqlite& sqlite) {
    Sizes sizes;
    if (!sqlite.prepare("SELECT 1 FROM sqlite_schema WHERE name='sqlite_stat1'").step()) return sizes;
    auto rows = sqlite.prepare("SELECT tbl,max(CAST(stat AS INTEGER)) FROM sqlite_stat1 GROUP BY tbl");
    while (rows.step()) sizes[std::string(rows.text(0))] = rows.integer(1);
    return sizes;
}

std::int64_t single(const Sqlite& sqlite, const std::string& sql) {
    auto statement = sqlite.prepare(sql);
    return statement.step() ? statement.integer(0) : 0;
}

/// Numbers of rows are never used twice, so the highest tells at once which tables cannot have grown.
bool hasMoreRows(const Sqlite& sqlite, std::string_view table, std::int64_t than) {
    const auto name = quotedName(table);
    return single(sqlite, fmt::format("SELECT max(rowid) FROM {}", name)) > than &&
           single(sqlite, fmt::format("SELECT count(*) FROM {}", name)) > than;
}

std::vector<std::string> outgrown(const Sqlite& sqlite) {
    std::vector<std::string> tables;
    const auto known = knownSizes(sqlite);
    for (const auto& table : schema::tables()) {
        const auto entry = known.find(table.name);
        const auto bound = entry == known.end() ? fewRows : std::max(fewRows, entry->second * growth);
        if (hasMoreRows(sqlite, table.name, bound)) tables.emplace_back(table.name);
    }
    return tables;
}

}  // namespace

void Statistics::refresh() {
    seenChanges_ = sqlite_.allChanges();
    const Hurry hurry(sqlite_);
    try {
        gather();
    } catch (const RuntimeFailure&) {
        // Another seat writes, the file is read-only or damaged: whoever needs it will be told.
        if (sqlite_.inTransaction()) sqlite3_exec(sqlite_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Statistics::followWrites() {
    if (sqlite_.allChanges() - seenChanges_ >= manyChanges && !sqlite_.inTransaction()) refresh();
}

void Statistics::gather() const {
    const auto tables = outgrown(sqlite_);
    if (tables.empty()) return;
    sqlite_.run("BEGIN IMMEDIATE");
    for (const auto& table : tables) sqlite_.run(fmt::format("ANALYZE {}", quotedName(table)));
    sqlite_.run("COMMIT");
}

}  // namespace desk::embedded
