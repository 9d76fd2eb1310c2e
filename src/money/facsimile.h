#pragma once

#include <array>
#include <string>

#include "money/print_lines.h"
#include "ui/choices.h"
#include "ui/fields.h"

namespace desk {

/// One item line of the printed form.
struct 开票项 {
    开票项(Place place, const std::string& number);
    void 填写(const 开票内容::项& content);

    TextBox 项目;  ///< its tag holds the `收费项目代号`
    TextBox 单价;
    TextBox 数量;
    TextBox 金额;
};

/// The picture of the printed form that both print screens show: what a caller fills in, what the person may
/// change, and the book and the ticket that it is printed on. Totals are the tax program's business: those
/// shown here are the form's own samples and never change.
class 发票样张 {
  public:
    explicit 发票样张(Screen& screen);
    发票样张(const 发票样张&) = delete;
    发票样张& operator=(const 发票样张&) = delete;

    /// Fills in payer and item lines, and empties the lines behind the last one given.
    void 填写(const 开票内容& content);
    /// Of the item line counted from 1.
    const 开票项& 项(int line) const { return 项目.at(static_cast<std::size_t>(line) - 1); }

    Frame 发票;
    Label 标题;
    ComboBox 票据本;
    /// The blank tickets of the book; the data of an entry is the `ID` of its ticket.
    ComboBox 空白票据;
    Label 发票号码;
    Label 发票代码;
    Label 机打号码;
    TextBox 付款单位;
    TextBox 开票日期;
    std::array<开票项, 开票内容::最多项数> 项目;
    TextBox 备注;
    Label 合计大写;
    Label 合计小写;
    TextBox 开票人;
};

}  // namespace desk
