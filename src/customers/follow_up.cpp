#include "customers/follow_up.h"

#include "base/text.h"
#include "customers/lead_tree.h"
#include "customers/typed_day.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/grid_rows.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

/// The numbers under which the calendar remembers the two date fields.
enum DateField { 跟进日期序号 = 17, 预约日期序号 = 19 };

enum Column { 序列, 日期列, 跟进人列, 情况列, 状态列, 颜色列, 预约列, 编号列 };

}  // namespace

Frm客户跟进记录::Frm客户跟进记录(Application& app)
    : Screen(screenName, "客户跟进记录", WindowKind::child, 18000, 10200),
      客户信息(*this, {{"登记日期", "登记日期"},
                       {"登记编号", "登记编号"},
                       {"公司名称", "公司名称"},
                       {"客户姓名", "客户姓名"},
                       {"职    位", "职位"},
                       {"客户电话", "客户电话"},
                       {"传    真", "传真"},
                       {"需求面积", "需求面积"},
                       {"预算租金", "预算租金"},
                       {"洽谈重点", "洽谈重点"},
                       {"推荐楼层", "推荐楼层"},
                       {"中介公司", "中介公司名称"},
                       {"备    注", "备注"}}),
      跟进列表(情况页, "跟进列表",
               "序|<跟进日期  |<跟进人|<跟进情况                                            |<跟进状态|颜色|"
               "<预约日期  |"),
      日历(*this, app.desktop, "日历"),
      app_(app) {
    for (TextBox* box : {&业务员, &中介人员, &中介联系电话, &中介传真}) box->setLocked(true);
    跟进列表.setColumnWidth(编号列, 0);
    跟进列表.setSelection(GridSelection::row);
    跟进列表.hint = "没有跟进记录";
    客户.hint = "请先选择管理项目";
    删除.setEnabled(false);

    for (Control* field : std::initializer_list<Control*>{&跟进日期, &跟进人员, &跟进状态})
        field->setDemanded(true);
    管理项目.selected += [this] { chooseOffice(); };
    客户.nodeClicked += [this](TreeNode& node) { selectCustomer(node); };
    跟进列表.clicked += [this] { showDiaryRow(); };
    跟进状态.selected += [this] {
        if (const Item* item = 跟进状态.selectedItem()) 颜色.setColour(item->colour.value_or(windowColour));
    };
    新增.clicked += [this] { startOrCancel(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
    页签.selected += [this] { showTab(); };

    for (TextBox* box : {&跟进日期, &预约日期}) box->focused += [box] { box->selectAll(); };
    日历.serve(跟进日期, 跟进日期按钮, 跟进日期序号, DayGoesTo::openedField);
    日历.serve(预约日期, 预约日期按钮, 预约日期序号, DayGoesTo::openedField);
    日历.dayTaken += [this](int field) {
        (field == 跟进日期序号 ? 跟进日期按钮 : 预约日期按钮).setVisible(false);
        if (field == 跟进日期序号)
            跟进人员.focus();
        else
            确定.focus();
    };
    showTab();
}

void Frm客户跟进记录::load() {
    日历.日历.setValue(app_.platform.clock.today());
    尽量填充管理处(app_, 管理项目);
    fillPersons();
    fillStates();
}

void Frm客户跟进记录::fillPersons() {
    跟进人员.fill(
        Recordset(app_.主连接,
                  sql(" Select 员工档案.工号,员工档案.姓名  From 员工档案  Inner Join 岗位员工new On   "
                      "员工档案.工号=岗位员工new.员工代号 Inner Join 岗位信息new On  "
                      "岗位员工new.岗位代号=岗位信息new.岗位代号 Where 岗位信息new.职能部门代号='{}' and "
                      "员工档案.离职日期 is Null  Order by len(员工档案.工号),员工档案.工号",
                      app_.session.登录部门编号)),
        {"工号", "姓名"});
}

void Frm客户跟进记录::fillStates() {
    跟进状态.fill(Recordset(app_.主连接, "Select * From YZ_跟进状态设置 order by len(状态编号),状态编号"),
                  {"状态编号", "状态名称", "颜色表示"});
}

void Frm客户跟进记录::chooseOffice() {
    const Hourglass busy(app_.desktop);
    // A number means another customer in another office.
    leaveCustomer();
    跟进列表.clear();
    新增.browse();
    页签.setIndex(0);
    客户.hint = "没有分配给您的客户";
    Recordset leads(
        app_.主连接,
        sql("Select * From YZ_引驻客户信息 Where  登记编号 in (Select 登记编号 From YZ_引驻客户分配  Where "
            "管理处代号='{}' And  员工工号='{}' And 终止日期 is Null) AND 管理处代号='{}'  Order By "
            "Len(登记编号),登记编号",
            管理项目.code(), app_.session.登录工号, 管理项目.code()));
    填充客户树(客户, leads);
}

void Frm客户跟进记录::clearEntry() {
    跟进日期.setText("");
    跟进情况.setText("");
    预约日期.setText("");
    跟进人员.setIndex(-1);
    跟进状态.setIndex(-1);
    颜色.setColour(windowColour);
    currentId_.clear();
}

void Frm客户跟进记录::leaveCustomer() {
    clearEntry();
    删除.setEnabled(false);
    hideCalendar();
    清空文本框(*this);
}

void Frm客户跟进记录::selectCustomer(const TreeNode& node) {
    leaveCustomer();
    const std::string no = 登记编号Of(node);
    if (no.empty()) return;
    showCustomer(no);
    readDiary(no);
    页签.setIndex(跟进列表.rows() > 跟进列表.fixedRows() ? 1 : 0);
}

void Frm客户跟进记录::showCustomer(const std::string& no) {
    {
        Recordset assignee(
            app_.主连接,
            sql("Select YZ_引驻客户分配.员工工号,员工档案.姓名 From YZ_引驻客户分配 Inner Join 员工档案 "
                "ON YZ_引驻客户分配.员工工号 =员工档案.工号  Where 登记编号='{}' AND "
                "YZ_引驻客户分配.管理处代号='{}' And 终止日期 is Null",
                no, 管理项目.code()));
        if (!assignee.atEnd()) 业务员.setText(assignee["员工工号"].text() + " " + assignee["姓名"].text());
    }
    Recordset lead(app_.主连接, sql("Select * From YZ_引驻客户信息  Where 登记编号='{}' and 管理处代号='{}'",
                                    no, 管理项目.code()));
    if (!lead.atEnd()) 客户信息.show(lead);
}

void Frm客户跟进记录::readDiary(const std::string& no) {
    Recordset entries(
        app_.主连接,
        sql("Select  YZ_引驻客户跟进记录.跟进日期,员工档案.姓名,YZ_引驻客户跟进记录.跟进情况,"
            "YZ_跟进状态设置.状态名称,YZ_跟进状态设置.颜色表示,YZ_引驻客户跟进记录.预约日期,"
            "YZ_引驻客户跟进记录.ID From YZ_引驻客户跟进记录 Inner Join 员工档案 ON "
            "YZ_引驻客户跟进记录.跟进人工号=员工档案.工号 Inner Join YZ_跟进状态设置 ON "
            "YZ_引驻客户跟进记录.跟进状态编号=YZ_跟进状态设置.状态编号 Where 管理处代号='{}' and "
            "登记编号='{}'Order By 跟进日期",
            管理项目.code(), no));
    fillGrid(跟进列表, entries, {"跟进日期", "姓名", "跟进情况", "状态名称", "", "预约日期", "ID"},
             [&](int row) {
                 跟进列表.setCellColour(row, 颜色列, static_cast<Colour>(entries["颜色表示"].integer()));
             });
}

void Frm客户跟进记录::reloadCustomer() {
    if (const TreeNode* node = 客户.selected()) selectCustomer(*node);
}

void Frm客户跟进记录::showDiaryRow() {
    const int row = 跟进列表.row();
    if (row < 跟进列表.fixedRows()) return;
    跟进日期.setText(跟进列表.text(row, 日期列));
    跟进情况.setText(跟进列表.text(row, 情况列));
    预约日期.setText(跟进列表.text(row, 预约列));
    // Whoever is not offered any more leaves the choice open: it must not stay with the person of another
    // row.
    跟进人员.setIndex(-1);
    跟进状态.setIndex(-1);
    颜色.setColour(windowColour);
    跟进人员.selectName(跟进列表.text(row, 跟进人列));
    跟进状态.selectName(跟进列表.text(row, 状态列));
    currentId_ = 跟进列表.text(row, 编号列);
    if (currentId_.empty()) return;
    新增.browse();
    删除.setEnabled(true);
    页签.setIndex(0);
}

void Frm客户跟进记录::startOrCancel() {
    if (!新增.entering()) {
        clearEntry();
        新增.startEntering();
        return;
    }
    新增.browse();
    if (!currentId_.empty()) showDiaryRow();
}

void Frm客户跟进记录::save() {
    if (跟进日期.text().empty()) return app_.tell("请输入日期！");
    if (!管理项目.hasSelection() || !跟进人员.hasSelection() || !跟进状态.hasSelection() ||
        客户信息["登记编号"].text().empty())
        return;
    std::string saved = currentId_;
    if (新增.entering() || currentId_.empty()) {
        Recordset diary(app_.主连接, "Select * From YZ_引驻客户跟进记录 where 1=0", Rows::updatable);
        diary.addNew();
        diary["管理处代号"] = 管理项目.code();
        diary["登记编号"] = 客户信息["登记编号"].text();
        writeEntry(diary);
        saved = diary["ID"].text();
    } else {
        Recordset diary(app_.主连接,
                        sql("Select * From YZ_引驻客户跟进记录 where ID={}", numeral(currentId_)),
                        Rows::updatable);
        if (diary.atEnd())
            saved.clear();
        else
            writeEntry(diary);
    }
    新增.browse();
    if (!saved.empty()) app_.saved(客户信息["登记编号"].text());
    reloadCustomer();
    for (int row = 跟进列表.fixedRows(); row < 跟进列表.rows(); ++row)
        if (跟进列表.text(row, 编号列) == saved) 跟进列表.reveal(row);
}

void Frm客户跟进记录::writeEntry(Recordset& diary) {
    diary["跟进日期"] = typedDay(跟进日期.text());
    diary["跟进人工号"] = 跟进人员.code();
    diary["跟进情况"] = nullIfEmpty(跟进情况.text());
    diary["跟进状态编号"] = 跟进状态.code();
    diary["预约日期"] = typedDay(预约日期.text());
    diary.update();
}

void Frm客户跟进记录::remove() {
    if (currentId_.empty() || !app_.confirmDeletion("确定要删除该信息吗？")) return;
    app_.主连接.execute(sql("Delete From YZ_引驻客户跟进记录 Where ID={}", numeral(currentId_)));
    clearEntry();
    reloadCustomer();
}

void Frm客户跟进记录::hideCalendar() {
    日历.hide();
    跟进日期按钮.setVisible(false);
    预约日期按钮.setVisible(false);
}

void Frm客户跟进记录::showTab() {
    // They float over the whole screen, and would lie over the diary.
    hideCalendar();
    记录页.setVisible(页签.index() == 0);
    情况页.setVisible(页签.index() == 1);
}

}  // namespace desk
