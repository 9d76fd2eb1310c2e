#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ui/area.h"
#include "ui/colour.h"
#include "ui/control.h"
#include "ui/moving_keys.h"

namespace desk {

/// How the text of a cell or column lies; the numbers are the grid's own, which exports test.
enum class Align : int { left = 1, centre = 4, right = 7, general = 9 };

/// How equal neighbouring cells are shown as one.
enum class Merge : int { never = 0, free = 1, restrictRows = 2, restrictColumns = 3, restrictAll = 4 };

/// What a click on the grid selects for the eye.
enum class GridSelection { cell, row };

/// What the sizes on the screen are made from: texts get the room that they need and share what is left over,
/// or widths and heights are exactly as the screen sets them, so that others can lie over the cells.
enum class GridSizes { byTexts, asSet };

/// A table of texts with header rows. It holds its rows itself and offers them to whoever shows it without a
/// copy. Rows and columns are counted from 0, the fixed rows included. Widths and heights are in twips.
class Grid : public Control {
  public:
    /// `format` is the header: titles between "|", each led by "<", "^" or ">" for its alignment, the title's
    /// length with its blanks giving the width. Sets the columns and leaves one header row.
    Grid(Place place, std::string name, std::string_view format = {});

    void setFormat(std::string_view format);

    int rows() const { return static_cast<int>(rows_.size()); }
    int columns() const { return static_cast<int>(columns_.size()); }
    int fixedRows() const { return fixedRows_; }
    int fixedColumns() const { return fixedColumns_; }
    /// New rows are empty; rows beyond the new count are dropped.
    void setRows(int count);
    void setColumns(int count);
    void setFixedRows(int count);
    void setFixedColumns(int count);

    /// Fail with 381 outside the grid.
    const std::string& text(int row, int column) const;
    void setText(int row, int column, std::string_view text);

    /// Appends a row, its first cells taking `cells`; gives its position.
    int addRow(std::vector<std::string> cells = {});
    void removeRow(int row);
    /// Drops all rows below the fixed ones.
    void clear() { setRows(fixedRows_); }

    /// The current cell. A new one raises `currentChanged`.
    int row() const { return row_; }
    int column() const { return column_; }
    void setCurrent(int row, int column);
    void setRow(int row) { setCurrent(row, column_); }

    int columnWidth(int column) const;
    /// 0 hides the column.
    void setColumnWidth(int column, int twips);
    Align alignment(int column) const;
    void setAlignment(int column, Align alignment);
    /// Of the cells in the fixed rows.
    Align fixedAlignment(int column) const;
    void setFixedAlignment(int column, Align alignment);
    int rowHeight(int row) const;
    void setRowHeight(int row, int twips);
    long rowData(int row) const;
    void setRowData(int row, long data);

    /// Nothing where nobody has coloured the cell.
    std::optional<Colour> cellColour(int row, int column) const;
    void setCellColour(int row, int column, std::optional<Colour> colour);
    std::optional<Colour> cellTextColour(int row, int column) const;
    void setCellTextColour(int row, int column, std::optional<Colour> colour);
    /// The name of the picture in the cell, empty without one.
    std::string_view cellPicture(int row, int column) const;
    void setCellPicture(int row, int column, std::string_view picture);
    std::optional<Align> cellAlignment(int row, int column) const;
    void setCellAlignment(int row, int column, std::optional<Align> alignment);
    bool cellBold(int row, int column) const;
    void setCellBold(int row, int column, bool bold);

    Merge merging() const { return merging_; }
    void setMerging(Merge merging);
    bool mergesRow(int row) const;
    void setMergesRow(int row, bool merges);
    bool mergesColumn(int column) const;
    void setMergesColumn(int column, bool merges);

    GridSelection selection() const { return selection_; }
    void setSelection(GridSelection selection);

    GridSizes sizes() const { return sizes_; }
    void setSizes(GridSizes sizes) { change(sizes_, sizes); }

