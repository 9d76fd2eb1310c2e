#include "intent/approval.h"

#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "intent/letter_tree.h"
#include "platform/clock.h"

namespace desk {

Frm意向书审批::Frm意向书审批(Application& app)
    : Screen(screenName, "意向书审批", WindowKind::child, 18000, 10200),
      他人意见(
          他人面板, "他人意见",
          "<序|<部门                  |<审批人  |^日期        |<意见                                     "
          " |<是否同意",
          app, 审批意见列表::Dates::toTheSecond),
      app_(app) {
    对应管理项目.setLocked(true);
    待审批.hint = "没有待审批的意向书";
    他人意见.列表.hint = "没有审批意见";
    待审批.nodeClicked += [this](TreeNode& node) { selectLetter(node); };
    保存审批意见.clicked += [this] { saveOpinion(); };
    同意.clicked += [this] { agree(); };
    不同意.clicked += [this] { refuse(); };
    他人审批情况.clicked += [this] { showOthers(); };
    关闭.clicked += [this] { 他人面板.close(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
}

void Frm意向书审批::load() {
    状态栏.setPanel(0, app_.session.登录部门名称);
    状态栏.setPanel(1, app_.session.登录岗位名称);
    fillInbox();
}

/// The position alone decides what is listed; whoever holds it in another department sees the letter, too.
void Frm意向书审批::fillInbox() {
    Recordset letters(app_.主连接,
                      sql("Select YZ_意向书信息.ID,YZ_意向书信息.意向书编号,YZ_意向书信息.承租方 From "
                          "YZ_意向书信息 Inner Join YZ_意向书审批情况 ON "
                          "YZ_意向书信息.ID=YZ_意向书审批情况.意向书ID Where YZ_意向书审批情况.岗位代号={} "
                          "AND  YZ_意向书审批情况.审批日期 is Null",
                          numeral(app_.session.登录岗位代号)));
    填充意向书树(待审批, {.root = "待审批意向书", .keyColumn = "ID"}, letters);
}

void Frm意向书审批::selectLetter(const TreeNode& node) {
    清空文本框(*this);
    // Nobody decides on a letter that is not shown.
    信息.登记编号.tag.clear();
    const std::string id = 意向书键(node);
    if (id.empty() || !showLetter(id)) return;
    showOwnOpinion(id);
    他人意见.show(id);
}

bool Frm意向书审批::showLetter(const std::string& id) {
    Recordset letter(
        app_.主连接,
        sql("Select YZ_意向书信息.*,设置管理处.GYD_Name  From YZ_意向书信息 Inner Join 设置管理处 ON "
            "YZ_意向书信息.管理处代号=设置管理处.GYD_DH  Where ID='{}'",
            id));
    if (letter.atEnd()) return false;
    信息.show(letter);
    return true;
}

void Frm意向书审批::showOwnOpinion(const std::string& id) {
    Recordset own(app_.主连接, sql("Select * From YZ_意向书审批情况 Where 意向书ID={} AND 部门代号='{}' and "
                                   "岗位代号='{}'",
                                   numeral(id), app_.session.登录部门编号, app_.session.登录岗位代号));
    if (!own.atEnd()) 您的审批意见.setText(own["审批内容"].text());
}

void Frm意向书审批::showOthers() {
    if (信息.id().empty()) return;
    他人意见.show(信息.id());
    他人面板.open();
}

void Frm意向书审批::saveOpinion() {
    if (信息.id().empty()) return;
    if (您的审批意见.text().empty()) return app_.inform("审批意见不能不空，请填写审批意见！", "提醒");
    app_.主连接.execute(
        sql("UPDATE YZ_意向书审批情况 SET 审批内容 = '{}' WHERE 意向书ID = {} AND 部门代号='{}' AND "
            "岗位代号='{}'",
            trimmed(您的审批意见.text()), numeral(信息.id()), app_.session.登录部门编号,
            app_.session.登录岗位代号));
    app_.tell("保存审批意见完成！");
}

void Frm意向书审批::agree() {
    const std::string id = 信息.id();
    if (id.empty()) return;
    const std::string text = 您的审批意见.text().empty() ? "同意" : std::string(trimmed(您的审批意见.text()));
    app_.主连接.execute(
        sql("UPDATE YZ_意向书审批情况 SET 审批内容 = '{}',审批日期 = '{}',同意 = 1,审批人='{}' WHERE "
            "意向书ID = {} AND 部门代号='{}' AND 岗位代号='{}'",
            text, now(), app_.session.登录姓名, numeral(id), app_.session.登录部门编号,
            app_.session.登录岗位代号));
    if (const auto step =
            stepOf(sql("SELECT Top 1  环节序号 From YZ_意向书审批情况 WHERE 意向书ID ={}", numeral(id))))
        *step == 0 ? 单级流转处理(id) : 多级流转处理(id);
    if (!待审批.roots().empty()) removeNode();
}

void Frm意向书审批::refuse() {
    const std::string id = 信息.id();
    if (id.empty()) return;
    const std::string opinion(trimmed(您的审批意见.text()));
    app_.主连接.execute(
        sql("UPDATE YZ_意向书审批情况 SET 审批内容 = '{}',审批日期 = '{}',同意 = 0,审批人='{}' WHERE "
            "意向书ID = '{}' AND 部门代号='{}' AND 岗位代号='{}'",
            opinion.empty() ? "不同意" : opinion, now(), app_.session.登录姓名, id, app_.session.登录部门编号,
            app_.session.登录岗位代号));
    if (const auto step = stepOf(sql("SELECT Top 1  环节序号, 意向书ID From YZ_意向书审批情况 WHERE 意向书ID "
                                     "= {} Order By 环节序号",
                                     numeral(id))))
        *step == 0 ? 单级拒绝处理(id) : 拒绝意向书(id);
    removeNode();
}

/// The letter has left the desk. Its opinions, and which letter it was, are still known.
void Frm意向书审批::removeNode() {
    if (TreeNode* node = 待审批.selected()) 待审批.remove(*node);
    const auto& roots = 待审批.roots();
    if (!roots.empty() && roots.front()->children().empty()) 待审批.remove(*roots.front());
    清空文本框(*this);
}

}  // namespace desk
