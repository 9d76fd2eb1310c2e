#pragma once

#include <vector>

#include "sample/letters.h"

namespace desk::sample {

/// Adds accounts, charge items, kinds and books of tickets, the first of them blank, and the deposits that
/// were taken for about half of the letters that passed, one of them refunded.
void addMoney(Connection& connection, Random& random, const Organisation& organisation,
              const std::vector<PassedLetter>& letters, const DateTime& today);

}  // namespace desk::sample
