#include "reference/team_offices.h"

#include "base/failure.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/helpers.h"

namespace desk {

TeamOffices::TeamOffices(Place place, Application& app, SetupGrid& teams)
    : TreeView3(place, "TreeView3", Tree::Style::checkBoxes), app_(app), teams_(teams) {
    TreeView3.nodeChecked += [this](TreeNode& office) { change(office, office.checked()); };
}

void TeamOffices::load() {
    添加管理处(app_, TreeView3, nullptr);
}

void TeamOffices::showCurrent() {
    for (const auto& office : TreeView3.roots()) TreeView3.setChecked(*office, false);
    const std::string team = teams_.key();
    if (team.empty()) return;
    for (auto& row :
         Recordset(app_.主连接,
                   sql("Select * From YZ_组对应管理项目设置 Where 组代号='{}' AND 终止日期 is Null", team)))
        if (TreeNode* office = TreeView3.find("G" + row["管理处代号"].text()))
            TreeView3.setChecked(*office, true);
}

void TeamOffices::change(TreeNode& office, bool ticked) {
    const std::string team = teams_.key();
    if (team.empty()) {
        TreeView3.setChecked(office, !ticked);
        return app_.tell("尚未选择部门，请选择部门信息！");
    }
    try {
        更新组管理处(team, std::string(without(office.key(), 1)));
        app_.saved(team);
    } catch (const RuntimeFailure& failure) {
        // The mark says what is stored: the next one goes by that.
        TreeView3.setChecked(office, !ticked);
        app_.inform(failure.description());
    }
}

void TeamOffices::更新组管理处(const std::string& 组代号, const std::string& 管理处代号) {
    const DateTime today = app_.platform.clock.today();
    Recordset link(app_.主连接,
                   sql("Select * From YZ_组对应管理项目设置 Where 组代号='{}' AND 管理处代号='{}' AND "
                       "终止日期 IS Null",
                       组代号, 管理处代号),
                   Rows::updatable);
    if (link.atEnd()) {
        link.addNew();
        link["组代号"] = 组代号;
        link["管理处代号"] = 管理处代号;
        link["设置日期"] = today;
    } else {
        link["终止日期"] = today;
    }
    link.update();
}

}  // namespace desk
