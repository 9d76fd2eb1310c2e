#include "db/embedded/updatable_cursor.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/failure.h"
#include "db/embedded/renderer.h"
#include "db/embedded/storage.h"

namespace desk::embedded {

UpdatableCursor::UpdatableCursor(std::shared_ptr<Store> store, Translation translation)
    : RowCursor(std::move(translation.columns)), store_(std::move(store)), table_(translation.table) {
    read(translation.sql);
}

void UpdatableCursor::read(const std::string& sql) {
    auto statement = store_->sqlite().prepare(sql);
    const int first = table_ != nullptr ? 1 : 0;
    while (statement.step())
        rows_.push_back({table_ != nullptr ? statement.integer(0) : 0, heldRow(statement, first)});
}

void UpdatableCursor::moveNext() {
    requireRow();
    changed_.clear();
    if (adding_ || onAdded_)
        at_ = rows_.size();
    else
        ++at_;
    adding_ = false;
    onAdded_ = false;
}

void UpdatableCursor::requireTable() const {
    if (table_ == nullptr)
        throw RuntimeFailure(failure::updateNotSupported, "当前记录集不支持更新：它的行不属于一个表。");
}

void UpdatableCursor::addNew() {
    requireTable();
    changed_.clear();
    added_ = {0, HeldRow(columnNames().size())};
    adding_ = true;
    onAdded_ = false;
}

void UpdatableCursor::set(int position, const Value& value) {
    requireRow();
    requireTable();
    const auto* target = column(position).column;
    if (target == nullptr || target->kind == schema::Kind::identity || !target->copyOf.empty())
        throw RuntimeFailure(failure::fieldNotWritable,
                             fmt::format("字段 '{}' 不能写入。", column(position).name));
    current().fields[static_cast<std::size_t>(position)] = stored(target->kind, value);
    const auto place = std::lower_bound(changed_.begin(), changed_.end(), position);
    if (place == changed_.end() || *place != position) changed_.insert(place, position);
}

void UpdatableCursor::update() {
    requireRow();
    requireTable();
    if (adding_)
        insertRow();
    else if (!changed_.empty())
        updateRow();
    changed_.clear();
}

void UpdatableCursor::insertRow() {
    Writing writing(*store_);
    if (!inserter_.statement || inserter_.columns != changed_)
        inserter_ = {store_->sqlite().prepare(insertSql()), changed_};
    bindChanged(inserter_.statement);
    inserter_.statement.step();
    inserter_.statement.reset();
    added_.number = store_->sqlite().lastIdentity();
    writing.commit();

    const auto* identity = table_->identity();
    for (std::size_t i = 0; identity != nullptr && i < added_.fields.size(); ++i) {
        const auto* source = column(static_cast<int>(i)).column;
        if (source == identity || (source != nullptr && source->copyOf == identity->name))
            added_.fields[i] = added_.number;
    }
    adding_ = false;
    onAdded_ = true;
}

void UpdatableCursor::updateRow() {
    Writing writing(*store_);
    if (!updater_.statement || updater_.columns != changed_)
        updater_ = {store_->sqlite().prepare(updateSql()), changed_};
    bindChanged(updater_.statement);
    updater_.statement.bind(static_cast<int>(changed_.size()) + 1, Value(current().number));
    updater_.statement.step();
    updater_.statement.reset();
    if (store_->sqlite().changedRows() == 0)
        throw RuntimeFailure(failure::rowGone, "无法为更新定位行。一些值可能已在最后一次读取后已更改。");
    writing.commit();
}

std::string UpdatableCursor::insertSql() const {
    const auto table = quotedName(table_->name);
    if (changed_.empty()) return fmt::format("INSERT INTO {} DEFAULT VALUES", table);
    std::string names;
    std::string places;
    for (const int position : changed_) {
        names += (names.empty() ? "" : ",") + quotedName(column(position).column->name);
        places += places.empty() ? "?" : ",?";
    }
    return fmt::format("INSERT INTO {} ({}) VALUES ({})", table, names, places);
}

std::string UpdatableCursor::updateSql() const {
    std::string assignments;
    for (const int position : changed_)
        assignments += (assignments.empty() ? "" : ",") + quotedName(column(position).column->name) + "=?";
    return fmt::format("UPDATE {} SET {} WHERE rowid=?", quotedName(table_->name), assignments);
}

void UpdatableCursor::bindChanged(SqliteStatement& statement) const {
    // A row that was refused leaves the statement where it failed.
    statement.reset();
    int position = 0;
    for (const int changed : changed_)
        statement.bind(++position, current().fields[static_cast<std::size_t>(changed)]);
}

}  // namespace desk::embedded
