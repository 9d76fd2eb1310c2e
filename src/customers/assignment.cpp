#include "customers/assignment.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "customers/lead_tree.h"
#include "customers/typed_day.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/helpers.h"

namespace desk {

namespace {

/// The numbers under which the calendar remembers the two date fields.
enum DateField { 分配日期序号 = 20, 终止日期序号 = 21 };

}  // namespace

Frm客户跟进信息分配::Frm客户跟进信息分配(Application& app)
    : Screen(screenName, "客户跟进信息分配", WindowKind::child, 18000, 10200),
      客户信息(*this, {{"登记编号", "登记编号"},
                       {"公司名称", "公司名称"},
                       {"客户姓名", "客户姓名"},
                       {"职    位", "职位"},
                       {"客户电话", "客户电话"},
                       {"传    真", "传真"},
                       {"公司地址", "公司地址"},
                       {"区    域", "所在区域"},
                       {"媒    体", "媒体"},
                       {"需求面积", "需求面积"},
                       {"预算租金", "预算租金"},
                       {"企业性质", "企业性质"},
                       {"从事行业", "从事行业"},
                       {"询问重点", "询问重点"},
                       {"洽谈重点", "洽谈重点"},
                       {"推荐楼层", "推荐楼层"},
                       {"业务员", "业务员"},
                       {"备    注", "备注"},
                       {"登记日期", "登记日期"}}),
      日历(*this, app.desktop, "日历"),
      app_(app) {
    是否分配.setLocked(true);
    for (Control* field : std::initializer_list<Control*>{&选择组, &选择人员, &分配日期})
        field->setDemanded(true);
    客户.hint = "请先选择管理项目";
    管理项目.selected += [this] { chooseOffice(); };
    选择组.selected += [this] { chooseTeam(); };
    客户.nodeClicked += [this](TreeNode& node) { selectCustomer(node); };
    确定.clicked += [this] { assign(); };
    终止.clicked += [this] { end(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
    日历.serve(分配日期, 日历按钮, 分配日期序号);
    日历.serve(终止日期, 日历按钮, 终止日期序号);
    for (Control* control :
         {static_cast<Control*>(&选择组), static_cast<Control*>(&选择人员), static_cast<Control*>(&是否分配)})
        control->focused += [this] { 日历.hide(); };
}

void Frm客户跟进信息分配::load() {
    日历.日历.setValue(app_.platform.clock.today());
    尽量填充管理处(app_, 管理项目);
}

std::string Frm客户跟进信息分配::loadedNumber() {
    // The block keeps the customer of the office before, whose number is another customer's here.
    return 已选客户_ ? std::string(trimmed(客户信息["登记编号"].text())) : std::string();
}

void Frm客户跟进信息分配::chooseOffice() {
    const Hourglass busy(app_.desktop);
    已选客户_ = false;
    客户.hint = "该管理项目没有客户";
    Recordset leads(
        app_.主连接,
        sql("Select * From YZ_引驻客户信息 Where  管理处代号='{}'  Order By Len(登记编号),登记编号",
            管理项目.code()));
    填充客户树(客户, leads);
    选择组.fill(
        Recordset(
            app_.主连接,
            sql("Select * From YZ_组对应管理项目设置 Inner Join YZ_组表 on "
                "YZ_组对应管理项目设置.组代号=YZ_组表.组代号  Where 管理处代号='{}' And 终止日期 is Null "
                "Order By len(YZ_组表.组代号),YZ_组表.组代号",
                管理项目.code())),
        {"组代号", "组名称"});
}

void Frm客户跟进信息分配::chooseTeam() {
    if (!选择组.hasSelection()) return;
    选择人员.fill(
        Recordset(app_.主连接,
                  sql("Select * From YZ_组人员设置  Inner Join 员工档案 On "
                      "YZ_组人员设置.员工工号=员工档案.工号  Where 组代号='{}'  Order By len(工号),工号",
                      选择组.code())),
        {"工号", "姓名"});
}

void Frm客户跟进信息分配::selectCustomer(const TreeNode& node) {
    选择组.setIndex(-1);
    选择人员.setIndex(-1);
    清空文本框(*this);
    已选客户_ = true;
    const std::string no = 登记编号Of(node);
    if (no.empty()) return;
    {
        Recordset lead(app_.主连接,
                       sql("Select * From YZ_引驻客户信息  Where 登记编号='{}' and 管理处代号='{}'", no,
                           管理项目.code()));
        if (!lead.atEnd()) 客户信息.show(lead);
    }
    showAssignment(no);
}

void Frm客户跟进信息分配::showAssignment(const std::string& no) {
    是否分配.setText("未分配");
    Recordset assignment(
        app_.主连接,
        sql("Select * From YZ_引驻客户分配  Where 登记编号='{}'AND 终止日期 is Null And 管理处代号='{}'", no,
            管理项目.code()));
    if (assignment.atEnd()) return;
    选择组.selectCode(assignment["组代号"].text());
    // Without the team the combo still has the members of another.
    if (选择组.hasSelection()) 选择人员.selectCode(assignment["员工工号"].text());
    if (assignment["分配日期"].isNull()) return;
    分配日期.setText(isoDay(assignment["分配日期"].moment()));
    是否分配.setText("已分配");
}

void Frm客户跟进信息分配::assign() {
    try {
        if (!选择组.hasSelection() || !选择人员.hasSelection()) return;
        if (分配日期.text().empty()) return app_.tell("分配日期不能为空，请填写分配日期！");
        const std::string no = loadedNumber();
        if (no.empty()) return;
        Recordset assignment(
            app_.主连接,
            sql("Select * From YZ_引驻客户分配 Where 登记编号='{}' and 分配日期 is not null AND 终止日期 IS "
                "Null AND 管理处代号='{}'",
                no, 管理项目.code()),
            Rows::updatable);
        if (!assignment.atEnd())
            return app_.inform(fmt::format("已经为'{}'分配为负责人，请核对相关信息！", no));
        assignment.addNew();
        assignment["登记编号"] = no;
        assignment["管理处代号"] = 管理项目.code();
        assignment["组代号"] = 选择组.code();
        assignment["员工工号"] = 选择人员.code();
        assignment["分配日期"] = 分配日期.text();
        assignment.update();
        app_.主连接.execute(
            sql("Update YZ_引驻客户信息 Set 分配日期='{}' Where 登记编号='{}' AND 管理处代号='{}'",
                分配日期.text(), no, 管理项目.code()));
        app_.saved(no);
        app_.tell("任务分配成功！");
    } catch (const RuntimeFailure& failure) {
        app_.inform(fmt::format("{} {}", failure.number(), failure.description()));
    }
}

void Frm客户跟进信息分配::end() {
    const std::string no = loadedNumber();
    if (no.empty()) return;
    if (终止日期.text().empty()) return app_.tell("如果终止已经分配的记录，必须填写终止日期！");
    if (!app_.confirm(fmt::format("确定要终止登记编号为'{}'所对应的分配信息吗？", no))) return;
    try {
        Recordset assignment(
            app_.主连接,
            sql("Select * From YZ_引驻客户分配 Where 登记编号='{}' AND 终止日期 IS Null AND 管理处代号='{}'",
                no, 管理项目.code()),
            Rows::updatable);
        if (assignment.atEnd()) return;
        assignment["终止日期"] = typedDay(终止日期.text());
        assignment.update();
        app_.desktop.notify("已终止 " + no);
    } catch (const RuntimeFailure&) {
        // An assignment that cannot be ended stays, without a word.
    }
}

}  // namespace desk
