#include <gtest/gtest.h>

#include <optional>

#include "base/failure.h"
#include "support/scripted_desktop.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/menu.h"

namespace desk {
namespace {

struct Sheet : Screen {
    Sheet() : Screen("sheet", "表", WindowKind::child, 1500, 1500) {}
};

TEST(Lifetimes, AControlThatGoesLeavesItsScreenAndWhateverNamesIt) {
    Sheet sheet;
    std::optional<Frame> frame(std::in_place, sheet, "frame");
    std::optional<TextBox> marker(std::in_place, *frame, "marker");
    TextBox rest(*frame, "rest");
    rest.setAnchor(&*marker);
    int told = 0;
    marker->gone += [&] { ++told; };
    marker.reset();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(sheet.control("marker"), nullptr);
    EXPECT_EQ(rest.anchor(), nullptr);
    rest.setText("x");
    清空文本框(sheet);
    EXPECT_EQ(rest.text(), "");
    frame.reset();
    EXPECT_EQ(rest.holder(), nullptr);
    EXPECT_TRUE(rest.usable());
}

TEST(Lifetimes, ControlsMayGoWhileTheTextsOfTheirScreenAreCleared) {
    Sheet sheet;
    TextBox first(sheet, "first");
    std::optional<TextBox> second(std::in_place, sheet, "second");
    TextBox third(sheet, "third");
    for (TextBox* box : {&first, &*second, &third}) box->setText("x");
    std::optional<TextBox> late;
    first.changed += [&] {
        second.reset();
        late.emplace(sheet, "late");
    };
    清空文本框(sheet);
    EXPECT_EQ(third.text(), "");
}

TEST(Lifetimes, WhatIsLeftOfAGroupOrAMenuGoesOnWithoutWhatHasGone) {
    Sheet sheet;
    OptionButton a(sheet, "a", "甲");
    std::optional<OptionButton> b(std::in_place, sheet, "b", "乙", &a);
    OptionButton c(sheet, "c", "丙", &a);
    a.choose();
    b.reset();
    c.choose();
    EXPECT_FALSE(a.chosen());

    std::optional<MenuEntry> top(std::in_place, sheet, "设置");
    std::optional<MenuEntry> entry(std::in_place, sheet, "人员设置", &*top);
    MenuEntry other(sheet, "引驻设置", &*top);
    entry.reset();
    EXPECT_EQ(top->entries(), std::vector<MenuEntry*>{&other});
    top.reset();
    EXPECT_EQ(other.parent(), nullptr);
}

TEST(Lifetimes, AGridMayGoInTheClickThatLeadsADoubleClickAndIsNotClickedOutside) {
    Sheet sheet;
    std::optional<Grid> grid(std::in_place, sheet, "grid", "<a|<b");
    grid->addRow();
    int clicks = 0;
    grid->clicked += [&] {
        ++clicks;
        grid.reset();
    };
    grid->click(2, 0);
    grid->click(1, 2);
    grid->click(-1, 0);
    EXPECT_EQ(clicks, 0);
    grid->doubleClick(1, 1);
    EXPECT_EQ(clicks, 1);
}

/// What a screen does in its load is told from outside.
struct Told : Screen {
    explicit Told(std::function<void(Screen&)>& step)
        : Screen("told", "", WindowKind::child, 100, 100), step_(step) {}
    void load() override { step_(*this); }
    std::function<void(Screen&)>& step_;
};

struct Life : testing::Test {
    Life() {
        desktop.screens = &screens;
        screens.offer("told", [this] { return std::make_unique<Told>(step); });
    }
    ScriptedDesktop desktop;
    Screens screens{desktop};
    std::function<void(Screen&)> step = [](Screen&) {};
};

TEST_F(Life, AScreenWhoseLoadFailsIsGone) {
    step = [](Screen&) { throw RuntimeFailure(11, "除数为零"); };
    EXPECT_THROW(screens.open("told"), RuntimeFailure);
    EXPECT_EQ(screens.loaded("told"), nullptr);
    int loads = 0;
    step = [&](Screen&) { ++loads; };
    screens.open("told");
    EXPECT_EQ(loads, 1) << "a new one is made and loaded";
}

TEST_F(Life, AHandlerThatWaitsCanAskWhetherItsScreenIsStillThere) {
    Screen& screen = screens.get("told");
    const ScreenWatch watch(screen);
    EXPECT_TRUE(watch.isThere());
    screens.unload(screen);
    EXPECT_FALSE(watch.isThere());
    screens.dropUnloaded();
    EXPECT_FALSE(watch.isThere());
    EXPECT_TRUE(ScreenWatch(screens.get("told")).isThere());

    std::optional<Sheet> sheet(std::in_place);
    const ScreenWatch other(*sheet);
    sheet.reset();
    EXPECT_FALSE(other.isThere());
}

}  // namespace
}  // namespace desk
