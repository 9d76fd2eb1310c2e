#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/connection.h"
#include "db/engine.h"

namespace desk {

/// What happens to the statements of a FailingEngine. Opening a recordset, running a statement, writing a
/// row, and each end of a transaction count as one.
struct Fault {
    int in = 0;  ///< the so manieth statement from now fails; 0: none does
    long number = 0;
    std::vector<std::string> statements{};  ///< all so far, the failed one included
    /// Told of each of them: a statement, or a written row as "adds A='1', B=Null" or "changes …".
    std::function<void(std::string_view)> seen = [](std::string_view) {};
    /// Told of each database that is opened; here it can be filled.
    std::function<void(Engine&)> opened = [](Engine&) {};

    /// To be called before each statement.
    void meet(std::string_view statement);

    static constexpr const char* text = "数据库不见了";
};

/// An engine whose every statement goes to another, but for the one that `fault` picks.
class FailingEngine : public Engine {
  public:
    FailingEngine(std::unique_ptr<Engine> behind, Fault& fault) : behind_(std::move(behind)), fault_(fault) {}

    std::unique_ptr<Cursor> open(std::string_view statement, Rows mode) override;
    long execute(std::string_view statement) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    std::vector<Difference> differencesOf(const schema::Table& table) override {
        return behind_->differencesOf(table);
    }

  private:
    std::unique_ptr<Engine> behind_;
    Fault& fault_;
};

}  // namespace desk
