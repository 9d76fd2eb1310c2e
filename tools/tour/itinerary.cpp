#include "tour/itinerary.h"

#include "db/statement.h"

namespace desk::tour {

namespace {

QString qt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

void typeAll(Person& person, const QString& page,
             std::initializer_list<std::pair<const char*, const char*>> fields) {
    for (const auto& [field, text] : fields) person.type(page + "." + field, text);
}

/// Chooses the first entries of the dictionaries on the page, where it has them.
void chooseAll(Person& person, Witness& witness, const QString& page) {
    const auto entry = [&](const char* statement) { return qt(witness.first(statement)); };
    person.pick(page + ".区域", entry("Select 区域名称 From YZ_区域设置"));
    person.pick(page + ".从事行业", entry("Select 行业名称 From YZ_行业设置"));
    person.clickLine(page + ".询问重点", entry("Select 咨询内容 From YZ_咨询内容设置"));
    if (person.sees(page + ".企业性质"))
        person.pick(page + ".企业性质", entry("Select 企业性质名称 From YZ_企业性质设置"));
    if (person.sees(page + ".媒体"))
        person.clickLine(page + ".媒体", entry("Select 媒体名称 From YZ_媒体设置"));
}

/// The step from a chosen page to a new lead with an automatic number.
void startLead(Tour& tour, Witness& witness, const QString& page, const QString& title) {
    tour.step(title + "-选择管理项目",
              [=, &witness](Person& person) { person.pick(page + ".管理项目", qt(witness.officeEntry())); });
    tour.then([page](Person& person) {
        person.click(page + ".采用自动编号");
        person.click(page + ".新增");
    });
}

void expectLead(Tour& tour, Witness& witness, const QString& kind, const QString& company,
                const QString& phone) {
    tour.check(kind + "已登记", [=, &witness] {
        return witness.first(sql("Select 客源类别 From YZ_引驻客户信息 Where 公司名称='{}' And 客户电话='{}'",
                                 company.toStdString(), phone.toStdString())) == kind.toStdString();
    });
}

void registerWalkIn(Tour& tour, Witness& witness) {
    startLead(tour, witness, "来人", "来人");
    tour.then([](Person& person) { person.click("来人.确定"); });
    tour.answer("请输入客户姓名！", "确定");
    tour.step("来人-填写", [&witness](Person& person) {
        typeAll(person, "来人",
                {{"公司名称", "盛远国际贸易有限公司"},
                 {"客户姓名", "陈先生"},
                 {"职位", "行政总监"},
                 {"客户电话", "13800010001"},
                 {"传真", "02158880001"},
                 {"公司地址", "浦东新区世纪大道100号"},
                 {"需求面积", "350"},
                 {"预算租金", "6.5"},
                 {"推荐楼层", "12F 18F"},
                 {"业务员", "曾军兰"},
                 {"洽谈重点", "希望两个月内入驻"},
                 {"备注", "第二次来访"}});
        chooseAll(person, witness, "来人");
        person.click("来人.媒体其它勾选");
        person.type("来人.媒体其它文本", "楼宇电梯广告");
    });
    tour.step("来人-已保存", [](Person& person) { person.click("来人.确定"); });
    expectLead(tour, witness, "引驻来人", "盛远国际贸易有限公司", "13800010001");
    tour.then([](Person& person) { person.click("来人.确定"); });
    tour.answer("在客户登记信息中已存在相同公司名称的客户，请核对！", "确定");
}

void registerCall(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.clickTab("页签", "引驻来电"); });
    startLead(tour, witness, "来电", "来电");
    tour.step("来电-填写", [&witness](Person& person) {
        typeAll(person, "来电",
                {{"公司名称", "启明软件技术公司"},
                 {"客户姓名", "王女士"},
                 {"客户电话", "13900020002"},
                 {"公司地址", "静安区南京西路200号"},
                 {"需求面积", "120.5"},
                 {"业务员", "曾军兰"}});
        chooseAll(person, witness, "来电");
    });
    tour.step("来电-已保存", [](Person& person) { person.click("来电.确定"); });
    expectLead(tour, witness, "引驻来电", "启明软件技术公司", "13900020002");
}

void registerAgency(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.clickTab("页签", "中介来人"); });
    startLead(tour, witness, "中介", "中介来人");
    tour.step("中介来人-选择中介公司", [](Person& person) {
        person.click("中介.选择中介公司");
        person.clickCell("中介.中介公司列表", 1, 1);
    });
    tour.step("中介来人-填写", [&witness](Person& person) {
        person.click("中介.面板确定");
        typeAll(person, "中介",
                {{"公司名称", "东方设计事务所"},
                 {"客户姓名", "李经理"},
                 {"客户电话", "13700030003"},
                 {"需求面积", "80"},
                 {"预算租金", "5"}});
        chooseAll(person, witness, "中介");
    });
    tour.step("中介来人-已保存", [](Person& person) { person.click("中介.确定"); });
    expectLead(tour, witness, "中介来人", "东方设计事务所", "13700030003");
}

void typeLogin(Person& person, const QString& user) {
    person.type("TxtUser", user);
    person.pressEnter("TxtUser");
    person.type("txtPassword", "hx" + user);
    person.pressEnter("txtPassword");
}

}  // namespace

void logIn(Tour& tour) {
    tour.step("登录", [](Person&) {});
    tour.then([](Person& person) { person.click("cmdOK"); });
    tour.answer("用户名不能为空!", "确定");
    tour.step("选择岗位", [](Person& person) {
        typeLogin(person, "1002");
        person.click("cmdOK");
    });
    tour.step("主窗口", [](Person& person) { person.doubleClickLine("List1", 0); });
    tour.check("主窗口已打开", [] { return Person().sees("Picture1"); });
}

void registerLeads(Tour& tour, Witness& witness) {
    tour.step("客户信息登记", [](Person& person) { person.choose("引驻信息管理", "客户信息登记"); });
    registerWalkIn(tour, witness);
    registerCall(tour, witness);
    registerAgency(tour, witness);
    tour.then([](Person& person) { person.click("中介.退出"); });
    tour.then([](Person& person) { person.choose("引驻信息管理", "客户信息登记"); });
    tour.then([&witness](Person& person) { person.pick("来人.管理项目", qt(witness.officeEntry())); });
    tour.step("来人-重新打开", [&witness](Person& person) {
        person.clickNode(
            "来人.客户",
            qt(witness.first("Select 登记编号 From YZ_引驻客户信息 Where 客户电话='13800010001'")));
    });
    tour.check("登记的内容重新显示", [] {
        return Person().shownText("来人.公司名称") == "盛远国际贸易有限公司" &&
               Person().shownText("来人.媒体其它文本") == "楼宇电梯广告";
    });
}

void changeTo(Tour& tour, const QString& user) {
    tour.step("注销", [](Person& person) { person.choose("退出系统", "注销"); });
    tour.then([user](Person& person) {
        typeLogin(person, user);
        person.click("cmdOK");
    });
}

void showCashiersMenu(Tour& tour) {
    tour.step("出纳的菜单", [](Person& person) { person.choose("意向客户管理", {}); });
}

}  // namespace desk::tour
