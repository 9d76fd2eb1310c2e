#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date.h"
#include "db/connection.h"
#include "sample/names.h"

namespace desk::sample {

struct Office {
    std::string 代号;
    std::string 名称;
};

struct Person {
    std::string 工号;
    std::string 姓名;
};

struct Team {
    std::string 代号;
    std::vector<Person> members;       ///< in service
    std::vector<std::size_t> offices;  ///< that it serves, by place
};

/// One step of an approval path, or one task on a letter.
struct Step {
    std::string 部门代号;
    std::string 岗位代号;
    std::string 姓名;  ///< of the position's holder
};

struct ApprovalPath {
    bool 单级流转 = false;
    std::vector<Step> steps;  ///< none where the office has no path yet
};

/// Who works where. What the other parts of the sample refer to.
struct Organisation {
    std::vector<Office> offices;
    std::vector<ApprovalPath> paths;  ///< by office
    std::vector<Team> teams;
    std::vector<Person> staff;  ///< in service
    Person whoLeft;             ///< once of the last team
    Person cashier;
    std::string cashierDepartment;
};

/// Adds the offices, departments, positions, `staff` people with their privileges (at least as many as there
/// are fixed posts), the rules of numbering, teams and approval paths.
Organisation addOrganisation(Connection& connection, Random& random, int staff, const DateTime& today);

/// The fewest people that addOrganisation takes.
int fewestStaff();

}  // namespace desk::sample
