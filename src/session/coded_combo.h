#pragma once

#include <string_view>

#include "db/recordset.h"
#include "ui/choices.h"

namespace desk {

/// Combos of coded entries "{code} {name}".

/// Replaces the lines by those of `rows`.
void fillCoded(ComboBox& combo, Recordset rows, std::string_view codeColumn, std::string_view nameColumn);
/// Selects the line of that code, or none.
void selectByCode(ComboBox& combo, std::string_view code);
/// Selects the first line of that name, or none.
void selectByName(ComboBox& combo, std::string_view name);

}  // namespace desk
