#include <benchmark/benchmark.h>

#include <string>

#include "ui/batch.h"
#include "ui/find.h"
#include "ui/screen.h"

namespace {

using namespace desk;

constexpr int leadCount = 100000;

/// A tree and a grid of 100,000 leads each.
struct Leads : Screen {
    Leads() : Screen("leads", "", WindowKind::child, 0, 0) {
        const Batch nodes(tree);
        const Batch rows(grid);
        for (int i = 1; i <= leadCount; ++i) {
            const std::string no = "2026-" + std::to_string(1000000 + i);
            tree.add(nullptr, no, "（引驻来人）" + no + " 盛远国际贸易有限公司" + std::to_string(i));
            grid.addRow({std::to_string(i), no, "盛远国际贸易有限公司" + std::to_string(i)});
        }
    }

    Tree tree{*this, "tree"};
    Grid grid{*this, "grid", "<序|<登记编号|<公司名称"};
};

Leads& leads() {
    static Leads only;
    return only;
}

/// The longest way: through all leads, without finding one.
void findANode(benchmark::State& state) {
    Wanted wanted("ＮＯＢＯＤＹ");
    for (auto _ : state) benchmark::DoNotOptimize(findNode(leads().tree, wanted, nullptr, Towards::next));
}

void findABeginning(benchmark::State& state) {
    Wanted wanted("2027");
    for (auto _ : state) benchmark::DoNotOptimize(findBeginning(leads().tree, wanted, nullptr));
}

void findACell(benchmark::State& state) {
    Wanted wanted("nobody");
    for (auto _ : state) benchmark::DoNotOptimize(findCell(leads().grid, wanted, {}, Towards::next));
}

BENCHMARK(findANode)->Unit(benchmark::kMillisecond);
BENCHMARK(findABeginning)->Unit(benchmark::kMillisecond);
BENCHMARK(findACell)->Unit(benchmark::kMillisecond);

}  // namespace
