#include <benchmark/benchmark.h>

#include "both_databases.h"
#include "db/embedded/translation.h"
#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"

namespace {

using namespace desk;

constexpr int entries = 20000;
constexpr int departmentCount = 3000;

/// A company with 20,000 rows in every table that the setup screens list, and the same behind SQLite alone.
struct Company : BothDatabases {
    Company() {
        program.enter();
        fill([this] {
            insert("Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('01','东塔')");
            insert("Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','01')");
            for (int i = 0; i < entries; ++i) addEntries(i);
            for (int i = 0; i < departmentCount; ++i) addDepartment(i);
        });
        auto& screens = program.app.screens;
        screens.offer(Frm人员设置::screenName, [this] { return std::make_unique<Frm人员设置>(program.app); });
        screens.offer(Frm中介公司设置::screenName,
                      [this] { return std::make_unique<Frm中介公司设置>(program.app); });
        screens.offer(Frm客户相关信息设置::screenName,
                      [this] { return std::make_unique<Frm客户相关信息设置>(program.app); });
        screens.offer(Frm引驻设置::screenName, [this] { return std::make_unique<Frm引驻设置>(program.app); });
    }

    void addEntries(int i) {
        insert(sql("Insert Into YZ_区域设置 (区域名称,说明) Values ('区域{}','说明')", i));
        insert(sql("Insert Into YZ_媒体设置 (媒体名称,说明) Values ('媒体{}','说明')", i));
        insert(sql("Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('{}','状态',{})", i, i));
        insert(
            sql("Insert Into YZ_中介公司设置 (管理处代号,公司名称,负责人) Values ('01','公司{}','张')", i));
        insert(sql("Insert Into YZ_主职表 (主职代号,主职名称) Values ('{}','主职')", i));
        insert(sql("Insert Into 员工档案 (工号,姓名) Values ('{}','姓名')", i));
        insert(sql(
            "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,工号) Values ('{}','岗位','{}','{}')", i,
            i % departmentCount, i));
    }
    void addDepartment(int i) {
        insert(sql("Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('{}','部门')", i));
        if (i == 0) return;
        insert(
            sql("Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('{}','{}','2010-1-1')",
                i, i / 5));
        insert(sql(
            "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('{}','0','2009-1-1')", i));
    }
};

Company& company() {
    static Company only;
    return only;
}

template <class S>
S& reopened(benchmark::State& state) {
    auto& screens = company().program.app.screens;
    state.PauseTiming();
    if (Screen* loaded = screens.loaded(S::screenName)) screens.unload(*loaded);
    screens.dropUnloaded();
    state.ResumeTiming();
    return screens.get<S>();
}

void expectRows(benchmark::State& state, const Grid& grid) {
    if (grid.rows() != entries + 2) state.SkipWithError("the grid is not full");
}

void openDictionaries(benchmark::State& state) {
    company();  // made outside the loop
    for (auto _ : state) expectRows(state, reopened<Frm客户相关信息设置>(state).区域.列表);
}

void openLeadSettings(benchmark::State& state) {
    for (auto _ : state) expectRows(state, reopened<Frm引驻设置>(state).跟进状态.列表);
}

void openPersonnel(benchmark::State& state) {
    for (auto _ : state) expectRows(state, reopened<Frm人员设置>(state).主职.列表);
}

void openAgencies(benchmark::State& state) {
    for (auto _ : state) {
        auto& screen = reopened<Frm中介公司设置>(state);
        screen.管理项目.click(*screen.管理项目.find("G01"));
        expectRows(state, screen.列表);
    }
}

void showWholeCompany(benchmark::State& state) {
    company().program.app.专项审核权限 = true;
    for (auto _ : state) {
        auto& screen = reopened<Frm人员设置>(state);
        state.PauseTiming();
        screen.页签.setIndex(2);
        state.ResumeTiming();
        screen.人员.选择员工.click();
        if (screen.人员.TreeView2.roots().size() != 1) state.SkipWithError("the tree is not one");
    }
}

/// The bare loop over statements that a screen sends, every column read.
template <class... Statements>
void stepBare(benchmark::State& state, Statements... statements) {
    auto& bare = company().bare;
    for (auto _ : state)
        for (const char* text : {statements...}) {
            const auto translation = embedded::translate(text, Rows::forwardOnly);
            sqlite3_stmt* statement = nullptr;
            sqlite3_prepare_v2(bare.handle(), translation.sql.c_str(), -1, &statement, nullptr);
            while (sqlite3_step(statement) == SQLITE_ROW)
                for (int column = 0; column < sqlite3_column_count(statement); ++column)
                    benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
            sqlite3_finalize(statement);
        }
}

void stepDictionaries(benchmark::State& state) {
    stepBare(state, "Select * From YZ_区域设置 Order By 区域名称");
}

void stepLeadSettings(benchmark::State& state) {
    stepBare(state, "Select * From YZ_媒体设置 Order By 媒体名称",
             "Select * From YZ_跟进状态设置 Order By len(状态编号),状态编号");
}

void stepPersonnel(benchmark::State& state) {
    const char* duties = "Select * From YZ_主职表 Order By len(主职代号),主职代号";
    stepBare(state, duties, duties);
}

void stepAgencies(benchmark::State& state) {
    stepBare(state,
             "Select 公司名称,法人代表,负责人,负责人电话,公司地址,公司传真,联系人,联系人电话,开户银行,"
             "银行帐号,其它信息 From YZ_中介公司设置 Where 管理处代号='01'");
}

BENCHMARK(openDictionaries)->Unit(benchmark::kMillisecond);
BENCHMARK(stepDictionaries)->Unit(benchmark::kMillisecond);
BENCHMARK(openLeadSettings)->Unit(benchmark::kMillisecond);
BENCHMARK(stepLeadSettings)->Unit(benchmark::kMillisecond);
BENCHMARK(openPersonnel)->Unit(benchmark::kMillisecond);
BENCHMARK(stepPersonnel)->Unit(benchmark::kMillisecond);
BENCHMARK(openAgencies)->Unit(benchmark::kMillisecond);
BENCHMARK(stepAgencies)->Unit(benchmark::kMillisecond);
BENCHMARK(showWholeCompany)->Unit(benchmark::kMillisecond);

}  // namespace
