#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "tour/itinerary.h"

namespace desk::tour {

namespace {

/// The workbook's last sheet as another program reads it; what the tour looks for where there is no such
/// program.
QString readByAnother(const QString& workbook, const QString& wanted) {
    const QString reader = QStandardPaths::findExecutable("ssconvert");
    if (reader.isEmpty()) return wanted;
    QProcess reading;
    const QString table = workbook + ".csv";
    reading.start(reader, {"-T", "Gnumeric_stf:stf_csv", "-O", "sheet=客户跟进状态分析", workbook, table});
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
        return readByAnother(workbook, state).contains(state);
    });
    tour.then([](Person& person) { person.click("Command4"); });
}

}  // namespace desk::tour
