#include "session/background.h"

#include "platform/files.h"
#include "session/main_window.h"

namespace desk {

void Frmtu::load() {
    const auto& main = app_.screens.get<MDIForm1>();
    setSize(main.width(), main.height());
    moveTo(0, 0);
}

void Frmtu::activate() {
    constexpr double twipsPerPixel = 15;
    if (const auto image = app_.desktop.loadPicture(app_.platform.files.programDirectory() + "/MDI.BMP")) {
        Picture area(static_cast<int>(width() / twipsPerPixel), static_cast<int>(height() / twipsPerPixel));
        area.stretch(*image);
        app_.screens.get<MDIForm1>().setBackground(std::move(area));
    }
    app_.screens.unload(*this);
}

}  // namespace desk
