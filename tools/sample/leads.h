#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sample/dictionaries.h"
#include "sample/organisation.h"

namespace desk::sample {

/// A customer whose follow-up has come as far as a letter.
struct Prospect {
    std::int64_t ID = 0;
    std::size_t office = 0;
    std::string 公司名称;
    std::string 从事行业;
    DateTime ready;  ///< the day of that record
};

/// Adds `count` customers of all kinds, registered in the `years` up to today in the order of their days,
/// most of them assigned, with what their salespeople noted. Gives those that are ready for a letter, oldest
/// first.
std::vector<Prospect> addLeads(Connection& connection, Random& random, const Organisation& organisation,
                               const Agencies& agencies, int count, int years, const DateTime& today);

}  // namespace desk::sample
