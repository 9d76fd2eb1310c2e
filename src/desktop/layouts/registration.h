#pragma once

#include <QWidget>

#include "customers/registration.h"

namespace desk::desktop {

QWidget* layoutOfRegistration(Frm引驻客户信息登记& screen);

}  // namespace desk::desktop
