#include "session/document_number.h"

#include "base/date.h"
#include "base/number.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/application.h"

namespace desk {

namespace {

/// The variable middle of a number.
std::string middle(const Application& app, const std::string& rule) {
    const DateTime today = app.platform.clock.today();
    if (rule == "年份") return formatDate(today, "YYYY");
    if (rule == "年份+月份") return formatDate(today, "YYYYMM");
    if (rule == "日期") return formatDate(today, "YYYYMMDD");
    if (rule == "部门名称") return app.session.登录部门名称;
    if (rule == "部门编号") return app.session.登录部门编号;
    return rule;
}

}  // namespace

std::string 生成单据前缀(Application& app, std::string_view TypeName) {
    Recordset rows(app.主连接, sql("SELECT * From Temp_Type Where TypeName='{}'", TypeName));
    if (rows.atEnd()) return {};
    return rows["Character"].text() + middle(app, rows["Value"].text());
}

long next流水号(Application& app, Name table, std::string_view 管理处代号) {
    Recordset rows(app.主连接,
                   sql("SELECT MAX(流水号) AS 流水号 From {} Where 管理处代号='{}'", table, 管理处代号));
    return rows.atEnd() || rows["流水号"].isNull() ? 1 : static_cast<long>(rows["流水号"].integer()) + 1;
}

std::string documentNumberText(std::string_view prefix, long 流水号) {
    return std::string(prefix) + "-" + formatNumber(static_cast<double>(流水号), "000000");
}

DocumentNumber firstFree(long 流水号, const std::function<std::string(long)>& textOf,
                         const std::function<bool(const std::string&)>& taken) {
    DocumentNumber number{textOf(流水号), 流水号};
    while (taken(number.text)) number = {textOf(number.流水号 + 1), number.流水号 + 1};
    return number;
}

DocumentNumber drawNumber(Application& app, std::string_view TypeName, Name table,
                          std::string_view 管理处代号, const std::function<bool(const std::string&)>& taken) {
    const auto prefix = 生成单据前缀(app, TypeName);
    return firstFree(
        next流水号(app, table, 管理处代号), [&](long 流水号) { return documentNumberText(prefix, 流水号); },
        taken);
}

}  // namespace desk
