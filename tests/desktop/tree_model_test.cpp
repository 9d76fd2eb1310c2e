#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include "desktop/binding.h"
#include "desktop/tree_binding.h"
#include "ui/batch.h"
#include "ui/screen.h"

namespace desk::desktop {
namespace {

struct Wood : Screen {
    Wood() : Screen("wood", "", WindowKind::dialog, 6000, 4000) {}
    Tree tree{*this, "tree"};
};

/// A root with many leads and one with a few, in a window that shows a part of them.
class TreeView : public testing::Test {
  protected:
    TreeView() {
        fill();
        view.reset(static_cast<QTreeView*>(widgetFor(form.tree)));
        new QAbstractItemModelTester(view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal,
                                     view.get());
        view->resize(200, 200);
        view->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        form.tree.nodeClicked += [this](TreeNode&) { ++clicks; };
    }

    void fill() {
        const Batch batch(form.tree);
        form.tree.clear();
        for (const char* kind : {"L", "M"}) {
            TreeNode& root = form.tree.add(nullptr, kind, kind);
            for (int i = 0; i < 300; ++i)
                form.tree.add(&root, kind + std::to_string(1000 + i), "客户" + std::to_string(i));
            form.tree.setExpanded(root, true);
        }
    }

    TreeNode& node(std::string_view key) { return *form.tree.find(key); }
    QModelIndex indexOf(std::string_view key) {
        return static_cast<TreeModel*>(view->model())->indexOf(&node(key));
    }

    Wood form;
    std::unique_ptr<QTreeView> view;
    int clicks = 0;
};

TEST_F(TreeView, KeepsTheReadersPlaceWhenOneNodeComesOrGoes) {
    const QSignalSpy resets(view->model(), &QAbstractItemModel::modelReset);
    view->setExpanded(indexOf("M"), false);
    view->scrollTo(indexOf("L1150"), QAbstractItemView::PositionAtTop);
    form.tree.add(&node("M"), "M2000", "新客户");
    form.tree.add(&form.tree.add(nullptr, "N", "第三"), "N1", "一");
    form.tree.remove(node("L1299"));
    EXPECT_EQ(view->indexAt(QPoint(60, 2)), indexOf("L1150"));
    EXPECT_FALSE(view->isExpanded(indexOf("M")));
    EXPECT_TRUE(view->isExpanded(indexOf("L")));
    EXPECT_EQ(indexOf("M2000").data().toString(), "新客户");
    form.tree.remove(node("L"));
    EXPECT_EQ(view->model()->rowCount(), 2);
    EXPECT_EQ(resets.count(), 0);
}

/// A long fill lets events run: what is painted then must not be what has gone.
TEST_F(TreeView, IsPaintedInTheMiddleOfAFill) {
    form.tree.select(&node("L1005"));
    {
        const Batch batch(form.tree);
        form.tree.clear();
        view->grab();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(60, 60));
        QTest::keyClick(view.get(), Qt::Key_Down);
        QTest::keyClick(view.get(), Qt::Key_Return);
        fill();
        form.tree.remove(node("M"));
        QTest::mouseMove(view->viewport(), QPoint(60, 30));
        view->grab();
        EXPECT_EQ(view->model()->rowCount(), 0);
    }
    EXPECT_EQ(view->model()->rowCount(), 1);
    EXPECT_EQ(view->model()->rowCount(view->model()->index(0, 0)), 300);
    EXPECT_EQ(clicks, 0);
    view->grab();
}

}  // namespace
}  // namespace desk::desktop
