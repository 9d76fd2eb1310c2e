#include "session/coded_combo.h"

#include "base/text.h"
#include "db/recordset.h"
#include "ui/batch.h"

namespace desk {

namespace {

void selectWhere(ComboBox& combo, std::string_view (*part)(std::string_view), std::string_view wanted) {
    for (int i = 0; i < combo.count(); ++i)
        if (part(combo.items()[static_cast<std::size_t>(i)].text) == wanted) return combo.setIndex(i);
}

}  // namespace

void CodedCombo::fill(Recordset rows, const Columns& columns) {
    const Batch filling(*this);
    clear();
    for (auto& row : rows) {
        const std::string text = row[columns.code].text() + " " + row[columns.name].text();
        if (columns.colour.empty()) {
            addItem(text);
            continue;
        }
        const auto colour = static_cast<Colour>(row[columns.colour].integer());
        addItem(text, colour, colour);
    }
}

std::string CodedCombo::code() const {
    return std::string(codeBeforeBlank(text()));
}
std::string CodedCombo::name() const {
    return std::string(nameAfterBlank(text()));
}

void CodedCombo::selectCode(std::string_view code) {
    selectWhere(*this, codeBeforeBlank, code);
}
void CodedCombo::selectName(std::string_view name) {
    selectWhere(*this, nameAfterBlank, name);
}

}  // namespace desk
