#pragma once

#include <vector>

#include "schema/catalogue.h"

namespace desk::schema {

/// The system's own tables.
std::vector<Table> tenantTables();

/// The tables of the surrounding property system.
std::vector<Table> sharedTables();

/// Words in which the two lists are written.
namespace words {
constexpr Column id(std::string_view name) {
    return {name, Kind::identity, true};
}
constexpr Column key(std::string_view name) {
    return {name, Kind::text, true};
}
constexpr Column text(std::string_view name) {
    return {name, Kind::text};
}
constexpr Column longText(std::string_view name) {
    return {name, Kind::longText};
}
constexpr Column integer(std::string_view name) {
    return {name, Kind::integer};
}
constexpr Column number(std::string_view name) {
    return {name, Kind::number};
}
constexpr Column money(std::string_view name) {
    return {name, Kind::money};
}
constexpr Column flag(std::string_view name) {
    return {name, Kind::flag};
}
constexpr Column date(std::string_view name) {
    return {name, Kind::date};
}
constexpr Column moment(std::string_view name) {
    return {name, Kind::moment};
}
}  // namespace words

}  // namespace desk::schema
