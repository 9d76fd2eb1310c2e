#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QDate>
#include <QFileInfo>
#include <QFont>

#include "db/statement.h"
#include "tour/itinerary.h"

namespace desk::tour {

namespace {

constexpr const char* table = "统计结果";

/// The table as it is shown.
class Shown {
  public:
    Shown()
        : model_(*dynamic_cast<QAbstractItemView&>(*Person().find(table, Person::Wanted::toLookAt)).model()) {
    }

    int rows() const { return model_.rowCount(); }
    std::string text(int row, int column) const {
        return model_.index(row, column).data().toString().toStdString();
    }
    bool isTitle(int row) const { return model_.index(row, 1).data(Qt::FontRole).value<QFont>().bold(); }
    /// The row behind the title row of that text; behind the header where it is the first.
    int behind(const std::string& title) const {
        for (int row = 0; row < rows(); ++row)
            if (isTitle(row) && text(row, 1) == title) return row + 1;
        return 0;
    }
    /// The rows of a section.
    int endOf(int first) const {
        int row = first;
        while (row < rows() && !isTitle(row)) ++row;
        return row;
    }

  private:
    const QAbstractItemModel& model_;
};

/// What the witness counts itself.
class Leads {
  public:
    Leads(Witness& witness, const char* source) : witness_(witness), source_(source) {}

    std::string all() const {
        return witness_.first(sql("Select Count(*) As SL From YZ_引驻客户信息 Where {}", where()));
    }
    std::string naming(Name column, const std::string& name) const {
        return witness_.first(sql("Select Count(*) As SL From YZ_引驻客户信息 Where {} And {} like '%{}%'",
                                  where(), column, name));
    }
    std::string wanting(const std::string& area) const {
        return witness_.first(sql("Select Count(*) As SL From YZ_引驻客户信息 Where {} And 需求面积={}",
                                  where(), numeral(area)));
    }

  private:
    Fragment where() const {
        return fragment("管理处代号='{}' And 客源类别='{}' And 登记日期 Between '{}' And '{}'",
                        codeOf(witness_.officeEntry()), source_, day(QDate::currentDate().addYears(-1)),
                        day(QDate::currentDate()));
    }
    static std::string codeOf(const std::string& entry) { return entry.substr(0, entry.find(' ')); }
    static std::string day(const QDate& date) { return date.toString(Qt::ISODate).toStdString(); }

    Witness& witness_;
    const char* source_;
};

/// Every section that is counted by names or values, against the witness; the days by their sum.
bool holds(Witness& witness, const char* source) {
    const Shown shown;
    const Leads leads(witness, source);
    const auto section = [&](const char* title, const auto& expected) {
        const int first = shown.behind(title);
        bool all = shown.endOf(first) > first;
        for (int row = first; row < shown.endOf(first); ++row)
            all = all && shown.text(row, 2) == expected(shown.text(row, 1));
        return all;
    };
    const auto names = [&](const char* title, Name column) {
        return section(title, [&, column](const std::string& name) { return leads.naming(column, name); });
    };
    int onAllDays = 0;
    const int firstDay = shown.behind("每天来人量");
    for (int row = firstDay; row < shown.endOf(firstDay); ++row) onAllDays += std::stoi(shown.text(row, 2));
    return names("媒体分析", "媒体") && names("区域分析", "所在区域") && names("公司行业", "从事行业") &&
           names("企业性质", "企业性质") && names("询问重点", "询问重点") &&
           section("面积分析", [&](const std::string& area) { return leads.wanting(area); }) &&
           shown.endOf(firstDay) - firstDay > 364 && std::to_string(onAllDays) == leads.all();
}

void countAll(Tour& tour, Witness& witness, const QString& entry) {
    tour.then([entry](Person& person) { person.choose("统计报表", entry); });
    tour.then([&witness](Person& person) {
        person.pick("选择区域", QString::fromStdString(witness.officeEntry()));
        person.click("统计");
    });
    tour.answer("请选择统计项目", "确定");
    tour.then([](Person& person) {
        person.type("开始日期", QDate::currentDate().addYears(-1).toString(Qt::ISODate));
        person.click("全部");
        person.click("统计");
    });
}

}  // namespace

void countWeeks(Tour& tour, Witness& witness, const QString& folder) {
    const QString workbook = folder + "/周报.xls";
    countAll(tour, witness, "来客统计分析");
    tour.step("来客统计-全部项目", [](Person&) {});
    tour.check("来客数量相符", [&witness] { return holds(witness, "引驻来人"); });
    tour.step("来客统计-隐藏", [](Person& person) { person.click("隐藏"); });
    tour.step("来客统计-显示", [](Person& person) { person.click("显示"); });
    tour.step("来客统计-输出", [](Person& person) { person.click("输出"); });
    tour.then([workbook](Person& person) {
        person.type("Text1(0)", workbook);
        person.click("Command2");
    });
    tour.check("周报已写出", [workbook] { return QFileInfo(workbook).size() > 0; });
    tour.then([](Person& person) { person.click("退出"); });
    countAll(tour, witness, "来电统计分析");
    tour.step("来电统计-全部项目", [](Person&) {});
    tour.check("来电数量相符", [&witness] { return holds(witness, "引驻来电"); });
    tour.step("来电统计-每天来人量", [](Person&) {
        dynamic_cast<QAbstractItemView&>(*Person().find(table, Person::Wanted::toLookAt)).scrollToBottom();
    });
    tour.then([](Person& person) { person.click("退出"); });
}

}  // namespace desk::tour
