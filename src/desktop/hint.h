#pragma once

#include <functional>
#include <string>

class QAbstractItemView;

namespace desk::desktop {

/// Shows the text in the middle of the view for as long as that has no rows.
void showHint(QAbstractItemView* view, const std::string& hint);

}  // namespace desk::desktop
