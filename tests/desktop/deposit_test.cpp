#include "money/deposits.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "db/statement.h"
#include "desktop/by_hand.h"
#include "desktop/cell_pictures.h"
#include "desktop/convert.h"

namespace desk::desktop {
namespace {

using C = 收费列表;

/// The deposits' screen in its window, on a letter with forty lines that are saved, the first of them paid
/// back.
class DepositByHand : public ScreenByHand<Frm意向金收取> {
  protected:
    DepositByHand() : ScreenByHand({1200, 640}, fill) {
        screen.管理项目.setIndex(0);
        screen.意向书.click(*screen.意向书.find("YM1"));
    }

    static void fill(TestProgram& program) {
        program.run(
            {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,流转通过) Values ('1','01','甲公司',1)",
             "Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,流转通过) Values ('2','02','乙公司',1)",
             "Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('1','税控发票',1,0)",
             "Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('2','收据',0,0)",
             "Insert Into 财务科目 (科目代号,科目名称) Values ('2181','其他应付款')",
             "Insert Into SETUPSFXM (DH,XM,收费类别,对应科目) Values ('D1','租金意向金','押金','2181')",
             "Insert Into SETUPSFXM (DH,XM,收费类别,对应科目) Values ('D2','物管费意向金','押金','2181')"});
        for (int line = 1; line <= 40; ++line)
            program.db().execute(
                sql("Insert Into YZ_意向金收款 (意向书ID,收费项目,科目编号,数量,单价,金额,处理结束,票据打印) "
                    "Values (1,'租金意向金','2181',1,{},{},{},{})",
                    line, line, line == 1 ? 1 : 0, line % 2));
    }

    int last() const { return screen.收费.lastRow(); }
    QTableView& view() const { return person.at<QTableView>(screen.收费); }
    QModelIndex index(int row, int column) const { return view().model()->index(row - 1, column); }
    QRect cell(int row, int column) const { return view().visualRect(index(row, column)); }
    void click(int row, int column) const {
        view().scrollTo(index(row, column));
        // A press at a display brings the focus, which one sent to the widget does not.
        view().setFocus(Qt::MouseFocusReason);
        Person::click(*view().viewport(), cell(row, column).center());
    }
    QWidget& editor() const { return person.at(screen.单元格编辑); }
    std::string text(int row, int column) const { return screen.收费.text(row, column); }
    /// In the window.
    QRect placeOf(const Control& control) const {
        const QWidget& widget = person.at(control);
        return {widget.mapTo(&person.window(), QPoint()), widget.size()};
    }
    QRect placeOf(int row, int column) const {
        return cell(row, column).translated(view().viewport()->mapTo(&person.window(), QPoint()));
    }
};

TEST_F(DepositByHand, TheEditorLiesOverItsCellAndGoesAlongWithIt) {
    click(last(), C::数量);
    ASSERT_TRUE(editor().isVisible());
    EXPECT_EQ(Person::focused(), "单元格编辑");
    EXPECT_EQ(editor().geometry(), cell(last(), C::数量));
    const QRect before = editor().geometry();
    view().horizontalHeader()->resizeSection(C::科目编号, 200);
    EXPECT_NE(editor().geometry(), before);
    EXPECT_EQ(editor().geometry(), cell(last(), C::数量));
    person.window().resize(1000, 600);
    EXPECT_EQ(editor().geometry(), cell(last(), C::数量));

    // Out of view it still takes what is typed, and comes back by it.
    view().verticalScrollBar()->setValue(0);
    EXPECT_EQ(editor().geometry(), cell(last(), C::数量));
    EXPECT_FALSE(view().viewport()->rect().intersects(editor().geometry()));
    person.type("12");
    EXPECT_EQ(text(last(), C::数量), "12");
    EXPECT_TRUE(view().viewport()->rect().contains(editor().geometry()));
    EXPECT_EQ(editor().geometry(), cell(last(), C::数量));
    // The numbers stand at the right, as in their cells; a number that is none is told.
    auto& line = person.at<QLineEdit>(screen.单元格编辑);
    EXPECT_TRUE(line.alignment() & Qt::AlignRight);
    person.type("x");
    EXPECT_FALSE(line.toolTip().isEmpty());
}

TEST_F(DepositByHand, EnterGoesFromCellToCellWithoutAMouse) {
    click(last(), C::数量);
    person.type("3");
    person.press({Qt::Key_Return});
    EXPECT_EQ(screen.收费.column(), C::单价);
    EXPECT_EQ(Person::focused(), "单元格编辑");
    person.paste("33.335\n44");
    person.press({Qt::Key_Enter});
    EXPECT_EQ(text(last(), C::单价) + " " + text(last(), C::金额), "33.335 100.01");
    EXPECT_EQ(person.at<QLineEdit>(screen.单元格编辑).selectedText(), "100.01");
    person.press({Qt::Key_Return});
    // The list of types is opened, looked at, and one taken.
    EXPECT_EQ(Person::focused(), "票据类型按钮");
    EXPECT_FALSE(editor().isVisible());
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "票据类型列表");
    person.press({Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(text(last(), C::票据类型), "");
    person.press({Qt::Key_Return});
    EXPECT_EQ(text(last(), C::票据类型), "2 收据");
    EXPECT_EQ(Person::focused(), "票据簿按钮");
}

TEST_F(DepositByHand, NothingTypedIsLostOrLandsInAnotherCell) {
    const auto typed = [this](int column) {
        click(last(), column);
        person.type("7");
        return last();
    };
    typed(C::单价);
    person.press({Qt::Key_Escape});
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(Person::focused(), "收费");
    EXPECT_EQ(text(last(), C::单价), "7");
    // The arrows lead out of it.
    typed(C::数量);
    person.press({Qt::Key_Up});
    EXPECT_EQ(screen.收费.row(), last() - 1);
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(Person::focused(), "收费");
    person.type("9");
    EXPECT_EQ(text(last(), C::数量) + text(last() - 1, C::数量), "71.00");
    // The editor stands behind its grid in the order of Tab.
    typed(C::金额);
    person.backTab();
    EXPECT_EQ(Person::focused(), "收费");
    // Another window, and back.
    typed(C::单价);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    person.window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&person.window()));
    EXPECT_TRUE(editor().hasFocus());
    person.type("8");
    EXPECT_EQ(text(last(), C::单价), "78");
}

