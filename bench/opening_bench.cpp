#include <benchmark/benchmark.h>

#include "analysis/status_analysis.h"
#include "both_databases.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "db/embedded/translation.h"

namespace {

using namespace desk;

constexpr int leadCount = 100000;
constexpr int ownCount = 16000;
constexpr int entriesEach = 3;
constexpr int states = 10;

/// An office of 100,000 leads, 16,000 of them of the person at the desk, with a diary each; here and, row for
/// row the same, behind SQLite alone.
struct Office : BothDatabases {
    Office() {
        offer<Frm客户跟进信息分配>();
        offer<Frm客户跟进记录>();
        offer<Frm客户跟进状态分析>();
        fill([this] {
            insert("Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('01','东塔')");
            insert("Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','01')");
            for (int state = 1; state <= states; ++state)
                insert(sql("Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('{}','状态',{})",
                           state, state * 1000000));
            for (int lead = 0; lead < leadCount; ++lead) addLead(lead);
        });
        program.enter();
    }

    template <class S>
    void offer() {
        program.app.screens.offer(S::screenName, [this] { return std::make_unique<S>(program.app); });
    }

    void addLead(int lead) {
        const int no = 1000000 + lead;
        insert(sql(
            "Insert Into YZ_引驻客户信息 (管理处代号,登记编号,流水号,客源类别,公司名称,客户姓名,客户电话,"
            "登记日期,分配日期) Values ('01','2011-{}',{},'引驻来人','盛远国际贸易有限公司{}','王先生','6{}',"
            "'{}-{}-{}','2011-12-31')",
            no, lead, lead, lead, 2010 + lead % 2, lead / 2 % 12 + 1, lead / 24 % 28 + 1));
        insert(
            sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号,员工工号,分配日期) Values "
                "('2011-{}','01','1','{}','2011-12-31')",
                no, lead % (leadCount / ownCount) == 0 ? "E01" : "E02"));
        for (int entry = 0; entry < entriesEach; ++entry)
            insert(sql(
                "Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,跟进人工号,跟进情况,"
                "跟进状态编号) Values ('01','2011-{}','2012-{}-{}','E01','电话联系，客户表示再考虑','{}')",
                no, entry * 3 + lead % 3 + 1, lead % 28 + 1, (lead / 2 + entry) % states + 1));
    }
};

Office& office() {
    static Office only;
    return only;
}

/// Steps a statement behind SQLite alone and reads the columns that the screen shows of it.
void stepAlone(benchmark::State& state, const std::string& statement,
               const std::vector<std::string_view>& shown) {
    const auto translation = embedded::translate(statement, Rows::forwardOnly);
    std::vector<int> columns;
    for (const auto name : shown)
        for (std::size_t i = 0; i < translation.columns.size(); ++i)
            if (translation.columns[i].name == name) columns.push_back(static_cast<int>(i));
    for (auto _ : state) {
        std::size_t bytes = 0;
        auto rows = office().bare.prepare(translation.sql);
        while (rows.step())
            for (const int column : columns) bytes += rows.text(column).size();
        benchmark::DoNotOptimize(bytes);
    }
}

const std::vector<std::string_view> treeColumns = {"客源类别", "登记编号", "公司名称"};

/// Opens the screen and chooses the office, as a person does who comes to it.
template <class S>
void openOn(benchmark::State& state, std::size_t leads) {
    auto& screens = office().program.app.screens;
    for (auto _ : state) {
        screens.open(S::screenName);
        auto& screen = screens.get<S>();
        screen.管理项目.pick("01 东塔");
        if (screen.客户.roots().size() != leads) state.SkipWithError("the tree is not full");
        state.PauseTiming();
        screens.unload(screen);
        state.ResumeTiming();
    }
}

void openAssignment(benchmark::State& state) {
    openOn<Frm客户跟进信息分配>(state, leadCount);
}
void statementOfAssignment(benchmark::State& state) {
    stepAlone(state, "Select * From YZ_引驻客户信息 Where  管理处代号='01'  Order By Len(登记编号),登记编号",
              treeColumns);
}

