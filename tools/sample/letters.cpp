#include "sample/letters.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "sample/filler.h"

namespace desk::sample {

namespace {

enum class Stage { registered, inApproval, passed, refused };

constexpr double propertyRate = 18;  ///< yuan a square metre and month
constexpr int daysAMonth = 30;

constexpr std::array ways = {"押三付三，按季支付", "押二付三，按季支付", "押三付一，按月支付",
                             "押三付六，半年支付"};
constexpr std::array increases = {"第三年起递增5%", "每年递增3%", "租期内不递增", "第二年起递增4%"};
constexpr std::array freePeriods = {"装修免租期一个月", "装修免租期两个月", "免租期45天", "无"};
constexpr std::array backgrounds = {
    "成立于九十年代，在本市有两处办公地点，经营稳定，信誉良好。", "集团全资子公司，计划将华东区总部迁入。",
    "近三年业务增长较快，现有员工六十余人。", "外地企业，首次在本市设立分支机构。"};
constexpr std::array reasons = {"客户要求保留房源，请予审批。", "租金在授权范围内，请审批。",
                                "客户要求延长免租期，特此说明。", "与本层现有租户业态相符，建议同意。"};
constexpr std::array agreed = {"同意", "同意，按此条件签约", "同意，注意租金到账时间", "无异议"};
constexpr std::array refusals = {"租金低于底价，不同意", "免租期过长，请重新洽谈", "业态不符，不同意"};

double toCents(double amount) {
    return std::round(amount * 100) / 100;
}

/// The moment of an office day, `days` after another.
DateTime workingMoment(Random& random, const DateTime& after, int days) {
    DateTime moment = after.dayOnly().plusDays(days);
    moment.time =
        std::chrono::minutes(random.between(9 * 60, 17 * 60)) + std::chrono::seconds(random.between(0, 59));
    return moment;
}

struct Decision {
    bool agrees = true;
    std::optional<DateTime> when;  ///< nothing while the task is open
};

struct Flow {
    Value submitted;
    Value passed;
    Value ended;
    bool atOnce = false;              ///< everybody is asked at the same time, not in turn
    std::vector<Decision> decisions;  ///< one a task, in the order of the path
};

/// Decides task after task, each some days after the one before, until somebody refuses or has not decided
/// yet.
void askInTurn(Random& random, Flow& flow, std::size_t steps, std::size_t stopsAt, Stage stage,
               const DateTime& today) {
    DateTime when = flow.submitted.moment();
    for (std::size_t i = 0; i < steps; ++i) {
        when = workingMoment(random, when, random.between(1, 3));
        if (when.day >= today.day || (stage == Stage::inApproval && i == stopsAt)) {
            flow.decisions.push_back({});
            return;
        }
        const bool refuses = stage == Stage::refused && i == stopsAt;
        flow.decisions.push_back({!refuses, when});
        if (refuses) return;
    }
}

/// All decide when they come to it; the letter ends with the last of them.
void askAtOnce(Random& random, Flow& flow, std::size_t steps, std::size_t stopsAt, Stage stage,
               const DateTime& today) {
    for (std::size_t i = 0; i < steps; ++i) {
        const DateTime when = workingMoment(random, flow.submitted.moment(), random.between(1, 6));
        const bool open = when.day >= today.day || (stage == Stage::inApproval && i >= stopsAt);
        const bool agrees = stage != Stage::refused || i != stopsAt;
        flow.decisions.push_back(open ? Decision{} : Decision{agrees, when});
    }
}

/// How the approval of a letter has gone until today.
Flow planFlow(Random& random, const ApprovalPath& path, Stage stage, const DateTime& submitted,
              const DateTime& today) {
    Flow flow;
    flow.atOnce = path.单级流转;
    if (stage == Stage::registered || path.steps.empty() || submitted.day >= today.day) return flow;
    flow.submitted = submitted;
    const std::size_t stopsAt = random.below(path.steps.size());
    (flow.atOnce ? askAtOnce : askInTurn)(random, flow, path.steps.size(), stopsAt, stage, today);

    bool allAgreed = true;
    DateTime last = submitted;
    for (const Decision& decision : flow.decisions) {
        if (!decision.when) return flow;
        allAgreed = allAgreed && decision.agrees;
        last = std::max(last, *decision.when);
    }
    flow.passed = allAgreed;
    flow.ended = last;
    return flow;
}

/// Letters of old have come to their end, those of late are under way.
Stage stageOf(std::size_t place, std::size_t count) {
    constexpr std::array ofOld = {Stage::passed, Stage::passed,     Stage::refused, Stage::passed,
                                  Stage::passed, Stage::registered, Stage::passed,  Stage::refused};
    constexpr std::array ofLate = {Stage::inApproval, Stage::registered, Stage::passed, Stage::inApproval};
    return place < count * 3 / 5 ? ofOld[place % ofOld.size()] : ofLate[place % ofLate.size()];
}

class Letters {
  public:
    Letters(Connection& connection, Random& random, const Organisation& organisation, const DateTime& today)
        : random_(random),
          organisation_(organisation),
          today_(today),
          lastSerial_(organisation.offices.size(), 0),
          rows_(connection, "YZ_意向书信息",
                {"意向书编号",       "管理处代号",     "流水号",       "引驻客户信息ID", "承租方",
                 "租赁单元",         "租赁面积",       "租赁起始日期", "租赁结束日期",   "租金单价",
                 "月租金",           "物业管理费单价", "月物业管理费", "付款方式",       "递延方式",
                 "物业管理费意向金", "租金意向金",     "意向金合计",   "装修起始日期",   "装修结束日期",
                 "免租期",           "承租方背景",     "申请说明",     "提交日期",       "流转通过",
                 "流转结束日期"}),
          units_(connection, "YZ_意向书单元信息", {"意向书ID", "单元ID", "设置日期", "终止日期"}),
          tasks_(connection, "YZ_意向书审批情况",
                 {"意向书ID", "环节序号", "部门代号", "岗位代号", "审批内容", "同意", "审批日期", "审批人"}) {
    }

