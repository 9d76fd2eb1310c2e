#include "db/embedded/file_copy.h"

#include <filesystem>

#include "base/failure.h"
#include "db/embedded/file_path.h"
#include "db/embedded/sqlite_failure.h"

namespace desk::embedded {

namespace {

void copyPages(const Sqlite& from, const Sqlite& to) {
    constexpr int allPages = -1;
    sqlite3_backup* backup = sqlite3_backup_init(to.handle(), "main", from.handle(), "main");
    if (backup == nullptr) fail(to.handle());
    // All pages in one go: where others write between two steps, a copy begins anew each time.
    const int result = sqlite3_backup_step(backup, allPages);
    sqlite3_backup_finish(backup);
    if (result == SQLITE_BUSY || result == SQLITE_LOCKED)
        throw RuntimeFailure(failure::unspecified, "超时已过期：数据库文件正被其他工作站占用。");
    if (result != SQLITE_DONE) fail(to.handle());
}

void requireSound(const Sqlite& copied) {
    auto check = copied.prepare("PRAGMA quick_check(1)");
    check.step();
    if (check.text(0) != "ok")
        throw RuntimeFailure(failure::unspecified,
                             "数据库文件已损坏，不能复制：" + std::string(check.text(0)));
}

/// A file under a name of its own until it is whole.
void copyUnfinished(const Sqlite& from, const std::string& unfinished) {
    const Sqlite to(unfinished, Sqlite::Missing::isCreated, std::chrono::seconds(0));
    copyPages(from, to);
    requireSound(to);
}

}  // namespace

void copyTo(const Sqlite& from, const std::string& to) {
    const std::string unfinished = to + ".new";
    const auto removeUnfinished = [&] {
        std::error_code ignored;
        for (const char* end : {"", "-journal"}) std::filesystem::remove(pathOf(unfinished + end), ignored);
    };
    removeUnfinished();
    try {
        copyUnfinished(from, unfinished);
        std::filesystem::rename(pathOf(unfinished), pathOf(to));
    } catch (const std::filesystem::filesystem_error&) {
        removeUnfinished();
        throw RuntimeFailure(failure::unspecified, "无法写入副本“" + to + "”。");
    } catch (const RuntimeFailure&) {
        removeUnfinished();
        throw;
    }
}

}  // namespace desk::embedded
