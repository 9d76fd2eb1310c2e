#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace desk {

/// A failure as the program's users know it: a number and a text. Nobody traps it but where a screen's own
/// rules say so; at the edge of the program it ends the process (see desktop/edge.h).
class RuntimeFailure : public std::runtime_error {
  public:
    RuntimeFailure(long number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    long number() const { return number_; }
    std::string description() const { return what(); }

    /// The statement that the database refused, empty where none was sent.
    const std::string& statement() const { return statement_; }
    /// Notes the statement, unless one has been noted nearer to the failure.
    void setStatement(std::string statement) {
        if (statement_.empty()) statement_ = std::move(statement);
    }

  private:
    long number_;
    std::string statement_;
};

/// Failure numbers that more than one room raises.
namespace failure {
inline constexpr long invalidCall = 5;
inline constexpr long overflow = 6;
inline constexpr long subscript = 9;
inline constexpr long typeMismatch = 13;
inline constexpr long fileNotFound = 53;
inline constexpr long permissionDenied = 70;
inline constexpr long pathAccess = 75;
inline constexpr long invalidNull = 94;
inline constexpr long spreadsheet = 1004;
inline constexpr long invalidIndex = 381;
inline constexpr long objectRequired = 424;
inline constexpr long noCurrentRow = 3021;
inline constexpr long updateNotSupported = 3251;
inline constexpr long noSuchField = 3265;
inline constexpr long closedRecordset = 3704;
inline constexpr long closedConnection = 3709;
inline constexpr long duplicateKey = 35602;
inline constexpr long elementNotFound = 35601;
inline constexpr long wrongStatement = -2147217900;
inline constexpr long badConversion = -2147217913;
inline constexpr long violatedRule = -2147217873;
inline constexpr long timedOut = -2147217871;
inline constexpr long unknownTable = -2147217865;
inline constexpr long textTooLong = -2147217833;
inline constexpr long fieldNotWritable = -2147217887;
inline constexpr long rowGone = -2147217864;
inline constexpr long unspecified = -2147467259;
}  // namespace failure

}  // namespace desk
