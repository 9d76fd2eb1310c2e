#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>

#include "db/recordset.h"
#include "ui/fields.h"

namespace desk {

/// The read-only fields of a customer on the screens behind the registration.
class 客户信息块 {
  public:
    struct Field {
        std::string_view caption;
        std::string_view column;
    };

    /// Each field is a locked text box named after its column.
    客户信息块(Screen& screen, std::initializer_list<Field> fields);

    /// Shows the row's columns, NULL as the empty text.
    void show(Recordset& lead);
    /// The box of that column; there must be one.
    TextBox& operator[](std::string_view column);
    const std::deque<TextBox>& boxes() const { return boxes_; }
    std::string_view caption(std::size_t index) const { return fields_[index].caption; }

  private:
    std::vector<Field> fields_;
    std::deque<TextBox> boxes_;
};

}  // namespace desk
