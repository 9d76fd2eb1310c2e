#pragma once

#include "db/connection.h"
#include "tour/tour.h"

namespace desk::tour {

/// What the tour looks up in the database, on a connection of its own.
class Witness {
  public:
    explicit Witness(Connection& connection) : connection_(connection) {}
    /// The first field of the statement's first row, empty without one.
    std::string first(const std::string& statement);

  private:
    Connection& connection_;
};

/// From the login to the main window of staff 1001.
void logIn(Tour& tour);
/// A lead of each kind, registered and looked up.
void registerLeads(Tour& tour, Witness& witness);
/// Out of one session and into another, and the end of the program.
void logOff(Tour& tour);

}  // namespace desk::tour
