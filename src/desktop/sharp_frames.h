#pragma once

class QProxyStyle;

namespace desk::desktop {

/// The style of the program, which draws the frames of lists, grids and texts whole at any scale of the
/// screen.
QProxyStyle* sharpFrames();

}  // namespace desk::desktop
