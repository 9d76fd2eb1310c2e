#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/money.h"
#include "money/charge_grid.h"
#include "ui/screen.h"

namespace desk {

/// One charge line that waits for printing.
struct 收费行票据信息 {
    bool 税控 = false;
    std::string 票据类型;
    std::string 项目;
    std::string 收费项目代号;
    Money 单价;
    double 数量 = 0;
    Money 金额;
    std::int16_t 行号 = 0;  ///< of the grid; 0 where the row does not wait
};

/// Copies a grid row into `lines`, which is indexed by grid row and grows to it. Fails with 13 where
/// quantity, unit price or amount is no number.
void 添加票据信息(std::vector<收费行票据信息>& lines, const 收费列表& charges, int row);

/// The lines that are printed through the same screen, by their grid rows.
struct 打印组 {
    std::string 名称;
    std::vector<int> 行;

    static constexpr const char* 税控 = "税控";
};

/// First the lines for the tax device, if there are any, then those of each other ticket type, in row order.
std::vector<打印组> 打印分组(const std::vector<收费行票据信息>& lines);

/// What one ticket is to say.
struct 开票内容 {
    struct 项 {
        std::string 名称;
        std::string 收费项目代号;
        std::string 单价;
        std::string 数量;
        std::string 金额;
    };
    static constexpr std::size_t 最多项数 = 3;

    std::string 付款人;
    std::vector<项> 项目;  ///< at most `最多项数`
};

/// A screen that prints one ticket. Its caller sets the tag, hands over what is to be printed and shows it
/// modally; once the ticket has come out, the screen writes "{入库单编号},{票据编号},{票据ID}" into the tag
/// of the caller's button.
class 打印窗体 : public Screen {
  public:
    using Screen::Screen;
    /// Fills the form, and empties the item lines behind the last one given.
    virtual void 填写(const 开票内容& content) = 0;
};

}  // namespace desk
