#include "intent/submission.h"

#include <optional>
#include <vector>

#include "db/recordset.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/application.h"

namespace desk {

namespace {

struct Path {
    std::int64_t ID;
    bool 单级流转;
};

/// Who is asked in a step.
struct Asked {
    Value 部门代号;
    Value 岗位代号;
};

/// Paths that have ended count, too.
std::optional<Path> pathOf(Application& app, std::string_view 管理处代号) {
    Recordset path(app.主连接, sql("Select * From YZ_意向书审批路径设置 Where 管理处代号='{}'", 管理处代号));
    if (path.atEnd()) return std::nullopt;
    return Path{path["ID"].integer(), path["单级流转"].flag()};
}

std::vector<Asked> readSteps(Application& app, const std::string& statement) {
    std::vector<Asked> all;
    for (auto& step : Recordset(app.主连接, statement))
        all.push_back({step["部门代号"].value(), step["岗位代号"].value()});
    return all;
}

void ask(Application& app, const std::string& 意向书ID, int 环节序号, const std::vector<Asked>& all) {
    if (all.empty()) return;
    Recordset approvals(app.主连接, "Select * From YZ_意向书审批情况 WHERE ID=0", Rows::updatable);
    for (const Asked& asked : all) {
        approvals.addNew();
        approvals["意向书ID"] = 意向书ID;
        approvals["部门代号"] = asked.部门代号;
        approvals["岗位代号"] = asked.岗位代号;
        approvals["环节序号"] = 环节序号;
        approvals.update();
    }
}

void askFirst(Application& app, const std::string& 意向书ID, std::int64_t path) {
    auto first =
        readSteps(app, sql("Select * From YZ_意向书审批路径 Where 意向书审批ID={} And 审批环节序号=1", path));
    if (first.size() > 1) first.resize(1);
    ask(app, 意向书ID, 1, first);
}

/// The number 0 tells the approval that all are asked at once.
void askAll(Application& app, const std::string& 意向书ID, std::int64_t path) {
    ask(app, 意向书ID, 0, readSteps(app, sql("Select * From YZ_意向书审批路径 Where 意向书审批ID={}", path)));
}

}  // namespace

bool 提交意向书(Application& app, std::string_view 管理处代号, const std::string& 意向书ID) {
    const auto path = pathOf(app, 管理处代号);
    if (!path) {
        app.desktop.messageBox({"尚未设置本管理项目的意向书审批路径，请先设置路径！", "提醒"});
        return false;
    }
    (path->单级流转 ? askAll : askFirst)(app, 意向书ID, path->ID);
    app.主连接.execute(sql("Update YZ_意向书信息 Set 提交日期='{}'Where ID={}",
                           isoStamp(app.platform.clock.now()), numeral(意向书ID)));
    return true;
}

}  // namespace desk
