#include "intent/approval_steps.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/number.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "db/transaction.h"
#include "platform/clock.h"
#include "reference/department_tree.h"
#include "session/failure_report.h"
#include "ui/batch.h"

namespace desk {

namespace {

enum Column { 序列, 环节列, 部门列, 岗位列, 编号列 };

constexpr const char* departmentPrefix = "$";
constexpr const char* nothingToEdit = "没有可以编辑的信息,请重新查询!";

}  // namespace

审批环节::审批环节(Screen& screen, Application& app)
    : 框(screen, "审批环节列表", "审批环节列表"),
      环节序号(框, "环节序号"),
      部门(框, "部门"),
      选择部门(框, "选择部门", "▼"),
      部门面板(框, "部门面板"),
      部门树(部门面板, "部门树"),
      岗位(框, "岗位"),
      列表(框, "环节列表", "<序|<环节|<部门名称          |<岗位名称            |"),
      新增(框, "环节.新增"),
      确定(框, "环节.确定", "确定", ButtonRole::main),
      删除(框, "环节.删除", "删除"),
      上移(框, "上移", "↑"),
      下移(框, "下移", "↓"),
      app_(app) {
    部门.setLocked(true);
    部门面板.setAnchor(&部门);
    列表.setColumnWidth(编号列, 0);
    列表.setSelection(GridSelection::row);
    选择部门.clicked += [this] { 部门面板.toggle(); };
    部门树.nodeClicked += [this](TreeNode& node) { pickDepartment(node); };
    列表.clicked += [this] { guarded(&审批环节::selectStep); };
    新增.clicked += [this] { guarded(&审批环节::startOrCancel); };
    确定.clicked += [this] { guarded(&审批环节::save); };
    删除.clicked += [this] { guarded(&审批环节::remove); };
    上移.clicked += [this] { move(true); };
    下移.clicked += [this] { move(false); };
}

void 审批环节::guarded(void (审批环节::*handler)()) {
    try {
        (this->*handler)();
    } catch (const RuntimeFailure& failure) {
        reportFailure(app_, failure);
    }
}

void 审批环节::load() {
    const Refill fill(部门树);
    添加部门(app_, 部门树, [](const std::string& number) { return departmentPrefix + number; });
}

void 审批环节::showPath(const std::string& 路径ID) {
    pathId_ = 路径ID;
    框.setEnabled(true);
    reload();
}

void 审批环节::close() {
    pathId_.clear();
    框.setEnabled(false);
    环节序号.setText("");
    部门.setText("");
    岗位.clear();
    列表.clear();
    browse();
}

/// The cell of the current row, empty without one.
std::string 审批环节::cell(int column) const {
    return 列表.row() < 列表.fixedRows() ? std::string() : 列表.text(列表.row(), column);
}

void 审批环节::reload() {
    列表.setVisible(false);
    try {
        fill();
    } catch (...) {
        列表.setVisible(true);
        throw;
    }
    列表.setVisible(true);
    if (列表.rows() <= 列表.fixedRows()) return;
    列表.setCurrent(列表.fixedRows(), 环节列);
    selectStep();
}

void 审批环节::fill() {
    const Refill filling(列表);
    for (auto& row :
         Recordset(app_.主连接,
                   sql("SELECT YZ_意向书审批路径.ID,职能部门new.职能部门名称, 岗位信息new.岗位名称, "
                       "YZ_意向书审批路径.审批环节序号, "
                       "YZ_意向书审批路径.部门代号,YZ_意向书审批路径.岗位代号,YZ_意向书审批路径.起始日期 , "
                       "YZ_意向书审批路径.终止日期 FROM  YZ_意向书审批路径 INNER JOIN 职能部门new ON "
                       "YZ_意向书审批路径.部门代号 = 职能部门new.职能部门编号 INNER JOIN  岗位信息new ON "
                       "YZ_意向书审批路径.岗位代号 = 岗位信息new.岗位代号 Where 意向书审批ID={} And "
                       "YZ_意向书审批路径.终止日期 Is Null Order by 审批环节序号",
                       numeral(pathId_))))
        列表.addRow({std::to_string(列表.rows()), row["审批环节序号"].text(),
                     row["部门代号"].text() + " " + row["职能部门名称"].text(),
                     row["岗位代号"].text() + " " + row["岗位名称"].text(), row["ID"].text()});
}

void 审批环节::selectStep() {
    hideDepartments();
    if (cell(环节列).empty()) return app_.inform(nothingToEdit);
    showStep();
    browse();
}

void 审批环节::showStep() {
    环节序号.setText(cell(环节列));
    部门.setText(cell(部门列));
    fillPositions(codeBeforeBlank(部门.text()));
    岗位.setIndex(岗位.find(cell(岗位列)));
}

void 审批环节::fillPositions(std::string_view 部门代号) {
    岗位.fill({app_.主连接, sql("select * from 岗位信息new where 职能部门代号='{}' and 终止日期 is null "
                                "order by 岗位代号",
                                部门代号)},
              {"岗位代号", "岗位名称"});
}

void 审批环节::pickDepartment(const TreeNode& node) {
    try {
        部门.setText(node.text());
        fillPositions(without(node.key(), std::string_view(departmentPrefix).size()));
    } catch (const RuntimeFailure& failure) {
        return reportFailure(app_, failure);
    }
    hideDepartments();
}

/// A step of the list is edited again.
void 审批环节::browse() {
    新增.browse();
    letMove(true);
}

void 审批环节::letMove(bool movable) {
    上移.setEnabled(movable);
    下移.setEnabled(movable);
}

void 审批环节::startOrCancel() {
    新增.entering() ? browse() : start();
}

void 审批环节::start() {
    新增.startEntering();
    环节序号.setText("");
    部门.setText("");
    hideDepartments();
    岗位.clear();
    {
        Recordset last(app_.主连接,
                       sql("Select Top 1 审批环节序号 from YZ_意向书审批路径 Where 意向书审批ID ={} and "
                           "终止日期 is null order by 审批环节序号 desc",
                           numeral(pathId_)));
        环节序号.setText(last.atEnd() ? "1" : std::to_string(last["审批环节序号"].integer() + 1));
    }
    letMove(false);
}

void 审批环节::save() {
    if (环节序号.text().empty()) return app_.inform("环节序号不能为空!");
    if (部门.text().empty()) return app_.inform("部门信息不能为空!");
    if (!岗位.hasSelection()) return app_.inform("岗位信息不能为空!");
    if (新增.entering())
        add();
    else if (!change())
        return;
    reload();
    letMove(true);
}

void 审批环节::add() {
    Recordset step(app_.主连接, "select * from YZ_意向书审批路径 where 1=0", Rows::updatable);
    step.addNew();
    step["意向书审批ID"] = pathId_;
    write(step);
    新增.browse();
}

bool 审批环节::change() {
    if (cell(环节列).empty()) {
        app_.inform(nothingToEdit);
        return false;
    }
    Recordset step(
        app_.主连接,
        sql("select * from YZ_意向书审批路径 where ID={} and 终止日期 is null", numeral(cell(编号列))),
        Rows::updatable);
    if (!step.atEnd()) {
        step["意向书审批ID"] = pathId_;
        write(step);
    }
    return true;
}

void 审批环节::write(Recordset& step) {
    step["审批环节序号"] = 环节序号.text();
    step["部门代号"] = codeBeforeBlank(部门.text());
    step["岗位代号"] = 岗位.code();
    step["起始日期"] = app_.platform.clock.today();
    step["备注"] = "";
    step.update();
}

void 审批环节::remove() {
    const std::string no = cell(环节列);
    if (no.empty()) return app_.inform("没有可以删除的信息,请添加新项!");
    if (!app_.confirmDeletion(fmt::format("是否要删除  环节={}的信息？", no))) return;
    closeGap(no);
    app_.主连接.execute(sql("delete YZ_意向书审批路径 where ID= {} ", numeral(cell(编号列))));
    环节序号.setText("");
    部门.setText("");
    browse();
    reload();
}

/// The steps behind the one that goes move up by one, so that the numbers stay without a gap.
void 审批环节::closeGap(const std::string& 环节) {
    for (auto& behind :
         Recordset(app_.主连接,
                   sql("Select * From YZ_意向书审批路径 Where 审批环节序号>{} and 意向书审批ID={}",
                       numeral(环节), numeral(pathId_)),
                   Rows::updatable)) {
        behind["审批环节序号"] = behind["审批环节序号"].integer() - 1;
        behind.update();
    }
}

void 审批环节::move(bool up) {
    const Hourglass busy(app_.desktop);
    try {
        int row = 列表.row();
        changePlaces(up, row);
        reload();
        if (row >= 列表.rows()) return;
        列表.setCurrent(row, 环节列);
        showStep();
    } catch (const RuntimeFailure& failure) {
        app_.inform(failure.description(), "系统提示");
    }
}

/// `row` is where the current step stands afterwards: where it was, if it has no neighbour in that direction.
void 审批环节::changePlaces(bool up, int& row) {
    const auto id = toInt16(cell(编号列));
    const auto number = toInt16(环节序号.text());
    const int neighbour = row + (up ? -1 : 1);
    if (up ? number < 2 : number >= toInt16(列表.text(列表.rows() - 1, 环节列))) return;
    UpdateHJXH(number, id, toInt16(列表.text(neighbour, 编号列)), up);
    row = neighbour;
}

void 审批环节::UpdateHJXH(std::int16_t HJ, std::int16_t ID, std::int16_t 邻ID, const bool& up) {
    const int N = up ? HJ - 1 : HJ + 1;
    try {
        Transaction both(app_.主连接);
        app_.主连接.execute(
            sql("UPDATE YZ_意向书审批路径 SET 审批环节序号 = '{}' WHERE ID = {} AND 审批环节序号 = '{}'", N,
                ID, HJ));
        app_.主连接.execute(
            sql("UPDATE YZ_意向书审批路径 SET 审批环节序号 = '{}' WHERE ID = {} AND 审批环节序号 = '{}'", HJ,
                邻ID, N));
        both.commit();
    } catch (const RuntimeFailure& failure) {
        app_.inform(failure.description(), "系统提示");
    }
}

}  // namespace desk
