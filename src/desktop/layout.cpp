#include "desktop/layout.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "desktop/binding.h"

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

/// Tells those who cannot see the caption what the fields behind it are.
void name(QWidget* content, QLabel* label) {
    const QString caption = label->text().remove(' ');
    if (caption.isEmpty()) return;
    const auto parts = content->findChildren<QWidget*>();
    for (QWidget* part : QWidgetList{content} + parts) {
        // A widget of a control has its name; a list that drops out of one has none.
        if (part->objectName().isEmpty() || part->objectName().startsWith("qt_")) continue;
        if (part->focusPolicy() == Qt::NoFocus || qobject_cast<QAbstractButton*>(part) != nullptr) continue;
        if (part->accessibleName().isEmpty()) part->setAccessibleName(caption);
        if (label->buddy() == nullptr) label->setBuddy(part);
    }
}

bool growsDown(QWidget* widget) {
    return widget->sizePolicy().verticalPolicy() == QSizePolicy::Expanding;
}

void collect(QLayout* laid, std::vector<QWidget*>& found);

void collect(QWidget* widget, std::vector<QWidget*>& found) {
    if (widget->focusPolicy() & Qt::TabFocus) found.push_back(widget);
    // What a widget of Qt's own holds inside is its own business.
    if (widget->layout() != nullptr && !widget->inherits("QCalendarWidget")) collect(widget->layout(), found);
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
        auto* label = new QLabel(text(entry.caption));
        // Most captions have four signs: blocks of fields below each other line up.
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance("管理项目"));
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(label, line, place * 2);
        QWidget* content = entry.widgets.size() == 1 ? entry.widgets.front() : columns(entry.widgets);
        name(content, label);
        grid->addWidget(content, line, place * 2 + 1);
        grid->setColumnStretch(place * 2 + 1, 1);
        if (growsDown(content)) grid->setRowStretch(line, 1);
        if (++place < perLine) continue;
        place = 0;
        ++line;
    }
    return whole;
}

QWidget* buttons(std::initializer_list<Control*> row) {
    auto* whole = new QWidget;
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
