#include "desktop/grid_binding.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

#include "desktop/binding.h"
#include "desktop/cell_pictures.h"
#include "desktop/column_fit.h"
#include "desktop/copy_rows.h"
#include "desktop/find_bar.h"
#include "desktop/grid_header.h"
#include "desktop/hint.h"
#include "desktop/keys.h"
#include "desktop/row_delegate.h"
#include "desktop/view_clicks.h"

namespace desk::desktop {

namespace {

Qt::Alignment alignmentOf(Align align) {
    switch (align) {
        case Align::centre:
            return Qt::AlignCenter;
        case Align::right:
            return Qt::AlignRight | Qt::AlignVCenter;
        case Align::left:
        case Align::general:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(&grid) {
    takeCounts();
    follow(this, grid.structureChanged, [this] {
        beginResetModel();
        takeCounts();
        endResetModel();
    });
    follow(this, grid.cellsChanged, [this] {
        if (rows_ > 0 && columns_ > 0) dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
        if (columns_ > 0) headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    });
    follow(this, grid.gone, [this] { grid_ = nullptr; });
}

void GridModel::takeCounts() {
    rows_ = std::max(grid_->rows() - grid_->fixedRows(), 0);
    columns_ = grid_->columns();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || grid_ == nullptr) return {};
    return answered([&] { return cell(index.row() + grid_->fixedRows(), index.column(), role); });
}

QVariant GridModel::cell(int row, int column, int role) const {
    if (row >= grid_->rows() || column >= grid_->columns()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return text(grid_->text(row, column));
        case Qt::TextAlignmentRole:
            return QVariant(
                alignmentOf(grid_->cellAlignment(row, column).value_or(grid_->alignment(column))));
        case Qt::BackgroundRole:
            if (const auto back = grid_->cellColour(row, column)) return colour(*back);
            if (column < grid_->fixedColumns()) return QGuiApplication::palette().color(QPalette::Button);
            return {};
        case ownColourRole:
            return grid_->cellColour(row, column).has_value();
        case pictureRole:
            return text(grid_->cellPicture(row, column));
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return wordsOfPicture(grid_->cellPicture(row, column));
        case Qt::ForegroundRole:
            if (const auto fore = grid_->cellTextColour(row, column)) return colour(*fore);
            return {};
        case Qt::FontRole:
            if (grid_->cellBold(row, column)) {
                QFont font;
                font.setBold(true);
                return font;
            }
            return {};
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || grid_ == nullptr) return {};
    return answered([&] { return header(section, role); });
}

QVariant GridModel::header(int section, int role) const {
    if (section < 0 || section >= grid_->columns()) return {};
    if (role == Qt::DisplayRole && grid_->rows() > 0 && grid_->fixedRows() > 0)
        return onOneLine(grid_->text(0, section));
    if (role == Qt::TextAlignmentRole) {
        const auto own = grid_->rows() > 0 ? grid_->cellAlignment(0, section) : std::nullopt;
        return QVariant(alignmentOf(own.value_or(grid_->fixedAlignment(section))));
    }
    return {};
}

namespace {

/// A cell with a colour of its own says something by it, and shows it also in the selected row. What merged
/// cells say stands in the part of them that is in view, and a picture in the middle of its cell.
class CellPainter : public RowDelegate {
  public:
    using RowDelegate::RowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        RowDelegate::paint(painter, inView(option, index), index);
        const QString picture = index.data(GridModel::pictureRole).toString();
        if (picture.isEmpty()) return;
        painter->setPen(option.palette.color(option.state & QStyle::State_Selected ? QPalette::HighlightedText
                                                                                   : QPalette::Text));
        drawPicture(*painter, option.rect, utf8(picture));
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        RowDelegate::initStyleOption(option, index);
        if (index.data(GridModel::ownColourRole).toBool()) option->state &= ~QStyle::State_Selected;
    }

  private:
    static QStyleOptionViewItem inView(const QStyleOptionViewItem& option, const QModelIndex& index) {
        QStyleOptionViewItem shown = option;
        const auto* view = qobject_cast<const QTableView*>(option.widget);
        if (view == nullptr || view->rowSpan(index.row(), index.column()) == 1) return shown;
        shown.rect.setTop(std::max(option.rect.top(), 0));
        shown.rect.setBottom(std::min(option.rect.bottom(), view->viewport()->height() - 1));
        return shown;
    }
};

/// Shows as marked what is current in the grid. The left button clicks, keys click or move as the grid says,
/// and the focus does neither.
class GridWidget : public QTableView {
  public:
    explicit GridWidget(Grid& grid) : grid_(grid) {
        // Without a fixed row the grid has no header; with several they stand above each other.
        setHorizontalHeader(new GridHeader(grid, this));
        setModel(new GridModel(grid, this));
        verticalHeader()->hide();
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
        verticalHeader()->setMinimumSectionSize(fontMetrics().height() + 4);
        horizontalHeader()->setMinimumSectionSize(4);
        horizontalHeader()->setHighlightSections(false);
        setSelectionMode(QAbstractItemView::SingleSelection);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setTabKeyNavigation(false);
        setWordWrap(false);
        setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        setMinimumHeight(60);
        clickByLeftButtonOnly(this);
        connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
            if (verticalScrollMode() == ScrollPerPixel) enter([&] { grid_.scrollTo(twips(value)); });
            if (isBound(this) && grid_.merging() != Merge::never) viewport()->update();
        });
        connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) { click(index); });
        connect(this, &QTableView::doubleClicked, this, [this] { enter([this] { grid_.pressAgain(); }); });
        follow(this, grid.structureChanged, [this] { showStructure(); });
        follow(this, grid.cellsChanged, [this] { showMerges(); });
        follow(this, grid.currentChanged, [this] { showCurrent(); });
        showStructure();
    }

  protected:
    /// A press that was let go elsewhere has marked a cell that nobody clicked.
    void mouseReleaseEvent(QMouseEvent* event) override {
        QTableView::mouseReleaseEvent(event);
        if (isBound(this)) showCurrent();
    }

    void focusInEvent(QFocusEvent* event) override {
        QTableView::focusInEvent(event);
        goNowhereByFocus(this);
    }

    /// Enter and Space go where a click leads.
    void keyPressEvent(QKeyEvent* event) override {
        if (isEnter(*event) || event->key() == Qt::Key_Space) return click(currentIndex());
        // Ctrl alone begins the key that copies all that is marked.
        if (event->key() >= Qt::Key_Shift && event->key() <= Qt::Key_Alt) return event->ignore();
        const QModelIndex before = currentIndex();
        QTableView::keyPressEvent(event);
        if (currentIndex().isValid() && currentIndex() != before) moveTo(currentIndex());
        if (isBound(this)) showCurrent();
    }

    void resizeEvent(QResizeEvent* event) override {
        QTableView::resizeEvent(event);
        if (std::exchange(sizeIsNew_, true)) return;
        // The screen may answer with a box, which cannot stand in the midst of a layout.
        QTimer::singleShot(0, this, [this] { tellSize(); });
    }

  private:
    void tellSize() {
        sizeIsNew_ = false;
        if (!isBound(this)) return;
        enter([this] {
            grid_.resize(twips(viewport()->width()) + Grid::scrollBarWidth, twips(viewport()->height()));
        });
    }

    void click(const QModelIndex& index) {
        if (index.isValid()) enter([&] { grid_.click(index.row() + grid_.fixedRows(), index.column()); });
    }

    /// Arrow keys look at one row after the other, so the keyboard stays here wherever a click would lead it.
    void moveTo(const QModelIndex& index) {
        enter([&] { grid_.moveTo(index.row() + grid_.fixedRows(), index.column()); });
        if (isVisible()) setFocus();
    }

    void showStructure() {
        setSelectionBehavior(grid_.selection() == GridSelection::row ? SelectRows : SelectItems);
        horizontalHeader()->setVisible(grid_.fixedRows() > 0);
        if (grid_.sizes() == GridSizes::asSet)
            showSizes();
        else
            showTextSizes();
        showMerges();
        showCurrent();
    }

    /// Each edge is rounded by itself, so that no error adds up and what lies over a cell fits.
    void showSizes() {
        setVerticalScrollMode(ScrollPerPixel);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setWordWrap(true);
        horizontalHeader()->setMinimumSectionSize(1);
        verticalHeader()->setMinimumSectionSize(1);
        double right = 0;
        for (int column = 0; column < grid_.columns(); ++column) {
            const double left = std::exchange(right, right + grid_.columnWidth(column));
            setColumnWidth(column, pixels(right) - pixels(left));
        }
        double bottom = 0;
        for (int row = grid_.fixedRows(); row < grid_.rows(); ++row) {
            const double top = std::exchange(bottom, bottom + grid_.rowHeight(row));
            setRowHeight(row - grid_.fixedRows(), pixels(bottom) - pixels(top));
        }
    }

    void showTextSizes() {
        for (int column = 0; column < grid_.columns(); ++column) {
            const int width = pixels(grid_.columnWidth(column));
            setColumnHidden(column, width == 0);
            // The width is that of the text; Qt takes its margins from it.
            constexpr int margins = 6;
            if (width > 0) setColumnWidth(column, width + margins);
        }
        for (int row = grid_.fixedRows(); row < grid_.rows(); ++row)
            if (const int height = grid_.rowHeight(row); height > 0)
                setRowHeight(row - grid_.fixedRows(), pixels(height));
    }

    /// Equal neighbours as one cell, in the rows and columns that the grid names.
    void showMerges() {
        clearSpans();
        if (grid_.merging() == Merge::never) return;
        for (int column = 0; column < grid_.columns(); ++column)
            if (grid_.mergesColumn(column)) mergeColumn(column);
        for (int row = grid_.fixedRows(); row < grid_.rows(); ++row)
            if (grid_.mergesRow(row)) mergeRow(row);
    }

    void mergeColumn(int column) {
        for (int row = grid_.fixedRows(); row < grid_.rows();) {
            int end = row + 1;
            while (end < grid_.rows() && !grid_.text(row, column).empty() &&
                   grid_.text(end, column) == grid_.text(row, column))
                ++end;
            if (end - row > 1) setSpan(row - grid_.fixedRows(), column, end - row, 1);
            row = end;
        }
    }

    void mergeRow(int row) {
        for (int column = 0; column < grid_.columns();) {
            int end = column + 1;
            while (end < grid_.columns() && !grid_.text(row, column).empty() &&
                   grid_.text(row, end) == grid_.text(row, column))
                ++end;
            if (end - column > 1) setSpan(row - grid_.fixedRows(), column, 1, end - column);
            column = end;
        }
    }

    void showCurrent() {
        const int row = grid_.row() - grid_.fixedRows();
        if (row < 0 || row >= model()->rowCount()) return selectionModel()->clear();
        // A hidden column cannot be current on the screen.
        int column = grid_.column();
        if (isColumnHidden(column)) column = 0;
        const QModelIndex index = model()->index(row, column);
        if (index == currentIndex() && selectionModel()->isSelected(index)) return;
        const auto whole = grid_.selection() == GridSelection::row ? QItemSelectionModel::Rows
                                                                   : QItemSelectionModel::NoUpdate;
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | whole);
    }

    Grid& grid_;
    bool sizeIsNew_ = false;  ///< and not told yet
};

