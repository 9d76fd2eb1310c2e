#include "every_screen/walks.h"

#include "analysis/weekly_analysis.h"
#include "base/text.h"
#include "db/statement.h"
#include "every_screen/steps.h"
#include "intent/approval.h"
#include "intent/approval_path.h"
#include "intent/letter.h"
#include "intent/unit_map.h"
#include "session/login.h"
#include "session/main_window.h"

namespace desk {

namespace {

Walk mainWindow() {
    return {"主窗口",
            [](Scene& scene) {
                scene.program.app.session = {"E01", "林", scene.text, "部", scene.text,
                                             "岗",  "A",  "业",       "P",  "员"};
            },
            {{"权限", [](Scene& scene) { scene.program.app.screens.open(MDIForm1::screenName); }, "BE"}}};
}

Walk approvalPath() {
    const auto screen = [](Scene& scene) -> Frm意向书审批路径设置& {
        return scene.screen<Frm意向书审批路径设置>();
    };
    const auto fill = [=](Scene& scene, const std::string& text) {
        for (TextBox* box : {&screen(scene).路径代号, &screen(scene).路径名称, &screen(scene).备注})
            box->type(text);
        screen(scene).管理项目.pick("01 东塔");
        screen(scene).确定.click();
    };
    const auto startStep = [=](Scene& scene) {
        auto& steps = screen(scene).环节;
        steps.新增.click();
        steps.选择部门.click();
    };
    const auto pickDepartment = [=](Scene& scene) { clickNode(screen(scene).环节.部门树, "$" + scene.text); };
    const auto pickStep = [=](Scene& scene) { clickFirst(screen(scene).环节.列表); };
    const auto addStep = [=](Scene& scene) {
        auto& steps = screen(scene).环节;
        steps.岗位.pick(0);
        steps.确定.click();
    };
    return {
        "审批路径设置",
        [](Scene& scene) {
            // The code of a department ends at its first blank.
            std::erase(scene.text, ' ');
            const auto& text = scene.text;
            auto& db = scene.program.db();
            db.execute(
                sql("Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('{}','{}')", text, text));
            db.execute(sql("Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('{}','{}','{}')",
                           text, text, text));
            enterFor<Frm意向书审批路径设置>(scene);
        },
        {opening<Frm意向书审批路径设置>("BBB"),
         {"新增",
          [=](Scene& scene) {
              screen(scene).新增.click();
              fill(scene, scene.text);
          },
          "BBBB"},
         {"选中", [=](Scene& scene) { clickFirst(screen(scene).路径列表); }, "BB"},
         {"修改", [=](Scene& scene) { fill(scene, "改" + scene.text); }, "BB"},
         {"新环节", startStep, "B"},
         {"选部门", pickDepartment, "B"},
         {"新增环节", addStep, "BBBB"},
         {"又一环节", startStep, "B"},
         {"又选部门", pickDepartment, "B"},
         {"再增环节", addStep, "BBBB"},
         {"选环节", pickStep, "B"},
         {"改环节", [=](Scene& scene) { screen(scene).环节.确定.click(); }, "BBBB"},
         {"下移", [=](Scene& scene) { screen(scene).环节.下移.click(); }, "BBBBBBB"},
         {"上移", [=](Scene& scene) { screen(scene).环节.上移.click(); }, "BBBBBBB"},
         {"再选环节", pickStep, "B"},
         {"删除环节",
          [=](Scene& scene) {
              scene.willSayYes();
              screen(scene).环节.删除.click();
          },
          "BBBBB"},
         {"删除", [=](Scene& scene) {
              scene.program.run({"Delete From YZ_意向书审批路径"});
              scene.willSayYes();
              screen(scene).删除.click();
          }}}};
}

/// Four letters: asked for in turn, with a step to come, and all at once, each agreed to and refused.
Walk approval() {
    const auto screen = [](Scene& scene) -> Frm意向书审批& { return scene.screen<Frm意向书审批>(); };
    Walk walk{"审批",
              [](Scene& scene) {
                  enterFor<Frm意向书审批>(scene);
                  auto& program = scene.program;
                  program.app.session.登录姓名 = scene.text;
                  program.run({"Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部')",
                               "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values "
                               "('0101','招商专员','01')",
                               "Insert Into YZ_意向书审批路径设置 (管理处代号,单级流转) Values ('01',0)",
                               "Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) "
                               "Values (1,2,'02','0201')"});
                  for (int letter = 1; letter <= 4; ++letter) {
                      program.db().execute(
                          sql("Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,申请说明) Values "
                              "('{}','01','{}','{}')",
                              scene.text, scene.text, scene.text));
                      program.db().execute(
                          sql("Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values "
                              "({},{},'01','0101')",
                              letter, letter % 2));
                  }
              },
              {opening<Frm意向书审批>()}};
    auto& steps = walk.steps;
    for (int letter = 1; letter <= 4; ++letter) {
        steps.push_back(
            {"选中", [=](Scene& scene) { clickNode(screen(scene).待审批, "YM" + std::to_string(letter)); }});
        steps.push_back({"保存意见", [=](Scene& scene) {
                             screen(scene).您的审批意见.type(scene.text);
                             screen(scene).保存审批意见.click();
                         }});
        steps.push_back({"他人意见", [=](Scene& scene) { screen(scene).他人审批情况.click(); }});
        steps.push_back({"决定", [=](Scene& scene) {
                             screen(scene).关闭.click();
                             (letter <= 2 ? screen(scene).同意 : screen(scene).不同意).click();
                         }});
    }
    return walk;
}

/// Two sections, of which one has a unit with the text in all of its texts.
Walk unitMap() {
    const auto map = [](Scene& scene) -> Frm房源一览表& { return scene.screen<Frm房源一览表>(); };
    return {"房源一览表",
            [](Scene& scene) {
                enterFor<Frm房源一览表>(scene);
                auto& program = scene.program;
                program.app.screens.offer<Frm意向书信息>(program.app);
                program.app.session.登录工号 = scene.text;
                const auto& text = scene.text;
                for (const int section : {1, 2}) {
                    program.db().execute(
                        sql("Insert Into 楼表 (L_ID,楼编号,地址1,管理处,开始日期) Values "
                            "({},'{}','{}','01','2001-1-1')",
                            section, text, text));
                    program.db().execute(
                        sql("Insert Into 楼域范围设置 (工号,L_ID) Values ('{}',{})", text, section));
                }
                program.db().execute(
                    sql("Insert Into 室表 (S_ID,L_ID,室,层次,建筑面积,开始日期) Values "
                        "(1,1,'{}','{}',10,'2001-1-1')",
                        text, text));
            },
            {opening<Frm房源一览表>(),
             {"选区域", [=](Scene& scene) { map(scene).区域.pick("01 东塔"); }, "B"},
             {"改变大小", [=](Scene& scene) { map(scene).地图.resize(5000, 3000); }, "B"},
             {"统计", [=](Scene& scene) { map(scene).统计信息.click(); }},
             {"选房",
              [=](Scene& scene) {
                  map(scene).统计信息.click();
                  map(scene).openForPicking("01 东塔");
                  map(scene).地图.click(1, 0);
                  map(scene).房源选择确定.click();
              },
              "BEE"}}};
}

template <class S>
void weeklySteps(std::vector<Step>& steps) {
    steps.push_back(opening<S>());
    steps.push_back({"统计", [](Scene& scene) {
                         S& screen = scene.screen<S>();
                         screen.选择区域.pick(screen.选择区域.count() - 1);
                         screen.开始日期.pick({2011, 3, 1});
                         screen.结束日期.pick({2011, 3, 2});
                         screen.全部.click();
                         screen.统计.click();
                     }});
}

/// A property whose code is the text counts its visits and calls.
Walk weekly() {
    Walk walk{"每周统计",
              [](Scene& scene) {
                  const auto& text = scene.text;
                  const std::string code(codeBeforeBlank(text));
                  auto& db = scene.program.db();
                  db.execute(sql("Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('{}','{}')", code, text));
                  db.execute(
                      sql("Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values "
                          "('{}','{}')",
                          text, code));
                  int lead = 0;
                  for (const char* source : {"引驻来人", "引驻来电"})
                      for (const int day : {1, 2})
                          db.execute(
                              sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,登记日期,媒体,"
                                  "需求面积,预算租金) Values ('{}','{}','{}','2011-3-{}','网络,{}',100,3)",
                                  ++lead, code, source, day, text));
                  scene.program.enter();
                  scene.program.app.session.登录部门编号 = text;
                  scene.program.app.screens.offer<Frm每周来客统计分析>(scene.program.app);
                  scene.program.app.screens.offer<Frm每周来电统计分析>(scene.program.app);
              },
              {}};
    weeklySteps<Frm每周来客统计分析>(walk.steps);
    weeklySteps<Frm每周来电统计分析>(walk.steps);
    return walk;
}

std::vector<Walk> everyWalk() {
    std::vector<Walk> all{mainWindow()};
    for (auto& walk : referenceWalks()) all.push_back(std::move(walk));
    for (auto& walk : customerWalks()) all.push_back(std::move(walk));
    for (auto* make :
         {letters, approvalPath, approval, unitMap, weekly, classification, deposits, taxInvoices})
        all.push_back(make());
    return all;
}

}  // namespace

const std::vector<Walk>& walks() {
    static const std::vector<Walk> all = everyWalk();
    return all;
}

}  // namespace desk
