#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "db/recordset.h"

namespace desk {

class DatePicker;
class TextBox;

/// The fields of a screen and the columns that they show and write, each pair named once, in the order in
/// which they are written. The controls must outlive it.
class RowFields {
  public:
    /// Shown as text, NULL as the empty one; written as typed, NULL when empty.
    void add(std::string_view column, TextBox& box);
    /// Shown as the above; written as the number at the head of the text, NULL when empty.
    void addNumber(std::string_view column, TextBox& box);
    /// NULL leaves the day that is shown.
    void add(std::string_view column, DatePicker& day);

    void show(Recordset& row) const;
    /// Holds all values until the row's update(); fails as the assignment to a field does.
    void write(Recordset& row) const;

  private:
    struct Field {
        std::string_view column;
        std::function<void(const Recordset::Field&)> show;
        std::function<Value()> written;
    };
    std::vector<Field> fields_;
};

}  // namespace desk
