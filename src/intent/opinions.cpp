#include "intent/opinions.h"

#include "db/recordset.h"
#include "db/statement.h"
#include "ui/batch.h"

namespace desk {

namespace {

std::string decision(const Recordset::Field& agreed) {
    if (agreed.isNull()) return {};
    return agreed.flag() ? "同意" : "不同意";
}

}  // namespace

审批意见列表::审批意见列表(Place place, std::string name, std::string_view format, Application& app,
                           Dates dates)
    : 列表(place, std::move(name), format), app_(app), dates_(dates) {
    列表.setSelection(GridSelection::row);
}

void 审批意见列表::show(const std::string& 意向书ID) {
    const Refill fill(列表);
    for (auto& row : Recordset(
             app_.主连接,
             sql("Select "
                 "YZ_意向书审批情况.部门代号,YZ_意向书审批情况.岗位代号,YZ_意向书审批情况.审批内容,"
                 "YZ_意向书审批情况.同意,YZ_意向书审批情况.审批日期, "
                 "YZ_意向书审批情况.审批人,岗位信息new.岗位名称, 职能部门new.职能部门名称, 员工档案.姓名  "
                 "From YZ_意向书审批情况 Inner Join 岗位信息new On "
                 "YZ_意向书审批情况.岗位代号=岗位信息new.岗位代号 Inner Join 职能部门new On "
                 "YZ_意向书审批情况.部门代号=职能部门new.职能部门编号 Left Join 员工档案 On "
                 "岗位信息new.工号=员工档案.工号 Where 意向书ID={} Order By 环节序号",
                 numeral(意向书ID)))) {
        const auto approver = row[row["审批人"].isNull() ? "姓名" : "审批人"].text();
        const auto decided = row["审批日期"];
        const auto date = decided.isNull()            ? std::string()
                          : dates_ == Dates::asStored ? decided.text()
                                                      : isoStamp(decided.moment());
        列表.addRow({std::to_string(列表.rows()), row["职能部门名称"].text() + " " + row["岗位名称"].text(),
                     approver, date, row["审批内容"].text(), decision(row["同意"])});
    }
}

}  // namespace desk
