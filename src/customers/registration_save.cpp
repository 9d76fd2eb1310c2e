#include "base/text.h"
#include "customers/registration_page.h"
#include "db/statement.h"
#include "session/document_number.h"

namespace desk {

void 登记页::save() {
    if (!管理项目.hasSelection()) return;
    const auto worked = checkedFields();
    if (!worked) return;
    if (!entering()) {
        changeLead(*worked);
    } else {
        if (!rules_.有中介公司 && isDuplicate()) return;
        const auto serial = drawNumber();
        if (!serial) return;
        addLead(*worked, *serial);
    }
    refillTree();
    if (const TreeNode* node = 客户.find(std::string(rules_.键前缀) + 登记编号.text())) 客户.reveal(*node);
    app_.saved(登记编号.text());
}

/// The values that a save writes, or nothing when a field is missing; then the person has been told which.
std::optional<登记页::Worked> 登记页::checkedFields() {
    const auto refuse = [this](std::string_view text) {
        app_.tell(text);
        return std::nullopt;
    };
    if (rules_.自动编号亦查编号 || !采用自动编号.checked())
        if (登记编号.text().empty() || 登记编号.text() == 输入编号提示) return refuse("请输入登记编号");

    if (中介) {
        if (中介->中介公司名称.text().empty()) return refuse("请选择中介公司！");
    } else if (rules_.有客户详情) {
        if (客户姓名.text().empty()) return refuse("请输入客户姓名！");
    } else if (客户电话.text().empty()) {
        return refuse("请输入联系电话！");
    }

    Worked worked;
    worked.所在区域 = trimmed(区域其它.文本.text());
    if (worked.所在区域.empty()) worked.所在区域 = 区域.text();
    if (worked.所在区域.empty()) return refuse("请选择或输入区域信息！");
    if (企业性质 && !企业性质->hasSelection()) return refuse("请选择企业性质！");
    if (!从事行业.hasSelection()) return refuse("请选择从事行业！");
    if (媒体 && 媒体->isEmpty()) return refuse("请选择媒体！");
    if (媒体) worked.媒体 = 媒体->text();
    if (询问重点.isEmpty()) return refuse("请选择询问重点！");
    worked.询问重点 = 询问重点.text();
    return worked;
}

bool 登记页::isDuplicate() {
    const auto company = trimmed(公司名称.text());
    if (!company.empty() && anyRow(app_.主连接, rules_.同名语句(company, code()))) {
        app_.inform("在客户登记信息中已存在相同公司名称的客户，请核对！");
        return true;
    }
    const auto phone = trimmed(客户电话.text());
    if (!phone.empty() &&
        anyRow(app_.主连接,
               sql("Select * From  YZ_引驻客户信息 Where 客户电话='{}'AND 管理处代号='{}'", phone, code()))) {
        app_.inform("在客户登记信息中已存在相同联系电话的客户，请核对客户是否重复！");
        return true;
    }
    return false;
}

bool 登记页::numberTaken(const std::string& number) const {
    return anyRow(app_.主连接, sql("SELECT * From YZ_引驻客户信息 Where 登记编号='{}' AND 管理处代号='{}'",
                                   number, code()));
}

/// The running number of a new lead, NULL for a typed one; the number itself stands in its field afterwards.
/// Nothing when the typed number is taken.
std::optional<Value> 登记页::drawNumber() {
    if (!采用自动编号.checked()) {
        if (!numberTaken(登记编号.text())) return Value();
        app_.tell(登记编号.text() + "登记的编号已经存在，请输入其他的登记编号！");
        return std::nullopt;
    }
    const auto number = desk::drawNumber(app_, "引驻登记", "YZ_引驻客户信息", code(),
                                         [this](const std::string& text) { return numberTaken(text); });
    登记编号.setText(number.text);
    return Value(std::int64_t{number.流水号});
}

void 登记页::addLead(const Worked& worked, const Value& serial) {
    Recordset lead = openForWriting();
    lead.addNew();
    lead["登记编号"] = 登记编号.text();
    lead["管理处代号"] = code();
    lead["流水号"] = serial;
    writeFields(lead, worked);
}

void 登记页::changeLead(const Worked& worked) {
    Recordset lead = openForWriting();
    writeFields(lead, worked);
}

Recordset 登记页::openForWriting() {
    return Recordset(
        app_.主连接,
        sql("SELECT * From YZ_引驻客户信息 Where 登记编号='{}' AND 管理处代号='{}'", 登记编号.text(), code()),
        Rows::updatable);
}

void 登记页::writeFields(Recordset& lead, const Worked& worked) {
    if (!rules_.公司为空不写公司 || !trimmed(公司名称.text()).empty()) 公司字段_.write(lead);
    字段_.write(lead);
    lead["所在区域"] = worked.所在区域;
    if (媒体) lead["媒体"] = worked.媒体;
    lead["从事行业"] = 从事行业.text();
    lead["询问重点"] = worked.询问重点;
    lead["客源类别"] = rules_.客源类别;
    if (企业性质) lead["企业性质"] = 企业性质->text();
    lead.update();
    登记编号.tag = lead["ID"].text();
}

}  // namespace desk
