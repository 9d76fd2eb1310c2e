#include "sample/privileges.h"

#include <array>

namespace desk::sample {

namespace {

constexpr const char* thisModule = "引驻台账";

struct Bundle {
    Group group;
    std::vector<const char*>
        entries;  ///< captions of the menu; a top entry opens its menu only with a row of its own
};

const std::array<Bundle, 8> bundles = {{
    {Group::everything, {"引驻信息管理", "客户信息登记", "客户跟进分配", "客户跟进管理",       "意向客户管理",
                         "意向客户登记", "意向客户审批", "意向金收取",   "统计报表",           "来电统计分析",
                         "来客统计分析", "跟进状态分析", "客户分类统计", "基础信息设置",       "人员设置",
                         "中介公司设置", "客户设置",     "引驻设置",     "意向书审批流程设置", "关于我们"}},
    {Group::registration, {"引驻信息管理", "客户信息登记", "客户跟进管理", "关于我们"}},
    {Group::assignment, {"引驻信息管理", "客户跟进分配", "基础信息设置", "人员设置"}},
    {Group::letters, {"意向客户管理", "意向客户登记"}},
    {Group::approval, {"意向客户管理", "意向客户审批", "关于我们"}},
    {Group::deposits, {"意向客户管理", "意向金收取", "关于我们"}},
    {Group::statistics,
     {"统计报表", "来电统计分析", "来客统计分析", "跟进状态分析", "客户分类统计", "关于我们"}},
    {Group::reference, {"基础信息设置", "中介公司设置", "客户设置", "引驻设置"}},
}};

Value number(Group group) {
    return std::to_string(static_cast<int>(group));
}

void addGroups(Connection& connection) {
    Filler rows(connection, "GroupPrivilege", {"GroupID", "FormName", "Popedom", "memo"});
    for (const Bundle& bundle : bundles)
        for (const char* entry : bundle.entries) rows.add({number(bundle.group), entry, true, thisModule});
    // Those who only register are refused the assignment, until another group of theirs grants it.
    rows.add({number(Group::registration), "客户跟进分配", false, thisModule});
    // Other modules keep their entries in the same table.
    rows.add({number(Group::deposits), "物业费收取", true, "收费管理"});
    rows.add({number(Group::statistics), "收费统计", true, "收费管理"});
}

}  // namespace

Privileges::Privileges(Connection& connection)
    : granted_(connection, "岗位权限设置", {"组代号", "岗位代号", "授权"}),
      audits_(connection, "专项审核权限表", {"类型", "部门代号", "岗位代号"}) {
    addGroups(connection);
}

void Privileges::grant(const std::string& 岗位代号, const std::vector<Group>& groups) {
    for (const Group group : groups) granted_.add({number(group), 岗位代号, 1});
}

void Privileges::allowAudit(const std::string& 部门代号, const std::string& 岗位代号) {
    audits_.add({thisModule, 部门代号, 岗位代号});
}

}  // namespace desk::sample
