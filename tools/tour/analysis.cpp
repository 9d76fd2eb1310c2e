#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "tour/itinerary.h"

namespace desk::tour {

namespace {

/// A sheet of the workbook as another program reads it; what the tour looks for where there is no such
/// program.
QString readByAnother(const QString& workbook, const QString& sheet, const QString& wanted) {
    const QString reader = QStandardPaths::findExecutable("ssconvert");
    if (reader.isEmpty()) return wanted;
    QProcess reading;
    const QString table = workbook + ".csv";
    reading.start(reader, {"-T", "Gnumeric_stf:stf_csv", "-O", "sheet=" + sheet, workbook, table});
    reading.waitForFinished(60000);
    QFile file(table);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

void analyseStates(Tour& tour, Witness& witness, const QString& folder) {
    const QString workbook = folder + "/跟进状态.xls";
    tour.then([](Person& person) { person.choose("统计报表", "跟进状态分析"); });
    tour.then([](Person& person) { person.click("Command1"); });
    tour.answer("请选择跟进状态!", "确定");
    tour.step("跟进状态分析-饼图", [](Person& person) {
        person.click("Check6");
        person.type("DTPicker1", "2020-01-01");
        person.click("Command1");
    });
    tour.check("有分析结果", [] { return Person().sees("MSFlexGrid1"); });
    tour.step("跟进状态分析-升起", [](Person& person) { person.pointAt("Picture1", 0.45, 0.42); });
    tour.step("输出到Excel", [](Person& person) { person.click("Command13"); });
    tour.then([](Person& person) { person.click("Command2"); });
    tour.answer("请确定输出的文件名", "确定");
    tour.answer("输出到Execl失败: ", "确定");
    tour.step("输出到Excel-填写", [workbook](Person& person) {
        person.clickCell("Grid1", 0, 2);
        person.type("Text1(0)", workbook);
    });
    tour.then([](Person& person) { person.click("Command2"); });
    tour.check("工作簿已写出", [workbook] { return QFileInfo(workbook).size() > 0; });
    tour.check("别的程序能读工作簿", [workbook, &witness] {
        const QString state =
            QString::fromStdString(witness.first("Select 状态名称 From YZ_跟进状态设置 Where 状态编号='3'"));
        return readByAnother(workbook, "客户跟进状态分析", state).contains(state);
    });
    tour.then([](Person& person) { person.click("Command4"); });
}

void classifyCustomers(Tour& tour, Witness& witness, const QString& folder) {
    const QString workbook = folder + "/客户分类.xls";
    const std::string assigned =
        "From YZ_引驻客户信息 A Inner Join YZ_引驻客户分配 B ON A.登记编号=B.登记编号 Inner Join YZ_组表 C "
        "ON "
        "B.组代号=C.组代号 Where ";
    const std::string kind = witness.first("Select 企业性质名称 From YZ_企业性质设置");
    const std::string trade = witness.first("Select 行业名称 From YZ_行业设置");
    const std::string ofOneKind = assigned + "A.企业性质='" + kind + "' And A.从事行业='" + trade + "'";
    const auto rowsAre = [&witness](const std::string& rows) {
        const int count = std::stoi(witness.first("Select Count(*) As SL " + rows));
        return count > 0 && Person().rowsIn("MSFlexGrid1") == count;
    };

    tour.then([](Person& person) { person.choose("统计报表", "客户分类统计"); });
    tour.step("客户分类统计", [&witness](Person& person) {
        person.pick("Combo1", QString::fromStdString(witness.officeEntry()));
    });
    tour.step("客户分类统计-全部", [](Person& person) {
        for (const char* all : {"Check1", "Check2", "Check3"}) person.click(all);
        person.click("Command1");
    });
    tour.check("所有性质的客户", [=] { return rowsAre(assigned + "A.企业性质 Is Not Null"); });
    tour.step("客户分类统计-一类", [=](Person& person) {
        person.click("Check1");
        person.click("Check2");
        person.clickLine("List1", QString::fromStdString(kind));
        person.clickLine("List2", QString::fromStdString(trade));
        person.click("Command1");
    });
    tour.check("一类客户", [=] { return rowsAre(ofOneKind); });
    tour.step("客户分类统计-隐藏条件", [](Person& person) { person.click("隐藏"); });
    tour.check("条件已隐藏", [] { return !Person().sees("Command1") && Person().sees("显示"); });
    tour.then([](Person& person) { person.click("显示"); });
    tour.then([](Person& person) { person.click("Command13"); });
    tour.step("客户分类统计-输出", [workbook](Person& person) { person.type("Text1(0)", workbook); });
    tour.then([](Person& person) { person.click("Command2"); });
    tour.check("别的程序能读客户分类", [=, &witness] {
        const auto company = QString::fromStdString(
            witness.first("Select A.公司名称 " + ofOneKind + " And A.公司名称 Is Not Null"));
        return readByAnother(workbook, "客户分类统计", company).contains(company);
    });
    tour.step("客户分类统计-查找中介公司", [](Person& person) { person.type("Text1", "?*"); });
    tour.step("客户分类统计-一家中介", [](Person& person) {
        person.clickLine("List4", {});
        for (const char* all : {"Check1", "Check2"}) person.click(all);
        person.click("Command1");
    });
    tour.check("一家中介的客户", [=] {
        const QString agency = Person().shownText("Text1");
        return rowsAre(assigned + "A.中介公司名称='" + agency.toStdString() + "'");
    });
    tour.then([](Person& person) { person.click("Command4"); });
}

}  // namespace desk::tour
