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

/// A list whose arrow keys click the line that they come to, and whose Enter is a double click.
class ListView : public QListWidget {
  public:
    explicit ListView(ListBox& list) : list_(list) { clickByLeftButtonOnly(this); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (isEnter(*event)) return enter([this] { list_.doubleClick(currentRow()); });
        const int before = currentRow();
        QListWidget::keyPressEvent(event);
        if (list_.style() == ListStyle::single && currentRow() != before)
            enter([this] { list_.click(currentRow()); });
    }
    /// A press that was let go elsewhere has marked a line that nobody clicked.
    void mouseReleaseEvent(QMouseEvent* event) override {
        QListWidget::mouseReleaseEvent(event);
        if (isBound(this)) selectAsHeld(list_, this);
    }

  private:
    ListBox& list_;
};

/// Whatever the mouse or the keyboard has toggled is a click on that line.
void clickToggled(ListBox& list, QListWidget* shown) {
    for (int line = 0; isBound(shown) && line < shown->count(); ++line)
        if (shown->item(line)->isSelected() != list.isSelected(line)) enter([&] { list.click(line); });
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
    auto* shown = new ListView(list);
    const bool multiple = list.style() == ListStyle::multiple;
    shown->setSelectionMode(multiple ? QAbstractItemView::MultiSelection
                                     : QAbstractItemView::SingleSelection);
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
