#include "intent/letter_units.h"

#include "base/number.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "intent/unit_map.h"

namespace desk {

租赁单元选择::租赁单元选择(Screen& screen, Application& app, 意向书信息块& letter, const ComboBox& office)
    : 面板(screen, "单元面板", "租赁单元"),
      列表(面板, "单元列表"),
      单元选择(面板, "单元选择", "单元选择"),
      删除单元(面板, "删除单元", "删除单元"),
      关闭(面板, "单元.关闭", "关闭", ButtonRole::main),
      app_(app),
      letter_(letter),
      office_(office) {
    单元选择.clicked += [this] { openMap(); };
    删除单元.clicked += [this] { removeUnit(); };
    关闭.clicked += [this] {
        takesOver_ = true;
        面板.close();
    };
    // A look at the panel must not empty the text of a stored letter, whose units are not in the list; but
    // what a save reserves is what the letter says.
    面板.opened += [this] { takesOver_ = false; };
    列表.unitsChanged += [this] { takesOver_ = true; };
    面板.closed += [this] {
        if (takesOver_) summarise();
    };
}

void 租赁单元选择::openMap() {
    列表.removeUnsaved();
    app_.screens.get<Frm房源一览表>().openForPicking(office_.text());
}

void 租赁单元选择::removeUnit() {
    const int row = 列表.row();
    if (row < 列表.fixedRows()) return;
    if (!app_.confirmDeletion("确定要删除对应单元吗？")) return;
    app_.主连接.execute(
        sql("Delete FROM YZ_意向书单元信息 Where ID={}", numeral(列表.text(row, 租赁单元列表::记录ID))));
    列表.remove(row);
}

void 租赁单元选择::summarise() {
    letter_["租赁单元"].setText(列表.单元文本());
    letter_["租赁面积"].setText(numberText(列表.总面积()));
}

bool 租赁单元选择::reserve(std::string_view 意向书ID, std::string_view 设置日期) {
    const auto rows = 列表.unsaved();
    if (rows.empty()) return true;
    std::vector<std::string> units;
    for (const int row : rows) units.push_back(列表.text(row, 租赁单元列表::单元ID));
    Recordset reserved(
        app_.主连接,
        sql("Select * From YZ_意向书单元信息 Where 单元ID In({}) AND 终止日期 is Null", numerals(units)),
        Rows::updatable);
    if (!reserved.atEnd()) {
        app_.tell(
            "您所选择的单元中存在已经被使用的单元，请核对！\r\n您重新进入房源选择，重新选择后再按确定按钮保"
            "存");
        return false;
    }
    for (const int row : rows) {
        reserved.addNew();
        reserved["意向书ID"] = 意向书ID;
        reserved["单元ID"] = 列表.text(row, 租赁单元列表::单元ID);
        reserved["设置日期"] = nullIfEmpty(设置日期);
        reserved.update();
        列表.setText(row, 租赁单元列表::记录ID, reserved["ID"].text());
    }
    return true;
}

}  // namespace desk
