#include "desktop/layout.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/binding.h"
#include "desktop/cell_place.h"

namespace desk::desktop::layout {

namespace {

constexpr int gap = 6;

QWidget* inBox(QBoxLayout::Direction direction, const std::vector<QWidget*>& parts,
               const std::vector<int>& shares) {
    auto* whole = new QWidget;
    auto* box = new QBoxLayout(direction, whole);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(gap);
    for (std::size_t i = 0; i < parts.size(); ++i)
        box->addWidget(parts[i], i < shares.size() ? shares[i] : 0);
    return whole;
}

constexpr const char* buttonRowProperty = "buttonRow";

bool isBound(const QWidget* widget) {
    return widget->property(demandedProperty).isValid();
}

/// The widgets of controls in a part, itself perhaps, in their order.
std::vector<QWidget*> boundIn(QWidget* part) {
    std::vector<QWidget*> bound;
    if (isBound(part)) bound.push_back(part);
    for (QWidget* inside : part->findChildren<QWidget*>())
        if (isBound(inside)) bound.push_back(inside);
    return bound;
}

/// What stands before a field, with a star while a save demands one of its parts.
class Caption : public QLabel {
  public:
    Caption(std::string_view title, QWidget* content) : QLabel(text(title)), parts_(boundIn(content)) {
        // Most captions have four signs: blocks of fields below each other line up.
        const auto wide = [this](const QString& words) { return fontMetrics().horizontalAdvance(words); };
        setMinimumWidth(std::max(wide("管理项目"), wide(QLabel::text())) + starWidth());
        setContentsMargins(starWidth(), 0, 0, 0);
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        for (QWidget* part : parts_) part->installEventFilter(this);
        nameParts(QString(text(title)).remove(' '));
        for (QWidget* part : parts_) tellDemand(*part);
    }

    bool eventFilter(QObject* part, QEvent* event) override {
        if (event->type() != QEvent::DynamicPropertyChange) return false;
        tellDemand(*static_cast<QWidget*>(part));
        update();
        return false;
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        const bool demanded = std::any_of(parts_.begin(), parts_.end(), [](const QWidget* part) {
            return part->property(demandedProperty).toBool();
        });
        if (!demanded) return;
        QPainter painter(this);
        painter.setPen(QColor(200, 30, 30));
        const int left = width() - fontMetrics().horizontalAdvance(QLabel::text()) - starWidth();
        painter.drawText(QRect(left, 0, starWidth(), height()), Qt::AlignCenter, "*");
    }

  private:
    int starWidth() const { return fontMetrics().horizontalAdvance("* "); }
    static QString text(std::string_view utf8) { return desktop::text(utf8); }

    /// What the star says to the eye, for screen readers, which read it behind the name. A doubt about the
    /// field's text stays.
    static void tellDemand(QWidget& part) {
        constexpr const char* told = "必填";
        const bool demanded = part.property(demandedProperty).toBool();
        if (demanded && part.accessibleDescription().isEmpty()) part.setAccessibleDescription(told);
        if (!demanded && part.accessibleDescription() == told) part.setAccessibleDescription({});
    }

    /// For screen readers: a part behind a box that opens it is called by both.
    void nameParts(const QString& title) {
        QString name = title;
        for (QWidget* part : parts_) {
            if (const auto* button = qobject_cast<QAbstractButton*>(part)) {
                name = title + " " + button->text();
                continue;
            }
            if (part->accessibleName().isEmpty()) part->setAccessibleName(name);
            if (buddy() == nullptr && part->focusPolicy() != Qt::NoFocus) setBuddy(part);
        }
    }

    std::vector<QWidget*> parts_;
};

bool growsDown(QWidget* widget) {
    return widget->sizePolicy().verticalPolicy() == QSizePolicy::Expanding;
}

void collect(QLayout* laid, std::vector<QWidget*>& found);

void collect(QWidget* widget, std::vector<QWidget*>& found) {
    // Also what takes no Tab just now, as a locked field.
    if (widget->focusPolicy() != Qt::NoFocus) found.push_back(widget);
    for (QWidget* part : partsInCells(widget)) found.push_back(part);
    const auto start = static_cast<std::ptrdiff_t>(found.size());
    // What a widget of Qt's own holds inside is its own business.
    if (widget->layout() != nullptr && !widget->inherits("QCalendarWidget")) collect(widget->layout(), found);
    if (widget->property(buttonRowProperty).toBool())
        std::stable_partition(found.begin() + start, found.end(), [](const QWidget* button) {
            return button->property(mainButtonProperty).toBool();
        });
}

void collect(QLayout* laid, std::vector<QWidget*>& found) {
    for (int i = 0; i < laid->count(); ++i) {
        QLayoutItem* item = laid->itemAt(i);
        if (item->widget() != nullptr) collect(item->widget(), found);
        if (item->layout() != nullptr) collect(item->layout(), found);
    }
}

}  // namespace

QWidget* columns(std::vector<QWidget*> parts, std::vector<int> shares) {
    if (shares.empty()) shares.assign(parts.size(), 1);
    return inBox(QBoxLayout::LeftToRight, parts, shares);
}

QWidget* rows(std::vector<QWidget*> parts, std::vector<int> shares) {
    return inBox(QBoxLayout::TopToBottom, parts, shares);
}

QWidget* group(std::string_view title, QWidget* part) {
    auto* box = new QGroupBox(text(title));
    auto* inside = new QVBoxLayout(box);
    inside->setContentsMargins(gap, gap, gap, gap);
    inside->addWidget(part);
    return box;
}

QWidget* framed(Frame& frame, QWidget* part) {
    QWidget* whole = frame.caption().empty() ? rows({part}, {1}) : group(frame.caption(), part);
    bindCommon(frame, whole);
    return whole;
}

QWidget* folding(FoldingFrame& frame, QWidget* part, QWidget* beside, const std::vector<int>& shares) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(gap);
    grid->setRowStretch(1, 1);
    // Laid out first, so that who opens the screen stands in its first field.
    grid->addWidget(part, 1, 0);
    grid->addWidget(columns({caption(frame.caption()), plain(frame.隐藏)}, {1, 0}), 0, 0);
    bindCommon(frame, panel);
    return columns({plain(frame.显示), panel, beside}, {0, shares.at(0), shares.at(1)});
}

