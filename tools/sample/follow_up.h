#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sample/filler.h"
#include "sample/organisation.h"

namespace desk::sample {

/// One giving of a customer to a person.
struct Assignment {
    std::string 组代号;
    std::string 员工工号;
    DateTime 分配日期;
    std::optional<DateTime> 终止日期;
};

/// One line of a customer's diary.
struct Contact {
    DateTime 跟进日期;
    std::string 跟进人工号;
    std::size_t state = 0;  ///< by place in states()
};

/// What becomes of a customer after the registration.
struct Course {
    std::vector<Assignment> assignments;
    std::vector<Contact> contacts;
};

/// Assigns customers, and writes their diaries.
class FollowUp {
  public:
    FollowUp(Connection& connection, Random& random, const Organisation& organisation, const DateTime& today);

    Course plan(std::size_t office, const DateTime& registered);
    void record(std::size_t office, const std::string& 登记编号, const Course& course);

    /// NULL for a customer that nobody has.
    static Value assignedOn(const Course& course);
    /// The day on which the customer first wanted to sign, if it still does.
    static std::optional<DateTime> readyForLetter(const Course& course);

  private:
    const Person* someoneFor(std::size_t office, std::string& team);
    void planContacts(Course& course, const Assignment& assignment);

    Random& random_;
    const Organisation& organisation_;
    DateTime today_;
    Filler assignments_;
    Filler contacts_;
};

}  // namespace desk::sample
