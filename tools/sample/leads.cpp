#include "sample/leads.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "base/text.h"
#include "sample/filler.h"
#include "sample/follow_up.h"

namespace desk::sample {

namespace {

enum class Kind { visit, call, agency, own };

constexpr std::array kindNames = {"引驻来人", "引驻来电", "中介来人", "自行开发"};
constexpr std::array titles = {"总经理",     "行政经理", "行政主管", "办公室主任",
                               "总经理助理", "财务经理", "市场总监", "法人代表"};
constexpr std::array areas = {50, 80, 100, 120, 150, 180, 200, 250, 300, 400, 500, 600, 800, 1000, 1500};
constexpr std::array areaWeights = {6, 9, 14, 10, 12, 6, 13, 7, 9, 4, 5, 2, 1, 1, 1};
constexpr std::array rents = {2.2, 2.5, 2.8, 3.0, 3.2, 3.5, 3.8, 4.0, 4.5, 5.0, 5.5, 6.0};
constexpr std::array points = {"希望免租期两个月", "要求分两期付款",  "需要独立空调", "关注电梯与停车",
                               "要求朝南房源",     "需预留扩租面积",  "希望代办注册", "对物业费有异议",
                               "要求年内入驻",     "需与总部商定价格"};
constexpr std::array floors = {"低区", "高区", "3-5层", "6-8层", "9-12层", "15层以上", "顶层"};
constexpr std::array remarks = {"已留名片", "下周再联系", "与原房东合同到期",
                                "公司扩张", "由朋友带来", "只考虑整层"};

/// A day of the time span; near its end days are likelier, and Sundays are seldom.
DateTime someDay(Random& random, const DateTime& first, int days) {
    for (;;) {
        const int any = random.between(0, days);
        const int late = random.between(-days / 2, days);
        const DateTime moment = first.plusDays(std::max(any, late));
        const auto weekday = std::chrono::weekday(std::chrono::sys_days(moment.day));
        if (weekday != std::chrono::Sunday || random.chance(15)) return moment;
    }
}

std::vector<DateTime> registrationDays(Random& random, int count, int years, const DateTime& today) {
    const int days = years * 365;
    std::vector<DateTime> all;
    all.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) all.push_back(someDay(random, today.plusDays(-days), days));
    std::sort(all.begin(), all.end());
    return all;
}

/// One or a few of `entries`, joined in their own order as the screens do, now and then with words of the
/// visitor.
template <class List>
std::string someOf(Random& random, const List& entries, int most, const char* ownWords) {
    std::vector<std::string> chosen;
    const int wanted = random.between(1, most);
    for (std::size_t i = 0; i < entries.size() && static_cast<int>(chosen.size()) < wanted; ++i)
        if (random.chance(100 * wanted / static_cast<int>(entries.size()) + 8))
            chosen.emplace_back(entries[i]);
    if (chosen.empty()) chosen.emplace_back(random.pick(entries));
    if (random.chance(3)) chosen.emplace_back(ownWords);
    return join(chosen, ",");
}

class Registration {
  public:
    Registration(Connection& connection, Random& random, const Organisation& organisation,
                 const Agencies& agencies)
        : random_(random),
          names_(random),
          organisation_(organisation),
          agencies_(agencies),
          lastSerial_(organisation.offices.size(), 0),
          rows_(connection, "YZ_引驻客户信息",
                {"管理处代号", "登记编号", "流水号",   "客源类别", "公司名称", "中介公司名称",
                 "客户姓名",   "职位",     "客户电话", "传真",     "公司地址", "所在区域",
                 "媒体",       "询问重点", "企业性质", "从事行业", "需求面积", "预算租金",
                 "洽谈重点",   "推荐楼层", "业务员",   "备注",     "登记日期", "分配日期"}) {}

    /// Registers one customer; `assigned` is the day of its assignment, if any.
    Prospect add(std::size_t office, const std::string& number, const Value& serial, const DateTime& day,
                 const Value& assigned) {
        const auto kind = static_cast<Kind>(random_.weighted({45, 38, 14, 3}));
        const Trade& trade = random_.pick(trades());
        const std::string region = random_.pick(regions());
        const bool full = kind != Kind::call;  // a caller tells less than a visitor
        const Value company = random_.chance(companyGiven(kind)) ? Value(names_.company(trade)) : Value();
        rows_.add({organisation_.offices[office].代号,
                   number,
                   serial,
                   kindNames[static_cast<std::size_t>(kind)],
                   company,
                   kind == Kind::agency ? Value(random_.pick(agencies_[office])) : Value(),
                   full ? names_.person() : names_.shortPerson(),
                   full ? Value(random_.pick(titles)) : Value(),
                   names_.phone(),
                   full && random_.chance(25) ? Value(names_.phone()) : Value(),
                   company.isNull() ? Value() : Value(names_.address(region)),
                   region,
                   kind == Kind::agency ? Value() : Value(someOf(random_, media, 2, "微博")),
                   someOf(random_, enquiries, 3, "可否注册公司"),
                   full ? Value(random_.pick(kindsOfEnterprise)) : Value(),
                   trade.name,
                   areas[random_.weighted(areaWeights)],
                   full ? Value(random_.pick(rents)) : Value(),
                   full && random_.chance(60) ? Value(random_.pick(points)) : Value(),
                   full && random_.chance(60) ? Value(random_.pick(floors)) : Value(),
                   random_.pick(organisation_.staff).姓名,
                   random_.chance(25) ? Value(random_.pick(remarks)) : Value(),
                   day,
                   assigned});
        return {rows_.identity(), office, company.text(), trade.name, {}};
    }

    /// The next number of the office as the screens draw it.
    std::pair<std::string, Value> drawnNumber(std::size_t office, const DateTime& day) {
        const std::int64_t serial = ++lastSerial_[office];
        return {fmt::format("{}-{:06}", formatDate(day, "YYYY"), serial), serial};
    }

  private:
    static int companyGiven(Kind kind) { return kind == Kind::call ? 62 : kind == Kind::visit ? 85 : 96; }

    Random& random_;
    Names names_;
    const Organisation& organisation_;
    const Agencies& agencies_;
    std::vector<std::int64_t> lastSerial_;
    Filler rows_;
};

}  // namespace

std::vector<Prospect> addLeads(Connection& connection, Random& random, const Organisation& organisation,
                               const Agencies& agencies, int count, int years, const DateTime& today) {
    Registration registration(connection, random, organisation, agencies);
    FollowUp followUp(connection, random, organisation, today);
    std::vector<Prospect> prospects;
    int typed = 0;
    for (const DateTime& day : registrationDays(random, count, years, today)) {
        const std::size_t office = random.weighted({45, 32, 23});
        // What came in on paper before the desk opened was given a number by hand.
        const auto [number, serial] = random.chance(3) ? std::pair(fmt::format("手工{}", ++typed), Value())
                                                       : registration.drawnNumber(office, day);
        const auto course = followUp.plan(office, day);
        Prospect prospect = registration.add(office, number, serial, day, FollowUp::assignedOn(course));
        followUp.record(office, number, course);
        if (const auto ready = FollowUp::readyForLetter(course); ready && !prospect.公司名称.empty()) {
            prospect.ready = *ready;
            prospects.push_back(std::move(prospect));
        }
    }
    std::stable_sort(prospects.begin(), prospects.end(),
                     [](const Prospect& a, const Prospect& b) { return a.ready < b.ready; });
    return prospects;
}

}  // namespace desk::sample
