#include "sample/organisation.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "sample/filler.h"
#include "sample/privileges.h"

namespace desk::sample {

namespace {

struct Department {
    const char* 编号;
    const char* 名称;
    const char* 类别;
    const char* 上级;
};

constexpr std::array<Department, 4> departments = {{{"1", "鸿序物业总部", "1", nullptr},
                                                    {"101", "招商部", "2", "1"},
                                                    {"102", "客户服务部", "3", "1"},
                                                    {"103", "财务部", "4", "1"}}};

/// A post that one person holds. `heldWith` is the post that the same person holds as the main one.
struct Post {
    int 代号;
    std::string 名称;
    const char* 部门;
    const char* 类别;
    std::vector<Group> groups;
    int heldWith = 0;
};

constexpr int vacantPost = 204;
constexpr int leftPost = 205;  ///< whose holder has left, and is vacant since
constexpr int firstConsultant = 2001;
constexpr int firstService = 3001;

const std::array<Post, 14> fixedPosts = {{
    {101, "总经理", "1", "1", {Group::everything}},
    {201, "招商部经理", "101", "2", {Group::everything}},
    {102, "副总经理", "1", "1", {Group::approval, Group::statistics}, 201},
    {103, "行政秘书", "1", "4", {Group::statistics}},
    {202,
     "招商主管",
     "101",
     "2",
     {Group::registration, Group::assignment, Group::statistics, Group::letters}},
    {203, "招商内勤", "101", "4", {Group::registration, Group::reference}},
    {vacantPost, "招商策划", "101", "4", {Group::statistics}},
    {leftPost, "大客户经理", "101", "3", {Group::registration, Group::letters}},
    {301, "客户服务部经理", "102", "2", {Group::approval, Group::statistics}},
    {302, "前台接待", "102", "4", {Group::registration}},
    {210, "兼职招商顾问", "101", "3", {Group::registration, Group::letters}, 302},
    {401, "财务部经理", "103", "2", {Group::approval, Group::deposits}},
    {402, "出纳", "103", "4", {Group::deposits}},
    {403, "会计", "103", "4", {Group::deposits, Group::statistics}},
}};

struct Holding {
    Person person;
    Post post;
};

/// The people while they are being taken on.
class Staffing {
  public:
    Staffing(Connection& connection, Names& names, const DateTime& today)
        : names_(names),
          today_(today),
          people_(connection, "员工档案", {"工号", "姓名", "帐号密码", "离职日期"}),
          posts_(connection, "岗位信息new",
                 {"岗位代号", "岗位名称", "职能部门代号", "岗位类别代号", "工号", "主要职责", "起始日期",
                  "备注", "终止日期"}),
          held_(connection, "岗位员工new", {"员工代号", "岗位代号", "主要岗位", "离岗日期"}) {}

    void takeOn(const Post& post) {
        if (post.代号 == vacantPost) return addPost(post, {});
        if (post.代号 == leftPost) return takeOnAndLose(post);
        const Person person = post.heldWith == 0 ? newPerson({}) : holderOf(post.heldWith);
        addPost(post, person.工号);
        held_.add({person.工号, std::to_string(post.代号), post.heldWith == 0, {}});
        holdings_.push_back({person, post});
    }

    /// Takes on `count` people for posts of one kind, numbered from the post's own number on.
    void takeOn(const Post& kind, int count) {
        for (int i = 1; i <= count; ++i) {
            Post post = kind;
            post.代号 += i - 1;
            post.名称 += std::to_string(i);
            takeOn(post);
        }
    }

    Person holderOf(int post) const {
        return std::find_if(holdings_.begin(), holdings_.end(),
                            [&](const Holding& h) { return h.post.代号 == post; })
            ->person;
    }

    const std::vector<Holding>& holdings() const { return holdings_; }
    const Person& whoLeft() const { return left_; }

  private:
    Person newPerson(const Value& left) {
        const Person person{std::to_string(++lastNumber_), names_.person()};
        people_.add({person.工号, person.姓名, "hx" + person.工号, left});
        return person;
    }