Field::Field(std::string_view title, Control& control) : caption(title), widgets{widgetFor(control)} {}

Field::Field(std::string_view title, std::initializer_list<Control*> controls) : caption(title) {
    for (Control* control : controls) widgets.push_back(widgetFor(*control));
}

QWidget* fields(std::vector<Field> entries, int perLine) {
    auto* whole = new QWidget;
    auto* grid = new QGridLayout(whole);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(gap);
    int line = 0;
    int place = 0;
    for (const auto& entry : entries) {
        QWidget* content = entry.widgets.size() == 1 ? entry.widgets.front() : columns(entry.widgets);
        grid->addWidget(new Caption(entry.caption, content), line, place * 2);
        grid->addWidget(content, line, place * 2 + 1, 1, entry.places * 2 - 1);
        grid->setColumnStretch(place * 2 + 1, 1);
        if (growsDown(content)) grid->setRowStretch(line, 1);
        place += entry.places;
        if (place < perLine) continue;
        place = 0;
        ++line;
    }
    return whole;
}

QWidget* buttons(std::initializer_list<Control*> row) {
    auto* whole = new QWidget;
    whole->setProperty(buttonRowProperty, true);
    auto* box = new QHBoxLayout(whole);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(gap);
    box->addStretch(1);
    for (Control* control : row) box->addWidget(widgetFor(*control));
    return whole;
}

QWidget* plain(Control& control) {
    return widgetFor(control);
}

QWidget* plain(Control& control, std::string_view spoken) {
    QWidget* widget = widgetFor(control);
    widget->setAccessibleName(text(spoken));
    return widget;
}

QWidget* row(std::initializer_list<Control*> controls) {
    auto* whole = new QWidget;
    auto* box = new QHBoxLayout(whole);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(gap);
    for (Control* control : controls) box->addWidget(widgetFor(*control));
    box->addStretch(1);
    return whole;
}

QWidget* caption(std::string_view title) {
    return new QLabel(text(title));
}

QWidget* pages(TabStrip& strip, std::vector<QWidget*> pages) {
    QWidget* bar = widgetFor(strip);
    auto* stack = new QStackedWidget;
    for (QWidget* page : pages) stack->addWidget(page);
    stack->setCurrentIndex(strip.index());
    follow(stack, strip.touched, [&strip, stack] { stack->setCurrentIndex(strip.index()); });
    return rows({bar, stack}, {0, 1});
}

QWidget* overLowerEdge(QWidget* area, QWidget* part, double height) {
    auto* whole = new QWidget;
    auto* grid = new QGridLayout(whole);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(area, 0, 0);
    part->setFixedHeight(pixels(height));
    grid->addWidget(part, 0, 0, Qt::AlignBottom);
    return whole;
}

QWidget* atLeast(QWidget* part, double width, double height) {
    part->setMinimumSize(pixels(width), pixels(height));
    return part;
}

QWidget* twoLines(QWidget* text) {
    return atLeast(text, 1500, 750);
}

QWidget* wideEnoughFor(std::string_view text, QWidget* part) {
    constexpr int frameAndMargins = 20;
    part->ensurePolished();
    part->setMinimumWidth(part->fontMetrics().horizontalAdvance(desktop::text(text)) + frameAndMargins);
    return part;
}

QWidget* atMost(QWidget* part, double width) {
    part->setMaximumWidth(pixels(width));
    return part;
}

void orderTabs(QWidget* top) {
    std::vector<QWidget*> found;
    collect(top, found);
    for (std::size_t i = 1; i < found.size(); ++i) QWidget::setTabOrder(found[i - 1], found[i]);
}

}  // namespace desk::desktop::layout
