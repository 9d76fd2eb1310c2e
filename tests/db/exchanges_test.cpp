#include <fmt/format.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "base/number.h"
#include "filled_database.h"
#include "steps.h"
#include "support/replaced.h"

namespace desk {
namespace {

/// `line` before and behind its first blank.
std::pair<std::string, std::string> headAndRest(const std::string& line) {
    return {std::string(codeBeforeBlank(line)), std::string(nameAfterBlank(line))};
}

/// A value as a statement would have it: 'text', 1.5, 2011-03-05 14:00:00, NULL.
Value valueOf(const std::string& words) {
    if (words.starts_with('\'')) return words.substr(1, words.size() - 2);
    if (words == "NULL") return {};
    if (const auto moment = parseDate(words)) return *moment;
    const double number = val(words);
    if (words.find_first_of(".e") != std::string::npos) return number;
    return static_cast<std::int64_t>(number);
}

std::string told(Recordset::Field field) {
    const std::string text = field.text();
    const Value value = field.value();
    EXPECT_EQ(value.isNull(), field.isNull());
    EXPECT_EQ(value.text(), text);
    if (value.isNull()) return "NULL";
    if (!std::holds_alternative<std::string>(value.held())) return text;
    EXPECT_EQ(field.view(), text);
    return sql("'{}'", text);
}

std::string told(Recordset& row) {
    if (row.atEnd()) return "at the end";
    std::vector<std::string> fields;
    for (int column = 0; column < row.columnCount(); ++column) fields.push_back(told(row[column]));
    return join(fields, ", ");
}

/// Somebody who speaks to a database in the lines of the texts in the folder "exchanges":
///
///     Select … or another statement     its rows, or how many it changed
///     > 甲 read Select …                 opens a recordset by that name
///     > 甲 edit Select …                 opens one that can be written
///     > 甲                               the row on which it stands
///     > 甲 next                          the next one
///     > 甲 rest                          all rows from there on
///     > 甲 field 姓名                    one of its fields, by name or number
///     > 甲 set 姓名 'x'                   gives a field a value, as `valueOf` reads it
///     > 甲 new, > 甲 update               starts a row, writes it
///     > begin, > commit, > rollback      a transaction
///     > close                            closes the connection
///     > empty                            goes on at an empty database
///
/// Below each line stands what is told, or "fails" with the number and the text of the failure, and "at" with
/// the statement that the failure names, where that is not the line's own. A NUL is written ␀.
class Speaker {
  public:
    std::vector<std::string> told(const std::string& line) {
        told_.clear();
        sent_.clear();
        try {
            line.starts_with("> ") ? act(line.substr(2)) : run(replaced(line, "␀", nul));
        } catch (const RuntimeFailure& failure) {
            told_.push_back(fmt::format("fails {} {}", failure.number(), failure.description()));
            if (failure.statement() != sent_) told_.push_back(fmt::format("at \"{}\"", failure.statement()));
        }
        for (auto& each : told_) each = replaced(each, nul, "␀");
        return told_;
    }

  private:
    static constexpr std::string_view nul{"", 1};

    void run(const std::string& statement) {
        sent_ = statement;
        if (!schema::sameName(trimmed(statement).substr(0, 6), "select"))
            return told_.push_back(fmt::format("changes {}", database_->connection.execute(statement)));
        Recordset rows(database_->connection, statement);
        tellRest(rows);
    }

    void tellRest(Recordset& rows) {
        if (rows.atEnd()) told_.emplace_back("no rows");
        for (auto& row : rows) told_.push_back(desk::told(row));
    }

    void act(const std::string& line) {
        const auto [first, rest] = headAndRest(line);
        auto& connection = database_->connection;
        if (first == "begin") return connection.begin();
        if (first == "commit") return connection.commit();
        if (first == "rollback") return connection.rollback();
        if (first == "close") return void(connection = Connection());
        if (first == "empty") return void(database_ = std::make_unique<EmptyDatabase>());
        const auto [verb, words] = headAndRest(rest);
        if (verb == "read" || verb == "edit") {
            sent_ = words;
            const auto rows = verb == "edit" ? Rows::updatable : Rows::forwardOnly;
            return void(
                recordsets_.insert_or_assign(first, std::pair(words, Recordset(connection, words, rows))));
        }
        auto& [statement, rows] = recordsets_.at(first);
        sent_ = statement;
        actOn(rows, verb, words);
    }

    void actOn(Recordset& rows, const std::string& verb, const std::string& words) {
        if (verb == "rest") return tellRest(rows);
        if (verb == "new") return rows.addNew();
        if (verb == "update") return rows.update();
        const auto [field, value] = headAndRest(words);
        if (verb == "set") return void(rows[field] = valueOf(value));
        if (verb == "field")
            return told_.push_back(desk::told(isdigit(field[0]) != 0 ? rows[std::stoi(field)] : rows[field]));
        EXPECT_TRUE(verb.empty() || verb == "next") << verb;
        if (verb == "next") rows.moveNext();
        told_.push_back(desk::told(rows));
    }

    std::unique_ptr<EmptyDatabase> database_ = std::make_unique<FilledDatabase>();
    std::map<std::string, std::pair<std::string, Recordset>> recordsets_;  ///< with their statements
    std::string sent_;                                                     ///< the statement of this line
    std::vector<std::string> told_;
};

class Exchange : public testing::TestWithParam<std::string> {};

TEST_P(Exchange, IsAsWrittenDown) {
    const auto name = "exchanges/" + GetParam() + ".txt";
    auto steps = stepsOf(name);
    Speaker speaker;
    for (auto& step : steps) step.told = speaker.told(step.asked);
    compare(name, steps);
}

INSTANTIATE_TEST_SUITE_P(Texts, Exchange,
                         testing::Values("collation", "conversion", "dialect", "like", "pasted", "recordset",
                                         "writing_while_reading", "wrong"),
                         [](const auto& named) { return named.param; });

/// Each statement of the system on a database of its own: how many rows it finds, or changes.
TEST(EveryStatement, DoesWhatStandsBelowIt) {
    auto steps = stepsOf("statements.txt");
    for (auto& step : steps) {
        step.told = Speaker().told(step.asked);
        const bool rows = !step.told[0].starts_with("fails") && !step.told[0].starts_with("changes");
        if (rows) step.told = {fmt::format("rows {}", step.told[0] == "no rows" ? 0 : step.told.size())};
    }
    compare("statements.txt", steps);
}

}  // namespace
}  // namespace desk
