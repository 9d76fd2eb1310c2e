#pragma once

#include <QWidget>

#include "intent/approval_path.h"

namespace desk::desktop {

QWidget* layoutOfApprovalPath(Frm意向书审批路径设置& screen);

}  // namespace desk::desktop
