#include "wire/server/tokens.h"

#include <bit>
#include <chrono>
#include <cmath>
#include <map>

namespace desk::wire {

namespace {

using namespace std::string_view_literals;
using schema::Kind;
using tsql::Type;

/// Chinese_PRC_CI_AS.
constexpr auto collation = "\x04\x08\xD0\x00\x24"sv;

namespace status {
constexpr unsigned more = 1;
constexpr unsigned failed = 2;
constexpr unsigned counted = 0x10;
constexpr unsigned attended = 0x20;
}  // namespace status

const std::map<Kind, WireType> stored = {
    {Kind::text, WireType::text},       {Kind::longText, WireType::longText},
    {Kind::integer, WireType::integer}, {Kind::identity, WireType::integer},
    {Kind::flag, WireType::flag},       {Kind::number, WireType::number},
    {Kind::money, WireType::money},     {Kind::date, WireType::moment},
    {Kind::moment, WireType::moment}};

const std::map<Type, WireType> computed = {
    {Type::integer, WireType::bigInteger}, {Type::condition, WireType::bigInteger},
    {Type::null, WireType::bigInteger},    {Type::number, WireType::number},
    {Type::date, WireType::moment},        {Type::moment, WireType::moment},
    {Type::text, WireType::longText}};

/// How the types are described ahead of the rows; the texts' collation follows.
const std::map<WireType, std::string_view> descriptions = {
    {WireType::text, "\xE7\x90\x01"sv},       {WireType::longText, "\xE7\xFF\xFF"sv},
    {WireType::integer, "\x26\x04"sv},        {WireType::bigInteger, "\x26\x08"sv},
    {WireType::flag, "\x68\x01"sv},           {WireType::number, "\x6D\x08"sv},
    {WireType::money, "\x6E\x08"sv},          {WireType::moment, "\x6F\x08"sv},
    {WireType::decimal, "\x6C\x11\x26\x00"sv}};

bool isText(WireType type) {
    return type == WireType::text || type == WireType::longText;
}

void writeText(ByteWriter& out, WireType type, const Value& value) {
    const int width = type == WireType::text ? 2 : 8;
    if (value.isNull()) return out.number(~std::uint64_t{0}, width);
    const auto bytes = utf16Bytes(value.text());
    out.number(bytes.size(), width);
    // A long one comes in parts, of which an empty one is the last.
    if (type == WireType::longText && !bytes.empty()) out.number(bytes.size(), 4);
    out.bytes += bytes;
    if (type == WireType::longText) out.number(0, 4);
}

std::uint64_t daysSince1900(const DateTime& moment) {
    using namespace std::chrono;
    return static_cast<std::uint64_t>((sys_days(moment.day) - sys_days(year(1900) / 1 / 1)).count());
}

}  // namespace

WireColumn wireColumn(const ResultColumn& column) {
    return {column.name,
            column.column != nullptr ? stored.at(column.column->kind) : computed.at(column.type)};
}

void Tokens::counted(int token, std::string_view body) {
    out_.byte(static_cast<unsigned>(token));
    out_.number(body.size(), 2);
    out_.bytes += body;
}

void Tokens::loginAccepted() {
    ByteWriter body;
    body.byte(1);
    body.bigEndian(0x730B0003, 4);  // the version of the protocol
    body.counted("Stand-in", 1);
    body.bigEndian(0x0A320000, 4);
    counted(0xAD, body.bytes);
}

void Tokens::told(int token, int severity, const Failure& failure) {
    ByteWriter body;
    body.number(static_cast<std::uint32_t>(failure.number), 4);
    body.byte(1);
    body.byte(static_cast<unsigned>(severity));
    body.counted(failure.text, 2);
    body.counted("STAND-IN", 1);
    body.counted("", 1);
    body.number(1, 4);
    counted(token, body.bytes);
}

void Tokens::columns(const std::vector<WireColumn>& columns) {
    constexpr unsigned nullable = 1;
    out_.byte(0x81);
    out_.number(columns.size(), 2);
    for (const auto& column : columns) {
        out_.number(0, 4);
        out_.number(nullable, 2);
        out_.bytes += descriptions.at(column.type);
        if (isText(column.type)) out_.bytes += collation;
        out_.counted(column.name, 1);
    }
}

void Tokens::value(const WireColumn& column, const Value& value) {
    const auto put = [&](std::uint64_t number, int width) {
        out_.byte(static_cast<unsigned>(width));
        out_.number(number, width);
    };
    if (isText(column.type)) return writeText(out_, column.type, value);
    if (value.isNull()) return out_.byte(0);
    switch (column.type) {
        case WireType::integer:
            return put(static_cast<std::uint64_t>(value.integer()), 4);
        case WireType::bigInteger:
            return put(static_cast<std::uint64_t>(value.integer()), 8);
        case WireType::flag:
            return put(value.flag() ? 1 : 0, 1);
        case WireType::number:
            return put(std::bit_cast<std::uint64_t>(value.number()), 8);
        case WireType::money: {
            const auto amount = std::llround(value.number() * 1e4);
            return put(std::rotl(static_cast<std::uint64_t>(amount), 32), 8);  // the upper half comes first
        }
        case WireType::moment: {
            const auto moment = value.moment();
            const auto ticks = static_cast<std::uint64_t>(moment.time.count() * 300);
            return put((daysSince1900(moment) & 0xFFFFFFFF) | ticks << 32, 8);
        }
        case WireType::decimal:
            out_.byte(17);
            out_.byte(1);
            out_.number(static_cast<std::uint64_t>(value.integer()), 8);
            return out_.number(0, 8);
        default:
            return;
    }
}

void Tokens::ended(unsigned bits, long rows) {
    out_.byte(0xFD);
    lastStatus_ = out_.bytes.size();
    out_.number(bits, 2);
    out_.number(0, 2);
    out_.number(static_cast<std::uint64_t>(rows), 8);
}

void Tokens::done(std::optional<long> rows) {
    ended(status::more | (rows ? status::counted : 0), rows.value_or(0));
}

void Tokens::failed(const Failure& failure) {
    told(0xAA, 16, failure);
    ended(status::more | status::failed);
}

void Tokens::attended() {
    ended(status::attended);
}

std::string Tokens::finished() {
    out_.bytes[lastStatus_] &= static_cast<char>(~status::more);
    return std::move(out_.bytes);
}

}  // namespace desk::wire
