#include "money/facsimile.h"

namespace desk {

开票项::开票项(Place place, const std::string& number)
    : 项目(place, "经营项目" + number),
      单价(place, "单价" + number),
      数量(place, "数量" + number),
      金额(place, "金额" + number) {}

void 开票项::填写(const 开票内容::项& content) {
    项目.setText(content.名称);
    项目.tag = content.收费项目代号;
    单价.setText(content.单价);
    数量.setText(content.数量);
    金额.setText(content.金额);
}

发票样张::发票样张(Screen& screen)
    : 发票(screen, "发票"),
      标题(发票, "标题", "上海市服务业、娱乐业、文化体育业统一发票"),
      票据本(发票, "票据本"),
      空白票据(发票, "空白票据"),
      发票号码(发票, "发票号码"),
      发票代码(发票, "发票代码", "0425 6659 1714 9820 8912"),
      机打号码(发票, "机打号码", "30843224"),
      付款单位(发票, "付款单位"),
      开票日期(发票, "开票日期"),
      项目{{{发票, "1"}, {发票, "2"}, {发票, "3"}}},
      备注(发票, "备注"),
      合计大写(发票, "合计大写", "壹园整"),
      合计小写(发票, "合计小写", "100000.00"),
      开票人(发票, "开票人") {
    备注.setText("物业管理费1-12月");
    空白票据.selected += [this] { 发票号码.setCaption(空白票据.text()); };
}

void 发票样张::填写(const 开票内容& content) {
    付款单位.setText(content.付款人);
    for (std::size_t i = 0; i < 项目.size(); ++i)
        项目[i].填写(i < content.项目.size() ? content.项目[i] : 开票内容::项{});
}

}  // namespace desk
