#pragma once

#include <string_view>

#include "money/charge_grid.h"
#include "session/application.h"
#include "ui/choices.h"

namespace desk {

/// Fills `books` with the open books for the ticket type of a grid row: the department's own, then those of
/// departments that share theirs with it. The data of an entry is whether its type is printed by the tax
/// device.
void 票据簿列表(Application& app, const 收费列表& charges, int row, ListBox& books);

/// Fills `tickets` with the blank tickets of a book; the data of an entry is the `ID` of its ticket.
void 填充空白票据(Application& app, std::string_view 入库单编号, ListBox& tickets);

/// Writes the ticket data of the unsaved ones among the rows 1 to rows − `n`, and marks one ticket as used:
/// that of the last of these rows, saved or not, with the sum of all the lines written. The grid stands on
/// that row afterwards.
void 票据消耗(Application& app, 收费列表& charges, int n, std::string_view 承租方);

}  // namespace desk