    void add(const Prospect& prospect, Stage stage, const std::vector<FreeUnit>& taken) {
        const ApprovalPath& path = organisation_.paths[prospect.office];
        const Flow flow = planFlow(random_, path, stage, workingMoment(random_, prospect.ready, 1), today_);

        double area = 0;
        for (const FreeUnit& unit : taken) area += unit.面积;
        const double rate = random_.between(28, 62) / 10.0;
        const double rent = toCents(area * rate * daysAMonth);
        const double fee = toCents(area * propertyRate);
        const DateTime start = prospect.ready.plusDays(random_.between(20, 60));
        const std::int64_t serial = ++lastSerial_[prospect.office];
        rows_.add({fmt::format("YX{}-{:06}", formatDate(prospect.ready, "YYYYMM"), serial),
                   organisation_.offices[prospect.office].代号,
                   serial,
                   prospect.ID,
                   prospect.公司名称,
                   unitText(taken),
                   toCents(area),
                   start,
                   start.plusDays(365 * random_.between(1, 3) - 1),
                   rate,
                   rent,
                   propertyRate,
                   fee,
                   random_.pick(ways),
                   random_.pick(increases),
                   fee,
                   rent,
                   toCents(rent + fee),
                   start,
                   start.plusDays(random_.between(20, 60)),
                   random_.pick(freePeriods),
                   random_.pick(backgrounds),
                   random_.pick(reasons),
                   flow.submitted,
                   flow.passed,
                   flow.ended});
        const std::int64_t letter = rows_.identity();
        for (const FreeUnit& unit : taken) units_.add({letter, unit.S_ID, start, {}});
        addTasks(letter, path, flow);
        if (flow.passed.flag())
            passed_.push_back({letter, prospect.公司名称, rent, fee, flow.ended.moment()});
    }

    std::vector<PassedLetter> takePassed() { return std::move(passed_); }

  private:
    /// "[section]unit，unit，[section]unit", as the screen writes it.
    static std::string unitText(const std::vector<FreeUnit>& taken) {
        std::string text;
        for (std::size_t i = 0; i < taken.size(); ++i) {
            if (i > 0) text += "，";
            if (i == 0 || taken[i].楼域 != taken[i - 1].楼域) text += "[" + taken[i].楼域 + "]";
            text += taken[i].室;
        }
        return text;
    }

    void addTasks(std::int64_t letter, const ApprovalPath& path, const Flow& flow) {
        int number = flow.atOnce ? 0 : 1;
        auto step = path.steps.begin();
        for (const Decision& decision : flow.decisions) {
            const char* words = decision.agrees ? random_.pick(agreed) : random_.pick(refusals);
            const bool closed = decision.when.has_value();
            tasks_.add({letter, number, step->部门代号, step->岗位代号, closed ? Value(words) : Value(),
                        closed ? Value(decision.agrees) : Value(), closed ? Value(*decision.when) : Value(),
                        closed ? Value(step->姓名) : Value()});
            ++step;
            if (!flow.atOnce) ++number;
        }
    }

    Random& random_;
    const Organisation& organisation_;
    DateTime today_;
    std::vector<std::int64_t> lastSerial_;
    Filler rows_;
    Filler units_;
    Filler tasks_;
    std::vector<PassedLetter> passed_;
};

/// Neighbouring units out of those that are free, which they then are no longer.
std::vector<FreeUnit> takeUnits(Random& random, std::vector<FreeUnit>& free) {
    const auto wanted = std::min<std::size_t>(random.weighted({50, 35, 15}) + 1, free.size());
    const auto first = free.begin() + static_cast<std::ptrdiff_t>(random.below(free.size() - wanted + 1));
    const auto last = first + static_cast<std::ptrdiff_t>(wanted);
    std::vector<FreeUnit> taken(first, last);
    free.erase(first, last);
    return taken;
}

}  // namespace

std::vector<PassedLetter> addLetters(Connection& connection, Random& random, const Organisation& organisation,
                                     const std::vector<Prospect>& prospects, FreeUnits& free,
                                     std::size_t most, const DateTime& today) {
    Letters letters(connection, random, organisation, today);
    const std::size_t count = std::min(most, prospects.size());
    for (std::size_t i = 0; i < count; ++i) {
        const Prospect& prospect = prospects[prospects.size() - count + i];
        auto& units = free[prospect.office];
        if (!units.empty()) letters.add(prospect, stageOf(i, count), takeUnits(random, units));
    }
    return letters.takePassed();
}

}  // namespace desk::sample
