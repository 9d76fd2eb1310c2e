#include "intent/approval_path.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/failure_report.h"
#include "session/grid_rows.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

enum Column { 序列, 代号列, 名称列, 管理项目列, 备注列, 编号列 };

constexpr double marginTwips = 90;

}  // namespace

Frm意向书审批路径设置::Frm意向书审批路径设置(Application& app)
    : Screen(screenName, "意向书审批路径设置", WindowKind::child, 14400, 9600),
      路径列表(*this, "路径列表", "<序|<路径代号|<路径名称                     |<管理项目    |<备  注   |"),
      环节(*this, app),
      app_(app) {
    路径列表.setColumnWidth(编号列, 0);
    路径列表.setSelection(GridSelection::row);
    路径列表.clicked += [this] { guarded(&Frm意向书审批路径设置::selectPath); };
    新增.clicked += [this] { startOrCancel(); };
    确定.clicked += [this] { guarded(&Frm意向书审批路径设置::save); };
    删除.clicked += [this] { remove(); };
    环节.close();
}

void Frm意向书审批路径设置::guarded(void (Frm意向书审批路径设置::*handler)()) {
    try {
        (this->*handler)();
    } catch (const RuntimeFailure& failure) {
        reportFailure(app_, failure);
    }
}

void Frm意向书审批路径设置::load() {
    窗体居中(app_, *this);
    状态栏.setPanel(0, app_.session.登录部门名称);
    状态栏.setPanel(1, app_.session.登录岗位名称);
    guarded(&Frm意向书审批路径设置::open);
}

void Frm意向书审批路径设置::open() {
    环节.load();
    管理项目.fill(
        {app_.主连接, "Select * From 设置管理处  Where 终止日期 is Null Order by Len(GYD_DH),GYD_DH"},
        {"GYD_DH", "GYD_Name"});
    fillPaths();
}

void Frm意向书审批路径设置::fillPaths() {
    const Batch fill(路径列表);
    Recordset paths(
        app_.主连接,
        "Select 审批路径代号,审批路径名称,GYD_Name,YZ_意向书审批路径设置.备注,YZ_意向书审批路径设置.ID From "
        "YZ_意向书审批路径设置 Inner Join  设置管理处 On "
        "YZ_意向书审批路径设置.管理处代号=设置管理处.GYD_DH  Where YZ_意向书审批路径设置.终止日期 is Null  "
        "Order By len(管理处代号),管理处代号");
    fillGrid(路径列表, paths, {"审批路径代号", "审批路径名称", "GYD_Name", "备注", "ID"});
    fitColumns();
}

/// Columns grow to their widest text, and never shrink.
void Frm意向书审批路径设置::fitColumns() {
    const Batch widths(路径列表);
    for (int column = 0; column < 编号列; ++column)
        for (int row = 0; row < 路径列表.rows(); ++row) {
            const double wanted = app_.desktop.textWidth(*this, 路径列表.text(row, column)) + marginTwips;
            if (wanted > 路径列表.columnWidth(column))
                路径列表.setColumnWidth(column, static_cast<int>(wanted));
        }
}

std::string Frm意向书审批路径设置::currentId() const {
    return 路径列表.row() < 路径列表.fixedRows() ? std::string() : 路径列表.text(路径列表.row(), 编号列);
}

void Frm意向书审批路径设置::selectPath() {
    环节.clearDepartment();
    环节.hideDepartments();
    if (currentId().empty()) return app_.inform("没有可以编辑的信息,请重新查询!");
    showPath();
}

void Frm意向书审批路径设置::showPath() {
    const std::string id = currentId();
    {
        Recordset path(
            app_.主连接,
            sql("SELECT YZ_意向书审批路径设置.ID, YZ_意向书审批路径设置.审批路径代号, "
                "YZ_意向书审批路径设置.审批路径名称, YZ_意向书审批路径设置.单级流转, "
                "YZ_意向书审批路径设置.备注,设置管理处.GYD_Name FROM YZ_意向书审批路径设置 INNER JOIN "
                "设置管理处 ON YZ_意向书审批路径设置.管理处代号 = 设置管理处.GYD_DH Where "
                "YZ_意向书审批路径设置.ID={}",
                numeral(id)));
        if (!path.atEnd()) {
            路径代号.setText(path["审批路径代号"].text());
            路径名称.setText(path["审批路径名称"].text());
            备注.setText(path["备注"].text());
            单级流转.setChecked(path["单级流转"].flag());
            // An office that is not offered any more leaves the choice open: it must not stay with the last
            // one.
            管理项目.setIndex(-1);
            管理项目.selectName(path["GYD_Name"].text());
        }
    }
    新增.browse();
    环节.showPath(id);
}

