#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <set>

#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "customers/registration.h"
#include "desktop/binding.h"
#include "desktop/by_hand.h"
#include "desktop/qt_desktop.h"
#include "reference/customer_dictionaries.h"
#include "session/login.h"

namespace desk::desktop {
namespace {

using ScreensByHand = ByHand;

bool takesFocus(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && widget.property(demandedProperty).isValid();
}

TEST_F(ScreensByHand, EveryFieldIsReadOutByItsCaption) {
    onEachScreen([](Screen&, QWidget& window) {
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (!takesFocus(*widget) || qobject_cast<const QTabBar*>(widget) != nullptr) continue;
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            EXPECT_FALSE((button != nullptr ? button->text() : widget->accessibleName()).isEmpty())
                << utf8(widget->objectName());
        }
    });
    auto* const screen = &loaded<Frm引驻客户信息登记>();
    const Person person(layoutOf(*screen));
    const auto spoken = [&](const Control& control) { return utf8(person.at(control).accessibleName()); };
    EXPECT_EQ(spoken(*screen->来人.传真), "传真");
    EXPECT_EQ(spoken(screen->来人.登记编号), "登记编号");
    EXPECT_EQ(spoken(screen->来人.区域), "区域");
    EXPECT_EQ(spoken(screen->来人.区域其它.文本), "区域 其它（需说明）");
    EXPECT_EQ(spoken(screen->来人.媒体->列表), "媒体");
}

TEST_F(ScreensByHand, TabComesToTheMainButtonBeforeTheOthersOfItsRow) {
    int rows = 0;
    onEachScreen([&](Screen&, QWidget& window) {
        for (QWidget* main : window.findChildren<QWidget*>()) {
            if (!main->property(mainButtonProperty).toBool()) continue;
            const auto fields = window.findChildren<QLineEdit*>();
            if (fields.isEmpty()) continue;
            ++rows;
            // Of the buttons of its row it is the first that the chain of Tab comes to from a field.
            const QWidget* before = main->previousInFocusChain();
            while (before != main && !takesFocus(*before)) before = before->previousInFocusChain();
            EXPECT_NE(before->parentWidget(), main->parentWidget()) << utf8(main->objectName());
        }
    });
    EXPECT_GE(rows, 16);
}

TEST_F(ScreensByHand, WhatASaveDemandsIsMarkedAtItsCaption) {
    auto* const screen = &loaded<Frm引驻客户信息登记>();
    const Person person(layoutOf(*screen));
    std::set<std::string> told;  // to a screen reader
    const auto marked = [&](const Control& control) {
        for (QLabel* caption : person.window().findChildren<QLabel*>()) {
            if (caption->buddy() != &person.at(control)) continue;
            const QImage picture = caption->grab().toImage();
            told.insert(person.at(control).accessibleDescription().toStdString());
            for (int x = 0; x < picture.width(); ++x)
                for (int y = 0; y < picture.height(); ++y) {
                    const QColor pixel = picture.pixelColor(x, y);
                    if (pixel.red() > pixel.green() + 80) return true;
                }
            return false;
        }
        ADD_FAILURE() << "no caption for " << control.name();
        return false;
    };
    登记页& page = screen->来人;
    EXPECT_TRUE(marked(page.客户姓名));
    EXPECT_TRUE(marked(page.登记编号));
    EXPECT_TRUE(marked(page.区域));
    EXPECT_TRUE(marked(page.媒体->列表));
    EXPECT_EQ(std::exchange(told, {}), std::set<std::string>{"必填"});
    EXPECT_FALSE(marked(page.公司名称));
    EXPECT_FALSE(marked(page.客户电话));
    page.客户姓名.setDemanded(false);
    EXPECT_FALSE(marked(page.客户姓名));
    EXPECT_EQ(told, std::set<std::string>{""});
    screen->页签.setIndex(2);
    EXPECT_TRUE(marked(screen->中介来人.中介->中介公司名称));
    EXPECT_FALSE(marked(screen->中介来人.客户姓名));
    EXPECT_TRUE(marked(screen->中介来人.登记编号));
    screen->中介来人.采用自动编号.click();
    EXPECT_FALSE(marked(screen->中介来人.登记编号));
}

TEST_F(ScreensByHand, TheAgencyThatIsMarkedIsTaken) {
    auto* const screen = &loaded<Frm引驻客户信息登记>();
    const Person person(layoutOf(*screen));
    登记页& page = screen->中介来人;
    中介公司选择& agency = *page.中介;
    screen->页签.setIndex(2);
    page.管理项目.setIndex(0);
    // What is marked is taken; a right click marks nothing.
    person.click(agency.选择中介公司);
    QWidget& list = person.at(agency.列表);
    Person::click(viewportOf(list), lineOf(list, {0}, 1));
    Person::click(viewportOf(list), lineOf(list, {1}, 1), Qt::RightButton);
    person.click(agency.面板确定);
    EXPECT_EQ(agency.中介公司名称.text(), agency.列表.text(1, 1));
    EXPECT_FALSE(person.at(agency.列表).isVisible());
    // As is the row that the arrow keys have gone to.
    person.click(agency.选择中介公司);
    agency.列表.focus();
    person.press({Qt::Key_Down});
    person.click(agency.面板确定);
    EXPECT_EQ(agency.中介公司名称.text(), agency.列表.text(2, 1));
}

TEST_F(ScreensByHand, AColumnThatIsGivenUpStaysSoUnderArrowKeys) {
    auto& analysis = loaded<Frm客户跟进状态分析>();
    auto* const screen = &loaded<FrmToExcel>();
    screen->Config(analysis.MSFlexGrid1, "表", "题");
    const Person person(layoutOf(*screen));
    QWidget& grid = person.at(screen->Grid1);
    const auto ticks = [&] {
        std::string all;
        for (int column = 0; column < screen->Grid1.columns(); ++column)
            all += screen->Grid1.text(1, column).empty() ? "-" : "√";
        return all;
    };
    Person::doubleClick(viewportOf(grid), lineOf(grid, {0}, 1));
    Person::doubleClick(viewportOf(grid), lineOf(grid, {0}, 2));
    EXPECT_EQ(ticks(), "√--√√");
    screen->Grid1.focus();
    person.press({Qt::Key_Left, Qt::Key_Left});
    EXPECT_EQ(ticks(), "√--√√");
    person.press({Qt::Key_Right, Qt::Key_Space});
    EXPECT_EQ(ticks(), "√√-√√");
}

TEST_F(ScreensByHand, TheLoginIsSelectedByAClickAndHidesThePassword) {
    auto* const screen = &loaded<FrmLogin>();
    const Person person(layoutOf(*screen));
    screen->TxtUser.setText("1002");
    screen->txtPassword.setText("secret");
    auto& user = person.at<QLineEdit>(screen->TxtUser);
    auto& password = person.at<QLineEdit>(screen->txtPassword);
    screen->cmdCancel.focus();
    person.click(screen->TxtUser);
    EXPECT_EQ(user.selectedText(), "1002");
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "txtPassword");
    EXPECT_TRUE(password.hasSelectedText());
    EXPECT_EQ(password.displayText(), "******");
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "cmdOK");
}

