#pragma once

namespace desk::tax {

/// Fonts and colours of the whole program.
void dress();

}  // namespace desk::tax
