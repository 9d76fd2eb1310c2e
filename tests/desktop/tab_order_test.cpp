#include <sstream>

#include "desktop/by_hand.h"

namespace desk::desktop {
namespace {

/// Tab goes through a screen in the order in which it is read.
class TabOrder : public ByHand {
  protected:
    /// What Tab comes to, from the first of these on. Of a day each part takes a step.
    void expect(const char* screen, const std::string& way) {
        SCOPED_TRACE(screen);
        Screen& shown = program.app.screens.get(screen);
        const Person person(layoutOf(shown));
        std::istringstream names(way);
        std::string name;
        names >> name;
        person.at(*shown.control(name)).setFocus();
        std::string gone = name;
        while (names >> name) {
            const std::string before = Person::focused();
            for (int part = 0; part < 3 && Person::focused() == before; ++part) person.press({Qt::Key_Tab});
            gone += " " + Person::focused();
        }
        EXPECT_EQ(gone, way);
    }
};

TEST_F(TabOrder, IsThatOfReading) {
    expect("frm客户分类统计",
           "Combo1 Check1 List1 Check2 List2 Check3 List3 Text1 List4 Command1 Command13 Command4 隐藏 "
           "MSFlexGrid1");
    expect("frm每周来客统计分析", "选择区域 开始日期 结束日期 全部 统计项目 统计 输出 退出 隐藏 统计结果");
    expect("Frm意向书审批", "待审批 您的审批意见 同意 他人审批情况 保存审批意见 不同意 退出");
    expect("frm意向书信息",
           "登记编号 Check5 承租方 选择承租方 租赁单元 租赁面积 租赁起始日期 租赁结束日期 租金单价 月租金 "
           "物业管理费单价 月物业管理费 付款方式 递延方式 物业管理费意向金 租金意向金 意向金合计");
    expect("frm意向书信息", "申请说明 确定");
    expect("Frm引驻客户信息登记", "来人.备注 来人.确定 来人.新增 来人.删除");
}

}  // namespace
}  // namespace desk::desktop
