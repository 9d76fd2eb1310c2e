#pragma once

#include <string>

#include "session/application.h"
#include "ui/grid.h"

namespace desk {

/// The list of a letter's approvals: who is asked in which position, what they said, and when.
class 审批意见列表 {
  public:
    /// How the moment of a decision is shown.
    enum class Dates { asStored, toTheSecond };

    审批意见列表(Place place, std::string name, std::string_view format, Application& app, Dates dates);

    /// Shows the approvals of the letter of that `ID`. A row whose position or department has gone is left
    /// out.
    void show(const std::string& 意向书ID);
    /// The number of approvals that are shown.
    int count() const { return 列表.rows() - 列表.fixedRows(); }

    Grid 列表;

  private:
    Application& app_;
    Dates dates_;
};

}  // namespace desk
