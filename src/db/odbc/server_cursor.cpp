#include "db/odbc/server_cursor.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/odbc/server_words.h"
#include "db/storage.h"

namespace desk::odbc {

namespace {

std::vector<ResultColumn> columnsIn(OdbcStatement& answer, const schema::Table* table) {
    if (table != nullptr) answer.readAs(*table);
    return answer.columns();
}

bool isMoment(const schema::Column& column) {
    return column.kind == schema::Kind::date || column.kind == schema::Kind::moment;
}

DateTime secondAfter(DateTime moment) {
    constexpr std::chrono::seconds day = std::chrono::hours(24);
    moment.time += std::chrono::seconds(1);
    return moment.time < day ? moment : moment.dayOnly().plusDays(1);
}

/// Whether a column holds what was read. A moment there may have parts of a second, which were not read.
std::string holds(const schema::Column& column, const Value& value) {
    const auto name = bracketed(column.name);
    if (value.isNull()) return name + " Is Null";
    if (!isMoment(column)) return name + "=" + literal(value);
    const auto moment = heldMoment(value.text());
    return fmt::format("{}>='{}' And {}<'{}'", name, isoStamp(moment), name, isoStamp(secondAfter(moment)));
}

}  // namespace

ServerCursor::ServerCursor(std::shared_ptr<Server> server, OdbcStatement answer, const schema::Table* table)
    : ServerCursor(std::move(server), answer, table, columnsIn(answer, table)) {}

ServerCursor::ServerCursor(std::shared_ptr<Server> server, OdbcStatement& answer, const schema::Table* table,
                           std::vector<ResultColumn> columns)
    : UpdatableCursor(std::move(columns), table), server_(std::move(server)) {
    while (answer.step()) hold({0, heldRow(answer, this->columns(), 0)});
    answer.close();
}

void ServerCursor::insertRow(Row& row, const std::vector<int>& changed) {
    const auto* identity = table()->identity();
    auto batch = insertText(row, changed);
    if (identity == nullptr) {
        server_->run(batch);
        return;
    }
    auto answer = server_->send(batch + "; Select SCOPE_IDENTITY()");
    while (answer.columns().empty() && answer.nextAnswer()) {
    }
    Value number;
    if (!answer.columns().empty() && answer.step() && !answer.isNull(0))
        number = static_cast<std::int64_t>(answer.number(0));
    answer.finish();
    for (std::size_t i = 0; i < row.fields.size(); ++i) {
        const auto* source = column(static_cast<int>(i)).column;
        if (source == identity || (source != nullptr && source->copyOf == identity->name))
            row.fields[i] = number;
    }
}

std::string ServerCursor::insertText(const Row& row, const std::vector<int>& changed) const {
    const auto name = bracketed(table()->name);
    if (changed.empty()) return fmt::format("Insert Into {} Default Values", name);
    std::vector<std::string> names;
    std::vector<std::string> values;
    for (const int position : changed) {
        names.push_back(bracketed(column(position).column->name));
        values.push_back(literal(row.fields[static_cast<std::size_t>(position)]));
    }
    return fmt::format("Insert Into {} ({}) Values ({})", name, join(names, ","), join(values, ","));
}

void ServerCursor::updateRow(const Row& row, const HeldRow& before, const std::vector<int>& changed) {
    std::vector<std::string> assignments;
    for (const int position : changed)
        assignments.push_back(bracketed(column(position).column->name) + "=" +
                              literal(row.fields[static_cast<std::size_t>(position)]));
    const auto address = table()->address();
    const auto statement =
        fmt::format("Update {}{} Set {} Where {}", address.unique ? "" : "Top (1) ", bracketed(table()->name),
                    join(assignments, ","), addressOf(before, address));
    if (server_->run(statement) == 0)
        throw RuntimeFailure(failure::rowGone, "无法为更新定位行。一些值可能已在最后一次读取后已更改。");
}

std::string ServerCursor::addressOf(const HeldRow& before, const schema::RowAddress& address) const {
    std::vector<std::string> conditions;
    for (const auto* wanted : address.columns) {
        const int position = positionOf(*wanted);
        if (position >= 0) {
            conditions.push_back(holds(*wanted, before[static_cast<std::size_t>(position)]));
        } else if (address.unique) {
            throw RuntimeFailure(
                failure::updateNotSupported,
                fmt::format("当前记录集不支持更新：它缺少列 '{}'，无法定位行。", wanted->name));
        }
    }
    return join(conditions, " And ");
}

int ServerCursor::positionOf(const schema::Column& wanted) const {
    for (std::size_t i = 0; i < columns().size(); ++i)
        if (columns()[i].column == &wanted) return static_cast<int>(i);
    return -1;
}

}  // namespace desk::odbc
