#pragma once

#include "reference/dictionary_tab.h"
#include "reference/state_tab.h"

namespace desk {

/// Enquiry topics, media, and the states of a follow-up.
class Frm引驻设置 : public Screen {
  public:
    static constexpr const char* screenName = "frm引驻设置";

    explicit Frm引驻设置(Application& app);
    void load() override;

    TabStrip 页签{*this, "页签", {"咨询内容设置", "媒体设置", "跟进状态设置"}};
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    Application& app_;
    SetupStatus status_{状态栏};

  public:
    DictionaryTab 咨询内容;
    DictionaryTab 媒体;
    StateTab 跟进状态;

  private:
    SetupPages pages_;
};

}  // namespace desk
