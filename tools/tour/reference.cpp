#include "base/text.h"
#include "db/statement.h"
#include "tour/itinerary.h"
#include "ui/colour.h"

namespace desk::tour {

namespace {

QString qt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

int countOf(Witness& witness, Name table, const Fragment& condition = fragment("1=1")) {
    return std::stoi(witness.first(sql("Select Count(*) As SL From {} Where {}", table, condition)));
}

void close(Tour& tour, const QString& button) {
    tour.then([button](Person& person) { person.click(button); });
}

/// A tab whose entries have a name and a note.
struct Dictionary {
    QString title;
    Name table;
    Name column;
    const char* question;
    bool canBeDeleted = true;
};

void tourDictionary(Tour& tour, Witness& witness, const Dictionary& dictionary) {
    const QString title = dictionary.title;
    const Name table = dictionary.table;
    const auto named = [column = dictionary.column](const char* name) {
        return fragment("{}='{}'", column, name);
    };
    tour.then([=](Person& person) {
        person.clickTab("页签", title);
        person.click(title + ".确定");
    });
    tour.answer(qt(std::string(dictionary.column)) + "不能为空，请重新输入！", "确定");
    tour.step(title + "-新增", [=](Person& person) {
        person.type(title + ".名称", "试用词条");
        person.type(title + ".说明", "临时登记，用后删除");
        person.click(title + ".确定");
    });
    tour.check(title + "已新增", [=, &witness] { return countOf(witness, table, named("试用词条")) == 1; });
    tour.then([=](Person& person) { person.click(title + ".确定"); });
    tour.answer("已存在相同的" + qt(std::string(dictionary.column)) + "，请重新输入！", "确定");
    tour.step(title + "-修改", [=, &witness](Person& person) {
        person.clickCell(title + ".列表", countOf(witness, table) - 1, 1);
        person.type(title + ".名称", "改名词条");
        person.click(title + ".确定");
    });
    tour.check(title + "已修改", [=, &witness] { return countOf(witness, table, named("改名词条")) == 1; });
    tour.then([=](Person& person) { person.click(title + ".删除"); });
    tour.answer(dictionary.question, dictionary.canBeDeleted ? "是" : "否");
    tour.check(title + "已删除", [=, &witness] {
        return countOf(witness, table, named("改名词条")) == (dictionary.canBeDeleted ? 0 : 1);
    });
}

void tourStates(Tour& tour, Witness& witness) {
    tour.then([](Person& person) {
        person.clickTab("页签", "跟进状态设置");
        person.click("跟进状态设置.确定");
    });
    tour.answer("状态编号不能为空，请重新输入！", "确定");
    tour.then([](Person& person) {
        person.type("状态编号", "11");
        person.type("状态名称", "复谈");
        person.click("选择颜色");
    });
    tour.step("跟进状态设置-选择颜色", [](Person&) {});
    tour.then([](Person& person) { person.chooseColour(48, 128, 208); });
    tour.step("跟进状态设置-新增", [](Person& person) { person.click("跟进状态设置.确定"); });
    tour.check("状态已新增", [&witness] {
        return witness.first("Select 颜色表示 From YZ_跟进状态设置 Where 状态编号='11'") ==
               std::to_string(rgb(48, 128, 208));
    });
    tour.then([](Person& person) { person.click("跟进状态设置.确定"); });
    tour.answer("已存在相同的状态编号，请重新输入！", "确定");
    tour.step("跟进状态设置-修改", [](Person& person) {
        person.clickCell("跟进状态设置.列表", 10, 1);
        person.type("状态名称", "再次洽谈");
        person.click("跟进状态设置.确定");
    });
    tour.check("状态已修改", [&witness] {
        return countOf(witness, "YZ_跟进状态设置", fragment("状态编号='11' And 状态名称='再次洽谈'")) == 1;
    });
    tour.then([](Person& person) {
        person.clickCell("跟进状态设置.列表", 10, 1);
        person.click("跟进状态设置.删除");
    });
    tour.answer("确定要删除选中跟进状态信息吗？", "是");
    tour.check("状态已删除",
               [&witness] { return countOf(witness, "YZ_跟进状态设置", fragment("状态编号='11'")) == 0; });
}

/// A tab whose entries have a code, a name and a note.
struct Coded {
    QString title;
    QString word;
    Name table;
    Name codeColumn;
    Name nameColumn;
    QString grid;
    QString code;
    QString name;
};

void tourCoded(Tour& tour, Witness& witness, const Coded& coded, const std::function<void()>& whileThere) {
    const Name table = coded.table;
    const Fragment entry = fragment("{}='88'", coded.codeColumn);
    const auto save = [=](Person& person) { person.click(coded.title + ".确定"); };
    tour.then([=](Person& person) {
        person.clickTab("页签", coded.title);
        save(person);
    });
    tour.answer(coded.word + "代号不能为空，请重新输入！", "确定");
    tour.step(coded.title + "-新增", [=](Person& person) {
        person.type(coded.code, "88");
        person.type(coded.name, "试用");
        save(person);
    });
    tour.then(save);
    tour.answer("已存在相同代号的信息，请重新输入！", "确定");
    whileThere();
    tour.step(coded.title + "-修改", [=, &witness](Person& person) {
        person.clickCell(coded.grid, countOf(witness, table) - 1, 2);
        person.type(coded.name, "试用改名");
        save(person);
    });
    tour.check(coded.title + "已修改", [=, &witness] {
        return countOf(witness, table, fragment("{} And {}='试用改名'", entry, coded.nameColumn)) == 1;
    });
    tour.then([=](Person& person) { person.click(coded.title + ".删除"); });
    tour.answer("确定要删除选中的主职信息吗？", "是");
    tour.check(coded.title + "已删除", [=, &witness] { return countOf(witness, table, entry) == 0; });
}

void tourMembers(Tour& tour, Witness& witness) {
    const Fragment free = fragment("员工工号='1005'");
    tour.then([](Person& person) {
        person.clickTab("页签", "人员设置");
        person.click("人员设置.确定");
    });
    tour.answer("未选择员工，请选择员工信息！", "确定");
    tour.step("人员设置-选择员工", [](Person& person) {
        person.clickNode("TreeView1", "1 ");
        person.click("选择员工");
        person.clickNode("TreeView2", "招商内勤 [1005]");
    });
    tour.then([](Person& person) { person.click("人员设置.确定"); });
    tour.answer("未选择对应主职，请选择主职！", "确定");
    tour.step("人员设置-新增", [&witness](Person& person) {
        person.pick("Combo1", qt("3 " + witness.first("Select 主职名称 From YZ_主职表 Where 主职代号='3'")));
        person.type("Text8", "试用期");
        person.click("人员设置.确定");
    });
    tour.check("人员已新增", [=, &witness] { return countOf(witness, "YZ_组人员设置", free) == 1; });
    tour.step("人员设置-修改", [](Person& person) {
        person.clickCell("MSFlexGrid3", 0, 1);
        person.type("Text8", "组长候选");
        person.click("人员设置.确定");
    });
    tour.then([=, &witness](Person& person) {
        person.clickCell("MSFlexGrid3", countOf(witness, "YZ_组人员设置", fragment("组代号='1'")) - 1, 1);
        person.click("人员设置.删除");
    });
    tour.answer("确定要从组中删除选中的员工信息吗？", "是");
    tour.answer("删除成功！", "确定");
}

void tourAgencies(Tour& tour, Witness& witness) {
    tour.then([](Person& person) { person.choose("基础信息设置", "中介公司设置"); });
    tour.then([](Person& person) { person.click("确定"); });
    tour.answer("管理项目信息未选择，请选择相应的管理项目！", "确定");
    tour.step("中介公司设置-选择管理项目",
              [&witness](Person& person) { person.clickNode("管理项目", qt(witness.officeEntry())); });
    tour.step("中介公司设置-新增", [](Person& person) {
        person.type("公司名称", "试用房产经纪有限公司");
        person.type("法人代表", "何先生");
        person.type("负责人电话", "02166668888");
        person.type("公司地址", "静安区南京西路1号");
        person.click("确定");
    });
    tour.then([](Person& person) { person.click("确定"); });
    tour.answer("该管理项目中已经存在该中介公司信息，请重新设置！", "确定");
    tour.step("中介公司设置-修改", [&witness](Person& person) {
        const auto office = std::string(codeBeforeBlank(witness.officeEntry()));
        person.clickCell("列表", countOf(witness, "YZ_中介公司设置", fragment("管理处代号='{}'", office)) - 1,
                         1);
        person.type("开户银行", "工商银行");
        person.click("确定");
    });
    tour.check("中介公司已修改", [&witness] {
        return witness.first("Select 开户银行 From YZ_中介公司设置 Where 公司名称='试用房产经纪有限公司'") ==
               "工商银行";
    });
    tour.then([](Person& person) { person.click("删除"); });
    tour.answer("确定删除当前选择的中介公司吗？", "是");
    tour.check("中介公司已删除", [&witness] {
        return countOf(witness, "YZ_中介公司设置", fragment("公司名称='试用房产经纪有限公司'")) == 0;
    });
    close(tour, "退出");
}

}  // namespace

void keepReferenceData(Tour& tour, Witness& witness) {
    tour.step("人员基础信息设置", [](Person& person) { person.choose("基础信息设置", "人员设置"); });
    tourCoded(tour, witness,
              {"主职设置", "主职", "YZ_主职表", "主职代号", "主职名称", "MSFlexGrid1", "Text1", "Text2"},
              [] {});
    tourCoded(tour, witness, {"组设置", "组", "YZ_组表", "组代号", "组名称", "MSFlexGrid2", "Text4", "Text5"},
              [&] {
                  tour.step("组设置-管理项目", [&witness](Person& person) {
                      person.tickNode("TreeView3", qt(witness.officeEntry()));
                  });
                  tour.check("管理项目已对应", [&witness] {
                      return countOf(witness, "YZ_组对应管理项目设置",
                                     fragment("组代号='88' And 终止日期 Is Null")) == 1;
                  });
              });
    tourMembers(tour, witness);
    close(tour, "人员设置.退出");

    tourAgencies(tour, witness);

    tour.step("客户相关信息设置", [](Person& person) { person.choose("基础信息设置", "客户设置"); });
    const char* duty = "确定要删除选中的主职信息吗？";
    tourDictionary(tour, witness, {"区域设置", "YZ_区域设置", "区域名称", duty});
    tourDictionary(tour, witness, {"企业性质设置", "YZ_企业性质设置", "企业性质名称", duty, false});
    tourDictionary(tour, witness, {"行业设置", "YZ_行业设置", "行业名称", duty});
    close(tour, "行业设置.退出");

    tour.step("引驻设置", [](Person& person) { person.choose("基础信息设置", "引驻设置"); });
    tourDictionary(tour, witness,
                   {"咨询内容设置", "YZ_咨询内容设置", "咨询内容", "确定要删除选中的咨询内容信息吗？"});
    tourDictionary(tour, witness, {"媒体设置", "YZ_媒体设置", "媒体名称", "确定要删除选中的媒体名称吗？"});
    tourStates(tour, witness);
    close(tour, "跟进状态设置.退出");
}

}  // namespace desk::tour