Searched searchOf(Grid& grid, QTableView* view) {
    const auto find = [&grid, view](Wanted& wanted, const QModelIndex& from, Towards towards) {
        std::optional<GridPlace> place;
        if (from.isValid()) place = {from.row() + grid.fixedRows(), from.column()};
        const auto found = findCell(grid, wanted, place, towards);
        return found ? view->model()->index(found->row - grid.fixedRows(), found->column) : QModelIndex();
    };
    const auto click = [&grid](const QModelIndex& index) {
        enter([&] { grid.click(index.row() + grid.fixedRows(), index.column()); });
    };
    return {find, click};
}

}  // namespace

QWidget* gridWidget(Grid& grid) {
    auto* view = new GridWidget(grid);
    auto* rows = new CellPainter(view);
    view->setItemDelegate(rows);
    if (grid.sizes() == GridSizes::byTexts) fitColumns(view, grid);
    showHint(view, grid.hint);
    addCopying(view, grid);
    new FindBar(view, rows, searchOf(grid, view));
    follow(view, grid.revealAsked, [view, &grid](int row) {
        // Rows that have only just come have no place yet.
        view->doItemsLayout();
        view->scrollTo(view->model()->index(row - grid.fixedRows(), std::max(view->columnAt(0), 0)));
    });
    return view;
}

}  // namespace desk::desktop
