#include "db/statement.h"
#include "every_screen/walks.h"
#include "money/deposits.h"
#include "money/tax_invoice.h"

namespace desk {

namespace {

/// A department of that name with a device whose program runs, and a book of that number which is shared with
/// it; another department's that must be left alone. The number of a book ends at its first blank.
void beforeTaxInvoices(Scene& scene) {
    std::erase(scene.text, ' ');
    const auto& text = scene.text;
    auto& program = scene.program;
    auto& db = program.db();
    db.execute("Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('1','税控发票',1,0)");
    for (const std::string& each : {text, std::string("旁")}) {
        db.execute(sql("Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('{}','1',1)", each));
        db.execute(sql("Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('{}','{}')", each,
                       "领" + each));
        db.execute(sql("Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('{}','{}')", each, each));
        db.execute(sql("Insert Into 票据共用设置 (领用部门编号,共用部门编号) Values ('{}','{}')", "领" + each,
                       each));
        db.execute(sql("Insert Into 票据 (入库单编号,票据编号) Values ('{}','{}')", each, each));
        db.execute(sql("Insert Into 票据税控机 (使用单位,软件名称,启动后名称) Values ('{}','{}','{}')", each,
                       each, each));
        db.execute(
            sql("Insert Into SKOperator (SK_ID,OperatorNum,UserNum) Values (1,'{}','{}')", each, each));
    }
    program.app.session = {text, "林", text, "部", "0101", "岗", "A", "业", "P", "员"};
    program.programs.windows = {text, "税控发票打印"};
    program.app.screens.offer<Frm意向金收取>(program.app);
    program.app.screens.offer<Frm税控发票打印>(program.app);
}

Frm税控发票打印& invoice(Scene& scene) {
    return scene.screen<Frm税控发票打印>();
}

}  // namespace

Walk taxInvoices() {
    return {"税控发票",
            beforeTaxInvoices,
            {{"打开", [](Scene& scene) { scene.program.app.screens.open(Frm税控发票打印::screenName); },
              "SSSEEEEE"},
             {"选票据本", [](Scene& scene) { invoice(scene).样张.票据本.pick(0); }, "S"},
             {"填写",
              [](Scene& scene) {
                  invoice(scene).tag = "意向金收取";
                  auto& form = invoice(scene).样张;
                  for (TextBox* box : {&form.付款单位, &form.开票日期, &form.备注, &form.开票人,
                                       &form.项目[0].项目, &form.项目[0].单价, &form.项目[0].金额})
                      box->type(scene.text);
              }},
             {"未打印",
              [](Scene& scene) {
                  scene.program.desktop.answers = {Answer::no};
                  invoice(scene).打印发票.click();
              }},
             {"已打印",
              [](Scene& scene) {
                  scene.willSayYes();
                  invoice(scene).恢复.选项[3].click();
                  invoice(scene).恢复.确定.click();
              },
              "SSS"}}};
}

}  // namespace desk
