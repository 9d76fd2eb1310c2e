#pragma once

#include "session/application.h"

namespace desk {

/// The drawing surface of the main window's background: takes the main window's size when it loads, and when
/// it is activated stretches the picture "MDI.BMP" of the program's folder over itself, hands it to the main
/// window and goes.
class Frmtu : public Screen {
  public:
    static constexpr const char* screenName = "Frmtu";

    explicit Frmtu(Application& app) : Screen(screenName, "", WindowKind::dialog, 0, 0), app_(app) {}
    void load() override;
    void activate() override;

  private:
    Application& app_;
};

}  // namespace desk
