#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sample/leads.h"
#include "sample/property.h"

namespace desk::sample {

/// A letter of intent that has passed, for the collection of its deposits.
struct PassedLetter {
    std::int64_t ID = 0;
    std::string 承租方;
    double 租金意向金 = 0;
    double 物业管理费意向金 = 0;
    DateTime passed;
};

/// Adds up to `most` letters of intent for the prospects, each with units of its office that are free, in
/// every stage: registered, in approval, passed, refused.
std::vector<PassedLetter> addLetters(Connection& connection, Random& random, const Organisation& organisation,
                                     const std::vector<Prospect>& prospects, FreeUnits& free,
                                     std::size_t most, const DateTime& today);

}  // namespace desk::sample
