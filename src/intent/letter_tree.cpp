#include "intent/letter_tree.h"

#include "session/numbered_nodes.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr std::string_view prefix = "YM";
constexpr std::string_view image = "Y";

}  // namespace

void 填充意向书树(Tree& tree, const 意向书树& kind, Recordset& letters) {
    const Refill fill(tree);
    TreeNode& root = tree.add(nullptr, kind.rootKey, kind.root, image);
    const int key = letters.column(kind.keyColumn);
    const int number = letters.column("意向书编号");
    const int tenant = letters.column("承租方");
    std::string text;
    for (auto& letter : letters) {
        text = letter[number].view();
        text += ' ';
        text += letter[tenant].view();
        if (kind.bearsDoubles)
            addNumbered(tree, &root, prefix, letter[key].text(), text, image);
        else
            tree.add(&root, std::string(prefix) + letter[key].text(), text, image);
    }
    tree.setExpanded(root, true);
}

std::string 意向书键(const TreeNode& node) {
    return numberOf(node, prefix);
}

}  // namespace desk
