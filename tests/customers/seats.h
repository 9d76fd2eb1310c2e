#pragma once

#include <functional>
#include <string>
#include <vector>

#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "support/test_program.h"

namespace desk {

/// What a seat does; it gives what went wrong, "" if nothing.
using Seat = std::function<std::string()>;

/// Runs each seat as a process of its own, at the same time: they begin when all of them are there.
void runSeats(const std::vector<Seat>& seats);

/// Does `work` in a program that has entered with that database open; gives what went wrong, "" if nothing.
std::string seated(const std::string& connectionString, const std::function<void(TestProgram&)>& work);

/// A team for office 01 with one person in it, and a state of her records.
void addTeam(TestProgram& program);

/// Enters a new lead on a page of office 01 and saves it; without a number it draws one. Fails with what the
/// screen says.
void registerLead(TestProgram& program, 登记页& page, const std::string& company,
                  const std::string& number = {});
/// Hands a lead out to that person. Fails with what the screen says.
void assignLead(TestProgram& program, Frm客户跟进信息分配& screen, const std::string& number);
/// Records a visit to a lead.
void recordVisit(Frm客户跟进记录& screen, const std::string& number);

}  // namespace desk
