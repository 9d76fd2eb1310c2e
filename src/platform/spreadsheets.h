#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// How a cell of a worksheet looks.
struct CellLook {
    enum class Format { general, text, number };  ///< number: "0.00_ "
    enum class Across { general, left, centre, right };
    enum class Down { bottom, top, centre, distributed };

    Format format = Format::general;
    Across across = Across::general;
    Down down = Down::bottom;
    bool bordered = false;
    double fontSize = 0;  ///< points, 0 = the workbook's own

    auto operator<=>(const CellLook&) const = default;
};

/// One sheet as it is to be written. Rows and columns are counted from 0.
class Worksheet {
  public:
    static constexpr int maxRows = 65536;
    static constexpr int maxColumns = 256;

    struct Cell {
        std::string text;  ///< of a number cell: stored as a number if it is one
        CellLook look;
    };
    /// Rows below those that the sheet holds itself. Their texts are not copied: they stay where they are,
    /// unchanged, until the sheet has been written.
    struct Table {
        int rows = 0;
        std::vector<CellLook> columns;  ///< how the cells of each column look
        std::function<std::string_view(int row, int column)> text;
        std::function<void(int row)> reached;  ///< told as the rows are written; may be empty
    };
    struct Range {
        int top;
        int left;
        int bottom;
        int right;
    };

    explicit Worksheet(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    /// Makes the cell if there is none. Fails with 1004 past the limits of the file format.
    Cell& at(int row, int column);
    const std::vector<std::vector<Cell>>& rows() const { return rows_; }
    /// Fails with 1004 past the limits of the file format.
    void append(Table table);
    const Table& table() const { return table_; }

    /// In characters of the workbook's own font. Fails with 1004 beyond 255.
    void setColumnWidth(int column, double characters);
    const std::map<int, double>& columnWidths() const { return widths_; }
    /// The look of a row outside its cells.
    void setRowLook(int row, const CellLook& look) { rowLooks_[row] = look; }
    const std::map<int, CellLook>& rowLooks() const { return rowLooks_; }
    /// Shows the cells as one, with those that they are one with already. Fails with 1004 if the range holds
    /// none.
    void merge(const Range& range);
    const std::vector<Range>& merges() const { return merges_; }

  private:
    std::string name_;
    std::vector<std::vector<Cell>> rows_;
    Table table_;
    std::map<int, double> widths_;
    std::map<int, CellLook> rowLooks_;
    std::vector<Range> merges_;
};

/// Workbook files.
class Spreadsheets {
  public:
    virtual ~Spreadsheets() = default;
    /// Makes a workbook with one empty sheet. Fails with 75 when the file cannot be written.
    virtual void create(const std::string& path) = 0;
    /// Adds `sheet` behind the sheets of the workbook, or gives its cells to that of the same name, whose
    /// set-up stays; the first window is shown. The file is the old one or the new one, whole, at any moment.
    /// Fails with 1004 and a text that says why, the file being left alone: no workbook, encrypted, damaged,
    /// too large.
    virtual void put(const std::string& path, const Worksheet& sheet) = 0;
};

}  // namespace desk
