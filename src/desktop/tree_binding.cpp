#include "desktop/tree_binding.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTreeView>
#include <algorithm>

#include "desktop/binding.h"
#include "desktop/find_bar.h"
#include "desktop/hint.h"
#include "desktop/keys.h"
#include "desktop/row_delegate.h"
#include "desktop/view_clicks.h"
#include "ui/find.h"

namespace desk::desktop {

TreeModel::TreeModel(Tree& tree, QObject* parent) : QAbstractItemModel(parent), tree_(tree) {
    follow(this, tree.structureChanging, [this] { beginChange(); });
    follow(this, tree.structureChanged, [this] { endChange(); });
    follow(this, tree.gone, [this] { away_ = true; });
}

void TreeModel::beginChange() {
    if (away_) return;
    if (const auto& step = tree_.step()) {
        const QModelIndex parent = indexOf(step->parent);
        if (step->what == Tree::Step::What::comes)
            beginInsertRows(parent, step->row, step->row);
        else
            beginRemoveRows(parent, step->row, step->row);
    } else {
        beginResetModel();
        away_ = true;
    }
}

void TreeModel::endChange() {
    if (away_) {
        away_ = false;
        endResetModel();
    } else if (const auto& step = tree_.step()) {
        if (step->what == Tree::Step::What::comes)
            endInsertRows();
        else
            endRemoveRows();
    } else {
        // The change had begun before this model was there to hear of it.
        beginResetModel();
        endResetModel();
    }
}

const TreeNodes& TreeModel::children(const QModelIndex& parent) const {
    return parent.isValid() ? nodeOf(parent)->children() : tree_.roots();
}

TreeNode* TreeModel::nodeOf(const QModelIndex& index) {
    return static_cast<TreeNode*>(index.internalPointer());
}

QModelIndex TreeModel::indexOf(const TreeNode* node) const {
    return node == nullptr || away_ ? QModelIndex() : createIndex(node->row(), 0, node);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (away_ || row < 0 || column != 0 || row >= rowCount(parent)) return {};
    return createIndex(row, 0, children(parent)[static_cast<std::size_t>(row)]);
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
    return away_ || !child.isValid() ? QModelIndex() : indexOf(nodeOf(child)->parent());
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return away_ ? 0 : static_cast<int>(children(parent).size());
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (away_ || !index.isValid()) return {};
    const TreeNode& node = *nodeOf(index);
    if (role == Qt::DisplayRole) return onOneLine(node.text());
    if (role == Qt::CheckStateRole && tree_.style() == Tree::Style::checkBoxes)
        return node.checked() ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool TreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (away_ || !index.isValid() || role != Qt::CheckStateRole) return false;
    enter([&] { tree_.tick(*nodeOf(index), value.toInt() == Qt::Checked); });
    return true;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
    const auto usual = QAbstractItemModel::flags(index);
    return tree_.style() == Tree::Style::checkBoxes ? usual | Qt::ItemIsUserCheckable : usual;
}

namespace {

/// Shows as marked what the tree has selected. The left button clicks, keys click or move as the tree says,
/// and the focus does neither.
class TreeWidget : public QTreeView {
  public:
    explicit TreeWidget(Tree& tree) : tree_(tree), model_(new TreeModel(tree, this)) {
        setModel(model_);
        setHeaderHidden(true);
        setUniformRowHeights(true);
        setMinimumSize(180, 80);
        clickByLeftButtonOnly(this);
        connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) { click(index); });
        connect(this, &QTreeView::expanded, this,
                [this](const QModelIndex& index) { noteExpanded(index, true); });
        connect(this, &QTreeView::collapsed, this,
                [this](const QModelIndex& index) { noteExpanded(index, false); });
        follow(this, tree.structureChanged, [this] { showState(); });
        follow(this, tree.touched, [this] { viewport()->update(); });
        follow(this, tree.expansionChanged, [this](const TreeNode& node) {
            if (!showing_) showExpansion(node);
        });
        follow(this, tree.selectionChanged, [this] { showSelection(); });
        showState();
    }

    const TreeModel& nodes() const { return *model_; }

