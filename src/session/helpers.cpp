#include "session/helpers.h"

#include "base/failure.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "session/coded_combo.h"
#include "session/main_window.h"
#include "ui/batch.h"
#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

namespace {

/// The width of the column's longest text with a margin.
double widestText(Application& app, const Grid& grid, int column, const Screen& form, double margin) {
    double width = 0;
    for (int row = 0; row < grid.rows(); ++row)
        width = std::max(width, app.desktop.textWidth(form, grid.text(row, column)) + margin);
    return width;
}

/// The width of the column's longest text with its margin, nothing for a column of general alignment or
/// without rows.
std::optional<int> fittingWidth(Application& app, const Grid& grid, int column, const Screen& form) {
    constexpr double margin = 90;
    if (grid.fixedAlignment(column) == Align::general || grid.rows() == 0) return std::nullopt;
    return static_cast<int>(widestText(app, grid, column, form, margin));
}

std::string 管理处语句(const Application& app) {
    return sql(
        "Select * From 设置管理处 Inner Join 职能部门对应管理项目设置 On "
        "设置管理处.GYD_DH=职能部门对应管理项目设置.管理处代号 Where "
        "职能部门对应管理项目设置.职能部门编号='{}' AND "
        "职能部门对应管理项目设置.终止日期 is Null  Order by len(GYD_DH),GYD_DH",
        app.session.登录部门编号);
}

}  // namespace

void 窗体居中(Application& app, Screen& screen) {
    const Screen& main = app.screens.get(MDIForm1::screenName);
    screen.moveTo((main.width() - screen.width()) / 2, (main.height() - screen.height()) / 2);
}

void 列宽自适应(Application& app, Grid& grid, const Screen& form) {
    const Batch widths(grid);
    for (int column = 0; column < grid.columns(); ++column)
        if (const auto width = fittingWidth(app, grid, column, form)) grid.setColumnWidth(column, *width);
}

void 列宽自适应1(Application& app, Grid& grid, const Screen& form) {
    const Batch widths(grid);
    for (int column = 1; column < grid.columns(); ++column)
        grid.setColumnWidth(column, fittingWidth(app, grid, column, form).value_or(0));
}

void GridFit(Application& app, Grid& grid, const Screen& form) {
    constexpr double margin = 180;
    const Batch widths(grid);
    for (int column = 1; column < grid.columns(); ++column)
        grid.setColumnWidth(column, static_cast<int>(widestText(app, grid, column, form, margin)));
}

void 读取专项审核权限(Application& app) {
    app.专项审核权限 = anyRow(
        app.主连接, sql("SELECT     ID, 类型, 部门代号, 岗位代号 From 专项审核权限表 WHERE     (部门代号 = "
                        "N'{}') AND (岗位代号 = N'{}') AND (类型 = N'引驻台账')",
                        app.session.登录部门编号, app.session.登录岗位代号));
}

void 填充管理处(Application& app, CodedCombo& combo) {
    combo.fill(Recordset(app.主连接, 管理处语句(app)), {"GYD_DH", "GYD_Name"});
}

void 尽量填充管理处(Application& app, CodedCombo& combo) {
    try {
        填充管理处(app, combo);
    } catch (const RuntimeFailure&) {
        // The screen opens with what it has.
    }
}

void 添加管理处(Application& app, Tree& tree, TreeNode* parent) {
    const Batch fill(tree);
    for (auto& row : Recordset(app.主连接, 管理处语句(app)))
        tree.add(parent, "G" + row["GYD_DH"].text(), row["GYD_DH"].text() + " " + row["GYD_Name"].text());
}

}  // namespace desk
