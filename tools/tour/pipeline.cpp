#include "db/statement.h"
#include "tour/itinerary.h"

namespace desk::tour {

namespace {

QString qt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

std::string numberOfWalkIn(Witness& witness) {
    return witness.first("Select 登记编号 From YZ_引驻客户信息 Where 客户电话='13800010001'");
}

/// Whom the walk-in is given to, as combos show the person.
QString consultant(Witness& witness) {
    return qt("1015 " + witness.first("Select 姓名 From 员工档案 Where 工号='1015'"));
}

QString team(Witness& witness) {
    return qt("1 " + witness.first("Select 组名称 From YZ_组表 Where 组代号='1'"));
}

QString stateEntry(Witness& witness, int state) {
    return QString::number(state) + " " +
           qt(witness.first(sql("Select 状态名称 From YZ_跟进状态设置 Where 状态编号='{}'", state)));
}

void recordContact(Tour& tour, Witness& witness, int state, const QString& text) {
    tour.then([](Person& person) {
        person.clickTab("页签", "跟进信息记录");
        // The button starts an entry; where one is being made already it would give it up.
        if (person.shownText("新增") == "新增") person.click("新增");
    });
    tour.then([=, &witness](Person& person) {
        person.type("跟进日期", QString("2026-11-%1").arg(20 + state));
        person.pick("跟进人员", consultant(witness));
        person.pick("跟进状态", stateEntry(witness, state));
        person.type("跟进情况", text);
    });
    tour.step(QString("跟进-第%1次").arg(state), [](Person& person) { person.click("确定"); });
}

}  // namespace

void assignLead(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.choose("引驻信息管理", "客户跟进分配"); });
    tour.then([&witness](Person& person) { person.pick("管理项目", qt(witness.officeEntry())); });
    tour.step("分配-选择客户", [&witness](Person& person) {
        person.clickNode("客户", "（引驻来人）" + qt(numberOfWalkIn(witness)));
        person.pick("选择组", team(witness));
        person.pick("选择人员", consultant(witness));
    });
    tour.then([](Person& person) { person.click("确定"); });
    tour.answer("分配日期不能为空，请填写分配日期！", "确定");
    tour.step("分配-日历", [](Person& person) {
        person.click("任务.分配日期");
        person.click("日历按钮");
    });
    tour.then([](Person& person) {
        person.click("日历按钮");
        person.type("任务.分配日期", "2026-11-20");
        person.click("确定");
    });
    tour.answer("任务分配成功！", "确定");
    tour.check("客户已分配", [&witness] {
        return witness.first(
                   sql("Select 员工工号 From YZ_引驻客户分配 Where 登记编号='{}' And 终止日期 is Null",
                       numberOfWalkIn(witness))) == "1015";
    });
    tour.then([](Person& person) { person.click("退出"); });
}

void followLeadUp(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.choose("引驻信息管理", "客户跟进管理"); });
    tour.then([&witness](Person& person) { person.pick("管理项目", qt(witness.officeEntry())); });
    tour.step("跟进-选择客户", [&witness](Person& person) {
        person.clickNode("客户", "（引驻来人）" + qt(numberOfWalkIn(witness)));
    });
    recordContact(tour, witness, 1, "电话联系，约定看房");
    recordContact(tour, witness, 2, "现场看房，对18层有兴趣");
    recordContact(tour, witness, 3, "商谈租金与免租期");
    tour.check("三条跟进记录", [&witness] {
        return witness.first(sql("Select Count(*) As SL From YZ_引驻客户跟进记录 Where 登记编号='{}'",
                                 numberOfWalkIn(witness))) == "3";
    });
    tour.then([](Person& person) { person.clickTab("页签", "跟进信息记录"); });
    tour.then([](Person& person) { person.click("退出"); });
}

}  // namespace desk::tour
