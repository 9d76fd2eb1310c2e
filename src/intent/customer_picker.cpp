#include "intent/customer_picker.h"

#include "db/recordset.h"
#include "db/statement.h"
#include "session/grid_rows.h"

namespace desk {

namespace {

enum Column { 序列, 登记编号列, 承租方列, 联系人列, 登记日期列, 跟进日期列, 编号列 };

}  // namespace

客户选择::客户选择(Screen& screen, Application& app, TextBox& tenant)
    : 面板(screen, "客户面板", "选择承租方"),
      跟进状态(面板, "跟进状态"),
      列表(面板, "客户列表",
           "<序|<引驻登记编号|<承租方                                      |<联系人     |登记日期  "
           "|<最后跟进日期|"),
      确定(面板, "客户.确定", "确定", ButtonRole::main),
      关闭(面板, "客户.关闭", "关闭"),
      app_(app),
      tenant_(tenant) {
    面板.setAnchor(&tenant);
    列表.setColumnWidth(编号列, 0);
    列表.setSelection(GridSelection::row);
    列表.hint = "请选择跟进状态";
    跟进状态.selected += [this] { showCustomers(); };
    确定.clicked += [this] { take(); };
    关闭.clicked += [this] { 面板.close(); };
}

void 客户选择::load() {
    跟进状态.fill({app_.主连接, "Select * From YZ_跟进状态设置 Order by Len(状态编号),状态编号"},
                  {"状态编号", "状态名称"});
}

/// A customer is listed when any entry of its diary has the state, with the last day of these entries.
void 客户选择::showCustomers() {
    const Hourglass busy(app_.desktop);
    Recordset customers(
        app_.主连接,
        sql("Select YZ_引驻客户信息.* ,A.跟进日期 From YZ_引驻客户信息 Inner Join (Select "
            "管理处代号,登记编号,max(跟进日期) as 跟进日期  From YZ_引驻客户跟进记录 Where 跟进状态编号='{}' "
            "Group By 管理处代号,登记编号) A  ON YZ_引驻客户信息.管理处代号=A.管理处代号 AND  "
            "YZ_引驻客户信息.登记编号=A.登记编号 ",
            跟进状态.code()));
    fillGrid(列表, customers, {"登记编号", "公司名称", "客户姓名", "登记日期", "跟进日期", "ID"});
}

void 客户选择::take() {
    const int row = 列表.row();
    if (row < 列表.fixedRows() || 列表.text(row, 编号列).empty()) return;
    tenant_.setText(列表.text(row, 承租方列));
    tenant_.tag = 列表.text(row, 编号列);
    面板.close();
}

}  // namespace desk
