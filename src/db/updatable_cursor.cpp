#include "db/updatable_cursor.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/failure.h"
#include "db/storage.h"

namespace desk {

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
    if (changed_.empty()) before_ = current().fields;
    current().fields[static_cast<std::size_t>(position)] = stored(target->kind, value);
    const auto place = std::lower_bound(changed_.begin(), changed_.end(), position);
    if (place == changed_.end() || *place != position) changed_.insert(place, position);
}

void UpdatableCursor::update() {
    requireRow();
    requireTable();
    if (adding_) {
        insertRow(added_, changed_);
        adding_ = false;
        onAdded_ = true;
    } else if (!changed_.empty()) {
        updateRow(current(), before_, changed_);
    }
    changed_.clear();
}

}  // namespace desk
