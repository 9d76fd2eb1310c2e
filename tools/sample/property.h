#pragma once

#include <string>
#include <vector>

#include "sample/organisation.h"

namespace desk::sample {

/// A unit that nobody rents and that may be let.
struct FreeUnit {
    int S_ID = 0;
    std::string 楼域;
    std::string 室;
    double 面积 = 0;
};

/// The units that are free, by office, in the order of the building.
using FreeUnits = std::vector<std::vector<FreeUnit>>;

/// Adds buildings with `units` units, their states, tenants and contracts, and lets everybody see every
/// building.
FreeUnits addProperty(Connection& connection, Random& random, const Organisation& organisation, int units,
                      const DateTime& today);

}  // namespace desk::sample
