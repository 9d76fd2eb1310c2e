#include "analysis/classification.h"
#include "db/statement.h"
#include "every_screen/walks.h"

namespace desk {

/// The text is a kind, a trade, a team's name, an agency, and all that is known of the one customer.
Walk classification() {
    const auto screen = [](Scene& scene) -> Frm客户分类统计& { return scene.screen<Frm客户分类统计>(); };
    return {
        "客户分类统计",
        [](Scene& scene) {
            auto& db = scene.program.db();
            const auto& text = scene.text;
            db.execute(sql("Insert Into YZ_企业性质设置 (企业性质名称,说明) Values ('{}','{}')", text, text));
            db.execute(sql("Insert Into YZ_行业设置 (行业名称,说明) Values ('{}','{}')", text, text));
            db.execute(sql("Insert Into YZ_组表 (组代号,组名称) Values ('1','{}')", text));
            db.execute("Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('1','02')");
            db.execute(
                sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称,企业性质,从事行业,"
                    "中介公司名称,客户姓名,客户电话,备注) Values ('{}','01','{}','{}','{}','{}','{}','{}',"
                    "'{}')",
                    text, text, text, text, text, text, text, text));
            db.execute(
                sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号) Values ('{}','01','1')", text));
            scene.program.enter();
            scene.program.app.screens.offer<Frm客户分类统计>(scene.program.app);
        },
        {{"打开", [](Scene& scene) { scene.program.app.screens.open(Frm客户分类统计::screenName); }},
         {"选管理处", [=](Scene& scene) { screen(scene).Combo1.pick("01 东塔"); }},
         {"统计",
          [=](Scene& scene) {
              auto& form = screen(scene);
              for (CheckBox* all : {&form.Check1, &form.Check2, &form.Check3}) all->click();
              form.Command1.click();
          }},
         {"一家中介的统计", [=](Scene& scene) {
              auto& form = screen(scene);
              // As a search it is a pattern; as a condition it is a name.
              form.Text1.type(scene.text);
              form.Command1.click();
              form.Text1.type("");
          }}}};
}

}  // namespace desk
