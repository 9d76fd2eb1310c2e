#include "db/odbc/odbc_failure.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"

namespace desk::odbc {

namespace {

std::string utf8(const SQLWCHAR* units) {
    return toUtf8(reinterpret_cast<const char16_t*>(units));
}

/// What the server says, without the names of those who have passed it on.
std::string withoutOrigin(std::string_view text) {
    while (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return std::string(trimmed(text));
}

template <std::size_t count>
bool isOneOf(const std::array<long, count>& numbers, long number) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

/// The driver's own: reading and writing failed, the other end has closed, no server, not connected.
constexpr std::array<long, 6> lost = {20003, 20004, 20006, 20009, 20017, 20047};
constexpr std::array<long, 4> rules = {515, 547, 2601, 2627};
constexpr std::array<long, 2> tooLong = {2628, 8152};
constexpr std::array<long, 14> conversions = {220, 232, 235, 241,  242,  244,  245,
                                              248, 293, 295, 8114, 8115, 8134, 9807};
// The driver has one state for all that is wrong, a full disk and a deadlock included.
constexpr long firstOfStatements = 101;
constexpr long lastOfStatements = 499;
constexpr long noPermission = 229;
constexpr long noSuchTable = 208;
constexpr long lockTimeOut = 1222;

long numberOf(const Diagnosis& diagnosis) {
    const std::string_view state = diagnosis.state;
    const long number = diagnosis.number;
    if (tellsLostServer(diagnosis)) return failure::unspecified;
    if (state == "HYT00" || state == "HYT01" || number == lockTimeOut) return failure::timedOut;
    if (number == noSuchTable || state == "42S02") return failure::unknownTable;
    if (isOneOf(rules, number) || state.starts_with("23")) return failure::violatedRule;
    if (isOneOf(tooLong, number) || state == "22001") return failure::textTooLong;
    if (isOneOf(conversions, number) || state.starts_with("22")) return failure::badConversion;
    const bool ofStatement = number == 0 || (number >= firstOfStatements && number <= lastOfStatements);
    if (ofStatement && number != noPermission && state.starts_with("42")) return failure::wrongStatement;
    return failure::unspecified;
}

}  // namespace

std::vector<Diagnosis> diagnosesOf(SQLSMALLINT kind, SQLHANDLE handle) {
    std::vector<Diagnosis> found;
    for (SQLSMALLINT record = 1;; ++record) {
        std::array<SQLWCHAR, 6> state{};
        std::array<SQLWCHAR, 2048> text{};
        SQLINTEGER number = 0;
        SQLSMALLINT units = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, record, state.data(), &number, text.data(),
                                          static_cast<SQLSMALLINT>(text.size()), &units)))
            return found;
        found.push_back({utf8(state.data()), number, withoutOrigin(utf8(text.data()))});
    }
}

Diagnosis causeOf(const std::vector<Diagnosis>& diagnoses) {
    if (diagnoses.empty()) return {"HY000", 0, "驱动程序没有说明原因。"};
    for (const auto& each : diagnoses)
        if (tellsLostServer(each) || !each.state.starts_with("01")) return each;
    return diagnoses.front();
}

bool tellsLostServer(const Diagnosis& diagnosis) {
    return diagnosis.state.starts_with("08") || isOneOf(lost, diagnosis.number);
}

RuntimeFailure failureOf(const Diagnosis& diagnosis) {
    const long number = numberOf(diagnosis);
    if (tellsLostServer(diagnosis))
        return {number, "与数据库服务器的连接已中断。请检查网络和服务器，然后重新登录。"};
    if (number == failure::timedOut)
        return {number, "超时已过期：数据库服务器没有及时应答，或所需的数据正被其他工作站占用。"};
    return {number, diagnosis.text};
}

}  // namespace desk::odbc
