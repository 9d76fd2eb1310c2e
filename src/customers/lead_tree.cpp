#include "customers/lead_tree.h"

#include <array>

#include "base/text.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr std::string_view 键前缀 = "D";
/// Stands in a key between a number that another node has already and what tells the two apart.
constexpr char 重号 = '\x1f';

bool known(std::string_view kind) {
    for (const std::string_view each : {"引驻来人", "引驻来电", "中介来人", "自行开发"})
        if (kind == each) return true;
    return false;
}

}  // namespace

void 填充客户树(Tree& tree, Recordset& leads) {
    const Batch fill(tree);
    tree.clear();
    const int kind = leads.column("客源类别");
    const int number = leads.column("登记编号");
    const int company = leads.column("公司名称");
    const int contact = leads.column("客户姓名");
    std::string text;
    for (auto& lead : leads) {
        const auto mark = lead[kind].view();
        if (!known(mark)) continue;
        const bool showContact = mark == "引驻来电" && lead[company].isNull();
        text = "（";
        text += mark;
        text += "）";
        text += lead[number].view();
        text += ' ';
        text += lead[showContact ? contact : company].view();
        添加客户(tree, nullptr, 键前缀, lead[number].view(), text);
    }
}

std::string 登记编号Of(const TreeNode& node) {
    return 登记编号Of(node, 键前缀);
}

void 添加客户(Tree& tree, TreeNode* parent, std::string_view prefix, std::string_view number,
              std::string_view text) {
    std::string key(prefix);
    key += number;
    if (tree.addIfNew(parent, key, text) != nullptr) return;
    key += 重号;
    key += std::to_string((parent != nullptr ? parent->children() : tree.roots()).size());
    tree.add(parent, key, text);
}

std::string 登记编号Of(const TreeNode& node, std::string_view prefix) {
    const std::string_view key = node.key();
    if (!key.starts_with(prefix)) return {};
    return std::string(without(key.substr(0, key.find(重号)), prefix.size()));
}

}  // namespace desk
