#include "schema/definition.h"

#include <fmt/format.h>

#include "base/text.h"
#include "schema/catalogue.h"

namespace desk::schema {

namespace {

std::string quoted(Dialect dialect, std::string_view name) {
    return dialect == Dialect::sqlite ? fmt::format("\"{}\"", name) : fmt::format("[{}]", name);
}

std::string sqliteType(Kind kind) {
    switch (kind) {
        case Kind::text:
        case Kind::longText:
            return fmt::format("TEXT COLLATE {}", collationName);
        case Kind::integer:
        case Kind::flag:
            return "INTEGER";
        case Kind::number:
        case Kind::money:
            return "REAL";
        case Kind::date:
        case Kind::moment:
            return "TEXT";
        case Kind::identity:
            return "INTEGER PRIMARY KEY AUTOINCREMENT";
    }
    return {};
}

std::string sqlServerType(Kind kind) {
    switch (kind) {
        case Kind::text:
            return fmt::format("nvarchar({}) COLLATE Chinese_PRC_CI_AS", textLength);
        case Kind::longText:
            return "nvarchar(max) COLLATE Chinese_PRC_CI_AS";
        case Kind::integer:
            return "int";
        case Kind::flag:
            return "bit";
        case Kind::number:
            return "float";
        case Kind::money:
            return "money";
        case Kind::date:
        case Kind::moment:
            return "datetime";
        case Kind::identity:
            return "int IDENTITY(1,1) PRIMARY KEY";
    }
    return {};
}

std::string columnLine(Dialect dialect, const Column& column) {
    const auto name = quoted(dialect, column.name);
    if (!column.copyOf.empty()) {
        const auto source = quoted(dialect, column.copyOf);
        return dialect == Dialect::sqlite
                   ? fmt::format("{} INTEGER GENERATED ALWAYS AS ({}) VIRTUAL", name, source)
                   : fmt::format("{} AS ({})", name, source);
    }
    const auto type = dialect == Dialect::sqlite ? sqliteType(column.kind) : sqlServerType(column.kind);
    return fmt::format("{} {}{}", name, type, column.required ? " NOT NULL" : "");
}

/// What a required column holds in rows that were written without it.
std::string_view emptyValue(Kind kind) {
    switch (kind) {
        case Kind::text:
        case Kind::longText:
            return "''";
        case Kind::date:
            return "'1900-01-01'";
        case Kind::moment:
            return "'1900-01-01 00:00:00'";
        default:
            return "0";
    }
}

constexpr std::string_view lengthPrefix = "len(";

}  // namespace

std::string tableStatement(Dialect dialect, const Table& table) {
    std::vector<std::string> lines;
    // A row without an identity gets a number as well, which is never used twice: an update that has lost its
    // row must not find another one in its place.
    if (dialect == Dialect::sqlite && table.identity() == nullptr)
        lines.emplace_back("_row INTEGER PRIMARY KEY AUTOINCREMENT");
    for (const auto& column : table.columns) lines.push_back(columnLine(dialect, column));
    return fmt::format("CREATE TABLE {} (\n  {}\n){}", quoted(dialect, table.name), join(lines, ",\n  "),
                       dialect == Dialect::sqlite ? " STRICT" : "");
}

std::string indexStatement(Dialect dialect, const Table& table, const Index& index) {
    std::vector<std::string> parts;
    for (const auto& part : split(index.columns, ',')) {
        const bool byLength = part.starts_with(lengthPrefix);
        const auto name =
            byLength ? part.substr(lengthPrefix.size(), part.size() - lengthPrefix.size() - 1) : part;
        const auto column = quoted(dialect, name);
        parts.push_back(byLength ? sqliteLength(column) : column);
    }
    return fmt::format("CREATE {}INDEX {} ON {} ({})", index.unique ? "UNIQUE " : "",
                       quoted(dialect, index.name), quoted(dialect, table.name), join(parts, ", "));
}

std::string columnStatement(const Table& table, const Column& column) {
    auto statement = fmt::format("ALTER TABLE {} ADD COLUMN {}", quoted(Dialect::sqlite, table.name),
                                 columnLine(Dialect::sqlite, column));
    if (column.required) statement += fmt::format(" DEFAULT {}", emptyValue(column.kind));
    return statement;
}

// SQLite counts to a NUL only, so that a number with one in it, which no keyboard types, stands too far ahead
// in its list. A function of our own would count on, but no other program could open a file with it in an
// index.
std::string sqliteLength(std::string_view operand) {
    return fmt::format("length(rtrim({}))", operand);
}

std::vector<std::string> definition(Dialect dialect) {
    std::vector<std::string> statements;
    for (const auto& table : tables()) {
        statements.push_back(tableStatement(dialect, table));
        for (const auto& index : table.indexes) {
            const bool byLength = index.columns.find(lengthPrefix) != std::string_view::npos;
            if (dialect == Dialect::sqlite || !byLength)
                statements.push_back(indexStatement(dialect, table, index));
        }
    }
    return statements;
}

}  // namespace desk::schema
