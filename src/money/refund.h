#pragma once

#include <string>
#include <vector>

#include "money/charge_grid.h"
#include "session/application.h"
#include "ui/fields.h"
#include "ui/panel.h"

namespace desk {

/// What can be charged: the account behind an item of the list, the item's code, the account's name.
struct 收费项 {
    std::string 对应科目;
    std::string 项目代号;
    std::string 科目名称;
};

/// The panel on which a saved charge line is paid back by a voucher, or the voucher of an earlier refund is
/// shown.
class 退款凭证 {
  public:
    /// `charges` and `items` must live as long as it.
    退款凭证(Screen& screen, Application& app, 收费列表& charges, const std::vector<收费项>& items);
    退款凭证(const 退款凭证&) = delete;
    退款凭证& operator=(const 退款凭证&) = delete;

    /// Opens for a row of the grid; nothing for one that is not saved.
    void open(int row);
    void close() { 面板.close(); }

    /// Shows a voucher that has been saved.
    void 显示凭证(const std::string& 凭证编号);

    Signal<int> refunded;  ///< the charge line of that row has been paid back

    Panel 面板;
    Label 付款方式;
    Label 凭证编号;
    DatePicker 退款日期;
    TextBox 摘要;
    TextBox 科目代号;
    TextBox 科目名称;
    TextBox 借方金额;
    OptionButton 预算;
    OptionButton 非预算;
    TextBox 收款人;
    TextBox 相关情况说明;
    Label 制单人;
    Button 确定;
    Button 关闭;

  private:
    void showEarlier(Recordset& payment);
    void prepare();
    void refund();
    std::int64_t addReimbursement();
    std::string numberVoucher(std::int64_t 报销单ID);
    void addDetail(std::int64_t 报销单ID);
    void 保存附件(std::int64_t 明细ID, const std::string& 项目, const std::string& 摘要, double 金额);
    std::string cell(收费列表::Column column) const { return charges_.text(row_, column); }

    Application& app_;
    收费列表& charges_;
    const std::vector<收费项>& items_;
    int row_ = 0;
};

}  // namespace desk
