#include "db/statement.h"
#include "every_screen/walks.h"
#include "intent/letter.h"

namespace desk {

namespace {

/// A state's code ends at its first blank.
std::string dense(std::string text) {
    std::erase(text, ' ');
    return text;
}

/// An office with a path of two levels, one whose path has a single level; a customer in the state of that
/// name, and another letter that must be left alone.
void beforeLetters(Scene& scene) {
    auto& program = scene.program;
    const auto& text = scene.text;
    program.run({"Insert Into YZ_意向书审批路径设置 (管理处代号,单级流转) Values ('01',0)",
                 "Insert Into YZ_意向书审批路径设置 (管理处代号,单级流转) Values ('02',1)",
                 "Insert Into YZ_意向书信息 (意向书编号,管理处代号) Values ('旁','01')",
                 "Insert Into Temp_Type (TypeName,Value,Character) Values ('意向书登记','年份','YX')",
                 "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部')",
                 "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','主管','01')"});
    for (const int path : {1, 2})
        for (const int step : {1, 2})
            program.db().execute(
                sql("Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) Values "
                    "({},{},'01','0101')",
                    path, step));
    program.db().execute(
        sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称,登记日期) Values "
            "('{}','01','引驻来人','{}','2011-3-1')",
            text, text));
    const auto state = dense(text);
    program.db().execute(
        sql("Insert Into YZ_跟进状态设置 (状态编号,状态名称) Values ('{}','{}')", state, state));
    program.db().execute(
        sql("Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,跟进状态编号) Values "
            "('01','{}','2011-3-2','{}')",
            text, state));
    program.enter();
    program.app.screens.offer<Frm意向书信息>(program.app);
}

Frm意向书信息& letter(Scene& scene) {
    return scene.screen<Frm意向书信息>();
}

void typeTexts(Scene& scene) {
    for (const char* column : {"租赁单元", "付款方式", "递延方式", "免租期", "承租方背景", "申请说明"})
        letter(scene).信息[column].type(scene.text);
    letter(scene).信息["租赁起始日期"].type("2011-4-1");
}

void chooseUnits(Scene& scene, std::initializer_list<int> units) {
    for (const int unit : units) letter(scene).单元列表.append({"A座", scene.text, 10, unit});
}

void clickLetter(Scene& scene) {
    auto& tree = letter(scene).意向书;
    tree.click(*tree.find("YM" + scene.text));
}

void submit(Scene& scene) {
    scene.willSayYes();
    letter(scene).提交.click();
}

void writeTyped(Scene& scene) {
    auto& screen = letter(scene);
    screen.新增.click();
    screen.信息.登记编号.type(scene.text);
    typeTexts(scene);
    screen.确定.click();
}

}  // namespace

Walk letters() {
    return {"意向书",
            beforeLetters,
            {{"打开", [](Scene& scene) { scene.program.app.screens.open(Frm意向书信息::screenName); }},
             {"选管理处", [](Scene& scene) { letter(scene).管理项目.pick("01 东塔"); }},
             {"选状态",
              [](Scene& scene) {
                  letter(scene).选择承租方.click();
                  letter(scene).客户.跟进状态.pick(0);
              }},
             {"新增",
              [](Scene& scene) {
                  auto& screen = letter(scene);
                  screen.客户.列表.click(1, 1);
                  screen.客户.确定.click();
                  chooseUnits(scene, {7, 8});
                  writeTyped(scene);
              }},
             {"选中", clickLetter},
             {"修改",
              [](Scene& scene) {
                  letter(scene).信息["免租期"].type("改" + scene.text);
                  letter(scene).确定.click();
              }},
             {"提交", submit},
             {"审批情况",
              [](Scene& scene) {
                  clickLetter(scene);
                  letter(scene).提交.click();
                  letter(scene).审批关闭.click();
              }},
             {"删除单元",
              [](Scene& scene) {
                  auto& screen = letter(scene);
                  screen.单元.面板.open();
                  screen.单元列表.click(1, 1);
                  scene.willSayYes();
                  screen.单元.删除单元.click();
              }},
             {"自动编号",
              [](Scene& scene) {
                  auto& screen = letter(scene);
                  screen.单元.关闭.click();
                  screen.Check5.click();
                  screen.新增.click();
                  typeTexts(scene);
                  screen.确定.click();
                  screen.Check5.click();
                  screen.新增.click();
              }},
             {"删除",
              [](Scene& scene) {
                  auto& screen = letter(scene);
                  screen.意向书.click(*screen.意向书.find("YMYX2011-000001"));
                  scene.willSayYes();
                  screen.删除.click();
              }},
             {"另一管理处", [](Scene& scene) { letter(scene).管理项目.pick("02 西塔"); }},
             {"单级提交", [](Scene& scene) {
                  writeTyped(scene);
                  letter(scene).新增.click();
                  submit(scene);
              }}}};
}

}  // namespace desk
