#include "customers/registration_page.h"

#include <fmt/format.h>

#include "base/text.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/document_number.h"
#include "session/grid_rows.h"
#include "session/numbered_nodes.h"
#include "ui/batch.h"

namespace desk {

namespace {

/// What a save asks for, and what it reads as a number.
void markFields(登记页& page) {
    const bool byPhone = !page.rules().有客户详情;
    for (Control* field :
         std::initializer_list<Control*>{&page.登记编号, &page.区域, &page.从事行业, &page.询问重点.列表,
                                         page.中介 ? static_cast<Control*>(&page.中介->中介公司名称)
                                                   : (byPhone ? &page.客户电话 : &page.客户姓名)})
        field->setDemanded(true);
    if (page.媒体) page.媒体->列表.setDemanded(true);
    if (page.企业性质) page.企业性质->setDemanded(true);
    page.需求面积.setNumeric(true);
    if (page.预算租金) page.预算租金->setNumeric(true);
    if (!page.rules().自动编号亦查编号)
        page.采用自动编号.clicked += [&page] { page.登记编号.setDemanded(!page.采用自动编号.checked()); };
}

}  // namespace

其它说明::其它说明(Screen& screen, const std::string& name)
    : 勾选(screen, name + "勾选", "其它（需说明）"), 文本(screen, name + "文本") {
    文本.setEnabled(false);
    勾选.clicked += [this] {
        文本.setEnabled(勾选.checked());
        if (勾选.checked()) 文本.focus();
    };
}

多选项目::多选项目(Screen& screen, const std::string& name)
    : 列表(screen, name, ListStyle::multiple), 其它(screen, name + "其它") {}

std::string 多选项目::text() const {
    auto parts = 列表.selectedTexts();
    if (const auto other = trimmed(其它.文本.text()); !other.empty()) parts.emplace_back(other);
    return join(parts, ",");
}

bool 多选项目::isEmpty() const {
    return 列表.index() < 0 && trimmed(其它.文本.text()).empty();
}

bool 多选项目::choose(std::string_view text) {
    std::vector<std::string> rest;
    for (auto& part : split(text, ',')) {
        const int line = 列表.find(part);
        if (line >= 0)
            列表.setSelected(line, true);
        else
            rest.push_back(std::move(part));
    }
    其它.文本.setText(join(rest, ","));
    return !rest.empty();
}

中介公司选择::中介公司选择(Screen& screen, const std::string& name)
    : 中介公司名称(screen, name + ".中介公司名称"),
      选择中介公司(screen, name + ".选择中介公司", "选择中介公司"),
      面板(screen, name + ".中介公司面板", "选择中介公司"),
      列表(面板, name + ".中介公司列表", "序 |中介公司名称|"),
      面板确定(面板, name + ".面板确定", "确定", ButtonRole::main),
      面板关闭(面板, name + ".面板关闭", "关闭") {
    面板.setAnchor(&中介公司名称);
    列表.setColumnWidth(1, 4200);
    列表.setColumnWidth(2, 0);
    列表.setSelection(GridSelection::row);
    列表.hint = "该管理项目没有中介公司";
    面板关闭.clicked += [this] { 面板.close(); };
}

登记页::登记页(Application& app, Screen& screen, std::string_view name, const 登记页规则& rules)
    : app_(app),
      screen_(screen),
      rules_(rules),
      name_(name),
      管理项目(screen, name_ + ".管理项目"),
      客户(screen, name_ + ".客户"),
      采用自动编号(screen, name_ + ".采用自动编号", "采用自动编号"),
      登记编号(screen, name_ + ".登记编号"),
      公司名称(screen, name_ + ".公司名称"),
      客户姓名(screen, name_ + ".客户姓名"),
      客户电话(screen, name_ + ".客户电话"),
      公司地址(screen, name_ + ".公司地址"),
      区域(screen, name_ + ".区域"),
      区域其它(screen, name_ + ".区域其它"),
      需求面积(screen, name_ + ".需求面积"),
      从事行业(screen, name_ + ".从事行业"),
      询问重点(screen, name_ + ".询问重点"),
      登记日期(screen, name_ + ".登记日期"),
      业务员(screen, name_ + ".业务员"),
      备注(screen, name_ + ".备注", TextStyle::paragraph),
      新增(screen, name_ + ".新增"),
      确定(screen, name_ + ".确定", "确定", ButtonRole::main),
      删除(screen, name_ + ".删除", "删除"),
      退出(screen, name_ + ".退出", "退出") {
    客户.hint = "请先选择管理项目";
    询问重点.列表.hint = "尚未设置咨询内容";
    makeOptionalParts();
    nameColumns();
    markFields(*this);
    connect();
}

void 登记页::makeOptionalParts() {
    if (rules_.有媒体) 媒体.emplace(screen_, name_ + ".媒体").列表.hint = "尚未设置媒体";
    if (rules_.有客户详情) {
        职位.emplace(screen_, name_ + ".职位");
        传真.emplace(screen_, name_ + ".传真");
        预算租金.emplace(screen_, name_ + ".预算租金");
        企业性质.emplace(screen_, name_ + ".企业性质");
        洽谈重点.emplace(screen_, name_ + ".洽谈重点", TextStyle::paragraph);
        推荐楼层.emplace(screen_, name_ + ".推荐楼层");
    }
    if (rules_.有中介公司) 中介.emplace(screen_, name_);
}

void 登记页::nameColumns() {
    公司字段_.add("公司名称", 公司名称);
    公司字段_.add("公司地址", 公司地址);
    if (中介) 字段_.add("中介公司名称", 中介->中介公司名称);
    字段_.add("客户姓名", 客户姓名);
    字段_.add("客户电话", 客户电话);
    字段_.addNumber("需求面积", 需求面积);
    字段_.add("登记日期", 登记日期);
    字段_.add("业务员", 业务员);
    字段_.add("备注", 备注);
    if (!rules_.有客户详情) return;
    字段_.add("职位", *职位);
    字段_.add("传真", *传真);
    字段_.addNumber("预算租金", *预算租金);
    字段_.add("洽谈重点", *洽谈重点);
    字段_.add("推荐楼层", *推荐楼层);
}

void 登记页::connect() {
    管理项目.selected += [this] {
        // What it offers are the agencies of the office before.
        if (中介) 中介->面板.close();
        refillTree();
    };
    客户.nodeClicked += [this](TreeNode& node) { selectNode(node); };
    采用自动编号.clicked += [this] { followAutomaticBox(); };
    新增.clicked += [this] { startOrCancel(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(screen_); };
    if (!中介) return;
    中介->选择中介公司.clicked += [this] { toggleAgencies(); };
    中介->面板确定.clicked += [this] { takeAgency(); };
}

void 登记页::refillTree() {
    const Hourglass busy(app_.desktop);
    const Refill fill(客户);
    TreeNode& root = 客户.add(nullptr, rules_.根键, rules_.根文本);
    Recordset rows(app_.主连接, rules_.树语句(code()));
    const int number = rows.column("登记编号");
    const int company = rows.column("公司名称");
    const int contact = rows.column("客户姓名");
    const int date = rows.column("登记日期");
    std::string text;
    for (auto& row : rows) {
        text = row[number].view();
        text += ' ';
        text += row[rules_.无公司显示客户 && row[company].isNull() ? contact : company].view();
        text += " [";
        text += row[date].text();
        text += ']';
        addNumbered(客户, &root, rules_.键前缀, row[number].view(), text);
    }
    客户.setExpanded(root, true);
}

void 登记页::clearChoices() {
    区域.setIndex(-1);
    if (企业性质) 企业性质->setIndex(-1);
    从事行业.setIndex(-1);
    if (媒体) 媒体->列表.clearSelection();
    询问重点.列表.clearSelection();
}

void 登记页::selectNode(const TreeNode& node) {
    clearChoices();
    确定.setEnabled(true);
    删除.setEnabled(true);
    清空文本框(screen_);
    if (!node.key().starts_with(rules_.键前缀)) return;
    Recordset lead(app_.主连接, rules_.查询语句(numberOf(node, rules_.键前缀), code()));
    if (!lead.atEnd()) showLead(lead);
}

void 登记页::showLead(Recordset& lead) {
    登记编号.setText(lead["登记编号"].text());
    公司字段_.show(lead);
    字段_.show(lead);
    if (企业性质) 企业性质->setIndex(企业性质->find(lead["企业性质"].text()));
    从事行业.setIndex(从事行业.find(lead["从事行业"].text()));
    if (媒体) 媒体->choose(lead["媒体"].text());
    if (询问重点.choose(lead["询问重点"].text()) && rules_.其它询问勾选) 询问重点.其它.勾选.setChecked(true);
    showRegion(lead["所在区域"].text());
    新增.browse();
    if (!lead["分配日期"].isNull()) {
        确定.setEnabled(false);
        删除.setEnabled(false);
    }
}

void 登记页::showRegion(const std::string& region) {
    const int line = 区域.find(region);
    区域.setIndex(line);
    if (line >= 0 || region.empty() || !rules_.未知区域入其它) return;
    区域其它.文本.setText(region);
    区域其它.勾选.setChecked(true);
}

void 登记页::startOrCancel() {
    if (!管理项目.hasSelection()) return;
    if (!entering()) return startEntering();
    新增.browse();
    确定.setEnabled(true);
    删除.setEnabled(true);
    清空文本框(screen_);
}

void 登记页::startEntering() {
    清空文本框(screen_);
    clearChoices();
    登记日期.setValue(app_.platform.clock.today());
    新增.startEntering();
    确定.setEnabled(true);
    删除.setEnabled(false);
    登记编号.setLocked(采用自动编号.checked());
    if (采用自动编号.checked()) {
        登记编号.setText(自动编号提示);
        (中介 ? 中介->中介公司名称 : 公司名称).focus();
    } else {
        登记编号.setText(输入编号提示);
        登记编号.selectAll();
        登记编号.focus();
    }
}

void 登记页::followAutomaticBox() {
    if (!entering()) return;
    const bool automatic = (rules_.自动编号看区域 ? 区域其它.勾选 : 采用自动编号).checked();
    登记编号.setText(automatic ? 自动编号提示 : std::string_view{});
    登记编号.setLocked(automatic);
}

void 登记页::remove() {
    const TreeNode* node = 客户.selected();
    if (node == nullptr || !node->key().starts_with(rules_.键前缀)) return;
    const std::string no = numberOf(*node, rules_.键前缀);
    if (!app_.confirmDeletion(fmt::format("确定要删除编号为 {}的信息？ ", no))) return;
    app_.主连接.execute(
        sql("Delete From YZ_引驻客户信息 Where 登记编号='{}' and 管理处代号='{}'", no, code()));
    clearChoices();
    refillTree();
}

void 登记页::toggleAgencies() {
    中介->面板.toggle();
    if (!中介->面板.isOpen()) return;

    Grid& list = 中介->列表;
    if (!管理项目.hasSelection()) return list.clear();
    Recordset agencies(app_.主连接,
                       sql("Select * From YZ_中介公司设置 Where 管理处代号='{}' Order By 公司名称", code()));
    fillGrid(list, agencies, {"公司名称", "ID"});
    if (list.rows() > list.fixedRows()) list.setCurrent(list.fixedRows(), 1);
}

void 登记页::takeAgency() {
    const Grid& list = 中介->列表;
    if (list.rows() <= list.fixedRows()) return;
    中介->中介公司名称.setText(list.text(list.row(), 1));
    中介->面板.close();
}

}  // namespace desk
