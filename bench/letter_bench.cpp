#include <benchmark/benchmark.h>

#include "both_databases.h"
#include "db/embedded/translation.h"
#include "intent/letter.h"

namespace {

using namespace desk;

constexpr int letterCount = 20000;

std::string letterStatement(int serial) {
    return sql(
        "Insert Into YZ_意向书信息 (管理处代号,意向书编号,流水号,承租方,租赁单元,租赁面积,租金单价,付款方式,"
        "承租方背景) Values "
        "('01','YX2011-{}',{},'盛远国际贸易有限公司{}','[A座]{}',{},3.5,'押三付三','经营稳定')",
        100000 + serial, serial, serial, serial, serial % 500);
}

/// The screen over one office of 20,000 letters, and the same rows behind SQLite alone.
struct Office : BothDatabases {
    Office() {
        addOfficesAndDictionaries(program);
        program.app.screens.offer<Frm意向书信息>(program.app);
        program.enter();
        fill([this] {
            for (int i = 1; i <= letterCount; ++i) insert(letterStatement(i));
        });
    }
};

Office& office() {
    static Office only;
    return only;
}

void fillTheLetterTree(benchmark::State& state) {
    auto& screen = office().program.app.screens.get<Frm意向书信息>();
    for (auto _ : state) screen.管理项目.pick("01 东塔");
    if (screen.意向书.roots().front()->children().size() != letterCount)
        state.SkipWithError("the tree is not full");
    state.SetItemsProcessed(state.iterations() * letterCount);
}

void stepTheLetterStatement(benchmark::State& state) {
    auto& bare = office().bare;
    const auto translation = embedded::translate(
        "Select * From YZ_意向书信息 Where  管理处代号='01'  Order By Len(意向书编号),意向书编号",
        Rows::forwardOnly);
    const auto column = [&](std::string_view name) {
        for (std::size_t i = 0; i < translation.columns.size(); ++i)
            if (translation.columns[i].name == name) return static_cast<int>(i);
        return -1;
    };
    const int shown[] = {column("意向书编号"), column("承租方")};
    for (auto _ : state) {
        std::size_t bytes = 0;
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(bare.handle(), translation.sql.c_str(), -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW)
            for (const int each : shown) {
                benchmark::DoNotOptimize(sqlite3_column_text(statement, each));
                bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, each));
            }
        sqlite3_finalize(statement);
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * letterCount);
}

BENCHMARK(fillTheLetterTree)->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(stepTheLetterStatement)->Unit(benchmark::kMillisecond)->MinTime(1);

}  // namespace
