#include "reference/agencies.h"

#include <algorithm>

#include "base/failure.h"
#include "base/text.h"
#include "db/statement.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {
constexpr const char* title = "中介公司设置";
}

const std::vector<Frm中介公司设置::Field> Frm中介公司设置::fields = {
    {"公司名称", "公司名称"}, {"法人代表", "法人代表"}, {"负责人", "负责人"},    {"联系电话", "负责人电话"},
    {"公司地址", "公司地址"}, {"公司传真", "公司传真"}, {"联系人", "联系人"},    {"联系电话", "联系人电话"},
    {"开户银行", "开户银行"}, {"银行帐号", "银行帐号"}, {"其它信息", "其它信息"}};

Frm中介公司设置::Frm中介公司设置(Application& app)
    : Screen(screenName, title, WindowKind::child, 16800, 9600),
      列表(*this, "列表",
           "<序  |<公司名称                |<法人代表  |<负责人  |<联系电话      |<公司地址                |"
           "<公司传真      |<联系人  |<联系电话      |<开户银行            |<银行帐号            |"
           "<其它信息            "),
      app_(app) {
    for (const Field& field : fields) boxes.emplace_back(*this, std::string(field.column));
    boxes.front().setDemanded(true);
    管理项目.nodeClicked += [this](TreeNode& node) { chooseNode(node); };
    列表.clicked += [this] { showEntry(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
}

void Frm中介公司设置::load() {
    窗体居中(app_, *this);
    status_.showAdding(title);
    const Batch fill(管理项目);
    TreeNode& root = 管理项目.add(nullptr, "L", "管理项目列表");
    管理项目.setExpanded(root, true);
    try {
        添加管理处(app_, 管理项目, &root);
    } catch (const RuntimeFailure&) {
        // The tree keeps what it has.
    }
}

void Frm中介公司设置::chooseNode(const TreeNode& node) {
    管理处代号_.clear();
    status_.showAdding(title);
    if (!node.key().starts_with("G")) return;
    管理处代号_ = without(node.key(), 1);
    Recordset agencies(
        app_.主连接,
        sql("Select 公司名称,法人代表,负责人,负责人电话,公司地址,公司传真,联系人,联系人电话,开户银行,"
            "银行帐号,其它信息 From YZ_中介公司设置 Where 管理处代号='{}'",
            管理处代号_));
    std::vector<std::string_view> columns;
    for (const Field& field : fields) columns.push_back(field.column);
    列表.fill(agencies, columns);
    列宽自适应1(app_, 列表, *this);
}

void Frm中介公司设置::showEntry() {
    列表.mark();
    if (列表.key().empty()) {
        清空文本框(*this);
        status_.showAdding(title);
        return boxes.front().focus();
    }
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i].setText(列表.text(列表.row(), static_cast<int>(i) + 1));
    // The keyboard stays in the list, where it goes from row to row and copies.
    status_.showChanging(title);
}

void Frm中介公司设置::save() {
    const TreeNode* node = 管理项目.selected();
    if (node == nullptr || node->parent() == nullptr)
        return app_.tell("管理项目信息未选择，请选择相应的管理项目！");
    if (trimmed(boxes.front().text()).empty()) return app_.tell("公司名称不能为空，请填写公司名称！");
    const bool adding = status_.showsAdding();
    const std::string name = adding ? std::string(trimmed(boxes.front().text())) : 列表.key();
    const bool written = adding ? add() : change();
    if (adding && !written) return;
    // The row shows the typed name, also where the table keeps the former one.
    std::vector<std::string> cells;
    for (const TextBox& box : boxes) cells.emplace_back(trimmed(box.text()));
    列表.put(列表.row(), cells);
    if (adding) 列表.grow();
    列表.reveal(列表.row());
    written ? app_.saved(name) : app_.foundNothing();
}

bool Frm中介公司设置::add() {
    const auto name = trimmed(boxes.front().text());
    Recordset agency(
        app_.主连接,
        sql("Select * From YZ_中介公司设置 Where 管理处代号='{}' And 公司名称='{}'", 管理处代号_, name),
        Rows::updatable);
    if (!agency.atEnd()) {
        app_.tell("该管理项目中已经存在该中介公司信息，请重新设置！");
        boxes.front().selectAll();
        boxes.front().focus();
        return false;
    }
    agency.addNew();
    agency["管理处代号"] = 管理处代号_;
    write(agency, 0);
    return true;
}

bool Frm中介公司设置::change() {
    Recordset agency(app_.主连接,
                     sql("Select * From  YZ_中介公司设置 Where 管理处代号='{}' And 公司名称='{}'",
                         管理处代号_, 列表.key()),
                     Rows::updatable);
    if (agency.atEnd()) return false;
    write(agency, 1);
    return true;
}

void Frm中介公司设置::write(Recordset& agency, std::size_t firstField) {
    for (std::size_t i = firstField; i < fields.size(); ++i)
        agency[fields[i].column] = nullIfEmpty(trimmed(boxes[i].text()));
    agency.update();
}

void Frm中介公司设置::remove() {
    if (管理处代号_.empty()) return app_.tell("请选择管理项目！");
    const std::string name = 列表.key();
    if (name.empty() || !app_.confirmDeletion("确定删除当前选择的中介公司吗？")) return;
    app_.主连接.execute(
        sql("Delete From YZ_中介公司设置 Where 管理处代号='{}' AND 公司名称='{}'", 管理处代号_, name));
    列表.dropCurrent();
    清空文本框(*this);
    status_.showAdding(title);
}

}  // namespace desk
