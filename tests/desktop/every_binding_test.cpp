#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <functional>

#include "base/text.h"
#include "desktop/form.h"
#include "desktop/person.h"

namespace desk::desktop {
namespace {

/// What every binding is asked: does the widget show what the control held before it was made, does it follow
/// the screen, is it out of reach while its control is, and does it leave alone what is gone. What it tells
/// of a person's acts shows where the transcripts are played through the windows.
struct Case {
    std::string name;
    std::function<Control&(Form&)> control;
    std::function<void(Form&)> prepare;  ///< before the widget is made
    std::string atFirst;                 ///< what the widget shows then
    std::function<void(Form&)> change;   ///< by the screen
    std::string changed;                 ///< what the widget shows then
    std::function<std::string(QWidget&)> shows;
};

template <class C>
Case of(const char* name, C Form::*control, void (*prepare)(C&), const char* atFirst, void (*change)(C&),
        const char* changed, const std::function<std::string(QWidget&)>& shows) {
    return {name,
            [control](Form& form) -> Control& { return form.*control; },
            [=](Form& form) { prepare(form.*control); },
            atFirst,
            [=](Form& form) { change(form.*control); },
            changed,
            shows};
}

template <class Widget>
std::function<std::string(QWidget&)> read(QString (Widget::*text)() const) {
    return [text](QWidget& widget) { return utf8((dynamic_cast<Widget&>(widget).*text)()); };
}

std::string checkedText(QWidget& widget) {
    return dynamic_cast<QAbstractButton&>(widget).isChecked() ? "ticked" : "open";
}

/// All lines, the marked ones in brackets.
std::string lines(QWidget& widget) {
    auto& list = dynamic_cast<QListWidget&>(widget);
    std::vector<std::string> texts;
    for (int line = 0; line < list.count(); ++line) {
        const auto* item = list.item(line);
        texts.push_back(item->isSelected() ? "[" + utf8(item->text()) + "]" : utf8(item->text()));
    }
    return join(texts, " ");
}

/// As above, for what a tree or grid shows in its first column, and the nodes below it.
std::string rowsBelow(const QAbstractItemView& view, const QModelIndex& parent = {}) {
    std::vector<std::string> texts;
    const auto& model = *view.model();
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        std::string text = utf8(index.data().toString());
        if (index.data(Qt::CheckStateRole).toInt() == Qt::Checked) text += "√";
        if (view.selectionModel()->isSelected(index)) text = "[" + text + "]";
        if (model.rowCount(index) > 0) text += "(" + rowsBelow(view, index) + ")";
        texts.push_back(text);
    }
    return join(texts, " ");
}

std::string viewRows(QWidget& widget) {
    return rowsBelow(dynamic_cast<QAbstractItemView&>(widget));
}

std::string comboText(QWidget& widget) {
    auto& combo = dynamic_cast<QComboBox&>(widget);
    return std::to_string(combo.count()) + " " + utf8(combo.currentText());
}

std::string panels(QWidget& widget) {
    std::vector<std::string> texts;
    for (const auto* panel : widget.findChildren<QLabel*>()) texts.push_back(utf8(panel->text()));
    return join(texts, "|");
}

std::string middleColour(QWidget& widget) {
    return utf8(widget.grab().toImage().pixelColor(widget.rect().center()).name());
}

void fillTree(Tree& tree) {
    TreeNode& root = tree.add(nullptr, "L", "项目");
    tree.add(&root, "1", "东塔");
    tree.add(&root, "2", "西塔");
    tree.setExpanded(root, true);
    tree.select(tree.find("1"));
}

const std::vector<Case>& cases() {
    static const std::vector<Case> all = {
        of<TextBox>(
            "Line", &Form::first, [](auto& box) { box.setText("甲"); }, "甲",
            [](auto& box) { box.setText("乙"); }, "乙", read(&QLineEdit::text)),
        of<TextBox>(
            "Paragraph", &Form::note, [](auto& box) { box.setText("一\r\n二"); }, "一\n二",
            [](auto& box) { box.setText("三"); }, "三", read(&QPlainTextEdit::toPlainText)),
        of<TextBox>(
            "Password", &Form::password, [](auto& box) { box.setText("ab"); }, "**",
            [](auto& box) { box.setText("abc"); }, "***", read(&QLineEdit::displayText)),
        of<Label>(
            "Label", &Form::label, [](auto& label) { label.setCaption("版本"); }, "版本",
            [](auto& label) { label.setCaption("V1.0"); }, "V1.0", read(&QLabel::text)),
        of<Link>(
            "Link", &Form::link, [](auto& link) { link.setCaption("展开"); }, "展开",
            [](auto& link) { link.setCaption("收起"); }, "收起", read(&QAbstractButton::text)),
        of<Button>(
            "Button", &Form::button, [](auto& button) { button.setCaption("新增"); }, "新增(&N)",
            [](auto& button) { button.setCaption("取消"); }, "取消(&C)", read(&QAbstractButton::text)),
        of<CheckBox>(
            "Check", &Form::check, [](auto& box) { box.setChecked(true); }, "ticked",
            [](auto& box) { box.setChecked(false); }, "open", checkedText),
        {"Option", [](Form& form) -> Control& { return form.option; },
         [](Form& form) { form.option.choose(); }, "ticked", [](Form& form) { form.other.choose(); }, "open",
         checkedText},
        of<DatePicker>(
            "Date", &Form::day, [](auto& day) { day.setValue(DateTime(2026, 11, 25)); }, "2026-11-25",
            [](auto& day) { day.setValue(DateTime(2011, 3, 5)); }, "2011-03-05", read(&QDateEdit::text)),
        of<MonthCalendar>(
            "Calendar", &Form::calendar, [](auto& days) { days.setValue(DateTime(2026, 11, 25)); },
            "2026-11-25", [](auto& days) { days.setValue(DateTime(2011, 3, 5)); }, "2011-03-05",
            [](QWidget& widget) {
                auto& shown = dynamic_cast<QCalendarWidget&>(widget);
                return utf8(shown.selectedDate().toString(Qt::ISODate));
            }),
        of<Swatch>(
            "Swatch", &Form::swatch, [](auto& area) { area.setColour(rgb(255, 0, 0)); }, "#ff0000",
            [](auto& area) { area.setColour(rgb(0, 0, 255)); }, "#0000ff", middleColour),
        of<ComboBox>(
            "Combo", &Form::combo,
            [](auto& combo) {
                for (const char* line : {"01 东塔", "02 西塔"}) combo.addItem(line);
                combo.setIndex(1);
            },
            "2 02 西塔",
            [](auto& combo) {
                combo.addItem("10 裙楼");
                combo.setIndex(0);
            },
            "3 01 东塔", comboText),
        of<ListBox>(
            "List", &Form::list,
            [](auto& list) {
                for (const char* line : {"招商专员", "主管"}) list.addItem(line);
                list.setSelected(1, true);
            },
            "招商专员 [主管]",
            [](auto& list) {
                list.addItem("经理");
                list.setSelected(2, true);
            },
            "招商专员 主管 [经理]", lines),
        of<ListBox>(
            "ListOfSeveral", &Form::several,
            [](auto& list) {
                for (const char* line : {"报纸", "网络", "路牌"}) list.addItem(line);
                list.setSelected(0, true);
                list.setSelected(2, true);
            },
            "[报纸] 网络 [路牌]", [](auto& list) { list.setSelected(0, false); }, "报纸 网络 [路牌]", lines),
        of<TabStrip>(
            "Tabs", &Form::tabs, [](auto& strip) { strip.setIndex(1); }, "二",
            [](auto& strip) { strip.setIndex(0); }, "一",
            [](QWidget& widget) {
                auto& bar = dynamic_cast<QTabBar&>(widget);
                return utf8(bar.tabText(bar.currentIndex()));
            }),
        of<StatusBar>(
            "StatusBar", &Form::status, [](auto& bar) { bar.setPanel(1, "标题"); }, "|标题",
            [](auto& bar) { bar.setPanel(0, "新增"); }, "新增|标题", panels),
        of<Tree>(
            "Tree", &Form::tree, fillTree, "项目([东塔] 西塔)",
            [](auto& tree) { tree.remove(*tree.find("1")); }, "项目(西塔)", viewRows),
        of<Tree>(
            "TreeOfTicks", &Form::ticks,
            [](auto& tree) {
                fillTree(tree);
                tree.setChecked(*tree.find("2"), true);
            },
            "项目([东塔] 西塔√)", [](auto& tree) { tree.setChecked(*tree.find("1"), true); },
            "项目([东塔√] 西塔√)", viewRows),
        of<Grid>(
            "Grid", &Form::grid,
            [](auto& grid) {
                for (const char* row : {"1", "2", "3"}) grid.addRow({row, "名"});
                grid.setCurrent(2, 0);
            },
            "1 [2] 3",
            [](auto& grid) {
                grid.setText(1, 0, "→");
                grid.setCurrent(3, 0);
            },
            "→ 2 [3]", viewRows),
        of<Canvas>(
            "Canvas", &Form::canvas,
            [](auto& canvas) {
                canvas.resized += [&canvas] {
                    canvas.background = rgb(255, 0, 0);
                    canvas.clear();
                };
            },
            "#ff0000",
            [](auto& canvas) {
                canvas.background = rgb(0, 0, 255);
                canvas.clear();
                canvas.repaint();
            },
            "#0000ff", middleColour),
    };
    return all;
}

class EveryBinding : public testing::TestWithParam<Case> {
  protected:
    EveryBinding() { GetParam().prepare(form); }

