#include "every_screen/walks.h"

#include "analysis/status_analysis.h"
#include "analysis/weekly_analysis.h"
#include "base/text.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "db/statement.h"
#include "intent/approval.h"
#include "intent/approval_path.h"
#include "intent/letter.h"
#include "intent/unit_map.h"
#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"
#include "session/login.h"
#include "session/main_window.h"

namespace desk {

namespace {

template <class S>
void enterFor(Scene& scene) {
    scene.program.enter();
    scene.program.app.screens.offer<S>(scene.program.app);
}

template <class S>
Step opening(std::string whenFailing = {}) {
    return {"打开", [](Scene& scene) { scene.program.app.screens.open(S::screenName); },
            std::move(whenFailing)};
}

void clickNode(Tree& tree, const std::string& key) {
    tree.click(*tree.find(key));
}

/// The only entry of a setup grid is chosen.
void clickFirst(Grid& grid) {
    grid.click(grid.fixedRows(), 1);
}

Walk mainWindow() {
    return {"主窗口",
            [](Scene& scene) {
                scene.program.app.session = {"E01", "林", scene.text, "部", scene.text,
                                             "岗",  "A",  "业",       "P",  "员"};
            },
            {{"权限", [](Scene& scene) { scene.program.app.screens.open(MDIForm1::screenName); }, "BE"}}};
}

void codedSteps(std::vector<Step>& steps, CodedTab Frm人员设置::*tab, int page, bool firstPart) {
    const auto of = [tab](Scene& scene) -> CodedTab& { return scene.screen<Frm人员设置>().*tab; };
    if (firstPart) {
        steps.push_back({"新增", [=](Scene& scene) {
                             scene.screen<Frm人员设置>().页签.click(page);
                             for (TextBox* box : {&of(scene).代号, &of(scene).名称, &of(scene).说明})
                                 box->type(scene.text);
                             of(scene).确定.click();
                         }});
        steps.push_back({"选中", [=](Scene& scene) { clickFirst(of(scene).列表); }});
        steps.push_back({"修改", [=](Scene& scene) {
                             of(scene).名称.type("改" + scene.text);
                             of(scene).确定.click();
                         }});
        return;
    }
    steps.push_back({"删除", [=](Scene& scene) {
                         scene.screen<Frm人员设置>().页签.click(page);
                         clickFirst(of(scene).列表);
                         scene.willSayYes();
                         of(scene).删除.click();
                     }});
}

Walk personnel() {
    Walk walk{
        "人员设置",
        [](Scene& scene) {
            const auto& text = scene.text;
            auto& db = scene.program.db();
            db.execute(sql("Insert Into 员工档案 (工号,姓名) Values ('{}','{}')", text, text));
            scene.program.run({"Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部')"});
            db.execute(
                sql("Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,工号,岗位类别代号) Values "
                    "('{}','{}','01','{}','P')",
                    text, text, text));
            db.execute(
                sql("Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('{}','{}',1)", text, text));
            scene.program.run(
                {"Insert Into 专项审核权限表 (类型,部门代号,岗位代号) Values "
                 "('引驻台账','01','0101')"});
            enterFor<Frm人员设置>(scene);
        },
        {opening<Frm人员设置>()}};
    auto& steps = walk.steps;
    codedSteps(steps, &Frm人员设置::主职, 0, true);
    codedSteps(steps, &Frm人员设置::组, 1, true);
    for (const bool ticked : {true, false, true})
        steps.push_back({"组管理处",
                         [ticked](Scene& scene) {
                             auto& tree = scene.screen<Frm人员设置>().组管理处.TreeView3;
                             tree.tick(*tree.find("G01"), ticked);
                         },
                         "BB"});
    const auto member = [](Scene& scene) -> MemberTab& { return scene.screen<Frm人员设置>().人员; };
    steps.push_back({"选组", [=](Scene& scene) {
                         scene.screen<Frm人员设置>().页签.click(2);
                         auto& teams = member(scene).TreeView1;
                         teams.click(*teams.roots().front()->children().front());
                     }});
    steps.push_back({"选员工", [=](Scene& scene) {
                         member(scene).选择员工.click();
                         auto& staff = member(scene).TreeView2;
                         staff.click(*staff.roots().front()->children().front());
                     }});
    steps.push_back({"新增成员", [=](Scene& scene) {
                         member(scene).Combo1.pick(0);
                         member(scene).Text8.type(scene.text);
                         member(scene).确定.click();
                     }});
    steps.push_back({"修改成员", [=](Scene& scene) {
                         clickFirst(member(scene).MSFlexGrid3);
                         member(scene).Text8.type("改" + scene.text);
                         member(scene).确定.click();
                     }});
    steps.push_back({"删除成员", [=](Scene& scene) {
                         clickFirst(member(scene).MSFlexGrid3);
                         scene.willSayYes();
                         member(scene).删除.click();
                     }});
    codedSteps(steps, &Frm人员设置::组, 1, false);
    codedSteps(steps, &Frm人员设置::主职, 0, false);
    return walk;
}

Walk agencies() {
    const auto screen = [](Scene& scene) -> Frm中介公司设置& { return scene.screen<Frm中介公司设置>(); };
    return {"中介公司设置",
            [](Scene& scene) {
                enterFor<Frm中介公司设置>(scene);
                scene.program.run({"Delete From YZ_中介公司设置 Where 管理处代号='02'"});
            },
            {opening<Frm中介公司设置>("S"),
             {"选管理处",
              [=](Scene& scene) {
                  auto& tree = screen(scene).管理项目;
                  tree.click(*tree.find("G02"));
              }},
             {"新增",
              [=](Scene& scene) {
                  for (TextBox& box : screen(scene).boxes) box.type(scene.text);
                  screen(scene).确定.click();
              }},
             {"修改",
              [=](Scene& scene) {
                  clickFirst(screen(scene).列表);
                  for (TextBox& box : screen(scene).boxes) box.type("改" + scene.text);
                  screen(scene).确定.click();
              }},
             {"删除",
              [=](Scene& scene) {
                  auto& tree = screen(scene).管理项目;
                  tree.click(*tree.find("G02"));
                  clickFirst(screen(scene).列表);
                  scene.willSayYes();
                  screen(scene).删除.click();
              },
              "EE"}}};
}

template <class S>
Walk dictionary(const char* name, const char* table, DictionaryTab S::*tab, int page) {
    const auto of = [tab](Scene& scene) -> DictionaryTab& { return scene.screen<S>().*tab; };
    Walk walk{name,
              [table](Scene& scene) {
                  enterFor<S>(scene);
                  scene.program.db().execute("Delete From " + std::string(table));
              },
              {opening<S>(),
               {"新增",
                [=](Scene& scene) {
                    scene.screen<S>().页签.click(page);
                    of(scene).名称.type(scene.text);
                    of(scene).说明.type(scene.text);
                    of(scene).确定.click();
                }},
               {"修改", [=](Scene& scene) {
                    clickFirst(of(scene).列表);
                    of(scene).说明.type("改" + scene.text);
                    of(scene).确定.click();
                }}}};
    // A kind of enterprise cannot be deleted.
    if (std::string_view(table) != "YZ_企业性质设置")
        walk.steps.push_back({"删除", [=](Scene& scene) {
                                  clickFirst(of(scene).列表);
                                  scene.willSayYes();
                                  of(scene).删除.click();
                              }});
    return walk;
}

Walk states() {
    const auto tab = [](Scene& scene) -> StateTab& { return scene.screen<Frm引驻设置>().跟进状态; };
    return {"跟进状态设置",
            enterFor<Frm引驻设置>,
            {opening<Frm引驻设置>(),
             {"新增",
              [=](Scene& scene) {
                  scene.screen<Frm引驻设置>().页签.click(2);
                  for (TextBox* box : {&tab(scene).状态编号, &tab(scene).状态名称, &tab(scene).说明})
                      box->type(scene.text);
                  tab(scene).确定.click();
              }},
             {"修改",
              [=](Scene& scene) {
                  clickFirst(tab(scene).列表);
                  tab(scene).状态名称.type("改" + scene.text);
                  tab(scene).确定.click();
              }},
             {"删除", [=](Scene& scene) {
                  clickFirst(tab(scene).列表);
                  scene.willSayYes();
                  tab(scene).删除.click();
              }}}};
}

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
             {"选房", [=](Scene& scene) {
                  map(scene).统计信息.click();
                  map(scene).openForPicking("01 东塔");
                  map(scene).地图.click(1, 0);
                  map(scene).房源选择确定.click();
              }}}};
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

}  // namespace

const std::vector<Walk>& walks() {
    static const std::vector<Walk> all = {
        mainWindow(),
        personnel(),
        agencies(),
        dictionary("区域", "YZ_区域设置", &Frm客户相关信息设置::区域, 0),
        dictionary("企业性质", "YZ_企业性质设置", &Frm客户相关信息设置::企业性质, 1),
        dictionary("行业", "YZ_行业设置", &Frm客户相关信息设置::行业, 2),
        dictionary("咨询内容", "YZ_咨询内容设置", &Frm引驻设置::咨询内容, 0),
        dictionary("媒体", "YZ_媒体设置", &Frm引驻设置::媒体, 1),
        states(),
        registration("来人登记", &Frm引驻客户信息登记::来人, ""),
        registration("来电登记", &Frm引驻客户信息登记::来电, ""),
        registration("中介登记", &Frm引驻客户信息登记::中介来人, ""),
        pipeline(),
        letters(),
        approvalPath(),
        approval(),
        unitMap(),
        weekly(),
        classification(),
        deposits(),
        taxInvoices(),
    };
    return all;
}

}  // namespace desk
