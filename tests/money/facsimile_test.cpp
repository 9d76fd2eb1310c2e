#include "money/facsimile.h"

#include <gtest/gtest.h>

#include "ui/screen.h"

namespace desk {
namespace {

TEST(Facsimile, IsFilledLineByLineAndWhatStoodBehindIsGone) {
    Screen screen("frm", "", WindowKind::dialog, 100, 100);
    发票样张 form(screen);
    const auto lines = [&] {
        std::string all = form.付款单位.text();
        for (const auto& item : form.项目)
            all += " " + item.项目.text() + "|" + item.项目.tag + "|" + item.单价.text() + "|" +
                   item.数量.text() + "|" + item.金额.text();
        return all;
    };
    form.填写(
        {"甲公司",
         {{"租金", "D1", "1.5", "2", "3"}, {"物管费", "D2", "4", "5", "6"}, {"电费", "D3", "7", "8", "9"}}});
    EXPECT_EQ(lines(), "甲公司 租金|D1|1.5|2|3 物管费|D2|4|5|6 电费|D3|7|8|9");
    form.填写({"乙公司", {{"租金", "D1", "1", "1", "1"}}});
    EXPECT_EQ(lines(), "乙公司 租金|D1|1|1|1 |||| ||||");
}

}  // namespace
}  // namespace desk