    std::unique_ptr<Form> held = std::make_unique<Form>();
    Form& form = *held;
    Control& control = GetParam().control(form);
};

TEST_P(EveryBinding, ShowsAndFollowsItsControl) {
    const Case& binding = GetParam();
    const Person person(shown({&control, &form.second}));
    QWidget& widget = person.at(control);
    EXPECT_EQ(binding.shows(widget), binding.atFirst);
    binding.change(form);
    EXPECT_EQ(binding.shows(widget), binding.changed);
    for (const bool usable : {false, true}) {
        control.setEnabled(usable);
        EXPECT_EQ(widget.isEnabled(), usable);
        control.setVisible(usable);
        EXPECT_EQ(widget.isVisible(), usable);
    }
}

TEST_P(EveryBinding, TellsItsControlOfTheFocusAndGetsItFromThere) {
    const Person person(shown({&form.second, &control}));
    int times = 0;
    control.focused += [&] { ++times; };
    form.second.focus();
    if (person.at(control).focusPolicy() == Qt::NoFocus) return;
    person.press({Qt::Key_Tab});
    EXPECT_EQ(times, 1);
    form.second.focus();
    control.focus();
    EXPECT_EQ(times, 2);
}

TEST_P(EveryBinding, OutlivesAWidgetThatGoes) {
    Person person(shown({&control}));
    person.close();
    GetParam().change(form);
    control.setEnabled(false);
    control.setVisible(false);
    control.focus();
    EXPECT_FALSE(control.usable());
}

TEST_P(EveryBinding, GoesWithItsControl) {
    const Person person(shown({&control}));
    const QPointer<QWidget> widget = &person.at(control);
    held.reset();
    ASSERT_TRUE(widget);
    EXPECT_FALSE(widget->isVisible());
    // What was on its way to it comes too late.
    Person::click(*widget, widget->rect().center());
    QTest::keyClick(widget, Qt::Key_Down);
    widget->grab();
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget.isNull(); }));
}

TEST_P(EveryBinding, IsHiddenFromTheFirstWhereItsControlIs) {
    control.setVisible(false);
    control.setEnabled(false);
    const Person person(shown({&control, &form.second}));
    EXPECT_FALSE(person.at(control).isVisible());
    EXPECT_FALSE(person.at(control).isEnabled());
}

INSTANTIATE_TEST_SUITE_P(All, EveryBinding, testing::ValuesIn(cases()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace desk::desktop
