#pragma once

#include <string>
#include <vector>

#include "sample/filler.h"

namespace desk::sample {

/// What a position may do, as bundles of menu entries.
enum class Group {
    everything = 1,
    registration,
    assignment,
    letters,
    approval,
    deposits,
    statistics,
    reference
};

/// Adds the privilege groups, and grants them to positions.
class Privileges {
  public:
    explicit Privileges(Connection& connection);

    void grant(const std::string& 岗位代号, const std::vector<Group>& groups);
    /// Lets a position see across departments.
    void allowAudit(const std::string& 部门代号, const std::string& 岗位代号);

  private:
    Filler granted_;
    Filler audits_;
};

}  // namespace desk::sample
