#include "db/embedded/sqlite_failure.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <string>
#include <string_view>

#include "base/failure.h"

namespace desk::embedded {

namespace {

/// What stands behind `prefix`, if `text` begins with it.
std::string_view behind(std::string_view text, std::string_view prefix) {
    return text.starts_with(prefix) ? text.substr(prefix.size()) : std::string_view();
}

std::string ruleText(std::string_view message) {
    if (const auto column = behind(message, "NOT NULL constraint failed: "); !column.empty())
        return fmt::format("不能将值 NULL 插入列 '{}'；该列不允许有空值。", column);
    if (const auto column = behind(message, "UNIQUE constraint failed: "); !column.empty())
        return fmt::format("违反了唯一性约束：'{}' 中已存在相同的值。", column);
    return fmt::format("违反了数据库的约束：{}", message);
}

/// Causes that SQLite tells apart only within a wider one; null for all others.
const char* narrowerText(int extended) {
    switch (extended) {
        case SQLITE_READONLY_DBMOVED:
            return "数据库文件已被移动、改名或删除，写入的内容无处保存。";
        case SQLITE_READONLY_DIRECTORY:
            return "数据库文件所在的文件夹是只读的，无法写入。";
        case SQLITE_IOERR_LOCK:
        case SQLITE_IOERR_UNLOCK:
        case SQLITE_IOERR_RDLOCK:
        case SQLITE_IOERR_CHECKRESERVEDLOCK:
            return "无法锁定数据库文件：文件已被其他程序锁定，或所在的磁盘不支持锁定。";
        case SQLITE_IOERR_DELETE_NOENT:
        case SQLITE_IOERR_SHORT_READ:
            return "数据库文件已被截断、移动或删除。";
        default:
            return nullptr;
    }
}

/// Causes outside the statement; null for all others.
const char* outerText(int primary) {
    switch (primary) {
        case SQLITE_NOTADB:
            return "该文件不是数据库，或者已经损坏。";
        case SQLITE_CORRUPT:
            return "数据库文件已损坏。";
        case SQLITE_READONLY:
            return "数据库文件是只读的，无法写入。";
        case SQLITE_FULL:
            return "磁盘已满，无法写入数据库文件。";
        case SQLITE_IOERR:
            return "读写数据库文件时发生错误。";
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return "无法打开数据库文件，请检查文件及其文件夹的访问权限。";
        default:
            return nullptr;
    }
}

}  // namespace

void fail(sqlite3* database) {
    const int extended = sqlite3_extended_errcode(database);
    const int primary = extended & 0xff;
    const std::string message = sqlite3_errmsg(database);
    if (extended == SQLITE_CONSTRAINT_DATATYPE)
        throw RuntimeFailure(failure::badConversion, fmt::format("值与列的类型不符：{}", message));
    if (primary == SQLITE_CONSTRAINT) throw RuntimeFailure(failure::violatedRule, ruleText(message));
    if (primary == SQLITE_MISMATCH) throw RuntimeFailure(failure::badConversion, message);
    // The catalogue knows every name that comes so far: what is missing has gone from the file since it was
    // opened.
    if (const auto table = behind(message, "no such table: "); !table.empty())
        throw RuntimeFailure(failure::unspecified, fmt::format("数据库文件已损坏：没有表 '{}'。", table));
    if (primary == SQLITE_ERROR)
        throw RuntimeFailure(failure::wrongStatement, fmt::format("语句无法执行：{}", message));
    if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED)
        throw RuntimeFailure(failure::timedOut, "超时已过期：数据库文件正被其他工作站占用。");
    const char* known = narrowerText(extended);
    if (known == nullptr) known = outerText(primary);
    throw RuntimeFailure(failure::unspecified, known ? known : fmt::format("数据库错误：{}", message));
}

}  // namespace desk::embedded
