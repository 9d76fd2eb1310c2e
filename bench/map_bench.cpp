#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <QTableView>

#include "both_databases.h"
#include "desktop/screen_list.h"
#include "intent/unit_map.h"

namespace {

using namespace desk;

constexpr int unitsASection = 80;

/// An office of so many units, more than half of them let; here and behind SQLite alone.
struct Office : BothDatabases {
    explicit Office(int units) {
        addOfficesAndDictionaries(program);
        desktop::offerScreens(program.app);
        fill([this, units] {
            for (int section = 0; section * unitsASection < units; ++section) {
                L_IDs.push_back(std::to_string(section));
                insert(
                    sql("Insert Into 楼表 (L_ID,楼编号,地址1,字1,管理处,开始日期) Values "
                        "({},'{}','序园科技广场','{}号楼','01','2001-1-1')",
                        section, section, section));
                insert(sql("Insert Into 楼域范围设置 (工号,L_ID) Values ('E01',{})", section));
            }
            for (int unit = 0; unit < units; ++unit) addUnit(unit);
        });
        program.enter();
    }

    void addUnit(int unit) {
        const int room = unit % unitsASection;
        insert(sql(
            "Insert Into 室表 (S_ID,L_ID,室,层次,建筑面积,开始日期) Values ({},{},'{}','{}',{},'2001-1-1')",
            unit, unit / unitsASection, (room / 8 + 1) * 100 + room % 8, room / 8 + 1, 50 + room));
        insert(sql("Insert Into 单元出租状态 (单元ID,状态,设置日期) Values ({},'可出租','2010-1-1')", unit));
        if (unit % 5 < 2) return;
        insert(sql("Insert Into 客户信息 (客户编号,客户名称) Values ('K{}','盛远国际贸易有限公司')", unit));
        insert(sql("Insert Into 合同信息 (客户编号) Values ('K{}')", unit));
        insert(sql("Insert Into 合同单元信息 (单元ID,合同ID,起始日期) Values ({},{},'2010-1-1')", unit,
                   ++contracts));
    }

    std::vector<std::string> L_IDs;
    int contracts = 0;
};

Office& office(int units) {
    static std::map<int, Office> all;
    return all.try_emplace(units, units).first->second;
}

/// The window at 1280 x 800, maximised.
constexpr int width = 1280;
constexpr int height = 640;

void draw(benchmark::State& state) {
    auto& screen = office(static_cast<int>(state.range(0))).program.app.screens.get<Frm房源一览表>();
    for (auto _ : state) screen.区域.pick("01 东塔");
    state.counters["rows"] = screen.地图.rows();
}

void stepTheSameStatement(benchmark::State& state) {
    auto& present = office(static_cast<int>(state.range(0)));
    present.readAll(state, 房源语句("01", present.L_IDs, present.program.clock.today()));
}

/// From the screen's making to its first paint, its office chosen.
void openToFirstPaint(benchmark::State& state) {
    auto& app = office(static_cast<int>(state.range(0))).program.app;
    for (auto _ : state) {
        auto& screen = app.screens.get<Frm房源一览表>();
        screen.区域.pick("01 东塔");
        const std::unique_ptr<QWidget> window(desktop::layoutOf(screen));
        window->resize(width, height);
        window->show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(window->grab());
        state.PauseTiming();
        app.screens.unload(screen);
        app.screens.dropUnloaded();
        state.ResumeTiming();
    }
}

void scrollAFrame(benchmark::State& state) {
    auto& app = office(static_cast<int>(state.range(0))).program.app;
    auto& screen = app.screens.get<Frm房源一览表>();
    const std::unique_ptr<QWidget> window(desktop::layoutOf(screen));
    window->resize(width, height);
    window->show();
    QApplication::processEvents();
    screen.区域.pick("01 东塔");
    auto* view = window->findChild<QTableView*>("地图");
    QScrollBar* bar = view->verticalScrollBar();
    QImage frame(view->viewport()->size(), QImage::Format_RGB32);
    for (auto _ : state) {
        bar->setValue((bar->value() + 37) % bar->maximum());
        view->viewport()->render(&frame);
    }
}

BENCHMARK(draw)->Unit(benchmark::kMillisecond)->Arg(600)->Arg(10000);
BENCHMARK(stepTheSameStatement)->Unit(benchmark::kMillisecond)->Arg(600)->Arg(10000);
BENCHMARK(openToFirstPaint)->Unit(benchmark::kMillisecond)->Arg(600)->Arg(10000);
BENCHMARK(scrollAFrame)->Unit(benchmark::kMillisecond)->Arg(600)->Arg(10000);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
