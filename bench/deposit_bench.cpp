#include <benchmark/benchmark.h>

#include "both_databases.h"
#include "db/embedded/translation.h"
#include "money/deposits.h"

namespace {

using namespace desk;

constexpr int letterCount = 20000;
constexpr int ticketCount = 5000;

/// The deposits' screen over one office of 20,000 letters and a book of 5,000 blank tickets among used ones,
/// and the same rows behind SQLite alone.
struct Cashier : BothDatabases {
    Cashier() {
        fill([this] {
            insert("Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('01','东塔')");
            insert("Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','01')");
            insert("Insert Into 票据类型 (票据类型代号,票据类型,定额) Values ('2','收据',0)");
            insert("Insert Into 票据入库单 (入库单编号,票据类型编号) Values ('RK0001','2')");
            insert("Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L1','01')");
            insert("Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','RK0001')");
            for (int i = 1; i <= letterCount; ++i)
                insert(
                    sql("Insert Into YZ_意向书信息 (管理处代号,意向书编号,流水号,承租方,租赁单元,流转通过) "
                        "Values "
                        "('01','YX2011-{}',{},'盛远国际贸易有限公司{}','[A座]{}',1)",
                        100000 + i, i, i, i));
            for (int i = 1; i <= ticketCount; ++i) {
                insert(sql("Insert Into 票据 (入库单编号,票据编号) Values ('RK0001','{}')", 30000000 + i));
                insert(
                    sql("Insert Into 票据 (入库单编号,票据编号,开票日期) Values ('RK0001','{}','2011-1-1')",
                        20000000 + i));
            }
        });
        program.enter();
        program.app.screens.offer<Frm意向金收取>(program.app);
    }

    Frm意向金收取& screen() { return program.app.screens.get<Frm意向金收取>(); }

    /// Reads those columns of all rows of a statement, and nothing else.
    void step(std::string_view statement, std::initializer_list<std::string_view> columns) {
        const auto translation = embedded::translate(statement, Rows::forwardOnly);
        std::vector<int> read;
        for (const auto name : columns)
            for (std::size_t i = 0; i < translation.columns.size(); ++i)
                if (translation.columns[i].name == name) read.push_back(static_cast<int>(i));
        sqlite3_stmt* prepared = nullptr;
        sqlite3_prepare_v2(bare.handle(), translation.sql.c_str(), -1, &prepared, nullptr);
        while (sqlite3_step(prepared) == SQLITE_ROW)
            for (const int column : read) benchmark::DoNotOptimize(sqlite3_column_text(prepared, column));
        sqlite3_finalize(prepared);
    }
};

Cashier& cashier() {
    static Cashier only;
    return only;
}

void openTheScreen(benchmark::State& state) {
    auto& program = cashier().program;
    for (auto _ : state) {
        program.app.screens.open(Frm意向金收取::screenName);
        program.app.screens.unload(cashier().screen());
        program.app.screens.dropUnloaded();
    }
}

void stepWhatOpens(benchmark::State& state) {
    for (auto _ : state) {
        cashier().step(
            "Select * From 设置管理处 Inner Join 职能部门对应管理项目设置 On "
            "设置管理处.GYD_DH=职能部门对应管理项目设置.管理处代号 Where "
            "职能部门对应管理项目设置.职能部门编号='01' AND 职能部门对应管理项目设置.终止日期 is Null  Order "
            "by "
            "len(GYD_DH),GYD_DH",
            {"GYD_DH", "GYD_Name"});
        cashier().step("SELECT 票据类型代号, 票据类型, 税控, 定额 From 票据类型 ORDER BY 票据类型代号",
                       {"票据类型代号", "票据类型", "税控"});
        cashier().step(
            "Select SETUPSFXM.ID, DH, XM, 收费类别, 对应科目, 票据类型, 科目名称 From SETUPSFXM Inner Join "
            "财务科目 On SETUPSFXM.对应科目=财务科目.科目代号 Where (收费类别 = N'押金')",
            {"DH", "XM", "对应科目", "科目名称"});
    }
}

void chooseTheOffice(benchmark::State& state) {
    auto& screen = cashier().screen();
    for (auto _ : state) screen.管理项目.pick("01 东塔");
    if (screen.意向书.roots().front()->children().size() != letterCount)
        state.SkipWithError("the tree is not full");
}

void stepTheLetters(benchmark::State& state) {
    for (auto _ : state)
        cashier().step(
            "Select * From YZ_意向书信息 Where  管理处代号='01' AND 意向金收取日期 is Null AND  流转通过=1  "
            "Order "
            "By Len(意向书编号),意向书编号",
            {"ID", "意向书编号", "承租方"});
}

void chooseTheBook(benchmark::State& state) {
    auto& screen = cashier().screen();
    screen.管理项目.pick("01 东塔");
    screen.意向书.click(*screen.意向书.roots().front()->children().front());
    screen.收费.click(1, 收费列表::票据类型);
    screen.票据类型.button.click();
    screen.票据类型.list.click(0);
    for (auto _ : state) {
        screen.收费.click(1, 收费列表::票据簿编号);
        screen.票据簿.button.click();
        screen.票据簿.list.click(0);
    }
    if (screen.票据.list.count() != ticketCount) state.SkipWithError("the list is not full");
}

void stepTheTickets(benchmark::State& state) {
    for (auto _ : state)
        cashier().step(
            "Select 票据编号,ID  From 票据 Where 入库单编号='RK0001' and 开票日期 Is Null and 作废日期 Is "
            "Null "
            "Order By 票据编号",
            {"票据编号", "ID"});
}

BENCHMARK(openTheScreen)->Unit(benchmark::kMicrosecond);
BENCHMARK(stepWhatOpens)->Unit(benchmark::kMicrosecond);
BENCHMARK(chooseTheOffice)->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(stepTheLetters)->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(chooseTheBook)->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(stepTheTickets)->Unit(benchmark::kMillisecond)->MinTime(1);

}  // namespace
