#include "money/refund.h"

#include <algorithm>
#include <optional>

#include "base/number.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/document_number.h"

namespace desk {

using C = 收费列表;

退款凭证::退款凭证(Screen& screen, Application& app, 收费列表& charges, const std::vector<收费项>& items)
    : 面板(screen, "退款凭证", "退款凭证"),
      付款方式(面板, "凭证.付款方式", "付款方式：现金"),
      凭证编号(面板, "凭证编号"),
      退款日期(面板, "凭证.退款日期"),
      摘要(面板, "摘要"),
      科目代号(面板, "科目代号"),
      科目名称(面板, "科目名称"),
      借方金额(面板, "借方金额"),
      预算(面板, "预算", "预算"),
      非预算(面板, "非预算", "非预算", &预算),
      收款人(面板, "收款人"),
      相关情况说明(面板, "相关情况说明", TextStyle::paragraph),
      制单人(面板, "制单人", "制单人："),
      确定(面板, "确定", "确定", ButtonRole::main),
      关闭(面板, "关闭/取消", "关闭/取消"),
      app_(app),
      charges_(charges),
      items_(items) {
    借方金额.setNumeric(true);
    确定.clicked += [this] { refund(); };
    关闭.clicked += [this] { close(); };
}

void 退款凭证::open(int row) {
    if (row < charges_.fixedRows() || row >= charges_.rows()) return;
    row_ = row;
    const auto id = cell(C::记录ID);
    if (id.empty()) return;
    {
        Recordset payment(
            app_.主连接,
            sql("Select  ID, 意向书ID, 收款日期, 票据入库单编号, 票据编号, 收费项目, 科目编号, 数量, 单价, "
                "金额, 票据类型, 收款人, 退款日期, 退款金额, 退款人, 备注, 处理结束, 票据打印, "
                "收费项目代号,退款支付凭证编号 From YZ_意向金收款 Where ID={}",
                numeral(id)));
        if (payment["退款支付凭证编号"].isNull())
            prepare();
        else
            showEarlier(payment);
    }
    // Below the line that it is about.
    面板.setAnchor(&charges_, Cell{row, C::序});
    面板.open();
}

void 退款凭证::showEarlier(Recordset& payment) {
    const auto voucher = payment["退款支付凭证编号"].text();
    if (!payment["退款日期"].isNull()) 退款日期.setValue(payment["退款日期"].moment());
    退款日期.setEnabled(false);
    确定.setEnabled(false);
    // The row was read without its explanation.
    Recordset explanation(app_.主连接,
                          sql("Select 退款说明 From YZ_意向金收款 Where ID={}", numeral(cell(C::记录ID))));
    相关情况说明.setText(explanation["退款说明"].text());
    显示凭证(voucher);
}

void 退款凭证::prepare() {
    const auto account = cell(C::科目编号);
    const auto item = std::find_if(items_.begin(), items_.end(),
                                   [&](const 收费项& each) { return each.对应科目 == account; });
    科目代号.setText(account);
    科目名称.setText(item == items_.end() ? std::string() : item->科目名称);
    摘要.setText("退" + cell(C::收费项目));
    借方金额.setText(cell(C::金额));
    制单人.setCaption("制单人：" + app_.session.登录姓名);
    凭证编号.setCaption("<保存时自动获取>");
    收款人.setText("");
    相关情况说明.setText("");
    预算.choose();
    确定.setEnabled(true);
    退款日期.setValue(app_.platform.clock.today());
    退款日期.setEnabled(true);
}

void 退款凭证::显示凭证(const std::string& number) {
    Recordset voucher(
        app_.主连接,
        sql("SELECT  凭证编号, 报销类型,报销单明细.科目代号, 摘要,金额, 科目名称, 制单人, 报销人 From "
            "报销单表 Inner Join 报销单明细 On 报销单表.报销单ID=报销单明细.报销单ID Inner Join 财务科目 On "
            "报销单明细.科目代号=财务科目.科目代号 Where 凭证编号='{}'",
            number));
    for (TextBox* box : {&摘要, &科目代号, &科目名称, &借方金额, &收款人}) box->setText("");
    凭证编号.setCaption(number);
    制单人.setCaption("制单人：");
    // Its account may have gone since.
    if (voucher.atEnd()) return;
    摘要.setText(voucher["摘要"].text());
    科目代号.setText(voucher["科目代号"].text());
    科目名称.setText(voucher["科目名称"].text());
    借方金额.setText(formatNumber(voucher["金额"].number(), "0.00"));
    凭证编号.setCaption(voucher["凭证编号"].text());
    (voucher["报销类型"].text() == "预算" ? 预算 : 非预算).choose();
    收款人.setText(voucher["报销人"].text());
    制单人.setCaption("制单人：" + voucher["制单人"].text());
}

void 退款凭证::refund() {
    if (val(借方金额.text()) > val(cell(C::金额))) return app_.tell("所退金额不能大于收款金额，请核对");
    const auto reimbursement = addReimbursement();
    const auto voucher = numberVoucher(reimbursement);
    addDetail(reimbursement);
    确定.setEnabled(false);
    凭证编号.setCaption(voucher);
    app_.主连接.execute(
        sql("UPDATE    YZ_意向金收款 SET 处理结束 =1, 退款日期 ='{}', 退款金额 ={}, 退款支付凭证编号 ='{}', "
            "退款说明 ={} WHERE ID={}",
            isoDay(退款日期.value()), numeral(借方金额.text()), voucher, literalOrNull(相关情况说明.text()),
            numeral(cell(C::记录ID))));
    charges_.setText(row_, C::退款标记, "OK");
    refunded(row_);
}

namespace {

/// The number behind the highest that the statement finds; 1 where there is none.
long next(Application& app, std::string_view highest) {
    Recordset rows(app.主连接, highest);
    return static_cast<long>(rows["LSH"].integer()) + 1;
}

}  // namespace

std::int64_t 退款凭证::addReimbursement() {
    const auto& session = app_.session;
    const DateTime today = app_.platform.clock.today();
    std::optional<Recordset> bill;
    const auto number = firstFree(
        next(app_, "SELECT  MAX(流水号) AS LSH From 报销单表"),
        [&](long serial) {
            return session.登录部门编号 + "-" + formatNumber(static_cast<double>(serial), "00000000");
        },
        [&](const std::string& text) {
            bill.emplace(app_.主连接, sql("Select * From 报销单表 Where 报销单编号='{}'", text),
                         Rows::updatable);
            return !bill->atEnd();
        });
    auto& row = *bill;
    row.addNew();
    row["报销单编号"] = number.text;
    row["流水号"] = std::int64_t{number.流水号};
    row["部门类别编号"] = session.登录岗位类别编号;
    row["部门代号"] = session.登录部门编号;
    row["报销费用类别"] = "意向金收费";
    row["报销类型"] = 预算.chosen() ? "预算" : "非预算";
    row["付款方式"] = "现金";
    row["报销日期"] = 退款日期.value();
    row["报批日期"] = 退款日期.value();
    row["制单人"] = session.登录姓名;
    row["报销人"] = 收款人.text();
    row["财务支付确认日期"] = today;
    row["报销单类型"] = "意向金退款";
    row["审批日期"] = today;
    row["审批通过"] = 1;
    row["一事一报"] = 0;
    row["备注"] = 摘要.text() + " /" + 相关情况说明.text();
    row.update();
    return row["报销单ID"].integer();
}

std::string 退款凭证::numberVoucher(std::int64_t 报销单ID) {
    const auto year = formatDate(app_.platform.clock.today(), "YYYY");
    const auto number = firstFree(
        next(app_, "SELECT MAX(凭证流水号) AS LSH From 报销单表"),
        [&](long serial) { return "TK-" + year + formatNumber(static_cast<double>(serial), "00000000"); },
        [&](const std::string& text) {
            return anyRow(app_.主连接, sql("Select * From 报销单表 Where 凭证编号='{}'", text));
        });
    app_.主连接.execute(sql("Update 报销单表  Set 凭证编号='{}',凭证流水号={} Where 报销单ID={}", number.text,
                            number.流水号, 报销单ID));
    return number.text;
}

void 退款凭证::addDetail(std::int64_t 报销单ID) {
    const double amount = val(借方金额.text());
    Recordset detail(app_.主连接,
                     sql("SELECT ID, 报销单ID, 科目代号, 摘要, 金额, czydh, updatedate From 报销单明细 "
                         "Where 报销单ID={}",
                         报销单ID),
                     Rows::updatable);
    detail.addNew();
    detail["报销单ID"] = 报销单ID;
    detail["科目代号"] = 科目代号.text();
    detail["摘要"] = 摘要.text();
    detail["金额"] = amount;
    detail["CzyDH"] = app_.session.登录工号;
    detail["updatedate"] = app_.platform.clock.now();
    detail.update();
    保存附件(detail["ID"].integer(), cell(C::收费项目), 摘要.text(), amount);
}

void 退款凭证::保存附件(std::int64_t 明细ID, const std::string& 项目, const std::string&, double 金额) {
    Recordset attachment(app_.主连接, "Select  * From 报销附件 Where 1=0", Rows::updatable);
    attachment.addNew();
    attachment["报销单明细ID"] = 明细ID;
    attachment["附件类型"] = 项目 + "装修退款";
    attachment["项目"] = 项目;
    attachment["金额"] = 金额;
    attachment["附件数量"] = 1;
    attachment["CzyDH"] = app_.session.登录工号;
    attachment["updatedate"] = formatDate(app_.platform.clock.now(), "YYYY/MM/DD HH:mm:SS");
    attachment.update();
}

}  // namespace desk
