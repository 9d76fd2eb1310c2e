#include "desktop/sharp_frames.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <cmath>

namespace desk::desktop {

namespace {

/// At a scale that is no whole number a line drawn with a pen may fall outside of its widget, or where the
/// content lies over it. An area is rounded as widgets are.
void fillEdges(QPainter& painter, const QRect& area, const QColor& colour) {
    painter.fillRect(QRect(area.left(), area.top(), area.width(), 1), colour);
    painter.fillRect(QRect(area.left(), area.bottom(), area.width(), 1), colour);
    painter.fillRect(QRect(area.left(), area.top(), 1, area.height()), colour);
    painter.fillRect(QRect(area.right(), area.top(), 1, area.height()), colour);
}

class SharpFrames : public QProxyStyle {
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        const double scale = painter->deviceTransform().m11();
        const bool fallsOut = element == PE_Frame && scale != std::floor(scale) &&
                              baseStyle()->name() == "fusion" &&
                              qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
        if (!fallsOut) return QProxyStyle::drawPrimitive(element, option, painter, widget);
        // As dark as the style draws it at the other scales.
        fillEdges(*painter, option->rect, option->palette.window().color().darker(140).lighter(108));
    }
};

}  // namespace

QProxyStyle* sharpFrames() {
    return new SharpFrames;
}

}  // namespace desk::desktop
