#pragma once

#include "ui/fields.h"

namespace desk {

/// The button that starts a new entry and calls it off again. Its caption is the screen's mode: "新增" while
/// browsing, "取消" while a new entry is typed.
class EntryButton : public Button {
  public:
    EntryButton(Place place, std::string name) : Button(place, std::move(name), browsing) {}

    /// Whether a save would add an entry.
    bool entering() const { return caption() == typing; }
    void startEntering() { setCaption(typing); }
    void browse() { setCaption(browsing); }

  private:
    static constexpr const char* browsing = "新增";
    static constexpr const char* typing = "取消";
};

}  // namespace desk
