#pragma once

#include <QWidget>

#include "intent/letter.h"

namespace desk::desktop {

QWidget* layoutOfLetter(Frm意向书信息& screen);

}  // namespace desk::desktop
