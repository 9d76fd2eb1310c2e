#pragma once

#include <QWidget>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "ui/choices.h"
#include "ui/control.h"
#include "ui/fields.h"
#include "ui/folding_frame.h"

/// Pieces that a layout is put together from, so that it reads as the screen looks. Each makes the widgets of
/// its controls; tab order is reading order.
namespace desk::desktop::layout {

/// Side by side. `shares` tells how spare width is parted; equal without.
QWidget* columns(std::vector<QWidget*> parts, std::vector<int> shares = {});
/// Below each other. `shares` tells how spare height is parted; only parts that want to grow take any
/// without.
QWidget* rows(std::vector<QWidget*> parts, std::vector<int> shares = {});
/// A framed part with a title.
QWidget* group(std::string_view title, QWidget* part);
/// A part that is shown, hidden, enabled and disabled as `frame` is.
QWidget* framed(Frame& frame, QWidget* part);

/// `part`, at the left of `beside`, is hidden and shown as `frame` is: a link above it hides it, a strip in
/// its place shows it again. `shares` tells how the two part the width.
QWidget* folding(FoldingFrame& frame, QWidget* part, QWidget* beside, const std::vector<int>& shares);

/// A caption and what stands behind it: a control, or several side by side.
struct Field {
    std::string_view caption;
    std::vector<QWidget*> widgets;
    int places = 1;  ///< that it takes of its line

    Field(std::string_view title, Control& control);
    Field(std::string_view title, std::initializer_list<Control*> controls);
    Field(std::string_view title, QWidget* part) : caption(title), widgets{part} {}
};
/// Fields in lines of `perLine`, captions aligned.
QWidget* fields(std::vector<Field> entries, int perLine = 1);

/// A row of buttons, right aligned; Tab comes to the main one first.
QWidget* buttons(std::initializer_list<Control*> row);
/// A control as it stands.
QWidget* plain(Control& control);
/// The same for a tree, list or grid without a caption beside it, with what a screen reader calls it.
QWidget* plain(Control& control, std::string_view spoken);
/// Controls in a row, each as wide as it wants, left aligned.
QWidget* row(std::initializer_list<Control*> controls);
/// A fixed text.
QWidget* caption(std::string_view text);
/// The strip and, below it, of the pages the one that it selects.
QWidget* pages(TabStrip& strip, std::vector<QWidget*> pages);
/// `part` over the lower edge of `area`, as wide as it and `height` twips high.
QWidget* overLowerEdge(QWidget* area, QWidget* part, double height);
/// A part of at least that size, in twips.
QWidget* atLeast(QWidget* part, double width, double height);
/// A text of several lines, of which two are enough where the screen is small.
QWidget* twoLines(QWidget* text);
/// A part at least so wide that `text` can be read in its field.
QWidget* wideEnoughFor(std::string_view text, QWidget* part);
/// A part of at most that width, in twips.
QWidget* atMost(QWidget* part, double width);

/// Makes Tab go through the widgets below `top` as they were laid out.
void orderTabs(QWidget* top);

}  // namespace desk::desktop::layout
