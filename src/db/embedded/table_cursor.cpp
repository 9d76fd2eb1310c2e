#include "db/embedded/table_cursor.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "db/embedded/renderer.h"

namespace desk::embedded {

namespace {

/// Binds the changed fields, from 1 on.
void bindChanged(SqliteStatement& statement, const HeldRow& fields, const std::vector<int>& changed) {
    // A row that was refused leaves the statement where it failed.
    statement.reset();
    int position = 0;
    for (const int each : changed) statement.bind(++position, fields[static_cast<std::size_t>(each)]);
}

}  // namespace

TableCursor::TableCursor(std::shared_ptr<Store> store, const Translation& translation)
    : UpdatableCursor(translation.columns, translation.table), store_(std::move(store)) {
    auto statement = store_->sqlite().prepare(translation.sql);
    const int first = table() != nullptr ? 1 : 0;
    while (statement.step())
        hold({first == 1 ? statement.integer(0) : 0, heldRow(statement, columns(), first)});
}

void TableCursor::insertRow(Row& row, const std::vector<int>& changed) {
    Writing writing(*store_);
    if (!inserter_.statement || inserter_.columns != changed)
        inserter_ = {store_->sqlite().prepare(insertSql(changed)), changed};
    bindChanged(inserter_.statement, row.fields, changed);
    inserter_.statement.step();
    inserter_.statement.reset();
    row.number = store_->sqlite().lastIdentity();
    writing.commit();

    const auto* identity = table()->identity();
    for (std::size_t i = 0; identity != nullptr && i < row.fields.size(); ++i) {
        const auto* source = column(static_cast<int>(i)).column;
        if (source == identity || (source != nullptr && source->copyOf == identity->name))
            row.fields[i] = row.number;
    }
}

void TableCursor::updateRow(const Row& row, const HeldRow&, const std::vector<int>& changed) {
    Writing writing(*store_);
    if (!updater_.statement || updater_.columns != changed)
        updater_ = {store_->sqlite().prepare(updateSql(changed)), changed};
    bindChanged(updater_.statement, row.fields, changed);
    updater_.statement.bind(static_cast<int>(changed.size()) + 1, Value(row.number));
    updater_.statement.step();
    updater_.statement.reset();
    if (store_->sqlite().changedRows() == 0)
        throw RuntimeFailure(failure::rowGone, "无法为更新定位行。一些值可能已在最后一次读取后已更改。");
    writing.commit();
}

std::string TableCursor::insertSql(const std::vector<int>& changed) const {
    const auto name = quotedName(table()->name);
    if (changed.empty()) return fmt::format("INSERT INTO {} DEFAULT VALUES", name);
    std::string names;
    std::string places;
    for (const int position : changed) {
        names += (names.empty() ? "" : ",") + quotedName(column(position).column->name);
        places += places.empty() ? "?" : ",?";
    }
    return fmt::format("INSERT INTO {} ({}) VALUES ({})", name, names, places);
}

std::string TableCursor::updateSql(const std::vector<int>& changed) const {
    std::string assignments;
    for (const int position : changed)
        assignments += (assignments.empty() ? "" : ",") + quotedName(column(position).column->name) + "=?";
    return fmt::format("UPDATE {} SET {} WHERE rowid=?", quotedName(table()->name), assignments);
}

}  // namespace desk::embedded