    /// The room for its cells and a scroll bar of `scrollBarWidth`, in twips; 0 until it is shown.
    double width() const { return width_; }
    double height() const { return height_; }
    static constexpr double scrollBarWidth = 200;
    /// Told by whoever shows the grid; raises `resized` if it is new.
    void resize(double width, double height);
    /// How far the rows have been scrolled up, in twips.
    double scrollTop() const { return scrollTop_; }
    /// What a person does, or whoever shows the grid; raises `scrolled` if it is new.
    void scrollTo(double top);
    /// Where the cell lies in the view, the fixed rows not counted; for sizes as set. Fails with 381 outside
    /// the grid.
    Area cellArea(int row, int column) const;

    MovingKeys movingKeys() const { return movingKeys_; }
    void setMovingKeys(MovingKeys keys) { movingKeys_ = keys; }

    /// What people do; nothing while disabled or hidden, or where no such cell is. The cell becomes current
    /// first.
    void click(int row, int column);
    void doubleClick(int row, int column);
    /// The second press of a double click, whose first was a click.
    void pressAgain();
    /// The keys have gone to the cell: a click, or a new current cell alone, as always within a row that is
    /// marked as a whole.
    void moveTo(int row, int column);

    /// Between the two, whoever shows the grid is not told of rows, columns and cells; afterwards once. What
    /// screens listen to is raised at once, so that the end of a batch cannot fail.
    void beginUpdate() { ++updating_; }
    void endUpdate();

    /// Asks that the row be in view; neither makes it current nor clicks it.
    void reveal(int row) { revealAsked(row); }

    std::string hint;  ///< what to do first, read where the grid has no rows below the fixed ones

    Signal<> clicked;           ///< at the current cell
    Signal<> doubleClicked;     ///< at the current cell
    Signal<> currentChanged;    ///< row() or column() is new
    Signal<> structureChanged;  ///< rows or columns have come or gone, or a width, a height, a merge is new
    Signal<> cellsChanged;      ///< texts or looks are new
    Signal<int> revealAsked;
    Signal<> resized;
    Signal<> scrolled;

  private:
    struct Look {
        std::optional<Colour> back;
        std::optional<Colour> fore;
        std::optional<Align> align;
        std::string picture;
        bool bold = false;
    };
    struct Row {
        std::vector<std::string> cells;
        std::unordered_map<int, Look> looks;  ///< of the few cells that have one
        int height = 0;                       ///< 0 = the usual
        long data = 0;
        bool merges = false;
    };
    struct ColumnInfo {
        int width;
        Align align = Align::left;
        Align fixedAlign = Align::left;
        bool merges = false;
    };

    const Row& rowAt(int row) const;
    Row& rowAt(int row);
    const ColumnInfo& columnAt(int column) const;
    ColumnInfo& columnAt(int column);
    void checkCell(int row, int column) const;
    const Look* look(int row, int column) const;
    template <class T>
    void setLook(int row, int column, T Look::*part, T value);
    /// Gives a property of rows, columns or the whole grid a new value.
    template <class T>
    void change(T& property, T value) {
        if (property == value) return;
        property = value;
        structureIsNew();
    }
    void structureIsNew();
    void cellsAreNew();

    std::vector<Row> rows_;
    std::vector<ColumnInfo> columns_;
    int fixedRows_ = 1;
    int fixedColumns_ = 1;
    int row_ = 0;
    int column_ = 0;
    Merge merging_ = Merge::never;
    GridSelection selection_ = GridSelection::cell;
    GridSizes sizes_ = GridSizes::byTexts;
    double width_ = 0;
    double height_ = 0;
    double scrollTop_ = 0;
    MovingKeys movingKeys_ = MovingKeys::move;
    int updating_ = 0;
    bool structurePending_ = false;
    bool cellsPending_ = false;
};

}  // namespace desk
