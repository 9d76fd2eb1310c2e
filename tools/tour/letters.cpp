#include <QColor>

#include "db/statement.h"
#include "tour/itinerary.h"

namespace desk::tour {

namespace {

constexpr const char* walkIn = "盛远国际贸易有限公司";
constexpr const char* refused = "启明软件技术公司";
constexpr const char* askedAtOnce = "东方设计事务所";
const QColor freeUnit(182, 250, 192);

QString qt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString entryOf(Witness& witness, const char* office) {
    return qt(std::string(office) + " " +
              witness.first(sql("Select GYD_Name From 设置管理处 Where GYD_DH='{}'", office)));
}

/// The positions of the path in the order in which they are asked.
std::string positionsOf(Witness& witness, const char* path) {
    std::string all;
    for (int step = 1; step <= 3; ++step)
        all += witness.first(sql("Select 岗位代号 From YZ_意向书审批路径 Inner Join YZ_意向书审批路径设置 On "
                                 "YZ_意向书审批路径.意向书审批ID=YZ_意向书审批路径设置.ID Where "
                                 "审批路径代号='{}' And 审批环节序号={}",
                                 path, step)) +
               " ";
    return all;
}

void deleteFirstPath(Tour& tour, Witness& witness) {
    tour.step("审批路径-选中", [](Person& person) { person.clickRow("路径列表", 1, "LJ01"); });
    tour.then([](Person& person) { person.click("删除"); });
    tour.answer("意向书审批路径关联,不能删除！", "确定");
    for (int i = 0; i < 3; ++i) {
        tour.then([](Person& person) { person.click("环节.删除"); });
        tour.answer("是否要删除  环节=1的信息？", "是");
    }
    tour.then([](Person& person) { person.click("删除"); });
    tour.answer("确定要删除选中的意向书审批路径吗？", "是");
    tour.check("路径已删除", [&witness] {
        return witness.first("Select Count(*) As SL From YZ_意向书审批路径设置 Where 审批路径代号='LJ01'") ==
               "0";
    });
}

void addPath(Tour& tour, const QString& code, const QString& office, bool atOnce) {
    tour.then([](Person& person) { person.click("新增"); });
    tour.then([=](Person& person) {
        person.type("路径代号", code);
        person.type("路径名称", "新审批流程" + code);
        person.pick("管理项目", office);
        if (atOnce) person.click("单级流转");
        person.click("确定");
    });
    tour.then([=](Person& person) { person.clickRow("路径列表", 1, code); });
}

void addStep(Tour& tour, const QString& department, const QString& position) {
    tour.then([](Person& person) {
        person.click("环节.新增");
        person.click("选择部门");
    });
    tour.then([=](Person& person) { person.clickNode("部门树", department); });
    tour.then([=](Person& person) {
        person.pick("岗位", position);
        person.click("环节.确定");
    });
}

void moveStep(Tour& tour, int row, const QString& button) {
    tour.step("审批环节-" + button, [=](Person& person) {
        person.clickCell("环节列表", row, 1);
        person.click(button);
    });
}

std::string numberOf(Witness& witness, const char* tenant) {
    return witness.first(
        sql("Select 意向书编号 From YZ_意向书信息 Where 承租方='{}' Order By ID Desc", tenant));
}

std::string idOf(Witness& witness, const char* tenant) {
    return witness.first(sql("Select ID From YZ_意向书信息 Where 承租方='{}' Order By ID Desc", tenant));
}

/// How far the letter is: "" while it is open, "1" when it has passed, "0" when it has been refused.
std::string outcomeOf(Witness& witness, const char* tenant) {
    return witness.first(
        sql("Select 流转通过 From YZ_意向书信息 Where ID={}", numeral(idOf(witness, tenant))));
}

int approvalsOf(Witness& witness, const char* tenant, const Fragment& condition) {
    return std::stoi(
        witness.first(sql("Select Count(*) As SL From YZ_意向书审批情况 Where 意向书ID={} And {}",
                          numeral(idOf(witness, tenant)), condition)));
}

void chooseTenantAndUnits(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.click("选择承租方"); });
    tour.then([&witness](Person& person) {
        person.pick("跟进状态",
                    qt("3 " + witness.first("Select 状态名称 From YZ_跟进状态设置 Where 状态编号='3'")));
    });
    tour.step("意向书-选择承租方", [](Person& person) { person.clickRow("客户列表", 2, walkIn); });
    tour.then([](Person& person) { person.click("客户.确定"); });
    tour.then([](Person& person) { person.click("租赁单元"); });
    tour.then([](Person& person) { person.click("选择单元"); });
    tour.step("房源图", [](Person& person) { person.click("单元选择"); });
    tour.step("房源图-选中两个单元", [](Person& person) { person.clickColoured("地图", freeUnit, 2); });
    tour.step("意向书-租赁单元", [](Person& person) { person.click("房源选择确定"); });
    tour.then([](Person& person) { person.click("单元.关闭"); });
}

