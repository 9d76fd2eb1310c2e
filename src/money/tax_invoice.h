#pragma once

#include <string>

#include "money/facsimile.h"
#include "money/print_lines.h"
#include "money/tax_callers.h"
#include "money/tax_configuration.h"
#include "money/tax_device.h"
#include "money/tax_recovery.h"
#include "session/application.h"

namespace desk {

/// Prints one tax invoice of at most three item lines by the tax program, and hands the ticket used back to
/// the screen that its tag names. If the invoice did not come out, a panel asks what to do.
class Frm税控发票打印 : public 打印窗体 {
  public:
    static constexpr const char* screenName = "frm税控发票打印";

    explicit Frm税控发票打印(Application& app);
    void load() override;
    void 填写(const 开票内容& content) override { 样张.填写(content); }

    /// Runs the script that takes an invoice back.
    void 税控退票处理();
    /// Hands the ticket over to the dialog that takes it back. Fails with 424 where there is none.
    void 退票处理();

    发票样张 样张{*this};
    Label 出现错误{样张.发票, "出现错误", "出现错误！"};
    Button 打印发票{*this, "打印发票", "打印发票", ButtonRole::main};
    Button 关闭{*this, "关闭", "关 闭"};
    未正常打印 恢复{*this};
    税控运行 税控;
    外部窗体 外部;

  private:
    void fillBooks();
    void addBooksOf(std::string_view department);
    void loadConfiguration();
    void chooseBook();

    void print();
    void finishPrinting();
    bool cameOut();
    void recover();
    void cancelCharge();
    void close();

    std::string 交还文本() const;
    std::int32_t 所选票据ID() const;
    std::string* 交还处();

    Application& app_;
    税控配置 configuration_;
    bool 未打印标记_ = false;  ///< true until an invoice was confirmed
    std::string 退票原因_;
};

}  // namespace desk
