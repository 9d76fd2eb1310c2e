#pragma once

#include <QWidget>

#include "ui/marker.h"

class QAbstractScrollArea;

namespace desk::desktop {

QWidget* markerWidget(Marker& marker);

/// Lays the marker's widget over `view`, where the marker says. It stays there when the view scrolls.
void markerOver(QAbstractScrollArea* view, Marker& marker);

}  // namespace desk::desktop
