#include "reference/setup_pages.h"

namespace desk {

SetupStatus::SetupStatus(StatusBar& bar, Order order)
    : bar_(bar), modePanel_(order == Order::modeFirst ? 0 : 1), titlePanel_(1 - modePanel_) {}

void SetupStatus::show(std::string_view mode, std::string_view title) {
    bar_.setPanel(modePanel_, mode);
    bar_.setPanel(titlePanel_, title);
    shown();
}

SetupPages::SetupPages(TabStrip& strip, SetupStatus& status, std::vector<Page> pages)
    : strip_(strip), status_(status), pages_(std::move(pages)) {
    strip_.selected += [this] { showCurrent(); };
}

void SetupPages::showCurrent() {
    const auto current = static_cast<std::size_t>(strip_.index());
    for (std::size_t i = 0; i < pages_.size(); ++i) pages_[i].frame.setVisible(i == current);
    pages_[current].grid.goToLast();
    status_.showAdding(strip_.titles()[current]);
}

}  // namespace desk