void submit(Tour& tour, Witness& witness, const char* tenant) {
    tour.then([=, &witness](Person& person) { person.clickNode("意向书", qt(numberOf(witness, tenant))); });
    tour.then([](Person& person) { person.click("提交"); });
    tour.answer("确定要提交吗？提交后意向书内容将不能再进行修改！", "是");
}

void writeShortLetter(Tour& tour, Witness& witness, const QString& office, const char* tenant) {
    tour.then([=](Person& person) { person.pick("管理项目", office); });
    tour.then([](Person& person) { person.click("新增"); });
    tour.then([=](Person& person) {
        person.type("承租方", tenant);
        person.click("确定");
    });
    submit(tour, witness, tenant);
}

void decide(Tour& tour, Witness& witness, const char* tenant, const QString& opinion, const QString& button,
            const QString& title) {
    tour.then([=, &witness](Person& person) { person.clickNode("待审批", qt(numberOf(witness, tenant))); });
    tour.step(title, [=](Person& person) { person.type("您的审批意见", opinion); });
    tour.then([=](Person& person) { person.click(button); });
}

void openDesk(Tour& tour, const QString& title) {
    tour.step(title, [](Person& person) { person.choose("意向客户管理", "意向客户审批"); });
}

}  // namespace

void layPaths(Tour& tour, Witness& witness) {
    tour.step("审批路径", [](Person& person) { person.choose("基础信息设置", "意向书审批流程设置"); });
    deleteFirstPath(tour, witness);
    addPath(tour, "LJ11", entryOf(witness, "01"), false);
    addStep(tour, "102 ", "301 客户服务部经理");
    addStep(tour, "103 ", "401 财务部经理");
    addStep(tour, "1 ", "101 总经理");
    tour.check("三个环节", [&witness] { return positionsOf(witness, "LJ11") == "301 401 101 "; });
    moveStep(tour, 2, "上移");
    tour.check("环节已上移", [&witness] { return positionsOf(witness, "LJ11") == "301 101 401 "; });
    moveStep(tour, 0, "下移");
    tour.check("环节已下移", [&witness] { return positionsOf(witness, "LJ11") == "101 301 401 "; });
    tour.then([](Person& person) {
        person.clickCell("环节列表", 1, 1);
        person.click("环节.删除");
    });
    tour.answer("是否要删除  环节=2的信息？", "是");
    tour.step("审批环节-删除后", [](Person&) {});
    tour.check("其后的环节前移", [&witness] { return positionsOf(witness, "LJ11") == "101 401  "; });

    addPath(tour, "LJ13", entryOf(witness, "03"), true);
    addStep(tour, "1 ", "101 总经理");
    addStep(tour, "103 ", "401 财务部经理");
    tour.step("审批路径-单级流转", [](Person&) {});
    tour.check("单级流转的路径", [&witness] {
        return positionsOf(witness, "LJ13") == "101 401  " &&
               witness.first("Select 单级流转 From YZ_意向书审批路径设置 Where 审批路径代号='LJ13'") == "1";
    });
}

