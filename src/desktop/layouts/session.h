#pragma once

#include <QWidget>

#include "session/about.h"
#include "session/login.h"

namespace desk::desktop {

QWidget* layoutOfLogin(FrmLogin& screen);
QWidget* layoutOfAbout(FrmAbout& screen);

}  // namespace desk::desktop
