#include "customers/lead_block.h"

#include <stdexcept>

namespace desk {

客户信息块::客户信息块(Screen& screen, std::initializer_list<Field> fields) : fields_(fields) {
    for (const auto& field : fields_) boxes_.emplace_back(screen, std::string(field.column)).setLocked(true);
}

void 客户信息块::show(Recordset& lead) {
    for (std::size_t i = 0; i < fields_.size(); ++i) boxes_[i].setText(lead[fields_[i].column].text());
}

TextBox& 客户信息块::operator[](std::string_view column) {
    for (auto& box : boxes_)
        if (box.name() == column) return box;
    throw std::logic_error("no such field: " + std::string(column));
}

}  // namespace desk
