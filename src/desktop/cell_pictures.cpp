#include "desktop/cell_pictures.h"

#include <QPainterPath>
#include <algorithm>
#include <array>

#include "desktop/convert.h"
#include "money/charge_grid.h"

namespace desk::desktop {

namespace {

/// The drawings are made for a square of that side.
constexpr double side = 16;

const QColor done(34, 128, 64);

void drawTick(QPainter& painter, QPointF at, double size, const QColor& colour) {
    QPen pen(colour, 2);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.drawPolyline(
        QPolygonF({at + QPointF(0, size / 2), at + QPointF(size * 0.38, size), at + QPointF(size, 0)}));
}

void drawBox(QPainter& painter) {
    painter.drawRoundedRect(QRectF(2.5, 2.5, 11, 11), 1.5, 1.5);
}

void drawTickedBox(QPainter& painter) {
    drawBox(painter);
    drawTick(painter, {5, 5}, 6, painter.pen().color());
}

void drawPrinter(QPainter& painter) {
    painter.drawRect(QRectF(4.5, 1.5, 7, 3));
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 6), 1, 1);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(4.5, 8.5, 7, 6));
    drawTick(painter, {6.2, 9.8}, 3.4, done);
}

/// A slip torn off at its foot.
void drawSlip(QPainter& painter) {
    QPainterPath slip(QPointF(3.5, 1.5));
    slip.lineTo(12.5, 1.5);
    slip.lineTo(12.5, 14.5);
    for (const double x : {10.25, 8.0, 5.75}) {
        slip.lineTo(x + 1.125, 13);
        slip.lineTo(x, 14.5);
    }
    slip.lineTo(4.6, 13);
    slip.lineTo(3.5, 14.5);
    slip.closeSubpath();
    painter.setBrush(Qt::white);
    painter.drawPath(slip);
    painter.drawLine(QPointF(5.5, 4.5), QPointF(10.5, 4.5));
    drawTick(painter, {5.5, 6.5}, 4.6, done);
}

struct Drawing {
    std::string_view name;
    const char* words;
    void (*draw)(QPainter&);
};

constexpr std::array<Drawing, 4> drawings = {{{打印图::手选, "手选票据", drawBox},
                                              {打印图::待打印, "待打印", drawTickedBox},
                                              {打印图::已打印, "已打印", drawPrinter},
                                              {打印图::已存手选, "已保存，手选票据", drawSlip}}};

const Drawing* drawingOf(std::string_view name) {
    const auto* found = std::find_if(drawings.begin(), drawings.end(),
                                     [&](const Drawing& drawing) { return drawing.name == name; });
    return found == drawings.end() ? nullptr : found;
}

}  // namespace

QString wordsOfPicture(std::string_view name) {
    const Drawing* drawing = drawingOf(name);
    return drawing != nullptr ? text(drawing->words) : QString();
}

void drawPicture(QPainter& painter, const QRect& cell, std::string_view name) {
    const Drawing* drawing = drawingOf(name);
    if (drawing == nullptr) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect square(QPoint(), QSize(qRound(side), qRound(side)));
    painter.translate(square.translated(cell.center() - square.center()).topLeft());
    painter.setBrush(Qt::NoBrush);
    drawing->draw(painter);
    painter.restore();
}

}  // namespace desk::desktop
