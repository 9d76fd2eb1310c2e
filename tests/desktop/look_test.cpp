#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QProxyStyle>
#include <QTableView>
#include <QTest>

#include "desktop/ending.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "desktop/words.h"

namespace desk::desktop {
namespace {

/// What is measured in pixels, or has a look of its own.
class Look : public testing::Test {
  protected:
    Form form;
};

TEST_F(Look, SpareWidthGoesToTextsAndNumbersHaveRoom) {
    form.grid.setFormat("<序|<名称  |<编号|>数量");
    form.grid.addRow({"1234", "盛远国际贸易有限公司", "17", "5"});
    form.grid.addRow({"→", "佳信", "18", "6"});
    const Person person(shown({&form.grid}));
    person.window().resize(700, 500);
    auto& view = person.at<QTableView>(form.grid);
    const auto whole = [&] {
        return view.columnWidth(0) + view.columnWidth(1) + view.columnWidth(2) + view.columnWidth(3);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return whole() == view.viewport()->width(); }));
    EXPECT_GE(view.columnWidth(0), view.fontMetrics().horizontalAdvance("1234") + 6);
    EXPECT_LT(view.columnWidth(0), 60);
    EXPECT_GT(view.columnWidth(1), 400);
    EXPECT_LT(view.columnWidth(2), 100);
    const int before = view.columnWidth(1);
    person.window().resize(900, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.columnWidth(1) > before; }));

    // A width that a person has given stays with these rows.
    auto& header = viewportOf(*view.horizontalHeader());
    const QPoint edge(view.columnWidth(0) + view.columnWidth(1) - 1, header.height() / 2);
    QTest::mousePress(&header, Qt::LeftButton, {}, edge);
    QTest::mouseMove(&header, edge - QPoint(100, 0));
    QTest::mouseRelease(&header, Qt::LeftButton, {}, edge - QPoint(100, 0));
    const int dragged = view.columnWidth(1);
    form.grid.setText(1, 1, "佳");
    EXPECT_EQ(view.columnWidth(1), dragged);
    form.grid.addRow({"3", "盛远"});
    EXPECT_GT(view.columnWidth(1), dragged);
}

/// A header of two rows: where equal titles are one there is no line between them.
TEST_F(Look, EqualTitlesAreOne) {
    form.grid.addRow({"名称", "名称", "编号"});
    for (const int column : {0, 1}) form.grid.setText(0, column, "客户");
    form.grid.setText(0, 2, "其它");
    form.grid.setFixedRows(2);
    form.grid.setMerging(Merge::free);
    form.grid.setMergesRow(0, true);  // the second row shows its equal titles apart
    const Person person(shown({&form.grid}));
    auto& header = *person.at<QTableView>(form.grid).horizontalHeader();
    const QImage picture = header.grab().toImage();
    const auto lineBehind = [&](int column, int row) {
        const int x = header.sectionViewportPosition(column) + header.sectionSize(column) - 1;
        const int y = header.height() * (2 * row + 1) / 4 + 6;
        return picture.pixelColor(x, y) != picture.pixelColor(x - 4, y);
    };
    EXPECT_FALSE(lineBehind(0, 0));
    EXPECT_TRUE(lineBehind(1, 0));
    EXPECT_TRUE(lineBehind(0, 1));
    EXPECT_TRUE(lineBehind(1, 1));
}

TEST_F(Look, AFieldKeepsItsHeightWhenItIsLocked) {
    const Person person(shown({&form.first}));
    const auto& edit = person.at<QLineEdit>(form.first);
    const int height = edit.height();
    form.first.setLocked(true);
    EXPECT_EQ(edit.sizeHint().expandedTo(edit.minimumSize()).height(), height);
}

/// As desktops that open things with one click ask for.
class OneClick : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_ItemView_ActivateItemOnSingleClick
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

TEST_F(Look, ADoubleClickIsADoubleClickEverywhere) {
    form.list.addItem("主管");
    const Person person(shown({&form.list}));
    QWidget& list = person.at(form.list);
    OneClick style;
    list.setStyle(&style);
    int chosen = 0;
    form.list.doubleClicked += [&](int) { ++chosen; };
    Person::click(viewportOf(list), lineOf(list, {0}));
    EXPECT_EQ(chosen, 0);
    Person::doubleClick(viewportOf(list), lineOf(list, {0}));
    EXPECT_EQ(chosen, 1);
    list.setStyle(nullptr);
}

TEST_F(Look, TheFieldsOfShownWindowsCanBeCopiedWithoutPasswords) {
    for (const char* line : {"报纸", "网络", "展会"}) form.several.addItem(line);
    form.first.setText("盛远国际");
    form.password.setText("secret");
    form.several.setSelected(0, true);
    form.several.setSelected(2, true);
    const Person person(shown({&form.first, &form.second, &form.password, &form.several}));
    person.window().setWindowTitle("登记");
    EXPECT_EQ(textsOfShownFields().toStdString(), "【登记】\nfirst：盛远国际\nseveral：报纸,展会");
    person.window().hide();
    EXPECT_EQ(textsOfShownFields().toStdString(), "");
}

TEST(ChineseWords, CoverWhatTheToolkitLeavesInEnglish) {
    const Words words;
    EXPECT_EQ(words.translate("QAbstractFileIconProvider", "Folder", nullptr, -1), "文件夹");
    EXPECT_EQ(words.translate("QAbstractFileIconProvider", "%1 File", nullptr, -1).arg("XLS"), "XLS 文件");
    EXPECT_EQ(words.translate("QLineEdit", "Folder", nullptr, -1), QString());
}

}  // namespace
}  // namespace desk::desktop
