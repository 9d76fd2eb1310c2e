#include <benchmark/benchmark.h>

#include "analysis/status_analysis.h"
#include "both_databases.h"
#include "db/embedded/translation.h"
#include "ui/pie_chart.h"

namespace {

using namespace desk;

constexpr int leadCount = 100000;
constexpr int entriesEach = 5;

/// A desktop that keeps the statement apart: 100,000 leads with five diary rows each, here and behind SQLite
/// alone.
struct Property : BothDatabases {
    Property() {
        program.enter();
        program.app.screens.offer(Frm客户跟进状态分析::screenName,
                                  [this] { return std::make_unique<Frm客户跟进状态分析>(program.app); });
        fill([this] {
            for (int state = 1; state <= 10; ++state)
                insert(sql("Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('{}','状态',{})",
                           state, state * 1000000));
            for (int lead = 0; lead < leadCount; ++lead) addLead(lead);
        });
    }
    void addLead(int lead) {
        insert(
            sql("Insert Into YZ_引驻客户信息 (管理处代号,登记编号,客源类别,登记日期) Values "
                "('01','2011-{}','引驻来人','2011-3-{}')",
                lead, lead % 28 + 1));
        for (int entry = 0; entry < entriesEach; ++entry)
            insert(
                sql("Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,跟进人工号,跟进状态编号) "
                    "Values ('01','2011-{}','2011-4-{}','E01','{}')",
                    lead, entry * 3 + lead % 3 + 1, (lead + entry) % 10 + 1));
    }
};

Property& property() {
    static Property only;
    return only;
}

void analyse(benchmark::State& state) {
    auto& screen = property().program.app.screens.get<Frm客户跟进状态分析>();
    if (!screen.Check6.checked()) screen.Check6.click();
    screen.DTPicker1.pick(DateTime(2011, 1, 1));
    screen.DTPicker2.pick(DateTime(2011, 12, 31));
    for (auto _ : state) screen.Command1.click();
    if (screen.MSFlexGrid1.rows() != 11) state.SkipWithError("not all states are there");
}

void stepTheSameStatement(benchmark::State& state) {
    auto& screen = property().program.app.screens.get<Frm客户跟进状态分析>();
    const auto text = embedded::translate(screen.统计语句(), Rows::forwardOnly).sql;
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(property().bare.handle(), text.c_str(), -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW)
            benchmark::DoNotOptimize(sqlite3_column_int64(statement, 3));
        sqlite3_finalize(statement);
    }
}

/// A canvas of the size that the analysis has at 1280 x 800, `scale` times as fine.
struct Drawing : Screen {
    explicit Drawing(double scale) : Screen("drawing", "", WindowKind::child, 10800, 6000) {
        canvas.resize(10800, 6000, scale / 15);
    }
    Canvas canvas{*this, "canvas"};
    PieShape shape{2160, 1382, 600, 5400, 3000};
    std::vector<PieSlice> slices{{rgb(200, 30, 30), 0.4}, {rgb(30, 200, 30), 0.35}, {rgb(30, 30, 200), 0.25}};
};

void drawThePie(benchmark::State& state) {
    Drawing drawing(static_cast<double>(state.range(0)));
    for (auto _ : state) drawPie(drawing.canvas, drawing.shape, drawing.slices);
}

void raiseASlice(benchmark::State& state) {
    Drawing drawing(static_cast<double>(state.range(0)));
    drawPie(drawing.canvas, drawing.shape, drawing.slices);
    const Picture kept = drawing.canvas.picture();
    for (auto _ : state) {
        drawing.canvas.picture() = kept;
        drawRaised(drawing.canvas, drawing.shape, drawing.slices, 0);
    }
}

BENCHMARK(analyse)->Unit(benchmark::kMillisecond);
BENCHMARK(stepTheSameStatement)->Unit(benchmark::kMillisecond);
BENCHMARK(drawThePie)->Unit(benchmark::kMillisecond)->Arg(1)->Arg(2);
BENCHMARK(raiseASlice)->Unit(benchmark::kMillisecond)->Arg(1)->Arg(2);

}  // namespace
