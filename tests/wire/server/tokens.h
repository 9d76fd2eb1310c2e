#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/result_column.h"
#include "db/value.h"
#include "wire/server/bytes.h"

namespace desk::wire {

/// A failure as servers tell it.
struct Failure {
    static constexpr int lostToAnother = 1205;  ///< two seats have waited for each other

    int number = 0;
    std::string text{};
};

/// What a column is on the wire.
enum class WireType { text, longText, integer, bigInteger, flag, number, money, moment, decimal };

struct WireColumn {
    std::string name;
    WireType type;
};

/// The type that the definition of the tables gives such a column.
WireColumn wireColumn(const ResultColumn& column);

/// Composes a reply token by token.
class Tokens {
  public:
    void loginAccepted();
    void note(int number, std::string_view text) { told(0xAB, 0, {number, std::string(text)}); }
    void columns(const std::vector<WireColumn>& columns);
    void beginRow() { out_.byte(0xD1); }
    void value(const WireColumn& column, const Value& value);
    /// The end of a statement; with the number of rows that it has given or changed, where it tells any.
    void done(std::optional<long> rows = {});
    void failed(const Failure& failure);
    void attended();

    /// Takes all that is composed; what was the last end of a statement becomes the end of the reply.
    std::string finished();

  private:
    void told(int token, int severity, const Failure& failure);
    void counted(int token, std::string_view body);
    void ended(unsigned status, long rows = 0);

    ByteWriter out_;
    std::size_t lastStatus_ = 0;
};

}  // namespace desk::wire
