#pragma once

#include <string>
#include <string_view>

#include "intent/letter_block.h"
#include "intent/unit_list.h"
#include "session/application.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/panel.h"

namespace desk {

/// The panel with the units of the letter that is being written. What a stored letter has reserved is not
/// read back: the list keeps what the last work left in it.
class 租赁单元选择 {
  public:
    /// `letter` takes the units as text and the sum of their areas by 关闭, and by the Escape key where the
    /// units are others than when the panel opened; `office` is the office whose units can be picked.
    租赁单元选择(Screen& screen, Application& app, 意向书信息块& letter, const ComboBox& office);
    租赁单元选择(const 租赁单元选择&) = delete;
    租赁单元选择& operator=(const 租赁单元选择&) = delete;

    /// Reserves the units that are not saved yet for the letter of that `ID`, all of them or, where one is in
    /// use, none: then the person has been told, and it gives false.
    bool reserve(std::string_view 意向书ID, std::string_view 设置日期);

    Panel 面板;
    租赁单元列表 列表;
    Button 单元选择;
    Button 删除单元;
    Button 关闭;

  private:
    void openMap();
    void removeUnit();
    void summarise();

    Application& app_;
    意向书信息块& letter_;
    const ComboBox& office_;
    bool takesOver_ = false;
};

}  // namespace desk
