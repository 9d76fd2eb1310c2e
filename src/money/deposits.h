#pragma once

#include <string>
#include <vector>

#include "intent/letter_block.h"
#include "money/charge_grid.h"
#include "money/print_lines.h"
#include "money/refund.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/cell_editor.h"
#include "ui/cell_list.h"
#include "ui/tree.h"

namespace desk {

/// Takes the deposit of a letter of intent that has passed: the charge lines, a ticket for each of them, and
/// the refund of a line. A letter stays in the tree when its deposit has been taken, so that it can be paid
/// back later.
class Frm意向金收取 : public Screen {
  public:
    static constexpr const char* screenName = "frm意向金收取";

    explicit Frm意向金收取(Application& app);
    void load() override;

    CodedCombo 管理项目{*this, "管理项目"};
    Tree 意向书{*this, "意向书"};
    意向书信息块 意向书信息{*this, 意向书信息块::Use::locked};
    收费列表 收费{*this, "收费"};
    CellEditor 单元格编辑{*this, "单元格编辑", 收费};
    CellList 收费项目{*this, 收费, "收费项目"};
    CellList 票据类型{*this, 收费, "票据类型"};
    CellList 票据簿{*this, 收费, "票据簿"};
    CellList 票据{*this, 收费, "票据"};
    /// Beside the clicked row, whose number its tag holds.
    Frame 行操作{*this, "行操作"};
    Button 退款处理{行操作, "退款处理", "退款处理"};
    /// Its tag takes what a print screen hands back.
    Button 票据打印保存{*this, "票据打印/保存相关收费数据", "票据打印/保存相关收费数据", ButtonRole::main};
    Button 退出{*this, "退出", "退出"};
    退款凭证 退款;
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    void fillTicketTypes();
    void fillChargeItems();
    void chooseOffice();
    void chooseLetter(const TreeNode& node);
    void forgetLetter();
    void showCharges(const std::string& 意向书ID);

    void hidePopUps();
    void clickCell();
    void offerRefund(int row);
    void moveTo(int row, int column);
    void openEditor();
    void enterTyped();
    void takeItem(int line);
    void takeType(int line);
    void takeBook(int line);
    void takeTicket(int line);

    void printAndSave();
    bool isComplete(int last);
    bool collectLines(int last);
    bool printGroup(const 打印组& group);
    bool printTicket(std::string_view screen, const std::vector<int>& rows);
    void save(int last);

    Application& app_;
    std::vector<收费项> items_;
    std::vector<收费行票据信息> 收费行票据信息_;
};

}  // namespace desk
