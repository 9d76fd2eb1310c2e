#include "sample/property.h"

#include <fmt/format.h>

#include <algorithm>

#include "sample/filler.h"

namespace desk::sample {

namespace {

constexpr int roomsAFloor = 8;
constexpr int floorsASection = 10;
constexpr int sectionsABuilding = 2;
constexpr int unitsASection = roomsAFloor * floorsASection;

struct Section {
    int L_ID = 0;
    std::size_t office = 0;
    int building = 0;  ///< within the office, from 1
    bool upper = false;
    std::string 楼域;
};

/// The sections that `units` units fill, building by building, the offices in turn.
std::vector<Section> sectionsFor(int units, const std::vector<Office>& offices) {
    std::vector<Section> sections;
    const int count = (units + unitsASection - 1) / unitsASection;
    for (int i = 0; i < count; ++i) {
        const int building = i / sectionsABuilding;
        const int officeCount = static_cast<int>(offices.size());
        Section section{i + 1,
                        static_cast<std::size_t>(building % officeCount),
                        building / officeCount + 1,
                        i % sectionsABuilding == 1,
                        {}};
        section.楼域 = fmt::format("{}{}号楼{}区", offices[section.office].名称, section.building,
                                   section.upper ? "高" : "低");
        sections.push_back(section);
    }
    return sections;
}

/// What stands for one unit on the day of the sample.
enum class Use { free, let, kept, fittingOut };

class Building {
  public:
    Building(Connection& connection, Random& random, const DateTime& today)
        : random_(random),
          names_(random),
          today_(today),
          units_(connection, "室表",
                 {"S_ID", "L_ID", "室", "层次", "建筑面积", "装修日期", "开始日期", "结束日期"}),
          states_(connection, "单元出租状态", {"单元ID", "状态", "设置日期", "终止日期"}),
          contracts_(connection, "合同信息", {"客户编号"}),
          contractUnits_(connection, "合同单元信息", {"单元ID", "合同ID", "起始日期", "终止日期"}),
          tenants_(connection, "客户信息", {"客户编号", "客户名称"}) {}

    void addUnit(const Section& section, int number, std::vector<FreeUnit>& free) {
        const int floor = number / roomsAFloor + 1 + (section.upper ? floorsASection : 0);
        FreeUnit unit{++lastUnit_, section.楼域, fmt::format("{}{:02}", floor, number % roomsAFloor + 1),
                      random_.between(4500, 32000) / 100.0};
        const auto use = static_cast<Use>(random_.weighted({30, 58, 7, 5}));
        units_.add({unit.S_ID,
                    section.L_ID,
                    unit.室,
                    std::to_string(floor),
                    unit.面积,
                    use == Use::fittingOut ? Value(today_.plusDays(-random_.between(5, 40))) : Value(),
                    today_.plusDays(-2500),
                    {}});
        addStates(unit.S_ID, use);
        addTenants(unit.S_ID, use);
        if (use == Use::free) free.push_back(unit);
    }

  private:
    void addStates(int unit, Use use) {
        // A unit that was never given a state may be let, so not every one has a row.
        if (use != Use::kept && random_.chance(15)) return;
        const DateTime since = today_.plusDays(-random_.between(200, 1500));
        if (random_.chance(20)) states_.add({unit, "自用", since.plusDays(-300), since});
        states_.add({unit, use == Use::kept ? "自用" : "可出租", since, {}});
    }

    void addTenants(int unit, Use use) {
        if (random_.chance(30)) {
            const DateTime end = today_.plusDays(-random_.between(400, 900));
            addContract(unit, newTenant(), end.plusDays(-730), end);
        }
        if (use == Use::fittingOut) addContract(unit, newTenant(), today_.plusDays(-45), {});
        if (use != Use::let) return;
        // A tenant often takes the unit next door as well.
        if (lastTenant_.empty() || !random_.chance(35)) lastTenant_ = newTenant();
        const DateTime start = today_.plusDays(-random_.between(30, 390));
        addContract(unit, lastTenant_, start, random_.chance(80) ? Value(start.plusDays(1095)) : Value());
    }

    std::string newTenant() {
        const std::string number = fmt::format("KH{:05}", ++lastTenantNumber_);
        tenants_.add({number, names_.company(random_.pick(trades()))});
        return number;
    }

    void addContract(int unit, const std::string& tenant, const DateTime& start, const Value& end) {
        contracts_.add({tenant});
        contractUnits_.add({unit, contracts_.identity(), start, end});
    }

    Random& random_;
    Names names_;
    DateTime today_;
    Filler units_;
    Filler states_;
    Filler contracts_;
    Filler contractUnits_;
    Filler tenants_;
    int lastUnit_ = 0;
    int lastTenantNumber_ = 0;
    std::string lastTenant_;
};

}  // namespace

FreeUnits addProperty(Connection& connection, Random& random, const Organisation& organisation, int units,
                      const DateTime& today) {
    FreeUnits free(organisation.offices.size());
    Filler rows(
        connection, "楼表",
        {"L_ID", "楼编号", "地址1", "地址2", "字2", "地址3", "字3", "管理处", "开始日期", "终止日期"});
    Filler seen(connection, "楼域范围设置", {"工号", "L_ID"});
    Building building(connection, random, today);
    int left = units;
    for (const Section& section : sectionsFor(units, organisation.offices)) {
        const Office& office = organisation.offices[section.office];
        rows.add({section.L_ID,
                  std::to_string(section.L_ID),
                  office.名称,
                  std::to_string(section.building),
                  "号楼",
                  section.upper ? "高" : "低",
                  "区",
                  office.代号,
                  today.plusDays(-2600),
                  {}});
        for (const Person& person : organisation.staff) seen.add({person.工号, section.L_ID});
        for (int number = 0; number < std::min(left, unitsASection); ++number)
            building.addUnit(section, number, free[section.office]);
        left -= std::min(left, unitsASection);
    }
    return free;
}

}  // namespace desk::sample