TEST(Questions, AskedForADeletionEnterSaysNoAndEscapeAlways) {
    QtDesktop desktop;
    const auto pressAt = [&](Answer preferred, Qt::Key key) {
        QTimer::singleShot(0, qApp, [key] {
            EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }));
            QTest::keyClick(QApplication::activeModalWidget(), key);
        });
        return desktop.messageBox(
            {"确定要删除该信息吗？", "提醒", Icon::question, Buttons::yesNo, preferred});
    };
    EXPECT_EQ(pressAt(Answer::no, Qt::Key_Return), Answer::no);
    EXPECT_EQ(pressAt(Answer::yes, Qt::Key_Return), Answer::yes);
    EXPECT_EQ(pressAt(Answer::yes, Qt::Key_Escape), Answer::no);
}

TEST(Questions, AFileToSaveIsProposedAndMayBeANewOne) {
    QtDesktop desktop;
    const QTemporaryDir folder;
    const std::string path = utf8(folder.path());
    for (const FilePurpose purpose : {FilePurpose::save, FilePurpose::open}) {
        bool saves = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            saves = dialog->acceptMode() == QFileDialog::AcceptSave;
            QTest::keyClick(dialog, saves ? Qt::Key_Return : Qt::Key_Escape);
        });
        const auto file = desktop.chooseFile({path, "表|*.xls", purpose, "统计.xls"});
        EXPECT_EQ(saves, purpose == FilePurpose::save);
        EXPECT_EQ(file.value_or(""), saves ? path + "/统计.xls" : "");
    }
}

TEST_F(ScreensByHand, AnEntryIsAddedChangedAndDeletedWithoutAMouse) {
    auto& screen = loaded<Frm客户相关信息设置>();
    const Person person(layoutOf(screen));
    screen.区域.名称.focus();
    person.type("Bund");
    person.press({Qt::Key_Return});
    person.type("by the river");
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "区域设置.确定");
    person.press({Qt::Key_Return});
    EXPECT_EQ(program.rows("Select 说明 From YZ_区域设置 Where 区域名称='Bund'"),
              std::vector<std::string>{"by the river"});

    // Arrow keys look through the list, Enter takes the entry up.
    person.backTab(3);
    EXPECT_EQ(Person::focused(), "区域设置.列表");
    person.press({Qt::Key_Up});
    EXPECT_EQ(Person::focused(), "区域设置.列表");
    EXPECT_EQ(screen.状态栏.panel(0), "修改");
    person.press({Qt::Key_Down});
    EXPECT_EQ(screen.区域.名称.text(), "Bund");
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "区域设置.名称");
    person.type("West Bund");
    person.press({Qt::Key_Return, Qt::Key_Return, Qt::Key_Return});
    EXPECT_EQ(program.rows("Select 区域名称 From YZ_区域设置 Where 说明='by the river'"),
              std::vector<std::string>{"West Bund"});

    // A deletion prefers to be refused.
    program.desktop.answers = {Answer::no, Answer::yes};
    person.press({Qt::Key_Tab, Qt::Key_Return});
    EXPECT_EQ(program.desktop.messages.back().preferred, Answer::no);
    EXPECT_EQ(program.rows("Select * From YZ_区域设置 Where 说明='by the river'").size(), 1U);
    person.press({Qt::Key_Return});
    EXPECT_TRUE(program.rows("Select * From YZ_区域设置 Where 说明='by the river'").empty());
}

}  // namespace
}  // namespace desk::desktop
