#pragma once

#include <QString>
#include <functional>

namespace desk::desktop {

struct Ending;

/// The one door from the window system into the screens: every handler runs through it, and so does whatever
/// Qt calls to paint a screen's data or to ask for them. A failure that nobody traps is shown as "运行时错误
/// '{number}'" with its description, and ends the process (see desktop/ending.h).
class Edge {
  public:
    /// Runs a handler.
    void run(const std::function<void()>& handler);
    /// What is done once no handler runs any more.
    void afterwards(std::function<void()> cleaning) { cleaning_ = std::move(cleaning); }
    /// Whether a handler runs, perhaps in a box or a modal screen of its own.
    bool isInside() const { return depth_ > 0; }

  private:
    void runInside(const std::function<void()>& handler);
    void end(const Ending& ending);

    int depth_ = 0;
    bool ending_ = false;  ///< the box of a failure is up
    std::function<void()> cleaning_;
};

/// The edge of this process: Qt's own callbacks have no other way to reach it.
Edge& edge();

/// Runs a handler through the edge.
inline void enter(const std::function<void()>& handler) {
    edge().run(handler);
}

/// Asks something through the edge, for Qt's own calls that want an answer.
template <class Question>
auto answered(const Question& question) {
    decltype(question()) answer{};
    edge().run([&] { answer = question(); });
    return answer;
}

}  // namespace desk::desktop
