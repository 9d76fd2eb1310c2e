#pragma once

#include "db/connection.h"
#include "platform/platform.h"
#include "tour/tour.h"

namespace desk::tour {

/// What the tour looks up in the database, on a connection of its own.
class Witness {
  public:
    explicit Witness(Connection& connection) : connection_(connection) {}
    /// The first field of the statement's first row, empty without one.
    std::string first(const std::string& statement);
    /// The first office as combos show it.
    std::string officeEntry();

  private:
    Connection& connection_;
};

/// From the login to the main window of staff 1001.
void logIn(Tour& tour);
/// A lead of each kind, registered and looked up.
void registerLeads(Tour& tour, Witness& witness);
/// The manager gives the walk-in to consultant 1015.
void assignLead(Tour& tour, Witness& witness);
/// Every tab of the setup screens: an entry is added, changed and deleted, and a wrong one refused.
void keepReferenceData(Tour& tour, Witness& witness);
/// The consultant records three contacts with it.
void followLeadUp(Tour& tour, Witness& witness);
/// The path of an office is made anew, in three steps, and one of them deleted; another office is given one
/// that asks all at once.
void layPaths(Tour& tour, Witness& witness);
/// The consultant writes a letter of intent for the walk-in, with two units, and two short ones, and submits
/// them.
void writeLetters(Tour& tour, Witness& witness);
/// The general manager agrees to the first, refuses the second, and is one of two who agree to the third.
void decideFirst(Tour& tour, Witness& witness);
/// The manager of finance agrees to what is left: both letters pass.
void decideLast(Tour& tour, Witness& witness);
/// The states of all leads as a pie, put out as a workbook into `folder`.
void analyseStates(Tour& tour, Witness& witness, const QString& folder);
/// The customers of all kinds, of one kind and trade, and of one agency, put out as a workbook into `folder`.
void classifyCustomers(Tour& tour, Witness& witness, const QString& folder);
/// Visits and calls of a year by all views, counted once more by the witness, and put out into `folder`.
void countWeeks(Tour& tour, Witness& witness, const QString& folder);
/// Out of the session and into that of another person, who has one position.
void changeTo(Tour& tour, const QString& user);
/// What a cashier may choose.
void showCashiersMenu(Tour& tour);
/// The cashier charges both letters that have passed: invoices by the program that prints them into
/// `journal`, a receipt picked by hand, prints that failed, and a refund.
void takeDeposits(Tour& tour, Witness& witness, Platform& machine, const QString& journal);

}  // namespace desk::tour
