#include <benchmark/benchmark.h>
#include <malloc.h>

#include "both_databases.h"
#include "customers/registration.h"
#include "db/embedded/translation.h"

namespace {

using namespace desk;

constexpr int leadCount = 100000;

std::string leadStatement(int serial) {
    return sql(
        "Insert Into YZ_引驻客户信息 (管理处代号,登记编号,流水号,客源类别,公司名称,客户姓名,客户电话,媒体,"
        "企业性质,需求面积,登记日期) Values ('01','2011-{}',{},'引驻来人','盛远国际贸易有限公司{}','王先生',"
        "'6{}','报纸,网络','外资',{},'2011-3-{}')",
        1000000 + serial, serial, serial, serial, serial % 500, serial % 28 + 1);
}

/// The registration screen over one office of 100,000 walk-ins, and the same rows behind SQLite alone.
struct Office : BothDatabases {
    Office() {
        addOfficesAndDictionaries(program);
        program.app.screens.offer(Frm引驻客户信息登记::screenName,
                                  [this] { return std::make_unique<Frm引驻客户信息登记>(program.app); });
        program.enter();
        fill([this] {
            for (int i = 1; i <= leadCount; ++i) insert(leadStatement(i));
        });
    }
};

Office& office() {
    static Office only;
    return only;
}

/// What the heap holds more after the first fill.
template <class Fill>
double heapOfTheFirst(Fill fill) {
    const auto held = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    const auto before = held();
    fill();
    return static_cast<double>(held() - before);
}

void fillTheTree(benchmark::State& state) {
    auto& screen = office().program.app.screens.get<Frm引驻客户信息登记>();
    static const double bytes = heapOfTheFirst([&] { screen.来人.管理项目.pick("01 东塔"); });
    for (auto _ : state) screen.来人.管理项目.pick("01 东塔");
    const auto children = screen.来人.客户.roots().front()->children().size();
    if (children != leadCount) state.SkipWithError("the tree is not full");
    state.counters["bytes_per_lead"] = bytes / leadCount;
    state.SetItemsProcessed(state.iterations() * leadCount);
}

void stepTheSameStatement(benchmark::State& state) {
    auto& bare = office().bare;
    const auto translation = embedded::translate(来人规则.树语句("01"), Rows::forwardOnly);
    const auto column = [&](std::string_view name) {
        for (std::size_t i = 0; i < translation.columns.size(); ++i)
            if (translation.columns[i].name == name) return static_cast<int>(i);
        return -1;
    };
    const int shown[] = {column("登记编号"), column("公司名称"), column("登记日期")};
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
    state.SetItemsProcessed(state.iterations() * leadCount);
}

BENCHMARK(fillTheTree)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(stepTheSameStatement)->Unit(benchmark::kMillisecond)->MinTime(2);

}  // namespace
