#pragma once

#include "reference/dictionary_tab.h"

namespace desk {

/// Regions, kinds of enterprise and industries.
class Frm客户相关信息设置 : public Screen {
  public:
    static constexpr const char* screenName = "frm客户相关信息设置";

    explicit Frm客户相关信息设置(Application& app);
    void load() override;

    TabStrip 页签{*this, "页签", {"区域设置", "企业性质设置", "行业设置"}};
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    Application& app_;
    SetupStatus status_{状态栏};

  public:
    DictionaryTab 区域;
    DictionaryTab 企业性质;
    DictionaryTab 行业;

  private:
    SetupPages pages_;
};

}  // namespace desk
