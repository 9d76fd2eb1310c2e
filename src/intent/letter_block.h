#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "ui/fields.h"

namespace desk {

/// The fields of a letter of intent: its number, and nineteen texts of which each stands in a column of its
/// own. The number's box carries the letter's `ID` in its tag, the tenant's box the customer's; 清空文本框
/// leaves both.
class 意向书信息块 {
  public:
    enum class Use { editable, locked };
    struct Field {
        std::string_view caption;
        std::string_view column;
        TextStyle style = TextStyle::line;
    };
    /// In the order in which they are shown and written.
    static const std::vector<Field>& fields();

    /// Each box is named after its column, the number's "登记编号".
    意向书信息块(Place place, Use use);

    TextBox 登记编号;
    /// The box of that column; there must be one.
    TextBox& operator[](std::string_view column);
    /// In the order of fields().
    std::deque<TextBox>& boxes() { return boxes_; }

    /// The `ID` of the letter that is shown, empty without one.
    const std::string& id() const { return 登记编号.tag; }

    /// Shows the row of a letter, NULL as the empty text, and remembers its `ID` and its customer.
    void show(Recordset& letter);
    /// Holds the fields, the customer behind the tenant, for the row's update(): an empty one as NULL, the
    /// others as they were typed, for the columns to convert.
    void write(Recordset& letter);

  private:
    std::deque<TextBox> boxes_;
};

}  // namespace desk
