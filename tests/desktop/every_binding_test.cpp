#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>

#include "desktop/form_by_hand.h"
#include "desktop/person.h"

namespace desk::desktop {
namespace {

/// A control of the form, and what its screen does to it in the words of FormByHand.
struct Change {
    std::string control;
    std::string what;
    std::string value;
};

/// Control and widget end each without the other, and what was on its way comes too late.
class EveryBinding : public testing::TestWithParam<Change> {
  protected:
    EveryBinding() {
        for (const auto& [name, value] :
             {std::pair{"combo", "一|二"}, {"list", "一|二"}, {"several", "一|二"}})
            form->act(*form->control(name), "lines", value);
        for (const char* name : {"tree", "ticks"}) form->act(*form->control(name), "node", "甲");
        form->act(*form->control("grid"), "row", "1|甲");
    }

    Control& control() { return *form->control(GetParam().control); }

    std::unique_ptr<FormByHand> form = std::make_unique<FormByHand>([](const std::string&) {});
    Person person{form->layOut({GetParam().control})};
};

TEST_P(EveryBinding, OutlivesAWidgetThatGoes) {
    person.close();
    form->act(control(), GetParam().what, GetParam().value);
    control().setEnabled(false);
    control().setVisible(false);
    control().focus();
    EXPECT_FALSE(control().usable());
}

TEST_P(EveryBinding, GoesWithItsControl) {
    const QPointer<QWidget> widget = &person.at(control());
    form.reset();
    ASSERT_TRUE(widget);
    EXPECT_FALSE(widget->isVisible());
    Person::click(*widget, widget->rect().center());
    QTest::keyClick(widget, Qt::Key_Down);
    widget->grab();
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget.isNull(); }));
}

/// Its place is reckoned anew when the events run, and by then there is nothing to ask for it.
TEST(Floating, IsLeftAloneWhereItsControlHasGone) {
    auto form = std::make_unique<FormByHand>([](const std::string&) {});
    form->act(*form->control("grid"), "row", "1|甲");
    const Person person(form->layOut({"grid", "arrow"}));
    form->control("arrow")->setAnchor(form->control("grid"), Cell{1, 1});
    ASSERT_TRUE(person.at(*form->control("arrow")).isVisible());
    person.window().resize(person.window().size() + QSize(40, 40));
    form.reset();
    QApplication::processEvents();
}

INSTANTIATE_TEST_SUITE_P(All, EveryBinding,
                         testing::Values(Change{"first", "text", "乙"}, Change{"note", "text", "三"},
                                         Change{"password", "text", "c"}, Change{"label", "caption", "V1.0"},
                                         Change{"link", "caption", "收起"},
                                         Change{"button", "caption", "取消"}, Change{"check", "ticked", ""},
                                         Change{"option", "chosen", ""}, Change{"day", "value", "2011-03-05"},
                                         Change{"calendar", "value", "2011-03-05"},
                                         Change{"swatch", "colour", "255"}, Change{"combo", "at", "1"},
                                         Change{"list", "marks", "1"}, Change{"several", "marks", "2"},
                                         Change{"tabs", "at", "1"}, Change{"status", "panel", "标题"},
                                         Change{"tree", "without", "甲"}, Change{"ticks", "ticks", "甲"},
                                         Change{"grid", "cell", "1 0 →"}, Change{"canvas", "colour", "255"}),
                         [](const auto& each) { return each.param.control; });

}  // namespace
}  // namespace desk::desktop
