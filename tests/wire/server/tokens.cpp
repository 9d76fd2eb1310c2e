#include "wire/server/tokens.h"

#include <bit>
#include <chrono>
#include <cmath>

namespace desk::wire {

namespace {

using schema::Kind;

constexpr std::string_view serverName = "STAND-IN";
/// Chinese_PRC_CI_AS.
constexpr std::string_view collation{"\x04\x08\xD0\x00\x24", 5};

namespace status {
constexpr unsigned more = 1;
constexpr unsigned failed = 2;
constexpr unsigned counted = 0x10;
constexpr unsigned attended = 0x20;
}  // namespace status

constexpr std::uint64_t transactionNumber = 1;

WireType typeOf(const ResultColumn& column) {
    using tsql::Type;
    if (column.column != nullptr) {
        switch (column.column->kind) {
            case Kind::text:
                return WireType::text;
            case Kind::longText:
                return WireType::longText;
            case Kind::integer:
            case Kind::identity:
                return WireType::integer;
            case Kind::flag:
                return WireType::flag;
            case Kind::number:
                return WireType::number;
            case Kind::money:
                return WireType::money;
            case Kind::date:
            case Kind::moment:
                return WireType::moment;
        }
    }
    switch (column.type) {
        case Type::integer:
        case Type::condition:
        case Type::null:
            return WireType::bigInteger;
        case Type::number:
            return WireType::number;
        case Type::date:
        case Type::moment:
            return WireType::moment;
        case Type::text:
            break;
    }
    return WireType::longText;
}

long daysSince1900(const DateTime& moment) {
    using namespace std::chrono;
    return (sys_days(moment.day) - sys_days(year(1900) / 1 / 1)).count();
}

std::uint64_t inTenThousandths(double amount) {
    return static_cast<std::uint64_t>(std::llround(amount * 1e4));
}

}  // namespace

WireColumn wireColumn(const ResultColumn& column) {
    return {column.name, typeOf(column)};
}

void Tokens::loginAccepted(std::uint32_t version) {
    ByteWriter body;
    body.byte(1);
    body.bigEndian(version, 4);
    body.counted("Stand-in", 1);
    body.bigEndian(0x0A320000, 4);
    out_.byte(0xAD);
    out_.number(body.bytes.size(), 2);
    out_.bytes += body.bytes;
}

void Tokens::changed(int what, std::string_view now, std::string_view before) {
    ByteWriter body;
    body.byte(static_cast<unsigned>(what));
    body.counted(now, 1);
    body.counted(before, 1);
    out_.byte(0xE3);
    out_.number(body.bytes.size(), 2);
    out_.bytes += body.bytes;
}

void Tokens::changedCollation() {
    constexpr int collationChange = 7;
    out_.byte(0xE3);
    out_.number(3 + collation.size(), 2);
    out_.byte(collationChange);
    out_.byte(collation.size());
    out_.bytes += collation;
    out_.byte(0);
}

void Tokens::transactionBegun() {
    out_.byte(0xE3);
    out_.number(11, 2);
    out_.byte(8);
    out_.byte(8);
    out_.number(transactionNumber, 8);
    out_.byte(0);
}

void Tokens::transactionEnded(bool committed) {
    out_.byte(0xE3);
    out_.number(11, 2);
    out_.byte(committed ? 9 : 10);
    out_.byte(0);
    out_.byte(8);
    out_.number(transactionNumber, 8);
}

void Tokens::told(int token, const Failure& failure) {
    ByteWriter body;
    body.number(static_cast<std::uint32_t>(failure.number), 4);
    body.byte(1);
    body.byte(static_cast<unsigned>(failure.severity));
    body.counted(failure.text, 2);
    body.counted(serverName, 1);
    body.counted("", 1);
    body.number(1, 4);
    out_.byte(static_cast<unsigned>(token));
    out_.number(body.bytes.size(), 2);
    out_.bytes += body.bytes;
}

void Tokens::note(int number, std::string_view text) {
    told(0xAB, {number, std::string(text), 0});
}

void Tokens::failure(const Failure& failure) {
    told(0xAA, failure);
}

void Tokens::columns(const std::vector<WireColumn>& columns) {
    constexpr unsigned nullable = 1;
    out_.byte(0x81);
    out_.number(columns.size(), 2);
    for (const auto& column : columns) {
        out_.number(0, 4);
        out_.number(nullable, 2);
        switch (column.type) {
            case WireType::text:
            case WireType::longText:
                out_.byte(0xE7);
                out_.number(column.type == WireType::text ? 400 : 0xFFFF, 2);
                out_.bytes += collation;
                break;
            case WireType::integer:
                out_.bytes += "\x26\x04";
                break;
            case WireType::bigInteger:
                out_.bytes += "\x26\x08";
                break;
            case WireType::flag:
                out_.bytes += "\x68\x01";
                break;
            case WireType::number:
                out_.bytes += "\x6D\x08";
                break;
            case WireType::money:
                out_.bytes += "\x6E\x08";
                break;
            case WireType::moment:
                out_.bytes += "\x6F\x08";
                break;
            case WireType::smallMoment:
                out_.bytes += "\x6F\x04";
                break;
            case WireType::decimal:
                out_.bytes += std::string_view("\x6C\x11\x26\x00", 4);
                break;
        }
        out_.counted(column.name, 1);
    }
}

void Tokens::value(const WireColumn& column, const Value& value) {
    if (column.type == WireType::text || column.type == WireType::longText) {
        const auto bytes = utf16Bytes(value.text());
        if (column.type == WireType::text) {
            if (value.isNull()) return out_.number(0xFFFF, 2);
            out_.number(bytes.size(), 2);
            out_.bytes += bytes;
            return;
        }
        if (value.isNull()) return out_.number(~std::uint64_t{0}, 8);
        out_.number(bytes.size(), 8);
        if (!bytes.empty()) out_.number(bytes.size(), 4);
        out_.bytes += bytes;
        return out_.number(0, 4);
    }
    if (value.isNull()) return out_.byte(0);
    switch (column.type) {
        case WireType::integer:
            out_.byte(4);
            return out_.number(static_cast<std::uint64_t>(value.integer()), 4);
        case WireType::bigInteger:
            out_.byte(8);
            return out_.number(static_cast<std::uint64_t>(value.integer()), 8);
        case WireType::flag:
            out_.byte(1);
            return out_.byte(value.flag() ? 1 : 0);
        case WireType::number:
            out_.byte(8);
            return out_.number(std::bit_cast<std::uint64_t>(value.number()), 8);
        case WireType::money: {
            const auto amount = inTenThousandths(value.number());
            out_.byte(8);
            out_.number(amount >> 32, 4);
            return out_.number(amount, 4);
        }
        case WireType::moment: {
            const auto moment = value.moment();
            out_.byte(8);
            out_.number(static_cast<std::uint64_t>(daysSince1900(moment)), 4);
            return out_.number(static_cast<std::uint64_t>(moment.time.count() * 300), 4);
        }
        case WireType::smallMoment: {
            const auto moment = value.moment();
            out_.byte(4);
            out_.number(static_cast<std::uint64_t>(daysSince1900(moment)), 2);
            return out_.number(static_cast<std::uint64_t>(moment.time.count() / 60), 2);
        }
        case WireType::decimal:
            out_.byte(17);
            out_.byte(value.integer() < 0 ? 0 : 1);
            out_.number(static_cast<std::uint64_t>(std::abs(value.integer())), 8);
            return out_.number(0, 8);
        default:
            return;
    }
}

void Tokens::done(unsigned bits, long rows) {
    lastDone_ = out_.bytes.size();
    out_.byte(0xFD);
    out_.number(bits, 2);
    out_.number(0, 2);
    out_.number(static_cast<std::uint64_t>(rows), 8);
}

void Tokens::done(std::optional<long> rows, bool more, bool failed) {
    done((more ? status::more : 0) | (failed ? status::failed : 0) | (rows ? status::counted : 0),
         rows.value_or(0));
}

void Tokens::attended() {
    done(status::attended, 0);
}

std::string Tokens::finished() {
    if (!lastDone_) done(0U, 0);
    out_.bytes[*lastDone_ + 1] &= static_cast<char>(~status::more);
    lastDone_.reset();
    return std::move(out_.bytes);
}

}  // namespace desk::wire
