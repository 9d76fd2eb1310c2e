#include "admin/script_command.h"

#include <fmt/format.h>

#include <fstream>

#include "admin/target.h"
#include "base/failure.h"
#include "base/text.h"
#include "db/transaction.h"

namespace desk::admin {

namespace {

/// The file's lines; those without a statement are empty, so that each keeps its number.
std::vector<std::string> statementsIn(const std::string& script) {
    std::ifstream file(script);
    std::vector<std::string> statements;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const auto statement = trimmed(line);
        statements.emplace_back(statement.starts_with("--") ? std::string_view{} : statement);
    }
    if (!file.eof()) throw RuntimeFailure(failure::fileNotFound, fmt::format("不能读取文件 {}", script));
    return statements;
}

}  // namespace

void runScript(const std::vector<std::string>& words) {
    const Target target(words, {}, 1, "SCRIPT");
    const auto statements = statementsIn(target.plain(0));
    Connection connection = target.open();
    Transaction all(connection);
    int run = 0;
    for (std::size_t i = 0; i < statements.size(); ++i) {
        if (statements[i].empty()) continue;
        try {
            connection.execute(statements[i]);
        } catch (const RuntimeFailure& failure) {
            throw RuntimeFailure(failure.number(), fmt::format("第 {} 行：{}", i + 1, failure.description()));
        }
        ++run;
    }
    all.commit();
    fmt::print("已执行 {} 条语句\n", run);
}

}  // namespace desk::admin
