#include "desktop/copy_rows.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTableView>

#include "desktop/convert.h"
#include "desktop/find_bar.h"
#include "ui/grid.h"
#include "ui/sheet_text.h"

namespace desk::desktop {

namespace {

class Copying : public QObject {
  public:
    Copying(QTableView* view, Grid& grid) : QObject(view), view_(view), grid_(grid) {
        add(QKeySequence::SelectAll, [this] { selectAll(); });
        add(QKeySequence::Copy, [this] { copySelected(); });
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(view, &QTableView::customContextMenuRequested, this, [this](QPoint at) { offer(at); });
    }

  private:
    template <class Act>
    void add(QKeySequence::StandardKey key, Act act) {
        auto* action = new QAction(view_);
        action->setShortcuts(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, act);
        view_->addAction(action);
    }

    static void copy(const std::string& lines) { QApplication::clipboard()->setText(text(lines)); }

    bool allSelected() const {
        const int cells = view_->model()->rowCount() * view_->model()->columnCount();
        int selected = 0;
        for (const auto& range : view_->selectionModel()->selection())
            selected += range.width() * range.height();
        return cells > 0 && selected == cells;
    }

    /// For the eye and for copying; what is current stays, and nothing is clicked.
    void selectAll() {
        const QAbstractItemModel& model = *view_->model();
        if (model.rowCount() == 0 || model.columnCount() == 0) return;
        const QItemSelection all(model.index(0, 0),
                                 model.index(model.rowCount() - 1, model.columnCount() - 1));
        view_->selectionModel()->select(all, QItemSelectionModel::ClearAndSelect);
    }

    void copySelected() {
        if (allSelected()) return copy(sheetRows(grid_, grid_.fixedRows(), grid_.rows()));
        const QModelIndexList selected = view_->selectionModel()->selectedIndexes();
        if (selected.isEmpty()) return;
        if (grid_.selection() == GridSelection::row || selected.size() > 1)
            copyRow(selected.front());
        else
            copyCell(selected.front());
    }

    void copyRow(const QModelIndex& index) {
        const int row = index.row() + grid_.fixedRows();
        copy(sheetRows(grid_, row, row + 1));
    }
    void copyCell(const QModelIndex& index) {
        copy(sheetCell(grid_.text(index.row() + grid_.fixedRows(), index.column())));
    }

    void offer(QPoint at) {
        auto* menu = new QMenu(view_);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const auto entry = [&](const char* caption, bool usable, auto act) {
            QAction* action = menu->addAction(caption);
            action->setEnabled(usable);
            connect(action, &QAction::triggered, this, act);
        };
        const QPersistentModelIndex index = view_->indexAt(at);
        const auto onIndex = [this, index](void (Copying::*act)(const QModelIndex&)) {
            return [this, index, act] {
                if (index.isValid()) (this->*act)(index);
            };
        };
        const bool anyRow = view_->model()->rowCount() > 0;
        entry("复制此格(&O)", index.isValid(), onIndex(&Copying::copyCell));
        entry("复制此行(&R)", index.isValid(), onIndex(&Copying::copyRow));
        entry("复制全部(&C)", anyRow, [this] { copy(sheetRows(grid_, grid_.fixedRows(), grid_.rows())); });
        entry("连同标题复制全部(&T)", anyRow, [this] { copy(sheetRows(grid_, 0, grid_.rows())); });
        menu->addSeparator();
        entry("全选(&A)\tCtrl+A", anyRow, [this] { selectAll(); });
        entry("查找(&F)…\tCtrl+F", anyRow, [this] {
            if (FindBar* bar = FindBar::of(view_)) bar->open();
        });
        menu->popup(view_->viewport()->mapToGlobal(at));
    }

    QTableView* view_;
    Grid& grid_;
};

}  // namespace

void addCopying(QTableView* view, Grid& grid) {
    new Copying(view, grid);
}

}  // namespace desk::desktop
