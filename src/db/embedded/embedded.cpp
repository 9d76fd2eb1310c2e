#include "db/embedded/embedded.h"

#include <fmt/format.h>

#include <filesystem>

#include "base/failure.h"
#include "db/embedded/bring_up.h"
#include "db/embedded/column_check.h"
#include "db/embedded/definition_gaps.h"
#include "db/embedded/file_copy.h"
#include "db/embedded/file_path.h"
#include "db/embedded/file_version.h"
#include "db/embedded/table_cursor.h"
#include "db/embedded/translation.h"
#include "db/forward_cursor.h"
#include "schema/definition.h"

namespace desk::embedded {

namespace {

class EmbeddedEngine : public Engine {
  public:
    explicit EmbeddedEngine(std::shared_ptr<Store> store) : store_(std::move(store)) {}

    std::unique_ptr<Cursor> open(std::string_view statement, Rows mode) override {
        auto translation = translate(statement, mode);
        if (!translation.givesRows)
            throw RuntimeFailure(failure::closedRecordset, "对象关闭时，不允许操作：该语句不返回行。");
        if (mode == Rows::updatable) return std::make_unique<TableCursor>(store_, translation);
        return std::make_unique<ForwardCursor<SqliteStatement>>(
            store_, store_->sqlite().prepare(translation.sql), std::move(translation.columns));
    }

    long execute(std::string_view statement) override {
        const auto translation = translate(statement, Rows::forwardOnly);
        if (translation.givesRows) {
            store_->sqlite().run(translation.sql);
            return 0;
        }
        Writing writing(*store_);
        store_->sqlite().run(translation.sql);
        const long changed = store_->sqlite().changedRows();
        writing.commit();
        return changed;
    }

    void begin() override {
        requireTransaction(false, "已有一个事务尚未结束。");
        store_->stopReading();
        store_->sqlite().run("BEGIN IMMEDIATE");
    }
    void commit() override { end("COMMIT"); }
    void rollback() override { end("ROLLBACK"); }

    std::vector<Difference> differencesOf(const schema::Table& table) override {
        return embedded::differencesOf(store_->sqlite(), table);
    }

  private:
    void end(std::string_view how) {
        requireTransaction(true, "没有打开的事务。");
        store_->stopReading();
        store_->sqlite().run(how);
        store_->statistics().followWrites();
    }

    void requireTransaction(bool open, const char* otherwise) const {
        if (store_->sqlite().inTransaction() != open) throw RuntimeFailure(failure::unspecified, otherwise);
    }

