#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "ui/grid.h"

namespace desk {

/// What the column "打印" of a charge line shows.
struct 打印图 {
    static constexpr std::string_view 手选 = "Image1";      ///< the ticket is picked by hand from a book
    static constexpr std::string_view 待打印 = "Image2";    ///< the ticket will come from printing here
    static constexpr std::string_view 已打印 = "Image3";    ///< saved, and printed here
    static constexpr std::string_view 已存手选 = "Image4";  ///< saved, and picked by hand
};

/// The charge lines of one letter, the saved ones first; the last row is blank for the next entry. What a
/// line has beyond its cells stands in arrays beside them, indexed by grid row.
class 收费列表 : public Grid {
  public:
    enum Column {
        序,
        收费项目,
        科目编号,
        数量,
        单价,
        金额,
        票据类型,
        打印,
        票据簿编号,
        票据编号,
        退款标记,  ///< "OK" once the money was paid back
        记录ID,    ///< empty until the line is saved
    };

    收费列表(Place place, std::string name);

    std::vector<bool> 行打印标记;
    std::vector<std::string> 行收费项目代号;
    std::vector<bool> 行税控标记;
    std::vector<std::int32_t> 行票据ID;

    int lastRow() const { return rows() - 1; }
    /// With what the lines have beyond their cells; the header stays.
    void clear();
    /// Shows a payment row that is in the database.
    void appendSaved(Recordset& payment);
    /// The row for the next entry.
    void appendBlank();

    /// A line that cannot be edited any more; the last row always can.
    bool isSaved(int row) const { return row < lastRow() && !text(row, 记录ID).empty(); }
    /// Whether the picture says that the line is not in the database.
    bool waits(int row) const;
    /// Whether item or amount is missing.
    bool isIncomplete(int row) const;
    /// Whether nothing that counts has been typed into the row.
    bool isBlank(int row) const;

    /// Changes between a ticket picked by hand and one to be printed; a saved line stays as it is.
    void togglePrinting(int row);
    void takeTicket(int row, std::string_view book, std::string_view ticket, std::int32_t id);
    /// The amount by quantity and unit price.
    void computeAmount(int row);

    std::string_view picture(int row) const { return cellPicture(row, 打印); }
    void setPicture(int row, std::string_view name) { setCellPicture(row, 打印, name); }

  private:
    int append(std::vector<std::string> cells, std::string_view picture);
};

}  // namespace desk
