#pragma once

#include <string>

#include "reference/setup_grid.h"
#include "session/application.h"
#include "ui/tree.h"

namespace desk {

/// The offices that a team serves, as ticks. A link is ended, never deleted, so that its history stays.
class TeamOffices {
  public:
    /// `teams` has the team as its current row.
    TeamOffices(Place place, Application& app, SetupGrid& teams);
    TeamOffices(const TeamOffices&) = delete;
    TeamOffices& operator=(const TeamOffices&) = delete;

    void load();
    /// Ticks the offices of the current team, none without one.
    void showCurrent();

    Tree TreeView3;

  private:
    void change(TreeNode& office, bool ticked);
    void 更新组管理处(const std::string& 组代号, const std::string& 管理处代号);

    Application& app_;
    SetupGrid& teams_;
};

}  // namespace desk
