#include "sample/follow_up.h"

#include <algorithm>
#include <array>

#include "sample/dictionaries.h"

namespace desk::sample {

namespace {

constexpr std::size_t wantsToSign = 6;
constexpr std::size_t signedAlready = 7;
constexpr std::size_t waits = 8;
constexpr std::size_t givenUp = 9;

/// What salespeople note, by state.
constexpr std::array<std::array<const char*, 3>, 10> notes = {
    {{"电话介绍项目基本情况", "客户表示先了解", "约定下次联系时间"},
     {"已寄送项目资料", "资料已发邮件，待确认", "补寄平面图及报价"},
     {"约好本周来看房", "客户改约下周看房", "已安排看房车辆"},
     {"陪同看房，客户较满意", "看房后嫌面积偏大", "第二次看房，带主管同来"},
     {"客户有意向，索要报价", "对楼层满意，谈付款方式", "要求保留房源三天"},
     {"谈租金单价，差距不大", "要求延长免租期", "总部审批价格中"},
     {"同意签意向书", "准备签约资料", "意向金数额已谈妥"},
     {"合同已签，准备入驻", "已交首期租金", "办理入驻手续"},
     {"预算未批，暂缓", "原租约未到期，暂缓", "年后再联系"},
     {"已租别处", "价格差距大，放弃", "电话多次无人接听"}}};

}  // namespace

FollowUp::FollowUp(Connection& connection, Random& random, const Organisation& organisation,
                   const DateTime& today)
    : random_(random),
      organisation_(organisation),
      today_(today),
      assignments_(connection, "YZ_引驻客户分配",
                   {"登记编号", "管理处代号", "组代号", "员工工号", "分配日期", "终止日期"}),
      contacts_(
          connection, "YZ_引驻客户跟进记录",
          {"管理处代号", "登记编号", "跟进日期", "跟进人工号", "跟进情况", "跟进状态编号", "预约日期"}) {}

const Person* FollowUp::someoneFor(std::size_t office, std::string& team) {
    std::vector<const Team*> serving;
    for (const Team& candidate : organisation_.teams)
        if (std::find(candidate.offices.begin(), candidate.offices.end(), office) !=
                candidate.offices.end() &&
            !candidate.members.empty())
            serving.push_back(&candidate);
    // The office's own team comes first, the one for the large customers helps out.
    const Team& chosen = random_.chance(60) ? *serving.front() : *random_.pick(serving);
    team = chosen.代号;
    return &random_.pick(chosen.members);
}

Course FollowUp::plan(std::size_t office, const DateTime& registered) {
    Course course;
    const DateTime first = registered.plusDays(random_.between(0, 6));
    if (first > today_ || random_.chance(18)) return course;

    Assignment assignment;
    assignment.员工工号 = someoneFor(office, assignment.组代号)->工号;
    assignment.分配日期 = first;
    const DateTime changed = first.plusDays(random_.between(20, 90));
    const bool changes = changed < today_ && random_.chance(10);
    if (changes) assignment.终止日期 = changed;
    // Who has left the firm had customers too: somebody else took them over.
    if (changes && changed < today_.plusDays(-120) && random_.chance(30)) {
        assignment.组代号 = organisation_.teams.back().代号;
        assignment.员工工号 = organisation_.whoLeft.工号;
    }
    course.assignments.push_back(assignment);
    planContacts(course, assignment);
    if (changes && random_.chance(70)) {
        Assignment next;
        next.员工工号 = someoneFor(office, next.组代号)->工号;
        next.分配日期 = changed;
        course.assignments.push_back(next);
        planContacts(course, next);
    }
    return course;
}

void FollowUp::planContacts(Course& course, const Assignment& assignment) {
    const DateTime end = std::min(assignment.终止日期.value_or(today_), today_);
    DateTime day = assignment.分配日期;
    std::size_t state = course.contacts.empty() ? 0 : course.contacts.back().state;
    for (int left = random_.between(0, 6); left > 0 && state <= signedAlready; --left) {
        day = day.plusDays(random_.between(1, 12));
        if (day > end) return;
        if (!course.contacts.empty() && random_.chance(9)) state = random_.chance(40) ? waits : givenUp;
        course.contacts.push_back({day, assignment.员工工号, state});
        if (state >= signedAlready) return;
        state = std::min(state + random_.below(3), signedAlready);
    }
}

void FollowUp::record(std::size_t office, const std::string& 登记编号, const Course& course) {
    const std::string& 管理处代号 = organisation_.offices[office].代号;
    for (const Assignment& given : course.assignments)
        assignments_.add({登记编号, 管理处代号, given.组代号, given.员工工号, given.分配日期,
                          given.终止日期 ? Value(*given.终止日期) : Value()});
    for (const Contact& contact : course.contacts)
        contacts_.add({管理处代号, 登记编号, contact.跟进日期, contact.跟进人工号,
                       random_.pick(notes[contact.state]), states()[contact.state].状态编号,
                       contact.state < signedAlready && random_.chance(40)
                           ? Value(contact.跟进日期.plusDays(random_.between(2, 10)))
                           : Value()});
}

Value FollowUp::assignedOn(const Course& course) {
    // A later assignment overwrites the day on the customer.
    return course.assignments.empty() ? Value() : Value(course.assignments.back().分配日期);
}

std::optional<DateTime> FollowUp::readyForLetter(const Course& course) {
    if (course.contacts.empty() || course.contacts.back().state > signedAlready) return std::nullopt;
    const auto found = std::find_if(course.contacts.begin(), course.contacts.end(),
                                    [](const Contact& contact) { return contact.state >= wantsToSign; });
    if (found == course.contacts.end()) return std::nullopt;
    return found->跟进日期;
}

}  // namespace desk::sample
