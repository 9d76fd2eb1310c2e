#include "analysis/status_analysis.h"
#include "base/text.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "db/statement.h"
#include "every_screen/steps.h"

namespace desk {

namespace {

void fillPage(Scene& scene, 登记页& page) {
    page.新增.click();
    for (TextBox* box : {&page.公司名称, &page.客户姓名, &page.客户电话, &page.公司地址, &page.需求面积,
                         &page.业务员, &page.备注})
        box->type(scene.text);
    for (auto* box : {&page.职位, &page.传真, &page.预算租金, &page.洽谈重点, &page.推荐楼层})
        if (*box) (*box)->type(scene.text);
    for (其它说明* other : {&page.区域其它, &page.询问重点.其它, page.媒体 ? &page.媒体->其它 : nullptr})
        if (other != nullptr) {
            other->勾选.setChecked(true);
            other->文本.type(scene.text);
        }
    if (page.中介) page.中介->中介公司名称.type(scene.text);
    if (page.企业性质) page.企业性质->pick("外资");
    page.从事行业.pick("软件");
    if (!page.采用自动编号.checked()) page.登记编号.type(scene.text);
}

Walk registration(const char* name, 登记页 Frm引驻客户信息登记::*which, const char* ofSave) {
    const auto of = [which](Scene& scene) -> 登记页& { return scene.screen<Frm引驻客户信息登记>().*which; };
    const auto first = [=](Scene& scene) -> TreeNode& {
        return *of(scene).客户.roots().front()->children().front();
    };
    Walk walk{name,
              enterFor<Frm引驻客户信息登记>,
              {opening<Frm引驻客户信息登记>("SSSSSSSS"),
               {"选管理处", [=](Scene& scene) { of(scene).管理项目.pick("01 东塔"); }},
               {"新增",
                [=](Scene& scene) {
                    fillPage(scene, of(scene));
                    of(scene).确定.click();
                },
                ofSave},
               {"选中", [=](Scene& scene) { of(scene).客户.click(first(scene)); }},
               {"修改",
                [=](Scene& scene) {
                    // A region that no list has is lost on one of the pages.
                    of(scene).区域.pick("浦东");
                    of(scene).备注.type("改" + scene.text);
                    of(scene).确定.click();
                }},
               {"自动编号",
                [=](Scene& scene) {
                    of(scene).采用自动编号.click();
                    const std::string text = scene.text;
                    scene.text = "另" + text;
                    fillPage(scene, of(scene));
                    scene.text = text;
                    of(scene).确定.click();
                }},
               {"删除", [=](Scene& scene) {
                    of(scene).客户.click(first(scene));
                    scene.willSayYes();
                    of(scene).删除.click();
                }}}};
    if (which == &Frm引驻客户信息登记::中介来人)
        walk.steps.push_back({"选中介", [=](Scene& scene) { of(scene).中介->选择中介公司.click(); }});
    return walk;
}

/// What the leads' screens need: a team of the office with one member, and a lead, each with the text in all
/// of its texts; another lead that must be left alone. A code ends at its first blank, hence there is none.
void beforePipeline(Scene& scene) {
    std::erase(scene.text, ' ');
    const auto& text = scene.text;
    auto& program = scene.program;
    auto& db = program.db();
    for (const std::string& each : {text, std::string("旁")}) {
        db.execute(
            sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称,登记日期) Values "
                "('{}','01','引驻来人','{}','2011-3-1')",
                each, each));
        db.execute(sql("Insert Into YZ_组表 (组代号,组名称) Values ('{}','{}')", each, each));
        db.execute(sql("Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('{}','01')", each));
        db.execute(sql("Insert Into 员工档案 (工号,姓名) Values ('{}','{}')", each, each));
        db.execute(sql("Insert Into YZ_组人员设置 (组代号,员工工号) Values ('{}','{}')", each, each));
        db.execute(sql("Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('{}','0101',1)", each));
        db.execute(sql("Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('{}','{}',255)",
                       each, each));
    }
    program.run({"Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','招商专员','01')"});
    program.enter();
    program.app.session.登录工号 = text;
    program.app.screens.offer<Frm客户跟进信息分配>(program.app);
    program.app.screens.offer<Frm客户跟进记录>(program.app);
    program.app.screens.offer<Frm客户跟进状态分析>(program.app);
}

int lineOf(const CodedCombo& combo, const std::string& text) {
    return combo.find(text + " " + text);
}

Walk pipeline() {
    const auto assigning = [](Scene& scene) -> Frm客户跟进信息分配& {
        return scene.screen<Frm客户跟进信息分配>();
    };
    const auto diary = [](Scene& scene) -> Frm客户跟进记录& { return scene.screen<Frm客户跟进记录>(); };
    const auto enter = [=](Scene& scene, const char* day) {
        auto& screen = diary(scene);
        screen.跟进日期.type(day);
        screen.跟进人员.pick(lineOf(screen.跟进人员, scene.text));
        screen.跟进状态.pick(lineOf(screen.跟进状态, scene.text));
        screen.跟进情况.type(scene.text);
        screen.确定.click();
    };
    return {
        "客户跟进",
        beforePipeline,
        {opening<Frm客户跟进信息分配>("S"),
         {"选管理处", [=](Scene& scene) { assigning(scene).管理项目.pick("01 东塔"); }},
         {"选客户", [=](Scene& scene) { clickNode(assigning(scene).客户, "D" + scene.text); }},
         {"选组",
          [=](Scene& scene) { assigning(scene).选择组.pick(lineOf(assigning(scene).选择组, scene.text)); }},
         {"分配",
          [=](Scene& scene) {
              assigning(scene).选择人员.pick(lineOf(assigning(scene).选择人员, scene.text));
              assigning(scene).分配日期.type("2011-3-2");
              assigning(scene).确定.click();
          },
          "BBB"},
         opening<Frm客户跟进记录>("SEE"),
         {"选管理处", [=](Scene& scene) { diary(scene).管理项目.pick("01 东塔"); }},
         {"选客户", [=](Scene& scene) { clickNode(diary(scene).客户, "D" + scene.text); }},
         {"新增",
          [=](Scene& scene) {
              diary(scene).新增.click();
              enter(scene, "2011-3-3");
          }},
         {"修改",
          [=](Scene& scene) {
              diary(scene).页签.click(1);
              clickFirst(diary(scene).跟进列表);
              enter(scene, "2011-3-4");
          }},
         opening<Frm客户跟进状态分析>("EE"),
         {"统计",
          [](Scene& scene) {
              auto& screen = scene.screen<Frm客户跟进状态分析>();
              screen.DTPicker1.pick({2011, 1, 1});
              screen.Check6.click();
              screen.Command1.click();
          }},
         {"删除",
          [=](Scene& scene) {
              diary(scene).页签.click(1);
              clickFirst(diary(scene).跟进列表);
              scene.willSayYes();
              diary(scene).删除.click();
          }},
         {"终止",
          [=](Scene& scene) {
              clickNode(assigning(scene).客户, "D" + scene.text);
              assigning(scene).终止日期.type("2011-3-5");
              scene.willSayYes();
              assigning(scene).终止.click();
          },
          "EEESS"}}};
}

}  // namespace

std::vector<Walk> customerWalks() {
    return {
        registration("来人登记", &Frm引驻客户信息登记::来人, ""),
        registration("来电登记", &Frm引驻客户信息登记::来电, ""),
        registration("中介登记", &Frm引驻客户信息登记::中介来人, ""),
        pipeline(),
    };
}

}  // namespace desk
