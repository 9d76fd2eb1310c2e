#include "analysis/excel_export.h"

#include <fmt/format.h>

#include "analysis/export_sheet.h"
#include "base/failure.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/spreadsheets.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr const char* tick = "√";
constexpr const char* dayPicture = "YYYY年MM月DD日";

/// The name with the ending of a workbook, where it has no ending of its own. "2011.03" has none: it is a
/// month.
std::string workbookName(const std::string& name) {
    const std::string file = name.substr(name.find_last_of("/\\") + 1);
    const auto dot = file.rfind('.');
    const bool hasEnding = dot != std::string::npos && dot + 1 < file.size() &&
                           std::string_view("0123456789").find(file[dot + 1]) == std::string_view::npos;
    return hasEnding ? name : name + ".xls";
}

}  // namespace

FrmToExcel::FrmToExcel(Application& app)
    : Screen(screenName, "输出到Excel", WindowKind::dialog, 9600, 5700), app_(app) {
    for (TextBox* box : {&文件, &文档标题, &工作表名称}) box->setDemanded(true);
    Command1.clicked += [this] { browse(); };
    Command2.clicked += [this] { output(); };
    Command3.clicked += [this] { app_.screens.unload(*this); };
    Grid1.setFixedColumns(0);
    Grid1.clicked += [this] {
        if (Grid1.text(0, Grid1.column()).empty()) return;
        Grid1.setText(1, Grid1.column(), tick);
        Grid1.setAlignment(Grid1.column(), Align::centre);
    };
    Grid1.doubleClicked += [this] { Grid1.setText(1, Grid1.column(), ""); };
}

void FrmToExcel::load() {
    窗体居中(app_, *this);
}

void FrmToExcel::Config(Grid& grid, std::string_view 工作表, std::string_view 标题) {
    const Batch fill(Grid1);
    Grid1.setColumns(grid.columns());
    Grid1.setRows(2);
    for (int column = 0; column < grid.columns(); ++column) {
        const std::string& header = grid.text(0, column);
        Grid1.setText(0, column, header);
        Grid1.setFixedAlignment(column, grid.fixedAlignment(column));
        Grid1.setAlignment(column, Align::centre);
        // A column without a header is for the program's own use.
        Grid1.setText(1, column, header.empty() ? "" : tick);
        Grid1.setColumnWidth(column, grid.columnWidth(column));
    }
    列宽自适应(app_, Grid1, *this);
    for (int column = 0; column < grid.columns(); ++column)
        if (grid.text(0, column).empty()) Grid1.setColumnWidth(column, 0);
    源表格 = &grid;
    工作表名称.setText(工作表);
    文档标题.setText(标题);
}

void FrmToExcel::browse() {
    const auto chosen = app_.desktop.chooseFile({app_.platform.files.programDirectory(),
                                                 "Excel Flie *.xls|*.xls|All flie *.*|*.*", FilePurpose::save,
                                                 proposedName()});
    if (chosen) 文件.setText(targetName(*chosen));
}

std::string FrmToExcel::targetName(const std::string& name) const {
    // Who picks a workbook without an ending means that one, and not a new one beside it.
    return app_.platform.files.exists(name) ? name : workbookName(name);
}

std::string FrmToExcel::proposedName() const {
    std::string name = 文档标题.text() + " " + isoDay(app_.platform.clock.today());
    for (char& sign : name)
        if (std::string_view("/\\:*?\"<>|").find(sign) != std::string_view::npos) sign = '-';
    return workbookName(name);
}

void FrmToExcel::output() {
    if (文档标题.text().empty() || 工作表名称.text().empty()) return app_.tell("请输入标题内容");
    if (!文件.text().empty()) 文件.setText(targetName(文件.text()));
    bool done = false;
    To_Execl(*源表格, 文档标题.text(), 工作表名称.text(), done);
    if (done) return app_.screens.unload(*this);
    app_.inform("输出到Execl失败: " + lastError_);
}

void FrmToExcel::To_Execl(Grid& grid, const std::string&, const std::string&, bool& 结果) {
    结果 = false;
    lastError_.clear();
    if (文件.text().empty()) {
        app_.desktop.messageBox({"请确定输出的文件名", 模块名, Icon::none, Buttons::ok});
        return;
    }
    try {
        const Hourglass busy(app_.desktop);
        write(grid);
        结果 = true;
    } catch (const RuntimeFailure& failure) {
        lastError_ = failure.description();
    }
    if (结果) tellWhere();
}

void FrmToExcel::tellWhere() {
    app_.desktop.notify("已输出到 " + 文件.text());
    if (Check1.checked() && !app_.platform.programs.openForUser(文件.text()))
        app_.inform("没有可以打开表格的程序。文件已保存在\r\n" + 文件.text());
}

void FrmToExcel::write(Grid& grid) {
    const std::string& path = 文件.text();
    if (!app_.platform.files.exists(path)) app_.platform.spreadsheets.create(path);
    Progress progress(app_.desktop);
    const ExportTitles titles{文档标题.text(), tag,
                              "打印日期：" + formatDate(app_.platform.clock.now(), dayPicture)};
    const Worksheet sheet = exportSheet(grid, chosenColumns(), 工作表名称.text(), titles, [&](int rows) {
        progress.show("正在输出到Excel…", rows, grid.rows());
    });
    app_.platform.spreadsheets.put(path, sheet);
}

std::vector<int> FrmToExcel::chosenColumns() const {
    std::vector<int> chosen;
    for (int column = 0; column < Grid1.columns(); ++column)
        if (Grid1.text(1, column) == tick) chosen.push_back(column);
    return chosen;
}

std::string FrmToExcel::RangeNom(int 列, int 行) {
    constexpr int letters = 26;
    constexpr int firstWithoutName = 156;
    if (列 < 0 || 列 >= firstWithoutName) return {};
    std::string name;
    if (列 >= letters) name.push_back(static_cast<char>('A' + 列 / letters - 1));
    name.push_back(static_cast<char>('A' + 列 % letters));
    return name + std::to_string(行);
}

void 输出表格(Application& app, Grid& grid, const std::string& 名称, const std::string& 副标题) {
    auto& screen = app.screens.get<FrmToExcel>();
    screen.Config(grid, 名称, 名称);
    screen.tag = 副标题;
    app.desktop.showModally(screen);
}

void 输出表格(Application& app, Grid& grid, const std::string& 名称, const DateTime& from,
              const DateTime& to) {
    输出表格(app, grid, 名称,
             fmt::format("统计时段：{}至{}", formatDate(from, dayPicture), formatDate(to, dayPicture)));
}

}  // namespace desk
