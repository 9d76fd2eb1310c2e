#include <gtest/gtest.h>

#include "all_statements.h"
#include "filled_database.h"

namespace desk {
namespace {

/// What a statement does to a freshly filled database, as statement_results.txt tells it.
std::string outcome(const std::string& statement) {
    FilledDatabase filled;
    try {
        const auto blanks = statement.find_first_not_of(' ');
        const bool selects = schema::sameName(statement.substr(blanks, 6), "select");
        if (!selects) return "changes " + std::to_string(filled.connection.execute(statement));
        return "rows " + std::to_string(filled.rows(statement).size());
    } catch (const RuntimeFailure& failure) {
        return "fails " + std::to_string(failure.number());
    }
}

TEST(EveryStatement, DoesWhatItsLineInTheResultsTells) {
    const auto statements = allStatements();
    const auto results = linesOf("statement_results.txt");
    ASSERT_EQ(statements.size(), results.size());
    for (std::size_t i = 0; i < statements.size(); ++i) {
        const auto expected = std::to_string(i + 1) + " " + outcome(statements[i]);
        EXPECT_EQ(results[i], expected) << statements[i];
    }
}

}  // namespace
}  // namespace desk
