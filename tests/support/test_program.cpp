#include "support/test_program.h"

#include "base/failure.h"
#include "base/text.h"
#include "session/about.h"
#include "session/background.h"
#include "session/login.h"
#include "session/main_window.h"
#include "wire/process/engine_choice.h"

namespace desk {

void RecordingFiles::write(std::string_view path, std::string_view bytes) {
    if (broken) throw RuntimeFailure(failure::pathAccess, "路径/文件访问错误");
    written[std::string(path)] = bytes;
}

void MemorySpreadsheets::create(const std::string& path) {
    books[path].clear();
    if (real != nullptr) real->create(path);
}

void MemorySpreadsheets::put(const std::string& path, const Worksheet& sheet) {
    if (!refusal.empty()) throw RuntimeFailure(failure::spreadsheet, refusal);
    if (real != nullptr) real->put(path, sheet);
    // What the sheet refers to is read now, as a real workbook does.
    Worksheet whole = sheet;
    const auto& table = sheet.table();
    whole.append({});
    const int own = static_cast<int>(sheet.rows().size());
    for (int row = 0; row < table.rows; ++row) {
        for (int column = 0; column < static_cast<int>(table.columns.size()); ++column)
            whole.at(own + row, column) = {std::string(table.text(row, column)),
                                           table.columns[static_cast<std::size_t>(column)]};
        if (table.reached) table.reached(row);
    }
    books[path].push_back(std::move(whole));
}

TestProgram::TestProgram() : app(desktop, platform) {
    desktop.screens = &app.screens;
    app.screens.offer<FrmLogin>(app);
    app.screens.offer<MDIForm1>(app);
    app.screens.offer<Frmtu>(app);
    app.screens.offer<FrmAbout>(app);
    db().interpose([this](std::unique_ptr<Engine> engine) {
        fault.opened(*engine);
        return std::make_unique<FailingEngine>(std::move(engine), fault);
    });
    settings.keys = {{"Svr", testDataSource()}, {"DBname", ":memory:"}};
    if (testEngine() == TestEngine::server) settings.keys.merge(testCredentials());
}

void TestProgram::openDatabase() {
    app.主连接.open(emptyTestDatabase(), std::chrono::seconds(5));
}

void TestProgram::enter() {
    app.session = {"E01", "林晓", "01", "招商部", "0101", "招商专员", "A", "业务", "P1", "专员"};
    app.screens.open(MDIForm1::screenName);
}

void TestProgram::run(std::initializer_list<std::string_view> statements) {
    for (const auto statement : statements) db().execute(statement);
}

std::vector<std::string> TestProgram::rows(std::string_view statement) {
    std::vector<std::string> lines;
    for (auto& row : Recordset(db(), statement)) {
        std::vector<std::string> fields;
        for (int column = 0; column < row.columnCount(); ++column) fields.push_back(row[column].text());
        lines.push_back(join(fields, "|"));
    }
    return lines;
}

void addOfficesAndDictionaries(TestProgram& program) {
    program.run({
        "Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('01','东塔')",
        "Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('02','西塔')",
        "Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('10','裙楼')",
        "Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','02')",
        "Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','01')",
        "Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号,终止日期) Values "
        "('01','10','2010-1-1')",
        "Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('02','10')",
        "Insert Into YZ_区域设置 (区域名称,说明) Values ('浦东','')",
        "Insert Into YZ_区域设置 (区域名称,说明) Values ('静安','')",
        "Insert Into YZ_企业性质设置 (企业性质名称,说明) Values ('外资','')",
        "Insert Into YZ_企业性质设置 (企业性质名称,说明) Values ('民营','')",
        "Insert Into YZ_行业设置 (行业名称,说明) Values ('软件','')",
        "Insert Into YZ_行业设置 (行业名称,说明) Values ('贸易','')",
        "Insert Into YZ_媒体设置 (媒体名称,说明) Values ('报纸','')",
        "Insert Into YZ_媒体设置 (媒体名称,说明) Values ('网络','')",
        "Insert Into YZ_咨询内容设置 (咨询内容,说明) Values ('租金','')",
        "Insert Into YZ_咨询内容设置 (咨询内容,说明) Values ('车位','')",
        "Insert Into YZ_中介公司设置 (管理处代号,公司名称) Values ('01','佳信')",
        "Insert Into YZ_中介公司设置 (管理处代号,公司名称) Values ('01','安居')",
        "Insert Into YZ_中介公司设置 (管理处代号,公司名称) Values ('02','远东')",
        "Insert Into Temp_Type (TypeName,Value,Character) Values ('引驻登记','年份',Null)",
    });
}

}  // namespace desk
