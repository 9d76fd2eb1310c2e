#pragma once

#include <QWidget>

#include "intent/approval.h"

namespace desk::desktop {

QWidget* layoutOfApproval(Frm意向书审批& screen);

}  // namespace desk::desktop
