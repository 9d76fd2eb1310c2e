#include "desktop/choice_bindings.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QSignalBlocker>
#include <QTabBar>

#include "desktop/binding.h"
#include "desktop/hint.h"
#include "desktop/keys.h"
#include "desktop/view_clicks.h"

namespace desk::desktop {

namespace {

QIcon colourMark(Colour packed) {
    QPixmap mark(16, 12);
    mark.fill(colour(packed));
    return mark;
}

constexpr int colourRole = Qt::UserRole;

/// What a widget keeps of a line's colour, to know it again.
QVariant kept(const std::optional<Colour>& colour) {
    return colour ? QVariant(static_cast<qlonglong>(*colour)) : QVariant();
}

/// Takes over the lines of `holder`. Most lists grow line by line, which must not cost a fill each.
template <class Widget>
void takeLines(const ItemHolder& holder, Widget* shown, bool (*shows)(Widget*, int, const Item&),
               void (*add)(Widget*, const Item&)) {
    const auto item = [&](int line) -> const Item& { return holder.items()[static_cast<std::size_t>(line)]; };
    int same = 0;
    while (same < shown->count() && same < holder.count() && shows(shown, same, item(same))) ++same;
    if (same < shown->count()) {
        shown->clear();
        same = 0;
    }
    for (int line = same; line < holder.count(); ++line) add(shown, item(line));
}

void selectAsHeld(const ListBox& list, QListWidget* shown) {
    const QSignalBlocker quiet(shown->selectionModel());
    // The keyboard goes on from the selected line.
    if (list.style() == ListStyle::single && list.index() >= 0) shown->setCurrentRow(list.index());
    for (int line = 0; line < shown->count(); ++line) shown->item(line)->setSelected(list.isSelected(line));
    shown->viewport()->update();
}

/// The wheel belongs to it while it has the focus; Enter moves on.
class DropDown : public QComboBox {
  public:
    DropDown() { keepWheelForFocus(this); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        QComboBox::keyPressEvent(event);
        if (isEnter(*event)) focusNextChild();
    }
};

/// A list whose Enter is a double click, or a click where arrow keys only move.
class ListView : public QListWidget {
  public:
    explicit ListView(ListBox& list) : list_(list) { clickByLeftButtonOnly(this); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool clicks = list_.movingKeys() == MovingKeys::move;
        if (clicks && (isEnter(*event) || event->key() == Qt::Key_Space))
            return enter([this] { list_.click(currentRow()); });
        if (isEnter(*event)) return enter([this] { list_.doubleClick(currentRow()); });
        const int before = currentRow();
        QListWidget::keyPressEvent(event);
        if (currentRow() != before) enter([this] { list_.moveTo(currentRow()); });
    }
    /// A press that was let go elsewhere has marked a line that nobody clicked.
    void mouseReleaseEvent(QMouseEvent* event) override {
        QListWidget::mouseReleaseEvent(event);
        if (isBound(this)) selectAsHeld(list_, this);
    }

  private:
    ListBox& list_;
};

/// A list of which several lines are marked: a click or Space turns the mark of a line, with Ctrl or without;
/// with Shift all lines from there to the line that is clicked, or that an arrow key comes to, get its mark.
/// Arrows alone move.
class MarkedListView : public QListWidget {
  public:
    explicit MarkedListView(ListBox& list) : list_(list) {
        setSelectionMode(MultiSelection);
        clickByLeftButtonOnly(this);
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        const int pressed = row(itemAt(event->position().toPoint()));
        if (pressed >= 0 && event->modifiers().testFlag(Qt::ShiftModifier)) {
            setCurrentRow(pressed, QItemSelectionModel::NoUpdate);
            return extend();
        }
        QListWidget::mousePressEvent(event);
        if (pressed >= 0 && isBound(this)) startFrom(pressed, list_.isSelected(pressed));
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        QListWidget::mouseReleaseEvent(event);
        if (isBound(this)) selectAsHeld(list_, this);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (isEnter(*event)) return enter([this] { list_.doubleClick(currentRow()); });
        const int before = currentRow();
        QListWidget::keyPressEvent(event);
        if (!isBound(this)) return;
        if (event->key() == Qt::Key_Space)
            startFrom(currentRow(), list_.isSelected(currentRow()));
        else if (currentRow() != before)
            event->modifiers().testFlag(Qt::ShiftModifier) ? extend() : startFrom(currentRow(), true);
    }

    /// A typed letter goes to a line and leaves its mark alone.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override {
        return event != nullptr ? QListWidget::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
    }

  private:
    void startFrom(int line, bool marked) {
        from_ = line;
        marked_ = marked;
    }

