#include "db/embedded/bring_up.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/embedded/definition_gaps.h"
#include "db/embedded/file_copy.h"
#include "db/embedded/file_path.h"
#include "db/embedded/file_version.h"
#include "schema/definition.h"

namespace desk::embedded {

namespace {

/// A free name beside the file. Earlier copies stay: only a person knows which one is still needed.
std::string copyName(const std::string& path, int version) {
    std::string name = fmt::format("{}.v{}.bak", path, version);
    for (int i = 2; std::filesystem::exists(pathOf(name)); ++i)
        name = fmt::format("{}.v{}-{}.bak", path, version, i);
    return name;
}

bool isPresent(int version, const DefinitionGaps& gaps) {
    return version == schema::definitionVersion && gaps.none();
}

void refuseDamage(int version, const DefinitionGaps& gaps) {
    if (version < schema::definitionVersion || gaps.tablesAndColumns.empty()) return;
    throw RuntimeFailure(failure::unspecified,
                         fmt::format("{}。请从备份恢复，或用 tenant-desk-admin upgrade 补建。",
                                     join(gaps.tablesAndColumns, "，")));
}

}  // namespace

std::optional<Upgrade> bringUp(Store& store, const std::string& path, Damage damage) {
    const Sqlite& sqlite = store.sqlite();
    if (isPresent(definitionVersionOf(sqlite), gapsOf(sqlite))) return std::nullopt;

    Writing writing(store);
    // Another seat may have done it while this one waited for its turn.
    const int version = definitionVersionOf(sqlite);
    const auto gaps = gapsOf(sqlite);
    if (isPresent(version, gaps)) return std::nullopt;
    if (damage == Damage::isRefused) refuseDamage(version, gaps);

    Upgrade upgrade{version, schema::definitionVersion, copyName(path, version)};
    // A connection cannot be copied from while it writes, but beside it another one can.
    copyTo(Sqlite(path, Sqlite::Missing::isFailure, std::chrono::seconds(0)), upgrade.copy);
    for (const auto& statement : gaps.statements) sqlite.run(statement);
    markAsPresent(sqlite);
    writing.commit();
    return upgrade;
}

}  // namespace desk::embedded
