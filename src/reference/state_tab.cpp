#include "reference/state_tab.h"

#include "base/text.h"
#include "db/statement.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {
enum Column { 编号列 = 1, 名称列, 颜色列, 说明列 };
}

StateTab::StateTab(Screen& screen, Application& app, SetupStatus& status)
    : 框(screen, "跟进状态设置.框"),
      列表(框, "跟进状态设置.列表",
           "<序  |<状态编号  |<状态名称            |<颜色      |<说明                            "),
      状态编号(框, "状态编号"),
      状态名称(框, "状态名称"),
      说明(框, "跟进状态设置.说明"),
      颜色(框, "颜色"),
      选择颜色(框, "选择颜色", "选择颜色"),
      确定(框, "跟进状态设置.确定", "确定", ButtonRole::main),
      删除(框, "跟进状态设置.删除", "删除"),
      退出(框, "跟进状态设置.退出", "退出"),
      app_(app),
      status_(status) {
    for (TextBox* box : {&状态编号, &状态名称}) box->setDemanded(true);
    列表.clicked += [this] { showEntry(); };
    选择颜色.clicked += [this] { chooseColour(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(框.screen()); };
}

void StateTab::load() {
    Recordset states(app_.主连接, "Select * From YZ_跟进状态设置 Order By len(状态编号),状态编号");
    const int colour = states.column("颜色表示");
    列表.fill(states, {"状态编号", "状态名称", "", "说明"}, [&](int row) {
        列表.setCellColour(row, 颜色列, static_cast<Colour>(states[colour].integer()));
    });
}

void StateTab::clearFields() {
    清空文本框(框.screen());
    颜色.setColour(windowColour);
}

void StateTab::focusCode() {
    状态编号.selectAll();
    状态编号.focus();
}

void StateTab::showEntry() {
    列表.mark();
    if (列表.key().empty()) {
        clearFields();
        status_.showAdding(title);
        return 状态编号.focus();
    }
    const int row = 列表.row();
    状态编号.setText(列表.text(row, 编号列));
    状态名称.setText(列表.text(row, 名称列));
    说明.setText(列表.text(row, 说明列));
    颜色.setColour(列表.cellColour(row, 颜色列).value_or(windowColour));
    focusCode();
    status_.showChanging(title);
}

void StateTab::chooseColour() {
    if (const auto chosen = app_.desktop.chooseColour(颜色.colour())) 颜色.setColour(*chosen);
}

void StateTab::save() {
    if (trimmed(状态编号.text()).empty()) return app_.tell("状态编号不能为空，请重新输入！");
    if (trimmed(状态名称.text()).empty()) return app_.tell("状态名称不能为空，请重新输入！");
    if (!status_.showsTitle(title)) return;
    const bool adding = status_.showsAdding();
    const bool written = adding ? add() : change();
    if (adding && !written) return;
    const int row = 列表.row();
    showSaved(adding);
    列表.reveal(row);
    written ? app_.saved(trimmed(状态名称.text())) : app_.foundNothing();
}

bool StateTab::add() {
    const auto code = trimmed(状态编号.text());
    Recordset state(app_.主连接, sql("Select * From YZ_跟进状态设置 Where 状态编号='{}'", code),
                    Rows::updatable);
    if (!state.atEnd()) {
        app_.tell("已存在相同的状态编号，请重新输入！");
        focusCode();
        return false;
    }
    state.addNew();
    state["状态编号"] = code;
    write(state);
    return true;
}

bool StateTab::change() {
    Recordset state(app_.主连接, sql("Select * From YZ_跟进状态设置 Where 状态编号='{}'", 列表.key()),
                    Rows::updatable);
    // The code itself is never written: diary rows refer to it.
    if (state.atEnd()) return false;
    write(state);
    return true;
}

void StateTab::write(Recordset& state) {
    state["状态名称"] = trimmed(状态名称.text());
    state["颜色表示"] = 颜色.colour();
    state["说明"] = trimmed(说明.text());
    state.update();
}

void StateTab::showSaved(bool added) {
    const Batch showing(列表);
    列表.put(列表.row(), {std::string(trimmed(状态编号.text())), std::string(trimmed(状态名称.text()))});
    // Colour and note go to the last row, which is that of a new state. Those of a changed one show when the
    // window is opened again.
    列表.goToLast();
    列表.setCellColour(列表.row(), 颜色列, 颜色.colour());
    列表.setText(列表.row(), 说明列, trimmed(说明.text()));
    if (added) 列表.grow();
}

void StateTab::remove() {
    const std::string code = 列表.key();
    if (code.empty()) return app_.tell("您尚未选择要删除的跟进状态信息，请选择！");
    if (!app_.confirmDeletion("确定要删除选中跟进状态信息吗？")) return;
    app_.主连接.execute(sql("Delete From YZ_跟进状态设置 Where 状态编号='{}'", code));
    列表.dropCurrent();
    clearFields();
    status_.showAdding(title);
}

}  // namespace desk
