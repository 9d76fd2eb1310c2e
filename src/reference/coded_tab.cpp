#include "reference/coded_tab.h"

#include <fmt/format.h>

#include "session/helpers.h"

namespace desk {

const CodedKind 主职种类{
    "主职设置", "YZ_主职表",   "主职代号",
    "主职名称", "主职说明",    "<序|<主职代号|<主职名称        |<主职说明                      ",
    "Frame1",   "MSFlexGrid1", "Text1",
    "Text2",    "Text3"};
const CodedKind 组种类{
    "组设置", "YZ_组表",     "组代号",
    "组名称", "组说明",      "<序|<组代号 |<组名称         |<组说明                         ",
    "Frame2", "MSFlexGrid2", "Text4",
    "Text5",  "Text6"};

CodedTab::CodedTab(Screen& screen, Application& app, SetupStatus& status, const CodedKind& of)
    : kind(of),
      框(screen, kind.frame),
      列表(框, kind.grid, kind.gridFormat),
      代号(框, kind.code),
      名称(框, kind.named),
      说明(框, kind.note),
      确定(框, fmt::format("{}.确定", kind.title), "确定", ButtonRole::main),
      删除(框, fmt::format("{}.删除", kind.title), "删除"),
      退出(框, fmt::format("{}.退出", kind.title), "退出"),
      app_(app),
      status_(status) {
    for (TextBox* box : {&代号, &名称}) box->setDemanded(true);
    列表.clicked += [this] { showEntry(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(框.screen()); };
    status_.shown += [this] { 代号.setLocked(status_.showsTitle(kind.title) && !status_.showsAdding()); };
}

Recordset CodedTab::entries() {
    return {app_.主连接,
            sql("Select * From {} Order By len({}),{}", kind.table, kind.codeColumn, kind.codeColumn)};
}

void CodedTab::load() {
    auto rows = entries();
    列表.fill(rows, {kind.codeColumn, kind.nameColumn, kind.noteColumn});
    列宽自适应1(app_, 列表, 框.screen());
}

void CodedTab::clearFields() {
    for (TextBox* box : {&代号, &名称, &说明}) box->setText("");
}

void CodedTab::focusCode() {
    代号.selectAll();
    代号.focus();
}

void CodedTab::showEntry() {
    列表.mark();
    if (列表.key().empty()) {
        clearFields();
        status_.showAdding(kind.title);
        return 代号.focus();
    }
    代号.setText(列表.text(列表.row(), 1));
    名称.setText(列表.text(列表.row(), 2));
    说明.setText(列表.text(列表.row(), 3));
    // The keyboard stays in the list, where it goes from row to row and copies.
    status_.showChanging(kind.title);
}

void CodedTab::save() {
    if (代号.text().empty())
        return app_.tell(fmt::format("{}不能为空，请重新输入！", kind.codeColumn.text()));
    if (名称.text().empty())
        return app_.tell(fmt::format("{}不能为空，请重新输入！", kind.nameColumn.text()));
    const bool adding = status_.showsTitle(kind.title) && status_.showsAdding();
    const bool found = adding ? add() : change();
    if (adding && !found) return;
    列表.reveal(列表.row());
    found ? app_.saved(代号.text() + " " + 名称.text()) : app_.foundNothing();
    written();
}

bool CodedTab::add() {
    {
        Recordset entry(app_.主连接,
                        sql("Select * From {} Where {}='{}'", kind.table, kind.codeColumn, 代号.text()),
                        Rows::updatable);
        if (!entry.atEnd()) {
            app_.tell("已存在相同代号的信息，请重新输入！");
            focusCode();
            return false;
        }
        entry.addNew();
        entry[kind.codeColumn] = 代号.text();
        entry[kind.nameColumn] = 名称.text();
        entry[kind.noteColumn] = 说明.text();
        entry.update();
    }
    // The entry takes the blank row, and another blank row follows.
    列表.goToLast();
    列表.put(列表.row(), {代号.text(), 名称.text(), 说明.text()});
    列表.grow();
    return true;
}

bool CodedTab::change() {
    const std::string code = 列表.key();
    Recordset entry(app_.主连接, sql("Select * From {} Where {}='{}'", kind.table, kind.codeColumn, code),
                    Rows::updatable);
    列表.put(列表.row(), {code, 名称.text(), 说明.text()});
    if (entry.atEnd()) return false;
    entry[kind.nameColumn] = 名称.text();
    entry[kind.noteColumn] = 说明.text();
    entry.update();
    return true;
}

void CodedTab::remove() {
    const std::string code = 列表.key();
    // The teams, too, are spoken of as duties: the users know these words.
    if (code.empty()) return app_.tell("您尚未选择要删除的主职信息，请选择！");
    if (!app_.confirmDeletion("确定要删除选中的主职信息吗？")) return;
    app_.主连接.execute(sql("Delete From {} Where {}='{}'", kind.table, kind.codeColumn, code));
    列表.dropCurrent();
    clearFields();
    status_.showAdding(kind.title);
    written();
}

}  // namespace desk
