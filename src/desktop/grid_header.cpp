#include "desktop/grid_header.h"

#include <QPainter>

#include "desktop/convert.h"
#include "desktop/edge.h"

namespace desk::desktop {

GridHeader::GridHeader(Grid& grid, QWidget* parent) : QHeaderView(Qt::Horizontal, parent), grid_(grid) {
    setSectionsClickable(true);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

int GridHeader::rowHeight() const {
    return fontMetrics().height() + 8;
}

QSize GridHeader::sizeHint() const {
    return QSize(QHeaderView::sizeHint().width(), rowHeight() * std::max(grid_.fixedRows(), 1));
}

QRect GridHeader::mergedCell(int row, int section, const QRect& rect) const {
    const auto same = [&](int other) {
        return grid_.merging() != Merge::never && grid_.mergesRow(row) && !grid_.text(row, section).empty() &&
               grid_.text(row, other) == grid_.text(row, section);
    };
    int first = section;
    int last = section;
    while (first > 0 && same(first - 1)) --first;
    const int end = std::min(grid_.columns(), count());
    while (last + 1 < end && same(last + 1)) ++last;
    const int left = sectionViewportPosition(first);
    const int right = sectionViewportPosition(last) + sectionSize(last);
    return QRect(left, rect.top() + row * rowHeight(), right - left, rowHeight());
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    if (grid_.fixedRows() < 2) return QHeaderView::paintSection(painter, rect, section);
    enter([&] {
        if (section < grid_.columns()) paintRows(*painter, rect, section);
    });
}

void GridHeader::paintRows(QPainter& painter, const QRect& rect, int section) const {
    painter.save();
    painter.setClipRect(rect);
    for (int row = 0; row < grid_.fixedRows() && row < grid_.rows(); ++row) {
        const QRect cell = mergedCell(row, section, rect);
        painter.fillRect(cell, palette().button());
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(cell.adjusted(-1, -1, -1, -1));
        painter.setPen(palette().color(QPalette::ButtonText));
        painter.drawText(cell.adjusted(4, 0, -4, 0), Qt::AlignCenter, onOneLine(grid_.text(row, section)));
    }
    painter.restore();
}

}  // namespace desk::desktop
