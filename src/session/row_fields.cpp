#include "session/row_fields.h"

#include "base/number.h"
#include "ui/fields.h"

namespace desk {

namespace {

auto shownIn(TextBox& box) {
    return [&box](const Recordset::Field& field) { box.setText(field.text()); };
}

}  // namespace

void RowFields::add(std::string_view column, TextBox& box) {
    fields_.push_back({column, shownIn(box), [&box] { return nullIfEmpty(box.text()); }});
}

void RowFields::addNumber(std::string_view column, TextBox& box) {
    fields_.push_back(
        {column, shownIn(box), [&box] { return box.text().empty() ? Value() : Value(val(box.text())); }});
}

void RowFields::add(std::string_view column, DatePicker& day) {
    fields_.push_back({column,
                       [&day](const Recordset::Field& field) {
                           if (!field.isNull()) day.setValue(field.moment());
                       },
                       [&day] { return Value(day.value()); }});
}

void RowFields::show(Recordset& row) const {
    for (const Field& field : fields_) field.show(row[field.column]);
}

void RowFields::write(Recordset& row) const {
    for (const Field& field : fields_) row[field.column] = field.written();
}

}  // namespace desk
