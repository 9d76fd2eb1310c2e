#pragma once

#include <cstdint>
#include <string_view>

#include "base/date.h"
#include "db/connection.h"

namespace desk::sample {

/// How large a sample is, and when it stands.
struct Size {
    int leads = 2000;
    int units = 600;
    int staff = 30;
    int years = 2;  ///< over which the leads came in
    std::uint64_t seed = 1;
};

/// Fills an empty database with a property that nobody owns: offices, departments, staff with their
/// privileges, teams, dictionaries, buildings with tenants, customers with their follow-up, letters of intent
/// in every stage, tickets and deposits. The same size and day give the same rows, on every machine.
/// `taxProgram` is the path of the program that prints its tax invoices. In one transaction: a failure leaves
/// the database empty.
void fill(Connection& connection, const Size& size, const DateTime& today,
          std::string_view taxProgram = "/opt/tax-program");

/// What size may be asked for; outside of it `fill` is not defined.
struct Limits {
    int least;
    int most;
};
Limits leadLimits();
Limits unitLimits();
Limits staffLimits();
Limits yearLimits();

}  // namespace desk::sample
