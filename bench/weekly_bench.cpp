#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "analysis/weekly_analysis.h"
#include "db/embedded/embedded.h"
#include "db/embedded/sqlite.h"
#include "db/embedded/translation.h"
#include "sample/sample.h"
#include "support/test_program.h"

namespace {

using namespace desk;

constexpr int leadCount = 100000;

/// A sample property with 100,000 leads of two years in a file, which the program and SQLite alone read.
struct Property {
    Property() {
        embedded::createDatabase(file.string());
        open();
        sample::Size size;
        size.leads = leadCount;
        sample::fill(program.db(), size, program.clock.today());
        // As a seat finds it in the morning.
        open();
        program.enter();
        program.app.session.登录部门编号 = department();
        program.app.screens.offer<Frm每周来客统计分析>(program.app);
        bare.emplace(file.string(), embedded::Sqlite::Missing::isFailure, std::chrono::seconds(5));
    }
    ~Property() { std::filesystem::remove(file); }

    void open() {
        program.app.主连接.open("Initial Catalog='" + file.string() + "';Data Source='(embedded)'",
                                std::chrono::seconds(5));
    }
    std::string department() {
        return program
            .rows(
                "Select 职能部门编号 From 职能部门对应管理项目设置 Where 终止日期 is Null Order By "
                "职能部门编号")
            .front();
    }
    /// All eight views of the first office over a year; gives the statements that they sent.
    std::vector<std::string> count() {
        auto& screen = program.app.screens.get<Frm每周来客统计分析>();
        if (!screen.选择区域.hasSelection()) screen.选择区域.pick(0);
        screen.开始日期.pick(program.clock.today().plusDays(-364));
        screen.全部.setChecked(true);
        program.fault.statements.clear();
        screen.统计.click();
        return program.fault.statements;
    }

    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("weekly-bench-" + std::to_string(getpid()) + ".db");
    TestProgram program;
    std::optional<embedded::Sqlite> bare;
};

Property& property() {
    static Property only;
    return only;
}

void countTheYear(benchmark::State& state) {
    property();
    for (auto _ : state) state.counters["statements"] = static_cast<double>(property().count().size());
    const auto& grid = property().program.app.screens.get<Frm每周来客统计分析>().统计结果;
    state.counters["rows"] = grid.rows();
    if (grid.rows() < 365 + 8) state.SkipWithError("not all views are there");
}

/// The same statements, each opened, read to its end and closed.
void stepTheSameStatements(benchmark::State& state) {
    std::vector<embedded::Translation> statements;
    for (const auto& statement : property().count())
        statements.push_back(embedded::translate(statement, Rows::forwardOnly));
    for (auto _ : state) {
        std::size_t read = 0;
        for (const auto& statement : statements) {
            auto rows = property().bare->prepare(statement.sql);
            while (rows.step())
                for (int column = 0; column < static_cast<int>(statement.columns.size()); ++column)
                    read += rows.text(column).size();
        }
        benchmark::DoNotOptimize(read);
    }
    state.counters["statements"] = static_cast<double>(statements.size());
}

BENCHMARK(countTheYear)->Unit(benchmark::kMillisecond);
BENCHMARK(stepTheSameStatements)->Unit(benchmark::kMillisecond);

}  // namespace
