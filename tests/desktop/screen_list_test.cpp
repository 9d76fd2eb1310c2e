#include "desktop/screen_list.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QTabBar>
#include <algorithm>
#include <set>

#include "customers/registration.h"
#include "desktop/binding.h"
#include "desktop/by_hand.h"
#include "desktop/convert.h"
#include "session/main_window.h"
#include "ui/fields.h"
#include "ui/menu.h"

namespace desk::desktop {
namespace {

/// Opened by another screen, or by the program itself.
const std::set<std::string> withoutMenu = {"frmLogin",      "MDIForm1",    "Frmtu",          "frmToExcel",
                                           "frm房源一览表", "frm票据打印", "frm税控发票打印"};
/// Holds a number that nobody sees.
const std::set<std::string> neverShown = {"Text2"};

using ScreenList = ByHand;

bool isShown(const Control& control) {
    return dynamic_cast<const Timer*>(&control) == nullptr && !neverShown.contains(control.name());
}

TEST_F(ScreenList, EveryMenuEntryOpensAScreenOfTheListAndEveryScreenCanBeReached) {
    std::set<std::string> known;
    for (const KnownScreen& line : screenList()) {
        EXPECT_TRUE(known.insert(line.name).second) << line.name << " has two lines";
        EXPECT_EQ(line.make(program.app)->name(), line.name);
    }
    std::set<std::string> reached = withoutMenu;
    for (const MenuEntry& entry : program.app.screens.get<MDIForm1>().entries()) {
        if (entry.tag.empty()) continue;
        EXPECT_TRUE(known.contains(entry.tag)) << entry.caption() << " opens " << entry.tag;
        EXPECT_TRUE(reached.insert(entry.tag).second) << entry.tag << " is in the menu twice";
    }
    for (const auto& name : known) EXPECT_TRUE(reached.contains(name)) << name << " cannot be reached";
}

TEST_F(ScreenList, EveryControlHasAWidgetInTheFrameThatHoldsItAndANameOfItsOwn) {
    onEachScreen([](Screen& screen, QWidget& content) {
        std::set<std::string> names;
        for (const Control* control : screen.controls()) {
            EXPECT_TRUE(names.insert(control->name()).second) << control->name() << " is there twice";
            if (!isShown(*control)) continue;
            const auto widgets = content.findChildren<QWidget*>(text(control->name()));
            ASSERT_EQ(widgets.size(), 1) << control->name();
            // One that floats lies over all frames.
            if (widgets.front()->parentWidget() == &content && content.layout()->indexOf(widgets.front()) < 0)
                continue;
            const Control* around = nullptr;
            for (QWidget* at = widgets.front()->parentWidget(); at != nullptr && around == nullptr;
                 at = at->parentWidget())
                around = dynamic_cast<Frame*>(screen.control(utf8(at->objectName())));
            EXPECT_EQ(around, control->holder()) << control->name();
        }
    });
}

bool takesFocus(const QWidget& widget) {
    return widget.focusPolicy() != Qt::NoFocus && widget.property(demandedProperty).isValid();
}

TEST_F(ScreenList, EveryFieldIsReadOutByItsCaption) {
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

TEST_F(ScreenList, TabComesToTheMainButtonBeforeTheOthersOfItsRow) {
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

/// The star that a person sees; what a screen reader says of it, the scripts tell.
TEST_F(ScreenList, WhatASaveDemandsHasARedStar) {
    登记页& page = loaded<Frm引驻客户信息登记>().来人;
    const Person person(layoutOf(loaded<Frm引驻客户信息登记>()));
    const auto labels = person.window().findChildren<QLabel*>();
    const auto starred = [&](const Control& control) {
        const auto caption = std::find_if(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->buddy() == &person.at(control);
        });
        const QImage picture = (*caption)->grab().toImage();
        for (int at = 0; at < picture.width() * picture.height(); ++at)
            if (const QColor dot = picture.pixelColor(at % picture.width(), at / picture.width());
                dot.red() > dot.green() + 80)
                return true;
        return false;
    };
    EXPECT_TRUE(starred(page.客户姓名));
    EXPECT_FALSE(starred(page.公司名称));
    page.客户姓名.setDemanded(false);
    EXPECT_FALSE(starred(page.客户姓名));
}

}  // namespace
}  // namespace desk::desktop
