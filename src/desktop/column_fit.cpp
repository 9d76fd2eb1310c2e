#include "desktop/column_fit.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>
#include <algorithm>

#include "desktop/binding.h"
#include "ui/column_shares.h"
#include "ui/grid.h"

namespace desk::desktop {

namespace {

constexpr int margins = 10;
/// Rows that are measured: the first tell enough about the others.
constexpr int looked = 200;

/// Whether the text is to be read, and no number, day or telephone number.
bool isProse(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    });
}

class ColumnFit : public QObject {
  public:
    ColumnFit(QTableView* view, Grid& grid) : QObject(view), view_(view), grid_(grid) {
        follow(this, grid.structureChanged, [this] {
            dragged_ = false;
            fit();
        });
        follow(this, grid.cellsChanged, [this] { fit(); });
        connect(view->horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
            if (!fitting_ && (QGuiApplication::mouseButtons() & Qt::LeftButton)) dragged_ = true;
        });
        view->viewport()->installEventFilter(this);
        fit();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) fit();
        return false;
    }

  private:
    void fit() {
        if (!isBound(view_) || dragged_ || fitting_ || view_->model()->columnCount() != grid_.columns())
            return;
        const QScopedValueRollback own(fitting_, true);
        std::vector<ColumnWish> wishes;
        for (int column = 0; column < grid_.columns(); ++column) wishes.push_back(wishOf(column));
        giveEmptyTable(wishes);
        const auto widths = columnShares(wishes, view_->viewport()->width());
        for (int column = 0; column < grid_.columns(); ++column)
            if (grid_.columnWidth(column) > 0)
                view_->setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
    }

    ColumnWish wishOf(int column) const {
        if (grid_.columnWidth(column) == 0) return {0, 0, false};
        const QFontMetrics font = view_->fontMetrics();
        const int number = font.horizontalAdvance("0000") + margins;
        ColumnWish wish{std::max(pixels(grid_.columnWidth(column)) + margins, number), number, false};
        for (int row = 0; row < std::min(grid_.rows(), looked); ++row) {
            const std::string& cell = grid_.text(row, column);
            wish.needed = std::max(wish.needed, font.horizontalAdvance(text(cell)) + margins);
            if (row >= grid_.fixedRows() && isProse(cell) &&
                isLeft(column, grid_.cellAlignment(row, column).value_or(grid_.alignment(column))))
                wish.takesSpare = true;
        }
        return wish;
    }

    bool isLeft(int column, Align align) const {
        // A fixed column holds numbers and marks.
        return column >= grid_.fixedColumns() && (align == Align::left || align == Align::general);
    }

    /// Without any text to tell by, the columns that were made wide are meant for texts.
    void giveEmptyTable(std::vector<ColumnWish>& wishes) const {
        if (std::any_of(wishes.begin(), wishes.end(), [](const auto& wish) { return wish.takesSpare; }))
            return;
        constexpr int wide = 100;
        for (int column = 0; column < grid_.columns(); ++column) {
            auto& wish = wishes[static_cast<std::size_t>(column)];
            wish.takesSpare = isLeft(column, grid_.alignment(column)) && wish.width >= wide;
        }
    }

    QTableView* view_;
    Grid& grid_;
    bool fitting_ = false;
    bool dragged_ = false;
};

}  // namespace

void fitColumns(QTableView* view, Grid& grid) {
    new ColumnFit(view, grid);
}

}  // namespace desk::desktop
