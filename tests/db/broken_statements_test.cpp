#include <gtest/gtest.h>

#include <random>

#include "db/embedded/translation.h"
#include "filled_database.h"

namespace desk {
namespace {

/// Pieces of a statement that mostly are its words.
std::vector<std::string> piecesOf(const std::string& statement) {
    std::vector<std::string> pieces;
    bool inWord = false;
    for (const char c : statement) {
        const bool word = (c & 0x80) != 0 || std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
        if (!word || !inWord) pieces.emplace_back();
        pieces.back() += c;
        inWord = word;
    }
    return pieces;
}

class Mutator {
  public:
    Mutator() {
        for (const auto& step : stepsOf("statements.txt")) pieces_.push_back(piecesOf(step.asked));
    }

    std::string next() {
        auto pieces = any(pieces_);
        for (auto changes = random_() % 4 + 1; changes > 0 && !pieces.empty(); --changes) {
            const auto at = pieces.begin() + static_cast<long>(random_() % pieces.size());
            switch (random_() % 5) {
                case 0:
                    pieces.erase(at);
                    break;
                case 1:
                    *at = any(any(pieces_));
                    break;
                case 2:
                    pieces.insert(at, any(any(pieces_)));
                    break;
                case 3:
                    std::swap(*at, any(pieces));
                    break;
                default:
                    at->insert(random_() % (at->size() + 1), 1, static_cast<char>(random_()));
                    break;
            }
        }
        return join(pieces, "");
    }

  private:
    template <class List>
    typename List::value_type& any(List& list) {
        return list[random_() % list.size()];
    }

    std::mt19937 random_{20110305};
    std::vector<std::vector<std::string>> pieces_;
};

/// A broken statement fails with a number of its own; nothing else may come of it. A statement that is
/// translated is one that the engine takes.
TEST(BrokenStatements, FailAsStatements) {
    FilledDatabase filled;
    Mutator mutator;
    int refused = 0;
    int taken = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto statement = mutator.next();
        try {
            embedded::translate(statement, Rows::forwardOnly);
        } catch (const RuntimeFailure& failure) {
            ++refused;
            ASSERT_TRUE(failure.number() == failure::wrongStatement ||
                        failure.number() == failure::unknownTable ||
                        failure.number() == failure::badConversion)
                << statement;
            continue;
        }
        ++taken;
        // Inside a transaction, so that a Delete that lost its condition does not empty the tables for the
        // rest.
        filled.connection.begin();
        const auto number = failureOf([&] { filled.connection.execute(statement); });
        filled.connection.rollback();
        ASSERT_TRUE(number == 0 || number == failure::badConversion || number == failure::violatedRule)
            << number << " " << statement;
    }
    EXPECT_GT(refused, 1000);
    EXPECT_GT(taken, 1000);
}

}  // namespace
}  // namespace desk
