#pragma once

#include <QWidget>

#include "intent/unit_map.h"

namespace desk::desktop {

QWidget* layoutOfUnitMap(Frm房源一览表& screen);

}  // namespace desk::desktop
