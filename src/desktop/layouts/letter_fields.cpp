#include "desktop/layouts/letter_fields.h"

namespace desk::desktop::layout {

QWidget* withUnit(Control& field, std::string_view unit) {
    return columns({plain(field), caption(unit)}, {1, 0});
}

QWidget* fromTo(Control& from, Control& to) {
    constexpr std::string_view longest = "2026-12-31";
    return columns({wideEnoughFor(longest, plain(from)), caption("至"), wideEnoughFor(longest, plain(to))},
                   {1, 0, 1});
}

QWidget* letterLines(意向书信息块& letter, std::vector<Field> more) {
    constexpr int lineLength = 3;
    std::vector<Field> lines{{"登记编号", letter.登记编号}};
    for (Field& field : more) lines.push_back(std::move(field));
    // Names and lists of units are long: what is left of the first line, and two places of the second.
    Field tenant("承租方", letter["承租方"]);
    tenant.places = lineLength - static_cast<int>(lines.size());
    Field units("租赁单元", letter["租赁单元"]);
    units.places = 2;
    auto* lease = fromTo(letter["租赁起始日期"], letter["租赁结束日期"]);
    auto* rent = withUnit(letter["租金单价"], "元/天/平方米");
    auto* fee = withUnit(letter["物业管理费单价"], "元/平方米/月");
    auto* works = fromTo(letter["装修起始日期"], letter["装修结束日期"]);
    for (const Field& field :
         {tenant, units, Field("租赁面积", letter["租赁面积"]), Field("租赁期限", lease),
          Field("租金单价", rent), Field("月租金", letter["月租金"]), Field("物管费单价", fee),
          Field("月物管费", letter["月物业管理费"]), Field("付款方式", letter["付款方式"]),
          Field("递延方式", letter["递延方式"]), Field("物管费意向金", letter["物业管理费意向金"]),
          Field("租金意向金", letter["租金意向金"]), Field("意向金", letter["意向金合计"]),
          Field("免租期限", letter["免租期"]), Field("装修期限", works)})
        lines.push_back(field);
    return fields(std::move(lines), lineLength);
}

QWidget* letterTexts(意向书信息块& letter) {
    return fields({{"承租方背景", twoLines(plain(letter["承租方背景"]))},
                   {"申请说明", twoLines(plain(letter["申请说明"]))}},
                  2);
}

}  // namespace desk::desktop::layout
