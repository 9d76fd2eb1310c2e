#include "money/facsimile.h"

#include <gtest/gtest.h>

#include "ui/screen.h"

namespace desk {
namespace {

struct 空窗体 : Screen {
    空窗体() : Screen("frm", "", WindowKind::dialog, 100, 100) {}
    发票样张 样张{*this};
};

std::string lineOf(const 开票项& item) {
    return item.项目.text() + "|" + item.项目.tag + "|" + item.单价.text() + "|" + item.数量.text() + "|" +
           item.金额.text();
}

TEST(Facsimile, IsFilledLineByLineAndWhatStoodBehindIsGone) {
    空窗体 screen;
    auto& form = screen.样张;
    form.填写(
        {"甲公司",
         {{"租金", "D1", "1.5", "2", "3"}, {"物管费", "D2", "4", "5", "6"}, {"电费", "D3", "7", "8", "9"}}});
    EXPECT_EQ(form.付款单位.text(), "甲公司");
    EXPECT_EQ(lineOf(form.项(1)), "租金|D1|1.5|2|3");
    EXPECT_EQ(lineOf(form.项(2)), "物管费|D2|4|5|6");
    EXPECT_EQ(lineOf(form.项(3)), "电费|D3|7|8|9");

    form.填写({"乙公司", {{"租金", "D1", "1", "1", "1"}}});
    EXPECT_EQ(form.付款单位.text(), "乙公司");
    EXPECT_EQ(lineOf(form.项(1)), "租金|D1|1|1|1");
    EXPECT_EQ(lineOf(form.项(2)), "||||");
    EXPECT_EQ(lineOf(form.项(3)), "||||");
    EXPECT_EQ(form.备注.text(), "物业管理费1-12月");
}

TEST(Facsimile, TheInvoiceNumberFollowsTheChosenTicket) {
    空窗体 screen;
    auto& form = screen.样张;
    form.空白票据.addItem("9001", 5);
    form.空白票据.addItem("9002", 6);
    form.空白票据.pick("9002");
    EXPECT_EQ(form.发票号码.caption(), "9002");
    form.空白票据.setIndex(-1);
    EXPECT_EQ(form.发票号码.caption(), "");
}

}  // namespace
}  // namespace desk
