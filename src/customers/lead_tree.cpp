#include "customers/lead_tree.h"

#include <array>

#include "base/text.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr std::string_view 键前缀 = "D";

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
    std::string key;
    std::string text;
    for (; !leads.atEnd(); leads.moveNext()) {
        const auto mark = leads[kind].view();
        if (!known(mark)) continue;
        const bool showContact = mark == "引驻来电" && leads[company].isNull();
        text = "（";
        text += mark;
        text += "）";
        text += leads[number].view();
        text += ' ';
        text += leads[showContact ? contact : company].view();
        key = 键前缀;
        key += leads[number].view();
        // Of two leads that drew one number only the first answers to it.
        tree.add(nullptr, tree.find(key) == nullptr ? key : std::string_view{}, text);
    }
}

std::string 登记编号Of(const TreeNode& node) {
    return node.key().starts_with(键前缀) ? std::string(without(node.key(), 键前缀.size())) : std::string();
}

}  // namespace desk