    /// Typed letters find the beginning of any word, so that a number and a name are found behind the mark
    /// before them.
    void keyboardSearch(const QString& typed) override {
        constexpr int pauseThatBeginsANewText = 1000;  // ms
        const bool goesOn = typedAt_.isValid() && typedAt_.elapsed() < pauseThatBeginsANewText;
        typed_ = goesOn ? typed_ + typed : typed;
        typedAt_.start();
        Wanted wanted(utf8(typed_));
        const QModelIndex at = currentIndex();
        const TreeNode* from = at.isValid() ? TreeModel::nodeOf(at) : nullptr;
        if (wanted.isEmpty() || (goesOn && from != nullptr && wanted.beginsAWordOf(from->text()))) return;
        if (const TreeNode* found = findBeginning(tree_, wanted, from))
            setCurrentIndex(model_->indexOf(found));
    }

  protected:
    /// A press that was let go elsewhere has marked a node that nobody clicked.
    void mouseReleaseEvent(QMouseEvent* event) override {
        QTreeView::mouseReleaseEvent(event);
        if (isBound(this)) showSelection();
    }

    void focusInEvent(QFocusEvent* event) override {
        QTreeView::focusInEvent(event);
        goNowhereByFocus(this);
        // Names are typed through an input method, also where nothing is edited.
        setAttribute(Qt::WA_InputMethodEnabled);
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        const QModelIndex before = currentIndex();
        keyboardSearch(event->commitString());
        event->accept();
        tellMove(before);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (model_->isAway()) return;
        const bool ticks = tree_.style() == Tree::Style::checkBoxes;
        if (isEnter(*event) || (event->key() == Qt::Key_Space && !ticks)) return click(currentIndex());
        const QModelIndex before = currentIndex();
        QTreeView::keyPressEvent(event);
        tellMove(before);
    }

  private:
    void tellMove(const QModelIndex& before) {
        if (currentIndex().isValid() && currentIndex() != before)
            enter([this] { tree_.moveTo(*TreeModel::nodeOf(currentIndex())); });
        if (!isBound(this)) return;
        showSelection();
        setAttribute(Qt::WA_InputMethodEnabled);
    }

    void click(const QModelIndex& index) {
        if (index.isValid() && !model_->isAway()) enter([&] { tree_.click(*TreeModel::nodeOf(index)); });
    }

    void noteExpanded(const QModelIndex& index, bool expanded) {
        if (showing_ || model_->isAway()) return;
        const QScopedValueRollback quiet(showing_, true);
        tree_.setExpanded(*TreeModel::nodeOf(index), expanded);
    }

    void showState() {
        const QScopedValueRollback quiet(showing_, true);
        const auto& roots = tree_.roots();
        setRootIsDecorated(std::any_of(roots.begin(), roots.end(),
                                       [](const TreeNode* root) { return !root->children().empty(); }));
        showExpansionUnder(roots);
        showSelection();
    }

    void showExpansionUnder(const TreeNodes& nodes) {
        for (const TreeNode* node : nodes) {
            if (node->children().empty()) continue;
            showExpansion(*node);
            showExpansionUnder(node->children());
        }
    }

    void showExpansion(const TreeNode& node) {
        const QScopedValueRollback quiet(showing_, true);
        const QModelIndex index = model_->indexOf(&node);
        if (isExpanded(index) != node.expanded()) setExpanded(index, node.expanded());
    }

    void showSelection() {
        const QScopedValueRollback quiet(showing_, true);
        const QModelIndex index = model_->indexOf(tree_.selected());
        if (!index.isValid())
            selectionModel()->clear();
        else if (index != currentIndex() || !selectionModel()->isSelected(index))
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }

    Tree& tree_;
    TreeModel* model_;
    QString typed_;  ///< so far, without a pause
    QElapsedTimer typedAt_;
    bool showing_ = false;
};

Searched searchOf(Tree& tree, const TreeModel& model) {
    const auto find = [&tree, &model](Wanted& wanted, const QModelIndex& from, Towards towards) {
        return model.indexOf(
            findNode(tree, wanted, from.isValid() ? TreeModel::nodeOf(from) : nullptr, towards));
    };
    const auto click = [&tree](const QModelIndex& index) {
        enter([&] { tree.click(*TreeModel::nodeOf(index)); });
    };
    return {find, click};
}

}  // namespace

QWidget* treeWidget(Tree& tree) {
    auto* view = new TreeWidget(tree);
    auto* rows = new RowDelegate(view);
    view->setItemDelegate(rows);
    showHint(view, tree.hint);
    new FindBar(view, rows, searchOf(tree, view->nodes()));
    follow(view, tree.revealAsked,
           [view](const TreeNode& node) { view->scrollTo(view->nodes().indexOf(&node)); });
    return view;
}

}  // namespace desk::desktop
