#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "db/recordset.h"
#include "db/statement.h"

namespace desk {

/// What the map keeps of the unit in a cell; of a cell without one, all of it empty.
struct 房源 {
    std::int32_t 单元ID = 0;
    bool 可出租 = false;
    std::string 客户编号;  ///< empty without a tenant
    std::string 客户名称;
    std::string 层次;
    double 面积 = 0;  ///< to two digits
    bool 装修中 = false;
    std::string 楼域;
};

/// How much of a section is let.
struct 楼域统计 {
    double 未租份额 = 0;  ///< in percent; below 0 where more is let than can be rented
    double 出租率 = 0;    ///< in percent
    std::string 楼域;
    double 可出租总面积 = 0;
};

/// The sections of an office among `L_IDs`, each with its units, as they stand today: what can be rented,
/// what is let and to whom. A section without units is a row without a unit.
std::string 房源语句(std::string_view 管理处代号, const std::vector<std::string>& L_IDs,
                     const DateTime& today);

/// The rows of that statement, one after the other.
class 房源行 {
  public:
    explicit 房源行(Recordset rows);

    bool atEnd() const { return rows_.atEnd(); }
    void moveNext() { rows_.moveNext(); }

    std::int64_t L_ID() { return rows_[lId_].integer(); }
    std::string 楼域() { return rows_[dz_].text(); }
    bool hasUnit() { return !rows_[unit_].isNull(); }
    std::string 室() { return rows_[room_].text(); }
    bool 可出租();
    bool hasTenant() { return !rows_[tenant_].isNull(); }
    bool 装修中() { return !rows_[fitting_].isNull(); }
    /// 0 where nobody has measured it.
    double 建筑面积() { return rows_[area_].number(); }
    /// Fails with 13 where nobody has measured the unit.
    房源 unit();

  private:
    Recordset rows_;
    int dz_;
    int lId_;
    int unit_;
    int room_;
    int area_;
    int floor_;
    int state_;
    int fitting_;
    int tenantName_;
    int tenant_;
};

}  // namespace desk