void Frm意向书审批路径设置::clearFields() {
    for (TextBox* box : {&路径代号, &路径名称, &备注}) box->setText("");
    管理项目.setIndex(-1);
}

void Frm意向书审批路径设置::startOrCancel() {
    if (新增.entering()) return 新增.browse();
    新增.startEntering();
    clearFields();
    路径代号.focus();
}

void Frm意向书审批路径设置::save() {
    if (路径代号.text().empty()) return app_.inform("路径代号不能为空!");
    if (路径名称.text().empty()) return app_.inform("路径名称不能为空!");
    if (!管理项目.hasSelection()) return app_.inform("管理项目不能为空!");
    if (!新增.entering()) return change();
    if (!isDuplicate()) add();
}

bool Frm意向书审批路径设置::isDuplicate() {
    if (anyRow(app_.主连接,
               sql("select * from YZ_意向书审批路径设置 where  管理处代号='{}' and   终止日期 is null",
                   管理项目.code()))) {
        app_.inform(fmt::format("已经存在管理项目代号为 {}的审批路径，不能重复设置！", 管理项目.code()));
        return true;
    }
    if (anyRow(app_.主连接,
               sql("select * from YZ_意向书审批路径设置 where  审批路径代号='{}' and   终止日期 is null",
                   路径代号.text()))) {
        app_.inform("审批路径代号已经存在,请重新设置!");
        return true;
    }
    return false;
}

void Frm意向书审批路径设置::add() {
    Recordset path(app_.主连接, "select * from YZ_意向书审批路径设置 where 1=0", Rows::updatable);
    path.addNew();
    write(path);
    const Batch adding(路径列表);
    const int row = 路径列表.addRow({std::to_string(路径列表.rows())});
    路径列表.setText(row, 编号列, path["ID"].text());
    putRow(row);
    新增.browse();
    fitColumns();
}

/// A change looks for neither of the two duplicates: so a path can be given the office of another.
void Frm意向书审批路径设置::change() {
    const std::string id = currentId();
    if (id.empty()) return app_.inform("没有可以编辑的信息,请重新查询!");
    Recordset path(app_.主连接, sql("select * from YZ_意向书审批路径设置 where ID = {}", numeral(id)),
                   Rows::updatable);
    if (path.atEnd()) return;
    write(path);
    putRow(路径列表.row());
}

void Frm意向书审批路径设置::write(Recordset& path) {
    path["审批路径代号"] = 路径代号.text();
    path["审批路径名称"] = 路径名称.text();
    path["管理处代号"] = 管理项目.code();
    path["单级流转"] = 单级流转.checked();
    path["起始日期"] = app_.platform.clock.today();
    path["备注"] = 备注.text();
    path.update();
}

void Frm意向书审批路径设置::putRow(int row) {
    路径列表.setText(row, 代号列, 路径代号.text());
    路径列表.setText(row, 名称列, 路径名称.text());
    路径列表.setText(row, 管理项目列, 管理项目.name());
    路径列表.setText(row, 备注列, 备注.text());
}

void Frm意向书审批路径设置::remove() {
    const std::string id = currentId();
    if (id.empty()) return;
    if (anyRow(app_.主连接, sql("Select * From YZ_意向书审批路径 Where 意向书审批ID={}", numeral(id))))
        return app_.inform("意向书审批路径关联,不能删除！");
    if (!app_.confirmDeletion("确定要删除选中的意向书审批路径吗？")) return;
    app_.主连接.execute(sql("Delete From  YZ_意向书审批路径设置 Where ID={}", numeral(id)));
    {
        const Batch removing(路径列表);
        路径列表.removeRow(路径列表.row());
        for (int row = 路径列表.fixedRows(); row < 路径列表.rows(); ++row)
            路径列表.setText(row, 序列, std::to_string(row));
    }
    clearFields();
    // The grid now stands on another path, which nobody has chosen.
    环节.close();
}

}  // namespace desk
