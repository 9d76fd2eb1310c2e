#include "intent/letter_block.h"

#include <stdexcept>

namespace desk {

namespace {

constexpr std::string_view tenant = "承租方";
constexpr std::string_view customer = "引驻客户信息ID";

}  // namespace

const std::vector<意向书信息块::Field>& 意向书信息块::fields() {
    static const std::vector<Field> all{
        {"承租方", tenant},
        {"租赁单元", "租赁单元"},
        {"租赁面积", "租赁面积"},
        {"租赁期限", "租赁起始日期"},
        {"至", "租赁结束日期"},
        {"租金单价", "租金单价"},
        {"月租金", "月租金"},
        {"物管费单价", "物业管理费单价"},
        {"月物管费", "月物业管理费"},
        {"付款方式", "付款方式"},
        {"递延方式", "递延方式"},
        {"物管费意向金", "物业管理费意向金"},
        {"租金意向金", "租金意向金"},
        {"意向金", "意向金合计"},
        {"装修期限", "装修起始日期"},
        {"至", "装修结束日期"},
        {"免租期限", "免租期"},
        {"承租方背景", "承租方背景", TextStyle::paragraph},
        {"申请说明", "申请说明", TextStyle::paragraph},
    };
    return all;
}

意向书信息块::意向书信息块(Place place, Use use) : 登记编号(place, "登记编号") {
    for (const Field& field : fields()) {
        TextBox& box = boxes_.emplace_back(place, std::string(field.column), field.style);
        box.setLocked(use == Use::locked);
    }
    登记编号.setLocked(use == Use::locked);
}

TextBox& 意向书信息块::operator[](std::string_view column) {
    for (auto& box : boxes_)
        if (box.name() == column) return box;
    throw std::logic_error("no such field: " + std::string(column));
}

void 意向书信息块::show(Recordset& letter) {
    登记编号.setText(letter["意向书编号"].text());
    登记编号.tag = letter["ID"].text();
    for (std::size_t i = 0; i < boxes_.size(); ++i) boxes_[i].setText(letter[fields()[i].column].text());
    (*this)[tenant].tag = letter[customer].text();
}

void 意向书信息块::write(Recordset& letter) {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const auto column = fields()[i].column;
        letter[column] = nullIfEmpty(boxes_[i].text());
        if (column == tenant) letter[customer] = nullIfEmpty(boxes_[i].tag);
    }
}

}  // namespace desk