    void addPost(const Post& post, std::string_view holder) {
        posts_.add({std::to_string(post.代号),
                    post.名称,
                    post.部门,
                    post.类别,
                    nullIfEmpty(holder),
                    fmt::format("{}职责", post.名称),
                    today_.plusDays(-1500),
                    "",
                    {}});
    }

    void takeOnAndLose(const Post& post) {
        left_ = newPerson(today_.plusDays(-120));
        addPost(post, {});
        held_.add({left_.工号, std::to_string(post.代号), true, today_.plusDays(-120)});
    }

    Names& names_;
    DateTime today_;
    Filler people_;
    Filler posts_;
    Filler held_;
    std::vector<Holding> holdings_;
    Person left_;
    int lastNumber_ = 1000;
};

std::vector<Office> addOffices(Connection& connection) {
    const std::vector<Office> offices = {
        {"01", "鸿序国际大厦"}, {"02", "序园科技广场"}, {"03", "临江商务中心"}};
    Filler rows(connection, "设置管理处", {"GYD_DH", "GYD_Name", "终止日期"});
    for (const Office& office : offices) rows.add({office.代号, office.名称, {}});
    return offices;
}

void addDepartments(Connection& connection, const std::vector<Office>& offices, const DateTime& today) {
    Filler kinds(connection, "职能部门类别", {"部门类别代号", "部门类别名称"});
    kinds.add({"1", "管理部门"});
    kinds.add({"2", "业务部门"});
    kinds.add({"3", "服务部门"});
    kinds.add({"4", "财务部门"});
    Filler posts(connection, "岗位类别", {"岗位类别编号", "岗位类别名称"});
    posts.add({"1", "高级管理"});
    posts.add({"2", "部门管理"});
    posts.add({"3", "业务"});
    posts.add({"4", "行政支持"});

    Filler rows(connection, "职能部门new", {"职能部门编号", "职能部门名称", "职能部门类别代号", "终止日期"});
    Filler parents(connection, "上级部门new", {"职能部门编号", "上级部门编号", "起始日期"});
    Filler served(connection, "职能部门对应管理项目设置", {"职能部门编号", "管理处代号", "终止日期"});
    for (const Department& department : departments) {
        rows.add({department.编号, department.名称, department.类别, {}});
        if (department.上级 != nullptr)
            parents.add({department.编号, department.上级, today.plusDays(-1000)});
        for (const Office& office : offices) served.add({department.编号, office.代号, {}});
    }
    // The service department once stood under the sales department, and once served an office that was
    // closed.
    parents.add({"102", "101", today.plusDays(-2000)});
    served.add({"102", "09", today.plusDays(-700)});
}

/// The teams, the consultants dealt out to them in turn.
std::vector<Team> addTeams(Connection& connection, const std::vector<Office>& offices,
                           const std::vector<Person>& consultants, const Person& whoLeft,
                           const DateTime& today) {
    struct Plan {
        const char* 名称;
        std::vector<std::size_t> offices;
    };
    const std::array<Plan, 4> plans = {
        {{"国际大厦组", {0}}, {"科技广场组", {1}}, {"商务中心组", {2}}, {"大客户组", {0, 1, 2}}}};

    Filler duties(connection, "YZ_主职表", {"主职代号", "主职名称", "主职说明"});
    duties.add({"1", "组长", "带领本组，审核跟进记录"});
    duties.add({"2", "招商顾问", "接待、跟进客户"});
    duties.add({"3", "招商助理", "协助登记与回访"});

    Filler rows(connection, "YZ_组表", {"组代号", "组名称", "组说明"});
    Filler served(connection, "YZ_组对应管理项目设置", {"组代号", "管理处代号", "设置日期", "终止日期"});
    Filler members(connection, "YZ_组人员设置",
                   {"组代号", "员工工号", "主职代号", "设置日期", "备注", "终止日期"});
    std::vector<Team> teams;
    for (std::size_t i = 0; i < plans.size(); ++i) {
        Team team{std::to_string(i + 1), {}, plans[i].offices};
        rows.add({team.代号, plans[i].名称, ""});
        for (const std::size_t office : team.offices)
            served.add({team.代号, offices[office].代号, today.plusDays(-900), {}});
        for (std::size_t person = i; person < consultants.size(); person += plans.size()) {
            const char* duty = team.members.empty() ? "1" : person % 5 == 4 ? "3" : "2";
            members.add({team.代号, consultants[person].工号, duty, today.plusDays(-900), "", {}});
            team.members.push_back(consultants[person]);
        }
        teams.push_back(team);
    }
    served.add({"1", offices[1].代号, today.plusDays(-900), today.plusDays(-400)});
    members.add({"4", whoLeft.工号, "2", today.plusDays(-900), "离职", today.plusDays(-120)});
    return teams;
}

/// The first office has a path from step to step, the second one that asks all at once, the third none yet.
std::vector<ApprovalPath> addPaths(Connection& connection, const std::vector<Office>& offices,
                                   const Staffing& staffing, const DateTime& today) {
    const auto step = [&](const char* department, int post) {
        return Step{department, std::to_string(post), staffing.holderOf(post).姓名};
    };
    const std::vector<ApprovalPath> paths = {{false, {step("101", 201), step("103", 401), step("1", 101)}},
                                             {true, {step("101", 201), step("102", 301), step("103", 401)}},
                                             {}};
    Filler rows(connection, "YZ_意向书审批路径设置",
                {"审批路径代号", "审批路径名称", "管理处代号", "单级流转", "起始日期", "备注", "终止日期"});
    Filler steps(connection, "YZ_意向书审批路径",
                 {"意向书审批ID", "审批环节序号", "部门代号", "岗位代号", "起始日期", "备注", "终止日期"});
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (paths[i].steps.empty()) continue;
        rows.add({fmt::format("LJ{:02}", i + 1),
                  fmt::format("{}审批流程", offices[i].名称),
                  offices[i].代号,
                  paths[i].单级流转,
                  today.plusDays(-800),
                  paths[i].单级流转 ? "各部门同时审批" : "逐级审批",
                  {}});
        const std::int64_t path = rows.identity();
        int number = 0;
        for (const Step& asked : paths[i].steps)
            steps.add({path, ++number, asked.部门代号, asked.岗位代号, today.plusDays(-800), "", {}});
    }
    return paths;
}

void addNumbering(Connection& connection) {
    Filler rules(connection, "Temp_Type", {"TypeName", "Value", "Character"});
    rules.add({"引驻登记", "年份", {}});
    rules.add({"意向书登记", "年份+月份", "YX"});
}

}  // namespace

