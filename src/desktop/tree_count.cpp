#include "desktop/tree_count.h"

#include <QLabel>
#include <QVBoxLayout>

#include "desktop/binding.h"
#include "desktop/layout.h"
#include "ui/tree.h"

namespace desk::desktop {

namespace {

std::size_t countOf(const Tree& tree, Entries entries) {
    if (entries == Entries::top) return tree.roots().size();
    std::size_t count = 0;
    for (const auto& root : tree.roots()) count += root->children().size();
    return count;
}

}  // namespace

QWidget* counted(Tree& tree, std::string_view spoken, Entries entries) {
    auto* whole = new QWidget;
    auto* box = new QVBoxLayout(whole);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(2);
    box->addWidget(layout::plain(tree, spoken), 1);
    auto* count = new QLabel;
    count->setObjectName(text(tree.name()) + ".数目");
    box->addWidget(count);
    const auto show = [&tree, entries, count] {
        count->setText(tree.roots().empty() ? QString() : QString("共 %1 个").arg(countOf(tree, entries)));
    };
    show();
    follow(count, tree.structureChanged, show);
    return whole;
}

}  // namespace desk::desktop
