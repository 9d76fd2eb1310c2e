#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reference/setup_grid.h"
#include "ui/choices.h"
#include "ui/fields.h"

namespace desk {

/// The mode and the title in a setup screen's status bar. A save reads back there what it has to do.
class SetupStatus {
  public:
    enum class Order { modeFirst, titleFirst };

    explicit SetupStatus(StatusBar& bar, Order order = Order::modeFirst);

    void showAdding(std::string_view title) { show("新增", title); }
    void showChanging(std::string_view title) { show("修改", title); }
    bool showsTitle(std::string_view title) const { return bar_.panel(titlePanel_) == title; }
    bool showsAdding() const { return bar_.panel(modePanel_) == "新增"; }

    Signal<> shown;  ///< mode and title have been set

  private:
    void show(std::string_view mode, std::string_view title);

    StatusBar& bar_;
    int modePanel_;
    int titlePanel_;
};

/// The tabs of a setup screen: a new current tab shows its frame alone, and waits for a new entry.
class SetupPages {
  public:
    struct Page {
        Frame& frame;
        SetupGrid& grid;
    };

    /// `pages` in the order of the strip's titles.
    SetupPages(TabStrip& strip, SetupStatus& status, std::vector<Page> pages);

    void showCurrent();

  private:
    TabStrip& strip_;
    SetupStatus& status_;
    std::vector<Page> pages_;
};

}  // namespace desk
