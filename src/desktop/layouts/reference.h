#pragma once

#include <QWidget>

#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"

namespace desk::desktop {

QWidget* layoutOfPersonnel(Frm人员设置& screen);
QWidget* layoutOfAgencies(Frm中介公司设置& screen);
QWidget* layoutOfCustomerDictionaries(Frm客户相关信息设置& screen);
QWidget* layoutOfLeadSettings(Frm引驻设置& screen);

}  // namespace desk::desktop
