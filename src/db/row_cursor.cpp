#include "db/row_cursor.h"

#include "base/failure.h"
#include "base/number.h"
#include "db/storage.h"

namespace desk {

using tsql::Type;

RowCursor::RowCursor(std::vector<ResultColumn> columns) : columns_(std::move(columns)) {
    columnNames_.reserve(columns_.size());
    for (const auto& column : columns_) columnNames_.push_back(column.name);
}

void RowCursor::requireRow() const {
    if (atEnd())
        throw RuntimeFailure(
            failure::noCurrentRow,
            "BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除，所需的操作要求一个当前的记录。");
}

Value RowCursor::value(int position) const {
    requireRow();
    if (heldNull(position)) return {};
    switch (column(position).type) {
        case Type::integer:
        case Type::condition:
            return heldInteger(position);
        case Type::number:
            return heldNumber(position);
        case Type::date:
        case Type::moment:
            return heldMoment(heldText(position));
        case Type::text:
            return heldText(position);
        case Type::null:
            break;
    }
    return {};
}

bool RowCursor::isNull(int position) const {
    requireRow();
    return heldNull(position);
}

std::string RowCursor::text(int position) const {
    requireRow();
    if (heldNull(position)) return {};
    switch (column(position).type) {
        case Type::integer:
        case Type::condition:
            return std::to_string(heldInteger(position));
        case Type::number:
            return numberText(heldNumber(position));
        case Type::date:
        case Type::moment:
            return std::string(dateText(heldText(position)));
        case Type::text:
            return std::string(heldText(position));
        case Type::null:
            break;
    }
    return {};
}

std::string_view RowCursor::view(int position) const {
    requireRow();
    return heldText(position);
}

std::int64_t integerIn(const HeldRow& row, int column) {
    return row[static_cast<std::size_t>(column)].integer();
}
double numberIn(const HeldRow& row, int column) {
    return row[static_cast<std::size_t>(column)].number();
}
std::string_view textIn(const HeldRow& row, int column) {
    const auto* text = std::get_if<std::string>(&row[static_cast<std::size_t>(column)].held());
    return text != nullptr ? std::string_view(*text) : std::string_view();
}

}  // namespace desk
