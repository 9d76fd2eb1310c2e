#include "db/recordset.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "db/engine.h"
#include "db/failing_statement.h"
#include "schema/catalogue.h"

namespace desk {

namespace {

[[noreturn]] void noSuchField(std::string_view field) {
    throw RuntimeFailure(failure::noSuchField,
                         fmt::format("在对应所需名称或序数的集合中，未找到项目 '{}'。", field));
}

}  // namespace

Recordset::Recordset(Connection& connection, std::string_view statement, Rows mode)
    : statement_(statement),
      cursor_(naming(statement_, [&] { return connection.engine().open(statement, mode); })) {}

Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

bool Recordset::atEnd() const {
    return cursor_->atEnd();
}
void Recordset::moveNext() {
    naming(statement_, [&] { cursor_->moveNext(); });
}

int Recordset::columnCount() const {
    return static_cast<int>(cursor_->columnNames().size());
}
const std::string& Recordset::columnName(int column) const {
    const auto& names = cursor_->columnNames();
    const auto position = static_cast<std::size_t>(column);
    if (position >= names.size()) noSuchField(std::to_string(column));
    return names[position];
}

int Recordset::column(std::string_view name) const {
    const auto& names = cursor_->columnNames();
    for (std::size_t i = 0; i < names.size(); ++i)
        if (schema::sameName(names[i], name)) return static_cast<int>(i);
    noSuchField(name);
}

void Recordset::addNew() {
    cursor_->addNew();
}
void Recordset::update() {
    naming(statement_, [&] { cursor_->update(); });
}

Value Recordset::Field::value() const {
    return rows_.cursor_->value(column_);
}
bool Recordset::Field::isNull() const {
    return rows_.cursor_->isNull(column_);
}
std::string Recordset::Field::text() const {
    return rows_.cursor_->text(column_);
}
std::string_view Recordset::Field::view() const {
    return rows_.cursor_->view(column_);
}
void Recordset::Field::operator=(const Value& value) {
    naming(rows_.statement_, [&] { rows_.cursor_->set(column_, value); });
}

bool anyRow(Connection& connection, std::string_view statement) {
    return !Recordset(connection, statement).atEnd();
}

}  // namespace desk