TEST_F(DepositByHand, TheListHangsBelowItsCell) {
    click(last(), C::收费项目);
    const QWidget& button = person.at(screen.收费项目.button);
    ASSERT_TRUE(button.isVisible());
    EXPECT_TRUE(cell(last(), C::收费项目).contains(button.geometry()));
    EXPECT_EQ(button.geometry().right(), cell(last(), C::收费项目).right());
    // What is typed keeps clear of the button.
    EXPECT_EQ(person.at<QLineEdit>(screen.单元格编辑).textMargins().right(), button.width());
    person.press({Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "收费项目按钮");
    person.press({Qt::Key_Space});
    ASSERT_TRUE(screen.收费项目.panel.isOpen());
    const QRect list = placeOf(screen.收费项目.panel);
    EXPECT_EQ(list.left(), placeOf(last(), C::收费项目).left());
    EXPECT_GE(list.width(), placeOf(last(), C::收费项目).width());
    EXPECT_FALSE(list.intersects(placeOf(last(), C::收费项目)));
    person.press({Qt::Key_Escape});
    EXPECT_FALSE(screen.收费项目.panel.isOpen());
    EXPECT_EQ(Person::focused(), "收费项目按钮");
    // The mouse opens it from the editor, and a click elsewhere closes it.
    person.click(screen.收费项目.button);
    ASSERT_TRUE(screen.收费项目.panel.isOpen());
    QWidget& lines = person.at(screen.收费项目.list);
    Person::click(viewportOf(lines), lineOf(lines, {1}));
    EXPECT_EQ(text(last(), C::收费项目) + text(last(), C::科目编号), "物管费意向金2181");
    EXPECT_EQ(screen.收费.column(), C::数量);
    EXPECT_EQ(Person::focused(), "单元格编辑");
    click(last(), C::收费项目);
    person.click(screen.收费项目.button);
    click(last(), C::序);
    EXPECT_FALSE(screen.收费项目.panel.isOpen());
    EXPECT_FALSE(button.isVisible());
}

TEST_F(DepositByHand, TheMarkOfPrintingIsTurnedByEachPress) {
    click(last(), C::打印);
    EXPECT_EQ(screen.收费.picture(last()), 打印图::待打印);
    Person::doubleClick(*view().viewport(), cell(last(), C::打印).center());
    EXPECT_EQ(screen.收费.picture(last()), 打印图::手选);
    ASSERT_EQ(Person::focused(), "收费");
    person.press({Qt::Key_Space});
    EXPECT_EQ(screen.收费.picture(last()), 打印图::待打印);
    EXPECT_EQ(index(last(), C::打印).data(Qt::ToolTipRole).toString().toStdString(), "待打印");
    // A double click into a cell that is typed in leaves its editor there.
    Person::doubleClick(*view().viewport(), cell(last(), C::数量).center());
    EXPECT_TRUE(editor().isVisible());
}

/// As a picture of `size` pixels at that scale.
QImage drawn(std::string_view name, double scale) {
    constexpr int side = 24;
    QImage image(QSize(side, side) * scale, QImage::Format_ARGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    drawPicture(painter, QRect(0, 0, side, side), name);
    return image;
}

TEST_F(DepositByHand, FourPicturesTellTheStatesApart) {
    for (const double scale : {1.0, 1.75, 2.0}) {
        std::vector<QImage> images{drawn("none", scale)};
        for (const auto name : {打印图::手选, 打印图::待打印, 打印图::已打印, 打印图::已存手选}) {
            const QImage image = drawn(name, scale);
            for (const QImage& other : images) EXPECT_NE(image, other) << name << " " << scale;
            // Nothing touches the edge of the cell.
            for (int i = 0; i < image.width(); ++i) {
                EXPECT_EQ(image.pixel(i, 0), qRgb(255, 255, 255));
                EXPECT_EQ(image.pixel(0, i), qRgb(255, 255, 255));
            }
            images.push_back(image);
        }
    }
    // Each stands in its cell.
    click(3, C::金额);
    view().scrollToTop();
    const QImage shown = view().viewport()->grab().toImage();
    const auto in = [&](int row) { return shown.copy(cell(row, C::打印).adjusted(1, 1, -1, -1)); };
    EXPECT_EQ(in(5), in(1));
    EXPECT_NE(in(4), in(1));
    EXPECT_NE(in(3), in(1)) << "marked";
}

TEST_F(DepositByHand, WhatCanBeDoneWithALineStandsBesideIt) {
    const QWidget& beside = person.at(screen.行操作);
    EXPECT_FALSE(beside.isVisible());
    view().scrollToTop();
    click(2, C::金额);
    ASSERT_TRUE(person.at(screen.退款处理).isVisible());
    const auto isBeside = [&](int row) {
        const QRect place = placeOf(screen.行操作);
        return place.top() == placeOf(row, 0).top() && !place.intersects(placeOf(screen.收费)) &&
               place.right() < person.window().width();
    };
    EXPECT_TRUE(isBeside(2));
    // The whole line is marked, and the arrow keys leave the button where it was asked for.
    EXPECT_EQ(view().selectionModel()->selectedIndexes().size(), view().model()->columnCount());
    person.press({Qt::Key_Down});
    EXPECT_EQ(screen.收费.row(), 3);
    EXPECT_TRUE(isBeside(2));
    EXPECT_EQ(screen.行操作.tag, "2");
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
    EXPECT_FALSE(beside.isVisible());
    view().scrollToTop();
    EXPECT_TRUE(beside.isVisible() && isBeside(2));
    click(1, C::金额);
    EXPECT_FALSE(person.at(screen.退款处理).isVisible()) << "paid back";
    click(last(), C::序);
    EXPECT_EQ(view().selectionModel()->selectedIndexes().size(), 1);
    EXPECT_FALSE(person.at(screen.退款处理).isVisible());
}

TEST_F(DepositByHand, TheVoucherPaysBackTheLineThatItWasOpenedFor) {
    view().scrollToTop();
    click(2, C::金额);
    person.click(screen.退款处理);
    // Another line clicked meanwhile is not the one that is paid back.
    screen.收费.click(3, C::金额);
    person.click(screen.退款.确定);
    EXPECT_EQ(text(2, C::退款标记) + text(3, C::退款标记), "OK");
    EXPECT_EQ(screen.行操作.tag, "3");
    screen.收费.click(2, C::金额);
    EXPECT_FALSE(person.at(screen.退款处理).isVisible());
}

TEST_F(DepositByHand, NothingHangsInTheAirWhenTheLetterOrTheScreenGoes) {
    click(last(), C::数量);
    person.type("5");
    screen.管理项目.setIndex(1);
    QWidget& letters = person.at(screen.意向书);
    Person::click(viewportOf(letters), lineOf(letters, {0, 0}));
    EXPECT_EQ(screen.意向书信息["承租方"].text(), "乙公司");
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(last(), 1);
    EXPECT_EQ(text(1, C::数量) + screen.收费.text(0, C::数量), "数量");
    click(1, C::收费项目);
    person.click(screen.收费项目.button);
    ASSERT_TRUE(person.at(screen.收费项目.panel).isVisible());
    program.app.screens.unload(screen);
    program.app.screens.dropUnloaded();
    EXPECT_FALSE(QApplication::focusWidget() != nullptr && Person::focused() == "收费项目列表");
    person.press({Qt::Key_Down, Qt::Key_Return});
    person.window().repaint();
}

}  // namespace
}  // namespace desk::desktop
