#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/application.h"
#include "ui/fields.h"

namespace desk {

/// Thrown out of the midst of a run whose screen has gone: nothing more may be typed, and nothing is told.
struct 窗体已关闭 {};

/// The machine as a run of the tax program uses it. While it waits or works, other handlers may run; whatever
/// it does ends with 窗体已关闭 when the screen has gone by then.
///
/// It presses no button of the mouse and moves the pointer by moveTo() alone: all events of the mouse are
/// issued with empty flags. The scripts in use are made for that and do their work by keys.
class 税控机器 {
  public:
    税控机器(Screen& screen, Application& app);

    /// Waits `n` ticks; not at all for 0 or less. The screen stays alive.
    void 延时(const std::int16_t& n);

    /// Why the tax program can not be driven on this desktop; empty where it can.
    std::string refusal();
    bool hasWindow(std::string_view title);
    bool hasFile(std::string_view path);
    void activate(std::string_view title);
    void start(const std::string& program);
    void send(std::string_view keyString);
    void moveTo(std::int32_t x, std::int32_t y);
    /// To the right by `dx` and down by `dy`.
    void moveBy(std::int32_t dx, std::int32_t dy);
    void press();
    void release();
    void click();
    void clearClipboard();
    std::string clipboardText();
    void letEventsRun();
    void bringToFront();
    void tell(std::string_view text);

    Timer 计时;

  private:
    void mouse(std::uint32_t flags, std::int32_t dx, std::int32_t dy);
    void goOn() const;

    Screen& screen_;
    Application& app_;
    std::int16_t 计时次数_ = 0;
};

}  // namespace desk
