#include "base/text.h"
#include "db/statement.h"
#include "every_screen/steps.h"
#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"

namespace desk {

namespace {

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

}  // namespace

std::vector<Walk> referenceWalks() {
    return {
        personnel(),
        agencies(),
        dictionary("区域", "YZ_区域设置", &Frm客户相关信息设置::区域, 0),
        dictionary("企业性质", "YZ_企业性质设置", &Frm客户相关信息设置::企业性质, 1),
        dictionary("行业", "YZ_行业设置", &Frm客户相关信息设置::行业, 2),
        dictionary("咨询内容", "YZ_咨询内容设置", &Frm引驻设置::咨询内容, 0),
        dictionary("媒体", "YZ_媒体设置", &Frm引驻设置::媒体, 1),
        states(),
    };
}

}  // namespace desk