int fewestStaff() {
    // Posts held beside another one need nobody, a vacant one neither; a consultant a team, and one at the
    // counter.
    const auto alone = std::count_if(fixedPosts.begin(), fixedPosts.end(), [](const Post& post) {
        return post.heldWith == 0 && post.代号 != vacantPost;
    });
    return static_cast<int>(alone) + 5;
}

Organisation addOrganisation(Connection& connection, Random& random, int staff, const DateTime& today) {
    Organisation made;
    Names names(random);
    made.offices = addOffices(connection);
    addDepartments(connection, made.offices, today);

    Staffing staffing(connection, names, today);
    for (const Post& post : fixedPosts) staffing.takeOn(post);
    const int others = staff - (fewestStaff() - 5);
    const int atTheCounter = std::max(1, others / 4);
    staffing.takeOn({firstConsultant, "招商顾问", "101", "3", {Group::registration, Group::letters}},
                    others - atTheCounter);
    staffing.takeOn({firstService, "客服专员", "102", "4", {Group::registration}}, atTheCounter);

    Privileges privileges(connection);
    std::vector<Person> consultants;
    for (const auto& [person, post] : staffing.holdings()) {
        privileges.grant(std::to_string(post.代号), post.groups);
        if (post.heldWith == 0) made.staff.push_back(person);
        if (post.类别 == std::string_view("3")) consultants.push_back(person);
    }
    privileges.allowAudit("1", "101");
    privileges.allowAudit("101", "201");
    made.teams = addTeams(connection, made.offices, consultants, staffing.whoLeft(), today);
    made.paths = addPaths(connection, made.offices, staffing, today);
    addNumbering(connection);
    made.cashier = staffing.holderOf(402);
    made.cashierDepartment = "103";
    made.whoLeft = staffing.whoLeft();
    return made;
}

}  // namespace desk::sample
