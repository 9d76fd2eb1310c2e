#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTableView>

#include "analysis/classification.h"
#include "both_databases.h"
#include "desktop/screen_list.h"
#include "desktop/text_widths.h"

namespace {

using namespace desk;

constexpr int leadCount = 50000;

/// Teams of so many leads each; here and behind SQLite alone.
struct Property : BothDatabases {
    Property() {
        addOfficesAndDictionaries(program);
        desktop::offerScreens(program.app);
        fill([this] {
            for (int team = 1; team <= 20; ++team) {
                insert(sql("Insert Into YZ_组表 (组代号,组名称) Values ('{}','招商{}组')", team, team));
                insert(sql("Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('{}','01')", team));
            }
            for (int lead = 0; lead < leadCount; ++lead) addLead(lead);
        });
        program.enter();
        program.desktop.measure = [this, font = QApplication::font()](std::string_view text) {
            return widths.of(font, text);
        };
    }

    void addLead(int lead) {
        insert(sql(
            "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称,企业性质,从事行业,客户姓名,客户电话,"
            "中介公司名称,备注) Values ('2011-{}','01','盛远国际贸易{}有限公司','{}','{}','陈先生',"
            "'138{}','佳信','第二次来访, Tower {}')",
            100000 + lead, lead, lead % 2 == 0 ? "外资" : "民营", lead % 3 == 0 ? "软件" : "贸易",
            10000000 + lead * 17, lead % 40));
        insert(sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号) Values ('2011-{}','01','{}')",
                   100000 + lead, lead / 7 % 20 + 1));
    }

    desktop::TextWidths widths;
};

Property& property() {
    static Property only;
    return only;
}

/// The screen with everything marked.
Frm客户分类统计& marked() {
    auto& screen = property().program.app.screens.get<Frm客户分类统计>();
    if (screen.Combo1.index() < 0) screen.Combo1.pick("01 东塔");
    for (CheckBox* all : {&screen.Check1, &screen.Check2, &screen.Check3})
        if (!all->checked()) all->click();
    return screen;
}

void checkRows(benchmark::State& state, const Grid& grid) {
    if (grid.rows() != leadCount + 1) state.SkipWithError("not all leads are there");
}

void stepTheSameStatement(benchmark::State& state) {
    property().readAll(state, marked().统计语句());
}

/// Read, merged and fitted, without a window.
void analyse(benchmark::State& state) {
    auto& screen = marked();
    for (auto _ : state) screen.Command1.click();
    checkRows(state, screen.MSFlexGrid1);
}

/// The same until the window shows it.
void analyseToFirstPaint(benchmark::State& state) {
    auto& screen = marked();
    const std::unique_ptr<QWidget> window(desktop::layoutOf(screen));
    window->resize(1280, 640);
    window->show();
    QApplication::processEvents();
    for (auto _ : state) {
        screen.Command1.click();
        benchmark::DoNotOptimize(window->grab());
    }
    checkRows(state, screen.MSFlexGrid1);
}

void scrollAFrame(benchmark::State& state) {
    auto& screen = marked();
    const std::unique_ptr<QWidget> window(desktop::layoutOf(screen));
    window->resize(1280, 640);
    window->show();
    screen.Command1.click();
    QApplication::processEvents();
    auto* view = window->findChild<QTableView*>("MSFlexGrid1");
    int row = 0;
    QImage frame(view->viewport()->size(), QImage::Format_RGB32);
    for (auto _ : state) {
        row = (row + 997) % leadCount;
        view->scrollTo(view->model()->index(row, 0));
        view->viewport()->render(&frame);
    }
}

BENCHMARK(stepTheSameStatement)->Unit(benchmark::kMillisecond);
BENCHMARK(analyse)->Unit(benchmark::kMillisecond);
BENCHMARK(analyseToFirstPaint)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollAFrame)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
