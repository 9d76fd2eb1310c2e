#include "customers/lead_tree.h"

#include <array>

#include "session/numbered_nodes.h"
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
    const Refill fill(tree);
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
        addNumbered(tree, nullptr, 键前缀, lead[number].view(), text);
    }
}

std::string 登记编号Of(const TreeNode& node) {
    return numberOf(node, 键前缀);
}

}  // namespace desk
