#pragma once

#include <array>

#include "customers/registration_page.h"

namespace desk {

/// Where a lead enters the system: one page for each kind of registration.
class Frm引驻客户信息登记 : public Screen {
  public:
    static constexpr const char* screenName = "Frm引驻客户信息登记";

    explicit Frm引驻客户信息登记(Application& app);
    void load() override;
    void activate() override;

    TabStrip 页签{*this, "页签", {"引驻来人", "引驻来电", "中介来人"}};
    登记页 来人;
    登记页 来电;
    登记页 中介来人;
    StatusBar 状态栏{*this, "状态栏", 2};

    std::array<登记页*, 3> pages() { return {&来人, &来电, &中介来人}; }

  private:
    void readDictionaries();
    void readOffices();
    void showPage();

    Application& app_;
};

}  // namespace desk