    std::shared_ptr<Store> store_;
};

[[noreturn]] void refuse(const std::string& path, std::string_view reason) {
    throw RuntimeFailure(failure::unspecified, fmt::format("无法打开数据库文件 '{}'：{}", path, reason));
}

void requireFile(const std::string& path) {
    if (path.empty()) throw RuntimeFailure(failure::unspecified, "未指定数据库文件。");
    std::error_code error;
    const auto status = std::filesystem::status(pathOf(path), error);
    if (status.type() == std::filesystem::file_type::not_found) refuse(path, "文件不存在。");
    if (status.type() == std::filesystem::file_type::directory) refuse(path, "它是一个目录。");
    if (status.type() != std::filesystem::file_type::regular) refuse(path, "它不是可以读写的文件。");
}

std::int32_t keptVersion(const Sqlite& sqlite) {
    auto version = sqlite.prepare("PRAGMA user_version");
    version.step();
    return static_cast<std::int32_t>(version.integer(0));
}

void keepVersion(const Sqlite& sqlite) {
    sqlite.run(fmt::format("PRAGMA user_version={}", sqlite.collation().version()));
}

/// Asks for what every save needs, so that a person is told before anything is typed: a file that can be
/// written, and a folder that takes the journal beside it.
void requireWritable(const Sqlite& sqlite) {
    if (sqlite3_db_readonly(sqlite.handle(), "main") == 1)
        throw RuntimeFailure(failure::unspecified, "文件是只读的，无法保存任何内容。请检查文件的访问权限。");
    const Hurry hurry(sqlite);
    try {
        sqlite.run("BEGIN IMMEDIATE");
        keepVersion(sqlite);
        sqlite.run("ROLLBACK");
    } catch (const RuntimeFailure&) {
        const int code = sqlite3_errcode(sqlite.handle()) & 0xff;
        if (sqlite.inTransaction()) sqlite.run("ROLLBACK");
        // Another seat that writes at this moment shows well enough that one can.
        if (code == SQLITE_BUSY) return;
        if (code == SQLITE_CANTOPEN || code == SQLITE_READONLY)
            throw RuntimeFailure(failure::unspecified,
                                 "文件所在的文件夹是只读的，无法保存任何内容。请检查文件夹的访问权限。");
        throw;
    }
}

/// The indexes stand in the order of the library that wrote them. Where another order reads them they are
/// made anew.
void followCollation(Store& store) {
    if (keptVersion(store.sqlite()) == store.sqlite().collation().version()) return;
    Writing writing(store);
    store.sqlite().run(fmt::format("REINDEX {}", schema::collationName));
    keepVersion(store.sqlite());
    writing.commit();
}

void define(Store& store) {
    Writing writing(store);
    for (const auto& statement : schema::definition(schema::Dialect::sqlite)) store.sqlite().run(statement);
    keepVersion(store.sqlite());
    markAsPresent(store.sqlite());
    writing.commit();
}

void tune(const Sqlite& sqlite) {
    sqlite.run("PRAGMA temp_store=MEMORY");
    sqlite.run("PRAGMA cache_size=-16384");
}

/// Runs `action` on the open file; whatever is wrong with the file is told with its name.
template <class Action>
auto onFile(const std::string& path, std::chrono::seconds timeout, Action action) {
    requireFile(path);
    try {
        return action(
            std::make_shared<Store>(std::make_unique<Sqlite>(path, Sqlite::Missing::isFailure, timeout)));
    } catch (const RuntimeFailure& failure) {
        refuse(path, failure.description());
    }
}

OpenedEngine opened(std::shared_ptr<Store> store, std::optional<Upgrade> upgrade) {
    tune(store->sqlite());
    store->statistics().refresh();
    return {std::make_unique<EmbeddedEngine>(std::move(store)), std::move(upgrade)};
}

std::shared_ptr<Store> openedMemory() {
    auto store = std::make_shared<Store>(
        std::make_unique<Sqlite>(inMemory, Sqlite::Missing::isCreated, std::chrono::seconds(0)));
    define(*store);
    return store;
}

}  // namespace

OpenedEngine open(const std::string& path, std::chrono::seconds timeout) {
    if (path == inMemory) return opened(openedMemory(), {});
    return onFile(path, timeout, [&](std::shared_ptr<Store> store) {
        gapsOf(store->sqlite());  // a file that is none of this system's is not even tried to be written
        requireWritable(store->sqlite());
        auto upgrade = bringUp(*store, path, Damage::isRefused);
        followCollation(*store);
        return opened(std::move(store), std::move(upgrade));
    });
}

std::optional<Upgrade> upgrade(const std::string& path, std::chrono::seconds timeout) {
    return onFile(path, timeout, [&](const std::shared_ptr<Store>& store) {
        return bringUp(*store, path, Damage::isRepaired);
    });
}

void backup(const std::string& path, const std::string& to, std::chrono::seconds timeout) {
    if (std::filesystem::exists(pathOf(to)))
        throw RuntimeFailure(failure::unspecified, fmt::format("文件 '{}' 已经存在。", to));
    onFile(path, timeout, [&](const std::shared_ptr<Store>& store) {
        gapsOf(store->sqlite());
        copyTo(store->sqlite(), to);
    });
}

void createDatabase(const std::string& path) {
    if (path.empty()) throw RuntimeFailure(failure::unspecified, "未指定数据库文件。");
    if (std::filesystem::exists(pathOf(path)))
        throw RuntimeFailure(failure::unspecified, fmt::format("文件 '{}' 已经存在。", path));
    try {
        Store store(std::make_unique<Sqlite>(path, Sqlite::Missing::isCreated, std::chrono::seconds(0)));
        define(store);
    } catch (const RuntimeFailure& failure) {
        std::error_code ignored;
        std::filesystem::remove(pathOf(path), ignored);
        throw RuntimeFailure(failure::unspecified,
                             fmt::format("无法创建数据库文件 '{}'：{}", path, failure.description()));
    }
}

}  // namespace desk::embedded