void openFollowUp(benchmark::State& state) {
    openOn<Frm客户跟进记录>(state, (leadCount + leadCount / ownCount - 1) / (leadCount / ownCount));
}
void statementOfFollowUp(benchmark::State& state) {
    stepAlone(state,
              "Select * From YZ_引驻客户信息 Where  登记编号 in (Select 登记编号 From YZ_引驻客户分配  Where "
              "管理处代号='01' And  员工工号='E01' And 终止日期 is Null) AND 管理处代号='01'  Order By "
              "Len(登记编号),登记编号",
              treeColumns);
}

Frm客户跟进状态分析& analysis(const DateTime& from, const DateTime& to) {
    auto& screens = office().program.app.screens;
    auto& screen = screens.get<Frm客户跟进状态分析>();
    if (!screen.Check6.checked()) screen.Check6.click();
    screen.DTPicker1.pick(from);
    screen.DTPicker2.pick(to);
    return screen;
}

const DateTime quarterBegins(2011, 4, 1);
const DateTime quarterEnds(2011, 6, 30);

void analyseAQuarter(benchmark::State& state) {
    auto& screen = analysis(quarterBegins, quarterEnds);
    for (auto _ : state) screen.Command1.click();
    if (screen.MSFlexGrid1.rows() != states + 1) state.SkipWithError("not all states are there");
}
void analyseAll(benchmark::State& state) {
    auto& screen = analysis(DateTime(2010, 1, 1), DateTime(2011, 12, 31));
    for (auto _ : state) screen.Command1.click();
}
void statementOfAll(benchmark::State& state) {
    stepAlone(state, analysis(DateTime(2010, 1, 1), DateTime(2011, 12, 31)).统计语句(), {"SL"});
}
void statementOfAQuarter(benchmark::State& state) {
    stepAlone(state, analysis(quarterBegins, quarterEnds).统计语句(), {"SL"});
}

/// A Having that always holds keeps the engine from looking into the grouped table: all of it is made first.
void quarterAsItStands(benchmark::State& state) {
    auto statement = analysis(quarterBegins, quarterEnds).统计语句();
    constexpr std::string_view group = "GROUP BY 管理处代号, 登记编号";
    statement.insert(statement.find(group) + group.size(), " HAVING COUNT(*)>0");
    stepAlone(state, statement, {"SL"});
}

/// The same question as somebody would put it who knows the tables.
void quarterByHand(benchmark::State& state) {
    const std::string statement = R"(
        SELECT s.状态编号, s.状态名称, s.颜色表示, count(*)
        FROM (SELECT DISTINCT d.ID, d.跟进状态编号, l.登记日期
              FROM "YZ_引驻客户信息" l JOIN "YZ_引驻客户跟进记录" d ON d.管理处代号=l.管理处代号 AND d.登记编号=l.登记编号
              WHERE l.登记日期 BETWEEN '2011-04-01' AND '2011-06-30'
                AND d.跟进日期=(SELECT max(x.跟进日期) FROM "YZ_引驻客户跟进记录" x
                               WHERE x.管理处代号=l.管理处代号 AND x.登记编号=l.登记编号)) b
        JOIN "YZ_跟进状态设置" s ON s.状态编号=b.跟进状态编号
        GROUP BY s.状态编号, s.状态名称, s.颜色表示)";
    for (auto _ : state) {
        auto rows = office().bare.prepare(statement);
        while (rows.step()) benchmark::DoNotOptimize(rows.integer(3));
    }
}

BENCHMARK(openAssignment)->Unit(benchmark::kMillisecond);
BENCHMARK(statementOfAssignment)->Unit(benchmark::kMillisecond);
BENCHMARK(openFollowUp)->Unit(benchmark::kMillisecond);
BENCHMARK(statementOfFollowUp)->Unit(benchmark::kMillisecond);
BENCHMARK(analyseAll)->Unit(benchmark::kMillisecond);
BENCHMARK(statementOfAll)->Unit(benchmark::kMillisecond);
BENCHMARK(analyseAQuarter)->Unit(benchmark::kMillisecond);
BENCHMARK(statementOfAQuarter)->Unit(benchmark::kMillisecond);
BENCHMARK(quarterAsItStands)->Unit(benchmark::kMillisecond);
BENCHMARK(quarterByHand)->Unit(benchmark::kMillisecond);

}  // namespace
