#pragma once

#include <functional>

namespace desk::desktop {

/// The one door from the window system into the screens: every handler runs through it. A failure that nobody
/// traps is shown as "运行时错误 '{number}'" with its description, and ends the process with exit code 1.
class Edge {
  public:
    /// Runs a handler.
    void run(const std::function<void()>& handler);
    /// What is done once no handler runs any more.
    void afterwards(std::function<void()> cleaning) { cleaning_ = std::move(cleaning); }
    /// Whether a handler runs, perhaps in a box or a modal screen of its own.
    bool isInside() const { return depth_ > 0; }

  private:
    int depth_ = 0;
    std::function<void()> cleaning_;
};

/// The edge of this process: Qt's own callbacks have no other way to reach it.
Edge& edge();

/// Runs a handler through the edge.
inline void enter(const std::function<void()>& handler) {
    edge().run(handler);
}

}  // namespace desk::desktop
