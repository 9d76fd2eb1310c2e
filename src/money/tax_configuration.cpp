#include "money/tax_configuration.h"

#include "base/failure.h"
#include "base/number.h"
#include "db/recordset.h"

namespace desk {

namespace {

/// Of a column that has no room for NULL in what is kept of it.
Value given(const Recordset::Field& field) {
    if (field.isNull()) throw RuntimeFailure(failure::invalidNull, "无效使用 Null");
    return field.value();
}

/// The lists are walked from their first element, which is there even where nothing was found.
template <class Element>
std::vector<Element> orBlank(std::vector<Element> found) {
    if (found.empty()) found.emplace_back();
    return found;
}

}  // namespace

软件位置 软件位置::分解(std::string_view path) {
    const auto last = path.find_last_of("\\/");
    if (last == std::string_view::npos) return {};
    return {std::string(path.substr(0, last + 1)), std::string(path.substr(last + 1))};
}

std::optional<税控机> 读取税控机(Application& app) {
    Recordset device(app.主连接,
                     sql("SELECT ID, 税控机编号, 启用日期, 终止日期, 使用单位, 税控码, 税务登记号, "
                         "开户银行, 银行帐号, 软件名称,启动后名称 From 票据税控机 Where "
                         "使用单位='{}' AND 终止日期 Is Null ",
                         app.session.登录部门编号));
    if (device.atEnd()) return std::nullopt;
    return 税控机{device["ID"].text(), device["软件名称"].text(), device["启动后名称"].text()};
}

std::optional<税控操作员> 读取操作员(Application& app, std::string_view 税控ID) {
    Recordset found(app.主连接, sql("SELECT ID, SK_ID, OperatorNum, UserNum, Password From SKOperator Where "
                                    "SK_ID={} AND OperatorNum='{}'",
                                    numeral(税控ID), app.session.登录工号));
    if (found.atEnd()) return std::nullopt;
    return 税控操作员{given(found["UserNum"]).text(), found["PassWord"].text()};
}

std::vector<税控操作步骤> 读取步骤(Application& app, Name table, std::string_view 税控ID) {
    std::vector<税控操作步骤> steps;
    for (auto& row : Recordset(app.主连接, sql("SELECT ID, SK_ID, Stage, Operate_step, Operate_type, X, Y, "
                                               "KeyString, Remark, Operate_Help From {} Where (SK_ID = {}) "
                                               "Order By Operate_step",
                                               table, numeral(税控ID))))
        steps.push_back({row["Stage"].text(), given(row["Operate_type"]).text(), row["X"].text(),
                         row["Y"].text(), row["KeyString"].text(), row["Remark"].text(),
                         toInt32(given(row["ID"]).number())});
    return orBlank(std::move(steps));
}

std::vector<税控收费项目> 读取收费项目(Application& app, std::string_view 税控ID) {
    std::vector<税控收费项目> items;
    for (auto& row :
         Recordset(app.主连接, sql("SELECT ID, 税控ID, 项目编号, 项目名称, XM_Num, XM_Name, XM_Xu "
                                   "From SKSfxm Where 税控ID={}",
                                   numeral(税控ID))))
        items.push_back({row["项目编号"].text(), row["项目名称"].text(), given(row["XM_Num"]).text(),
                         given(row["XM_Name"]).text(), toInt16(given(row["XM_Xu"]).number())});
    return orBlank(std::move(items));
}

}  // namespace desk
