#include "intent/letter.h"

#include <fmt/format.h>

#include "base/number.h"
#include "db/statement.h"
#include "intent/letter_tree.h"
#include "intent/submission.h"
#include "platform/clock.h"
#include "session/document_number.h"
#include "session/helpers.h"

namespace desk {

namespace {

constexpr std::string_view 待提交 = "提交";
constexpr std::string_view 已提交 = "审批情况";

}  // namespace

Frm意向书信息::Frm意向书信息(Application& app)
    : Screen(screenName, "意向书信息", WindowKind::child, 16500, 9600),
      提交(*this, "提交", std::string(待提交)),
      日历(*this, app.desktop, "日历"),
      客户(*this, app, 信息["承租方"]),
      单元(*this, app, 信息, 管理项目),
      审批意见(
          审批面板, "审批意见",
          "<序|<部门                  |<审批人  |日期        |<意见                                         "
          "|<同意",
          app, 审批意见列表::Dates::asStored),
      app_(app) {
    意向书.hint = "请先选择管理项目";
    信息.登记编号.setDemanded(true);
    connect();
    serveDates();
}

void Frm意向书信息::connect() {
    管理项目.selected += [this] { refillTree(); };
    意向书.nodeClicked += [this](TreeNode& node) { selectLetter(node); };
    Check5.clicked += [this] { followAutomaticBox(); };
    for (const char* deposit : {"物业管理费意向金", "租金意向金"})
        信息[deposit].changed += [this] { sumUp(); };
    选择承租方.clicked += [this] { 客户.面板.open(); };
    选择单元.clicked += [this] { 单元.面板.open(); };
    新增.clicked += [this] { startOrCancel(); };
    确定.clicked += [this] { save(); };
    提交.clicked += [this] { submitOrShow(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
    审批关闭.clicked += [this] { 审批面板.close(); };

    选择单元.setVisible(false);
    选择单元.setAnchor(&信息["租赁单元"]);
    信息["租赁单元"].focused += [this] { 选择单元.setVisible(true); };
    信息["租赁面积"].focused += [this] { 选择单元.setVisible(false); };
}

void Frm意向书信息::serveDates() {
    int number = 0;
    for (const char* day : {"租赁起始日期", "租赁结束日期", "装修起始日期", "装修结束日期"})
        日历.serve(信息[day], 日期按钮, number++);
    信息["租赁结束日期"].focused += [this] { 日历.hide(); };
    信息["租金单价"].focused += [this] {
        日历.hide();
        日期按钮.setVisible(false);
    };
}

void Frm意向书信息::load() {
    窗体居中(app_, *this);
    填充管理处(app_, 管理项目);
    客户.load();
    日历.日历.setValue(app_.platform.clock.today());
}

void Frm意向书信息::refillTree() {
    const Hourglass busy(app_.desktop);
    Recordset letters(
        app_.主连接,
        sql("Select * From YZ_意向书信息 Where  管理处代号='{}'  Order By Len(意向书编号),意向书编号",
            code()));
    填充意向书树(意向书, {.root = "意向书列表", .keyColumn = "意向书编号", .bearsDoubles = true}, letters);
}

/// The `ID` of the letter stays behind the emptied fields.
void Frm意向书信息::leaveLetter() {
    清空文本框(*this);
    shownOf_.clear();
}

void Frm意向书信息::selectLetter(const TreeNode& node) {
    leaveLetter();
    const std::string no = 意向书键(node);
    if (no.empty()) return;
    Recordset letter(
        app_.主连接,
        sql("Select * From YZ_意向书信息  Where 意向书编号='{}' And 管理处代号='{}'", no, code()));
    if (!letter.atEnd()) showLetter(letter);
}

void Frm意向书信息::showLetter(Recordset& letter) {
    信息.show(letter);
    shownOf_ = code();
    新增.browse();
    提交.setEnabled(true);
    const bool submitted = !letter["提交日期"].isNull();
    提交.setCaption(submitted ? 已提交 : 待提交);
    删除.setEnabled(!submitted);
}

void Frm意向书信息::sumUp() {
    const auto amount = [this](std::string_view column) { return val(信息[column].text()); };
    信息["意向金合计"].setText(numberText(amount("租金意向金") + amount("物业管理费意向金")));
}

void Frm意向书信息::startOrCancel() {
    if (!管理项目.hasSelection()) return;
    if (!新增.entering()) return startEntering();
    新增.browse();
    删除.setEnabled(true);
    提交.setEnabled(true);
}

void Frm意向书信息::startEntering() {
    leaveLetter();
    新增.startEntering();
    删除.setEnabled(false);
    提交.setEnabled(false);
    信息.登记编号.setLocked(Check5.checked());
    if (Check5.checked()) return 信息.登记编号.setText(自动编号提示);
    信息.登记编号.setText(输入编号提示);
    信息.登记编号.selectAll();
    信息.登记编号.focus();
}

/// As long as a new letter is being typed the box decides what stands in the field of its number.
void Frm意向书信息::followAutomaticBox() {
    const bool automatic = Check5.checked();
    信息.登记编号.setDemanded(!automatic);
    if (!新增.entering()) return;
    信息.登记编号.setText(automatic ? 自动编号提示 : std::string_view{});
    信息.登记编号.setLocked(automatic);
}

void Frm意向书信息::submitOrShow() {
    const std::string& id = 信息.id();
    if (提交.caption() == 已提交) {
        审批意见.show(id);
        return 审批面板.open();
    }
    if (!管理项目.hasSelection()) return;
    if (!isShown()) return app_.desktop.notify(先选意向书);
    if (!app_.confirm("确定要提交吗？提交后意向书内容将不能再进行修改！")) return;
    if (提交意向书(app_, code(), id)) app_.desktop.notify("已提交 " + 信息.登记编号.text());
}

void Frm意向书信息::remove() {
    const TreeNode* node = 意向书.selected();
    if (node == nullptr) return;
    const std::string no = 意向书键(*node);
    if (no.empty()) return;
    if (!app_.confirmDeletion(fmt::format("确定要删除编号为 {}的信息？ ", no))) return;
    // Its units stay reserved.
    app_.主连接.execute(
        sql("Delete From YZ_意向书信息 Where 意向书编号='{}' And 管理处代号='{}'", no, code()));
    leaveLetter();
    refillTree();
}

}  // namespace desk