void writeLetters(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.choose("意向客户管理", "意向客户登记"); });
    tour.then([&witness](Person& person) { person.pick("管理项目", qt(witness.officeEntry())); });
    tour.step("意向书-新增", [](Person& person) {
        person.click("Check5");
        person.click("新增");
    });
    chooseTenantAndUnits(tour, witness);
    tour.then([](Person& person) {
        for (const auto& [field, text] :
             {std::pair("租赁起始日期", "2026-12-1"), std::pair("租赁结束日期", "2028-11-30"),
              std::pair("租金单价", "6.5"), std::pair("租金意向金", "50000"),
              std::pair("物业管理费意向金", "6300"), std::pair("申请说明", "客户要求保留房源")})
            person.type(field, text);
    });
    tour.step("意向书-已保存", [](Person& person) { person.click("确定"); });
    tour.check("意向书与两个单元", [&witness] {
        const auto id = idOf(witness, walkIn);
        return !id.empty() &&
               witness.first(sql("Select Count(*) As SL From YZ_意向书单元信息 Where 意向书ID={}",
                                 numeral(id))) == "2" &&
               witness.first(sql("Select 意向金合计 From YZ_意向书信息 Where ID={}", numeral(id))) == "56300";
    });
    submit(tour, witness, walkIn);
    tour.check("第一个审批人", [&witness] {
        return approvalsOf(witness, walkIn, fragment("环节序号=1 And 岗位代号='101'")) == 1;
    });
    writeShortLetter(tour, witness, entryOf(witness, "01"), refused);
    writeShortLetter(tour, witness, entryOf(witness, "03"), askedAtOnce);
    tour.check("两人同时审批", [&witness] {
        return approvalsOf(witness, askedAtOnce, fragment("环节序号=0 And 审批日期 is Null")) == 2;
    });
    tour.then([&witness](Person& person) { person.clickNode("意向书", qt(numberOf(witness, askedAtOnce))); });
    tour.step("意向书-审批情况", [](Person& person) { person.click("提交"); });
    tour.then([](Person& person) { person.click("审批.关闭"); });
    tour.then([](Person& person) { person.click("退出"); });
}

void decideFirst(Tour& tour, Witness& witness) {
    openDesk(tour, "审批-总经理");
    tour.then([&witness](Person& person) { person.clickNode("待审批", qt(numberOf(witness, walkIn))); });
    tour.then([](Person& person) { person.click("保存审批意见"); });
    tour.answer("审批意见不能不空，请填写审批意见！", "确定");
    tour.then([](Person& person) {
        person.type("您的审批意见", "按此条件签约");
        person.click("保存审批意见");
    });
    tour.answer("保存审批意见完成！", "确定");
    tour.step("审批-他人审批情况", [](Person& person) { person.click("他人审批情况"); });
    tour.then([](Person& person) { person.click("关闭"); });
    decide(tour, witness, walkIn, "同意，按此条件签约", "同意", "审批-同意");
    tour.check("下一个审批人", [&witness] {
        return outcomeOf(witness, walkIn).empty() &&
               approvalsOf(witness, walkIn, fragment("环节序号=2 And 岗位代号='401' And 审批日期 is Null")) ==
                   1;
    });
    decide(tour, witness, refused, "租金低于底价", "不同意", "审批-不同意");
    tour.check("意向书被拒绝", [&witness] { return outcomeOf(witness, refused) == "0"; });
    decide(tour, witness, askedAtOnce, "同意", "同意", "审批-单级流转");
    tour.check("还有一人未审批", [&witness] {
        return outcomeOf(witness, askedAtOnce).empty() &&
               approvalsOf(witness, askedAtOnce, fragment("同意=1")) == 1;
    });
    tour.then([](Person& person) { person.click("退出"); });
}

void decideLast(Tour& tour, Witness& witness) {
    openDesk(tour, "审批-财务部经理");
    decide(tour, witness, walkIn, "无异议", "同意", "审批-最后环节");
    tour.check("意向书通过", [&witness] { return outcomeOf(witness, walkIn) == "1"; });
    decide(tour, witness, askedAtOnce, "无异议", "同意", "审批-单级流转最后一人");
    tour.check("单级流转通过", [&witness] { return outcomeOf(witness, askedAtOnce) == "1"; });
    tour.then([](Person& person) { person.click("退出"); });
}

}  // namespace desk::tour
