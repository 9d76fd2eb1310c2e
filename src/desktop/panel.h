#pragma once

#include <QWidget>

#include "desktop/floating.h"
#include "ui/panel.h"

namespace desk::desktop {

/// Lays a panel that holds `part` over `content`: below, or beside, the panel's anchor, or over the lower
/// half. `part` is made of the controls that the panel holds.
void panelOver(QWidget* content, Panel& panel, QWidget* part, FloatsAt place = FloatsAt::below);

}  // namespace desk::desktop
