#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "db/result_column.h"
#include "wire/server/bytes.h"

namespace desk::wire {

/// A failure as servers tell it.
struct Failure {
    static constexpr int lostToAnother = 1205;  ///< two seats have waited for each other

    int number = 0;
    std::string text{};
    int severity = 16;
};

/// What a column is on the wire.
enum class WireType {
    text,
    longText,
    integer,
    bigInteger,
    flag,
    number,
    money,
    moment,
    smallMoment,
    decimal
};

struct WireColumn {
    std::string name;
    WireType type;
};

/// The type that the definition of the tables gives such a column.
WireColumn wireColumn(const ResultColumn& column);

/// Composes a reply token by token.
class Tokens {
  public:
    void loginAccepted(std::uint32_t version);
    void changed(int what, std::string_view now, std::string_view before);
    void changedCollation();
    void transactionBegun();
    void transactionEnded(bool committed);
    void note(int number, std::string_view text);
    void failure(const Failure& failure);
    void columns(const std::vector<WireColumn>& columns);
    void beginRow() { out_.byte(0xD1); }
    void value(const WireColumn& column, const Value& value);
    /// The end of a statement; with the number of rows that it has given or changed, where it tells any.
    void done(std::optional<long> rows, bool more = true, bool failed = false);
    void attended();

    /// Takes all that is composed; what was the last end of a statement becomes the end of the reply.
    std::string finished();

  private:
    void told(int token, const Failure& failure);
    void done(unsigned status, long rows);

    ByteWriter out_;
    std::optional<std::size_t> lastDone_;
};

}  // namespace desk::wire
