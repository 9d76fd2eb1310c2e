#pragma once

#include <QWidget>

#include "customers/assignment.h"
#include "customers/follow_up.h"

namespace desk::desktop {

QWidget* layoutOfAssignment(Frm客户跟进信息分配& screen);
QWidget* layoutOfFollowUp(Frm客户跟进记录& screen);

}  // namespace desk::desktop