    void extend() {
        const int from = std::clamp(from_, 0, count() - 1);
        const int to = currentRow();
        const QItemSelection lines(model()->index(std::min(from, to), 0),
                                   model()->index(std::max(from, to), 0));
        selectionModel()->select(lines,
                                 marked_ ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
    }

    ListBox& list_;
    int from_ = 0;        ///< where Shift marks from
    bool marked_ = true;  ///< the mark that it gives
};

/// Whatever the mouse or the keyboard has toggled is a click on that line.
void clickToggled(ListBox& list, QListWidget* shown) {
    // The first click already shows the list as it is held then.
    std::vector<int> toggled;
    for (int line = 0; line < shown->count(); ++line)
        if (shown->item(line)->isSelected() != list.isSelected(line)) toggled.push_back(line);
    for (const int line : toggled)
        if (isBound(shown)) enter([&] { list.click(line); });
    if (isBound(shown)) selectAsHeld(list, shown);
}

}  // namespace

QWidget* comboWidget(ComboBox& combo) {
    auto* shown = new DropDown;
    shown->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    shown->setMinimumContentsLength(8);
    shown->setMaxVisibleItems(20);
    const auto select = [&combo, shown] {
        const QSignalBlocker quiet(shown);
        shown->setCurrentIndex(combo.index());
    };
    const auto fill = [&combo, shown, select] {
        const QSignalBlocker quiet(shown);
        takeLines<QComboBox>(
            combo, shown,
            [](QComboBox* box, int line, const Item& item) {
                return box->itemText(line) == text(item.text) &&
                       box->itemData(line, colourRole) == kept(item.colour);
            },
            [](QComboBox* box, const Item& item) {
                box->addItem(item.colour ? colourMark(*item.colour) : QIcon(), text(item.text),
                             kept(item.colour));
            });
        select();
    };
    fill();
    follow(shown, combo.itemsChanged, fill);
    follow(shown, combo.touched, select);
    QObject::connect(shown, &QComboBox::activated, shown,
                     [&combo](int line) { enter([&] { combo.pick(line); }); });
    return shown;
}

QWidget* listWidget(ListBox& list) {
    const bool multiple = list.style() == ListStyle::multiple;
    QListWidget* shown = nullptr;
    if (multiple)
        shown = new MarkedListView(list);
    else
        shown = new ListView(list);
    shown->setMinimumHeight(56);
    showHint(shown, list.hint);
    const auto fill = [&list, shown] {
        const QSignalBlocker quiet(shown);
        takeLines<QListWidget>(
            list, shown,
            [](QListWidget* box, int line, const Item& item) {
                return box->item(line)->text() == text(item.text);
            },
            [](QListWidget* box, const Item& item) { box->addItem(text(item.text)); });
        selectAsHeld(list, shown);
    };
    fill();
    follow(shown, list.itemsChanged, fill);
    follow(shown, list.selectionChanged, [&list, shown] { selectAsHeld(list, shown); });
    if (multiple) {
        QObject::connect(shown, &QListWidget::itemSelectionChanged, shown,
                         [&list, shown] { clickToggled(list, shown); });
    } else {
        QObject::connect(shown, &QListWidget::itemClicked, shown, [&list, shown](QListWidgetItem* item) {
            enter([&] { list.click(shown->row(item)); });
        });
        // Not the activation, which on some desktops is a single click.
        QObject::connect(
            shown, &QListWidget::itemDoubleClicked, shown,
            [&list, shown](QListWidgetItem* item) { enter([&] { list.doubleClick(shown->row(item)); }); });
    }
    return shown;
}

QWidget* tabWidget(TabStrip& strip) {
    auto* bar = new QTabBar;
    bar->setDrawBase(true);
    bar->setExpanding(false);
    keepWheelForFocus(bar);
    for (const auto& title : strip.titles()) bar->addTab(text(title));
    const auto select = [&strip, bar] {
        const QSignalBlocker quiet(bar);
        bar->setCurrentIndex(strip.index());
    };
    select();
    follow(bar, strip.touched, select);
    QObject::connect(bar, &QTabBar::currentChanged, bar,
                     [&strip](int tab) { enter([&] { strip.click(tab); }); });
    return bar;
}

QWidget* statusWidget(StatusBar& bar) {
    auto* line = new QWidget;
    auto* box = new QHBoxLayout(line);
    box->setContentsMargins(0, 0, 0, 0);
    std::vector<QLabel*> panels;
    for (int panel = 0; panel < bar.panelCount(); ++panel) {
        auto* label = new QLabel;
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setMinimumWidth(120);
        label->setMargin(2);
        box->addWidget(label, panel + 1 == bar.panelCount() ? 1 : 0);
        panels.push_back(label);
    }
    const auto show = [&bar, panels] {
        for (std::size_t i = 0; i < panels.size(); ++i)
            panels[i]->setText(text(bar.panel(static_cast<int>(i))));
    };
    show();
    follow(line, bar.touched, show);
    return line;
}

}  // namespace desk::desktop
