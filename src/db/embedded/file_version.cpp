#include "db/embedded/file_version.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "schema/definition.h"

namespace desk::embedded {

namespace {

/// The file's application id holds this program's letters, "YZ", in its upper half, and the version in the
/// lower one. The user version, its neighbour, tells the order of texts: programs without this mark read it.
constexpr std::int64_t letters = 0x595A;
constexpr int versionBits = 16;

}  // namespace

int definitionVersionOf(const Sqlite& sqlite) {
    auto mark = sqlite.prepare("PRAGMA application_id");
    mark.step();
    const std::int64_t id = mark.integer(0);
    if (id == 0) return 1;
    if (id >> versionBits != letters)
        throw RuntimeFailure(failure::unspecified, "它不是本系统的数据库，而是另一个程序的。");
    const int version = static_cast<int>(id & ((1 << versionBits) - 1));
    if (version > schema::definitionVersion)
        throw RuntimeFailure(
            failure::unspecified,
            fmt::format("它由较新的程序建立或升级（版本 {}），本程序只能使用到版本 {}。请先更新本程序。",
                        version, schema::definitionVersion));
    return version;
}

void markAsPresent(const Sqlite& sqlite) {
    sqlite.run(fmt::format("PRAGMA application_id={}", letters << versionBits | schema::definitionVersion));
}

}  // namespace desk::embedded
