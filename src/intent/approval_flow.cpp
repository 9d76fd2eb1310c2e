#include "db/recordset.h"
#include "db/statement.h"
#include "intent/approval.h"
#include "platform/clock.h"

namespace desk {

namespace {

std::int64_t countOf(Connection& on, const std::string& statement, std::string_view column) {
    return Recordset(on, statement)[column].integer();
}

}  // namespace

std::string Frm意向书审批::now() const {
    return isoStamp(app_.platform.clock.now());
}

std::optional<std::int64_t> Frm意向书审批::stepOf(const std::string& statement) {
    Recordset first(app_.主连接, statement);
    if (first.atEnd()) return std::nullopt;
    return first["环节序号"].integer();
}

/// The two updates find the letter by 意向书ID, all others by ID: a database without that column fails here.
void Frm意向书审批::单级流转处理(const std::string& 意向书ID) {
    Connection& on = app_.主连接;
    const Fragment id = numeral(意向书ID);
    if (countOf(
            on,
            sql("SELECT COUNT(*) AS WC From YZ_意向书审批情况 WHERE (意向书ID = {}) AND (审批日期 IS NULL)",
                id),
            "WC") != 0)
        return;
    if (countOf(on,
                sql("SELECT COUNT(*) AS FJ From YZ_意向书审批情况 WHERE (意向书ID = {}) AND (同意 = 0) ", id),
                "FJ") == 0)
        on.execute(
            sql("UPDATE YZ_意向书信息 SET 流转通过 = 1,流转结束日期 = '{}' WHERE 意向书ID = {}", now(), id));
    else
        on.execute(
            sql("UPDATE  YZ_意向书信息 SET 流转通过 = 0,流转结束日期 = '{}' WHERE 意向书ID ={}", now(), id));
}

void Frm意向书审批::单级拒绝处理(const std::string& 意向书ID) {
    Connection& on = app_.主连接;
    const Fragment id = numeral(意向书ID);
    if (countOf(
            on,
            sql("SELECT  COUNT(*) AS WC From YZ_意向书审批情况 WHERE (意向书ID = {}) AND (审批日期 IS NULL)",
                id),
            "WC") != 0)
        return;
    if (countOf(on,
                sql("SELECT COUNT(*) AS FJ From YZ_意向书审批情况 WHERE (意向书ID = {}) AND (同意 = 0)", id),
                "FJ") == 0)
        on.execute(sql("UPDATE YZ_意向书信息 SET 流转通过 = 1,流转结束日期 = '{}' WHERE ID = {}", now(), id));
    else
        拒绝意向书(意向书ID);
}

void Frm意向书审批::拒绝意向书(const std::string& 意向书ID) {
    app_.主连接.execute(sql("UPDATE YZ_意向书信息 SET 流转通过 = 0,流转结束日期 = '{}' WHERE ID = {}", now(),
                            numeral(意向书ID)));
}

/// The next step comes from the path as it stands now, not as it stood when the letter was submitted. What
/// counts is how many were asked so far, whatever the numbers of their steps.
void Frm意向书审批::多级流转处理(const std::string& 意向书ID) {
    const Fragment id = numeral(意向书ID);
    const int asked = 他人意见.count();
    std::string department;
    std::string position;
    {
        Recordset next(
            app_.主连接,
            sql("SELECT   TOP (1) YZ_意向书审批路径.意向书审批ID,YZ_意向书审批路径.审批环节序号, "
                "YZ_意向书审批路径.部门代号, YZ_意向书审批路径.岗位代号 FROM YZ_意向书审批路径  INNER JOIN "
                "YZ_意向书审批路径设置 ON YZ_意向书审批路径设置.ID = YZ_意向书审批路径.意向书审批ID INNER "
                "JOIN YZ_意向书信息 ON YZ_意向书信息.管理处代号 = YZ_意向书审批路径设置.管理处代号 WHERE "
                "(YZ_意向书审批路径.审批环节序号 > {}) AND (YZ_意向书信息.ID = {}) Order By "
                "YZ_意向书审批路径.审批环节序号",
                asked, id));
        if (next.atEnd()) {
            app_.主连接.execute(
                sql("UPDATE YZ_意向书信息 SET 流转通过 = 1,流转结束日期 = '{}' WHERE ID = {}", now(), id));
            return;
        }
        department = next["部门代号"].text();
        position = next["岗位代号"].text();
    }
    Recordset task(app_.主连接, "Select * From YZ_意向书审批情况 Where 1=0", Rows::updatable);
    task.addNew();
    task["意向书ID"] = 意向书ID;
    task["环节序号"] = asked + 1;
    task["部门代号"] = department;
    task["岗位代号"] = position;
    task.update();
}

}  // namespace desk
