#include "db/statement.h"
#include "every_screen/walks.h"
#include "money/deposits.h"

namespace desk {

namespace {

/// A letter that has passed, with a line that was charged before; two open books, one of them shared by
/// another department, and the text in whatever is shown, chosen or written.
void beforeDeposits(Scene& scene) {
    scene.program.enter();
    scene.program.app.screens.offer<Frm意向金收取>(scene.program.app);
    auto& session = scene.program.app.session;
    const auto& text = scene.text;
    session.登录姓名 = text;
    session.登录工号 = text;
    auto& db = scene.program.db();
    db.execute(sql("Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('2','{}',0,0)", text));
    db.execute(sql("Insert Into 票据入库单 (入库单编号,票据类型编号) Values ('{}','2')", text));
    scene.program.run({"Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L1','01')",
                       "Insert Into 票据共用设置 (领用部门编号,共用部门编号) Values ('02','01')"});
    db.execute(sql("Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','{}')", text));
    for (const char* ticket : {"", "后"})
        db.execute(sql("Insert Into 票据 (入库单编号,票据编号) Values ('{}','{}')", text, text + ticket));
    db.execute(sql("Insert Into 财务科目 (科目代号,科目名称) Values ('{}','{}')", text, text));
    db.execute(sql("Insert Into SETUPSFXM (DH,XM,收费类别,对应科目) Values ('{}','{}','押金','{}')", text,
                   text, text));
    db.execute(
        sql("Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,流转通过) Values ('{}','01','{}',1)",
            text, text));
    db.execute(sql(
        "Insert Into YZ_意向金收款 (意向书ID,收费项目,科目编号,数量,单价,金额,票据类型,处理结束,票据打印) "
        "Values (1,'{}','{}',1,9,9,'2 {}',0,1)",
        text, text, text));
}

Frm意向金收取& deposits(Scene& scene) {
    return scene.screen<Frm意向金收取>();
}

void type(Scene& scene, int row, int column, const std::string& text) {
    deposits(scene).收费.click(row, column);
    deposits(scene).单元格编辑.type(text);
}

void pick(CellList& list, int line) {
    list.button.click();
    list.list.click(line);
}

void clickLetter(Scene& scene) {
    auto& tree = deposits(scene).意向书;
    tree.click(*tree.find("YM1"));
}

void chooseItem(Scene& scene) {
    using C = 收费列表;
    auto& screen = deposits(scene);
    screen.收费.click(2, C::收费项目);
    pick(screen.收费项目, 0);
    for (const int column : {C::数量, C::单价, C::金额}) type(scene, 2, column, "3");
    screen.收费.click(2, C::票据类型);
    pick(screen.票据类型, 0);
}

void save(Scene& scene) {
    deposits(scene).票据.list.click(0);
    deposits(scene).票据打印保存.click();
}

void openRefund(Scene& scene, int row) {
    deposits(scene).收费.click(row, 收费列表::金额);
    deposits(scene).退款处理.click();
}

void confirmRefund(Scene& scene) {
    auto& voucher = deposits(scene).退款;
    for (TextBox* box : {&voucher.摘要, &voucher.收款人, &voucher.相关情况说明}) box->type(scene.text);
    voucher.确定.click();
}

}  // namespace

Walk deposits() {
    using C = 收费列表;
    return {"意向金收取",
            beforeDeposits,
            {{"打开", [](Scene& scene) { scene.program.app.screens.open(Frm意向金收取::screenName); }},
             {"选管理处", [](Scene& scene) { deposits(scene).管理项目.pick("01 东塔"); }},
             {"选意向书", clickLetter},
             {"选票据类型", chooseItem},
             {"选票据簿", [](Scene& scene) { pick(deposits(scene).票据簿, 0); }},
             {"选票据",
              [](Scene& scene) {
                  deposits(scene).收费.click(2, C::票据编号);
                  deposits(scene).票据.button.click();
              }},
             // The paper may fail, the money may not.
             {"保存", save, "GGGEE"},
             {"手写项目", [](Scene& scene) { type(scene, 3, C::收费项目, scene.text); }},
             {"退款", [](Scene& scene) { openRefund(scene, 2); }},
             {"确定退款", confirmRefund},
             {"再看意向书", clickLetter},
             {"补看凭证", [](Scene& scene) {
                  scene.program.run({"Update YZ_意向金收款 Set 处理结束=0 Where ID=2"});
                  clickLetter(scene);
                  openRefund(scene, 2);
              }}}};
}

}  // namespace desk
