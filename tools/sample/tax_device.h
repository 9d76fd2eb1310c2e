#pragma once

#include <string_view>

#include "sample/organisation.h"

namespace desk::sample {

/// Adds the tax device of the cashier's department: the outside program's path and window title, who may
/// operate it, its charge items, and the scripts that print and take back an invoice; and the device that was
/// there before it. The cashier alone may operate it.
void addTaxDevice(Connection& connection, const Organisation& organisation, const DateTime& today,
                  std::string_view program);

}  // namespace desk::sample
