#include "sample/filler.h"

namespace desk::sample {

Filler::Filler(Connection& connection, Name table, std::initializer_list<std::string_view> columns)
    : rows_(connection, sql("Select * From {} Where 1=0", table), Rows::updatable) {
    for (const auto column : columns) columns_.push_back(rows_.column(column));
}

void Filler::add(std::initializer_list<Value> values) {
    rows_.addNew();
    auto column = columns_.begin();
    for (const Value& value : values) rows_[*column++] = value;
    rows_.update();
    ++count_;
}

std::int64_t Filler::identity() {
    return rows_["ID"].integer();
}

}  // namespace desk::sample
