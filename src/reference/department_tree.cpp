#include "reference/department_tree.h"

#include <fmt/format.h>

#include <unordered_map>
#include <unordered_set>

#include "db/recordset.h"
#include "db/statement.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr std::string_view behindNumber = "] ";
/// Stands in the key of a staff node before the staff number: what the text shows could be cut in two ways.
constexpr char beforeNumber = '\x1f';

struct Department {
    std::string number;
    std::string name;
    std::string parent;
};

std::vector<Department> departments(Application& app) {
    std::vector<Department> all;
    for (auto& row :
         Recordset(app.主连接,
                   " select 职能部门new.职能部门编号,职能部门new.职能部门名称,table2.上级部门编号 from "
                   "职能部门new left join (select 上级部门new.职能部门编号,上级部门new.上级部门编号 from "
                   "上级部门new, (select 职能部门编号,max(起始日期) as 设置日期 from 上级部门new group by "
                   "职能部门编号) as table1 where 上级部门new.职能部门编号 = table1.职能部门编号 and "
                   "上级部门new.起始日期 = table1.设置日期) as table2 on 职能部门new.职能部门编号 = "
                   "table2.职能部门编号 where 职能部门new.终止日期 is null order by "
                   "len(职能部门new.职能部门编号),职能部门new.职能部门编号"))
        all.push_back({row[0].text(), row[1].text(), row[2].text()});
    return all;
}

/// Lays departments out level by level, each once.
class Hierarchy {
  public:
    Hierarchy(Tree& tree, const std::function<std::string(const std::string&)>& keyOf,
              const std::vector<Department>& all)
        : tree_(tree), keyOf_(keyOf) {
        for (const auto& department : all) byParent_[department.parent].push_back(&department);
        if (const auto tops = byParent_.find(""); tops != byParent_.end())
            for (const auto* top : tops->second) add(nullptr, *top);
        addBelow(0);
        for (const auto& department : all) {
            const auto from = shown_.size();
            add(nullptr, department);
            addBelow(from);
        }
    }

    std::vector<DepartmentNode> take() { return std::move(shown_); }

  private:
    void add(TreeNode* parent, const Department& department) {
        if (!known_.insert(department.number).second) return;
        auto& node = tree_.add(parent, keyOf_(department.number), department.number + " " + department.name);
        shown_.push_back({department.number, &node});
    }

    void addBelow(std::size_t from) {
        for (std::size_t i = from; i < shown_.size(); ++i) {
            const auto children = byParent_.find(shown_[i].number);
            if (children == byParent_.end()) continue;
            TreeNode* parent = shown_[i].node;
            for (const auto* child : children->second) add(parent, *child);
        }
    }

    Tree& tree_;
    const std::function<std::string(const std::string&)>& keyOf_;
    std::unordered_map<std::string, std::vector<const Department*>> byParent_;
    std::unordered_set<std::string> known_;
    std::vector<DepartmentNode> shown_;
};

void addStaff(Tree& tree, TreeNode& parent, Recordset rows) {
    for (auto& row : rows)
        tree.add(&parent,
                 fmt::format("G{}.{}{}{}", parent.key(), parent.children().size(), beforeNumber,
                             row["工号"].text()),
                 fmt::format("{} [{}{}{}", row["岗位名称"].text(), row["工号"].text(), behindNumber,
                             row["姓名"].text()));
}

}  // namespace

std::vector<DepartmentNode> 添加部门(Application& app, Tree& tree,
                                     const std::function<std::string(const std::string& number)>& keyOf) {
    const Batch fill(tree);
    return Hierarchy(tree, keyOf, departments(app)).take();
}

void 添加多岗位信息(Application& app, Tree& tree, TreeNode& department, const std::string& number) {
    addStaff(tree, department,
             Recordset(app.主连接,
                       sql("Select 岗位信息new.工号,岗位信息new.岗位名称,岗位信息new.岗位代号,姓名 from "
                           "岗位信息new Left Join 员工档案 On 岗位信息new.工号=员工档案.工号 where "
                           "职能部门代号 = '{}' and 岗位信息new.终止日期 is null order by "
                           "岗位信息new.岗位代号",
                           number)));
}

void 添加岗位信息(Application& app, Tree& tree, const std::string& 部门编号) {
    const Batch fill(tree);
    TreeNode& root = tree.add(nullptr, "$", "本部门员工列表");
    addStaff(tree, root,
             Recordset(app.主连接,
                       sql("select 职能部门类别.部门类别名称,职能部门new.职能部门名称 as "
                           "部门名称,岗位类别.岗位类别名称,岗位信息new.岗位名称, 岗位信息new.主要职责 as "
                           "岗位职责,岗位信息new.起始日期 as 设置日期,岗位信息new.备注,员工档案.姓名, "
                           "职能部门类别.部门类别代号 , 职能部门new.职能部门编号, 岗位类别.岗位类别编号, "
                           "岗位信息new.岗位代号,员工档案.工号 From 职能部门new inner join 岗位信息new on "
                           "职能部门new.职能部门编号 = 岗位信息new.职能部门代号 Inner Join 职能部门类别 on "
                           "职能部门new.职能部门类别代号 = 职能部门类别.部门类别代号 Inner Join 岗位类别 on "
                           "岗位信息new.岗位类别代号 = 岗位类别.岗位类别编号 Inner Join 员工档案 on "
                           "员工档案.工号 = 岗位信息new.工号 where 职能部门new.职能部门编号 = '{}' and "
                           "职能部门new.终止日期 is null and 岗位信息new.终止日期 is null order by "
                           "岗位信息new.岗位代号",
                           部门编号)));
    tree.setExpanded(root, true);
}

bool isStaff(const TreeNode& node) {
    // The code of a department may begin with the same letter.
    return node.key().starts_with("G") && node.key().find(beforeNumber) != std::string::npos;
}

std::string_view staffNumber(const TreeNode& node) {
    const std::string_view key = node.key();
    return key.substr(key.find(beforeNumber) + 1);
}

std::string_view staffName(const TreeNode& node) {
    const std::string_view text = node.text();
    return text.substr(text.rfind(behindNumber) + behindNumber.size());
}

}  // namespace desk
