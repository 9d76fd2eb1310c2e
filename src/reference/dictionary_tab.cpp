#include "reference/dictionary_tab.h"

#include <fmt/format.h>

#include "base/text.h"
#include "session/helpers.h"

namespace desk {

const DictionaryKind 区域字典{"区域设置",
                              "YZ_区域设置",
                              "区域名称",
                              "区域名称",
                              "您尚未选择要删除的主职信息，请选择！",
                              "确定要删除选中的主职信息吗？"};
// The deletion compares a column that the table lacks: a kind of enterprise cannot be deleted.
const DictionaryKind 企业性质字典{"企业性质设置",
                                  "YZ_企业性质设置",
                                  "企业性质名称",
                                  "区域名称",
                                  "您尚未选择要删除的主职信息，请选择！",
                                  "确定要删除选中的主职信息吗？"};
const DictionaryKind 行业字典{"行业设置",
                              "YZ_行业设置",
                              "行业名称",
                              "行业名称",
                              "您尚未选择要删除的主职信息，请选择！",
                              "确定要删除选中的主职信息吗？"};
const DictionaryKind 咨询内容字典{"咨询内容设置",
                                  "YZ_咨询内容设置",
                                  "咨询内容",
                                  "咨询内容",
                                  "您尚未选择要删除的咨询内容信息，请选择！",
                                  "确定要删除选中的咨询内容信息吗？"};
const DictionaryKind 媒体字典{"媒体设置",
                              "YZ_媒体设置",
                              "媒体名称",
                              "媒体名称",
                              "您尚未选择要删除的媒体名称，请选择！",
                              "确定要删除选中的媒体名称吗？"};

namespace {

std::string nameOf(const DictionaryKind& kind, std::string_view part) {
    return fmt::format("{}.{}", kind.title, part);
}

}  // namespace

DictionaryTab::DictionaryTab(Screen& screen, Application& app, SetupStatus& status,
                             const DictionaryKind& dictionary)
    : kind(dictionary),
      框(screen, nameOf(kind, "框")),
      列表(框, nameOf(kind, "列表"),
           fmt::format("<序  |<{}                    |<说明                                        ",
                       kind.nameColumn.text())),
      名称(框, nameOf(kind, "名称")),
      说明(框, nameOf(kind, "说明")),
      确定(框, nameOf(kind, "确定"), "确定", ButtonRole::main),
      删除(框, nameOf(kind, "删除"), "删除"),
      退出(框, nameOf(kind, "退出"), "退出"),
      app_(app),
      status_(status) {
    名称.setDemanded(true);
    列表.clicked += [this] { showEntry(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(框.screen()); };
}

void DictionaryTab::load() {
    Recordset entries(app_.主连接, sql("Select * From {} Order By {}", kind.table, kind.nameColumn));
    列表.fill(entries, {kind.nameColumn, "说明"});
}

void DictionaryTab::focusName() {
    名称.selectAll();
    名称.focus();
}

void DictionaryTab::showEntry() {
    列表.mark();
    if (列表.key().empty()) {
        清空文本框(框.screen());
        status_.showAdding(kind.title);
        return 名称.focus();
    }
    名称.setText(列表.text(列表.row(), 1));
    说明.setText(列表.text(列表.row(), 2));
    focusName();
    status_.showChanging(kind.title);
}

void DictionaryTab::save() {
    const std::string name(trimmed(名称.text()));
    if (name.empty()) return app_.tell(fmt::format("{}不能为空，请重新输入！", kind.nameColumn.text()));
    if (!status_.showsTitle(kind.title)) return;
    const bool adding = status_.showsAdding();
    const bool written = adding ? add(name) : change(name);
    if (adding && !written) return;
    // The current row stays where it was: a second new name without a click in between takes the place of the
    // first on the screen, while the table holds both.
    列表.put(列表.row(), {name, std::string(trimmed(说明.text()))});
    if (adding) 列表.grow();
    列表.reveal(列表.row());
    written ? app_.saved(name) : app_.foundNothing();
}

bool DictionaryTab::add(const std::string& name) {
    Recordset entry(app_.主连接, sql("Select * From {} Where {}='{}'", kind.table, kind.nameColumn, name),
                    Rows::updatable);
    if (!entry.atEnd()) {
        app_.tell(fmt::format("已存在相同的{}，请重新输入！", kind.nameColumn.text()));
        focusName();
        return false;
    }
    entry.addNew();
    entry[kind.nameColumn] = name;
    entry["说明"] = trimmed(说明.text());
    entry.update();
    return true;
}

bool DictionaryTab::change(const std::string& name) {
    Recordset entry(app_.主连接,
                    sql("Select * From {} Where {}='{}'", kind.table, kind.nameColumn, 列表.key()),
                    Rows::updatable);
    if (entry.atEnd()) return false;
    entry[kind.nameColumn] = name;
    entry["说明"] = trimmed(说明.text());
    entry.update();
    return true;
}

void DictionaryTab::remove() {
    const std::string name = 列表.key();
    if (name.empty()) return app_.tell(kind.nothingChosen);
    if (!app_.confirmDeletion(kind.question)) return;
    app_.主连接.execute(sql("Delete From {} Where {}='{}'", kind.table, kind.deleteColumn, name));
    列表.dropCurrent();
    清空文本框(框.screen());
    status_.showAdding(kind.title);
}

}  // namespace desk
