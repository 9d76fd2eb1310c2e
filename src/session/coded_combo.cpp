#include "session/coded_combo.h"

#include "base/text.h"
#include "ui/batch.h"

namespace desk {

namespace {

void selectWhere(ComboBox& combo, std::string_view (*part)(std::string_view), std::string_view wanted) {
    for (int i = 0; i < combo.count(); ++i)
        if (part(combo.items()[static_cast<std::size_t>(i)].text) == wanted) return combo.setIndex(i);
}

}  // namespace

void fillCoded(ComboBox& combo, Recordset rows, std::string_view codeColumn, std::string_view nameColumn) {
    const Batch fill(combo);
    combo.clear();
    for (; !rows.atEnd(); rows.moveNext())
        combo.addItem(rows[codeColumn].text() + " " + rows[nameColumn].text());
}

void selectByCode(ComboBox& combo, std::string_view code) {
    selectWhere(combo, codeBeforeBlank, code);
}

void selectByName(ComboBox& combo, std::string_view name) {
    selectWhere(combo, nameAfterBlank, name);
}

}  // namespace desk
