#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int rowCount = 20000;

/// A folder with a table of 20,000 leads, a line each.
struct Folder {
    Folder() {
        std::filesystem::create_directories(path);
        std::ofstream table(path / "table.csv");
        for (int i = 0; i < rowCount; ++i)
            table << i + 1 << ",2011-" << i << ",盛远国际贸易有限公司" << i << ",陈先生,138000" << 10000 + i
                  << ",世纪大道" << i % 900 << "号,浦东,报纸,软件," << i % 800 << ".5," << i % 9 << ",2011-3-"
                  << i % 28 + 1 << "\n";
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string file(const char* name) const { return (path / name).string(); }
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("export-bench-" + std::to_string(getpid()));
};

Folder& folder() {
    static Folder only;
    return only;
}

/// Runs the program to its end, and notes the most memory that it had.
void runProgram(benchmark::State& state, const std::vector<std::string>& command, const std::string& result) {
    folder();
    rusage usage{};
    for (auto _ : state) {
        const pid_t child = fork();
        if (child == 0) {
            std::vector<char*> arguments;
            for (const auto& part : command) arguments.push_back(const_cast<char*>(part.c_str()));
            arguments.push_back(nullptr);
            if (freopen("/dev/null", "w", stdout) == nullptr) _exit(126);
            execvp(arguments.front(), arguments.data());
            _exit(127);
        }
        int status = 0;
        wait4(child, &status, 0, &usage);
        if (status != 0 || !std::filesystem::exists(result)) {
            state.SkipWithError("it failed");
            break;
        }
    }
    state.counters["megabytes"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

void exportTable(benchmark::State& state) {
    const auto out = folder().file("own.xls");
    runProgram(state, {EXPORT_PROGRAM, folder().file("table.csv"), out}, out);
}

void exportByXlwt(benchmark::State& state) {
    const auto out = folder().file("xlwt.xls");
    runProgram(state, {"/usr/bin/python3", PEERS "/export_table.py", folder().file("table.csv"), out}, out);
}

void exportByLibreOffice(benchmark::State& state) {
    runProgram(state,
               {"soffice", "-env:UserInstallation=file://" + folder().file("profile"), "--headless",
                "--infilter=CSV:44,34,76", "--convert-to", "xls", "--outdir", folder().file("office"),
                folder().file("table.csv")},
               folder().file("office/table.xls"));
}

BENCHMARK(exportTable)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(exportByXlwt)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(exportByLibreOffice)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace
