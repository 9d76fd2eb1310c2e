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
/// the screen, does it tell what a person does, does it keep still while disabled or hidden, and does it
/// leave alone what is gone.
struct Case {
    std::string name;
    std::function<Control&(Form&)> control;
    std::function<void(Form&)> prepare;          ///< before the widget is made
    std::string atFirst;                         ///< what the widget shows then
    std::function<void(Form&)> change;           ///< by the screen
    std::string changed;                         ///< what the widget shows then
    std::function<std::string(QWidget&)> shows;  ///< what can be read in the widget
    std::function<void(const Person&, const Control&)> act;
    std::string told;  ///< what the control holds, or has raised, after the act; empty where nobody can act
    std::function<std::string(Form&)> holds;
};

template <class Widget>
std::function<std::string(QWidget&)> read(QString (Widget::*text)() const) {
    return [text](QWidget& widget) { return utf8((dynamic_cast<Widget&>(widget).*text)()); };
}

void press(const Person& person, const Control& control) {
    person.click(control);
}

/// Goes to the widget and types.
std::function<void(const Person&, const Control&)> typing(const char* text) {
    return [text](const Person& person, const Control& control) {
        person.at(control).setFocus();
        if (person.at(control).hasFocus()) person.type(text);
    };
}

std::function<void(const Person&, const Control&)> clickingLine(std::initializer_list<int> rows) {
    return [rows = std::vector<int>(rows)](const Person& person, const Control& control) {
        QWidget& view = person.at(control);
        const QPoint at = rows.size() == 1 ? lineOf(view, {rows[0]}) : lineOf(view, {rows[0], rows[1]});
        Person::click(viewportOf(view), at);
    };
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

std::string selectedKey(const Tree& tree) {
    return std::string(tree.selected() == nullptr ? "" : tree.selected()->key());
}

const std::vector<Case>& cases() {
    static const std::vector<Case> all = {
        {"Line", [](Form& f) -> Control& { return f.first; }, [](Form& f) { f.first.setText("甲"); }, "甲",
         [](Form& f) { f.first.setText("乙"); }, "乙", read(&QLineEdit::text), typing("7"), "7乙",
         [](Form& f) { return f.first.text(); }},
        {"Paragraph", [](Form& f) -> Control& { return f.note; }, [](Form& f) { f.note.setText("一\r\n二"); },
         "一\n二", [](Form& f) { f.note.setText("三"); }, "三", read(&QPlainTextEdit::toPlainText),
         typing("7"), "7三", [](Form& f) { return f.note.text(); }},
        {"Password", [](Form& f) -> Control& { return f.password; },
         [](Form& f) { f.password.setText("ab"); }, "**", [](Form& f) { f.password.setText("abc"); }, "***",
         read(&QLineEdit::displayText), typing("7"), "7abc", [](Form& f) { return f.password.text(); }},
        {"Label",
         [](Form& f) -> Control& { return f.label; },
         [](Form& f) { f.label.setCaption("版本"); },
         "版本",
         [](Form& f) { f.label.setCaption("V1.0"); },
         "V1.0",
         read(&QLabel::text),
         press,
         "",
         {}},
        {"Link", [](Form& f) -> Control& { return f.link; }, [](Form& f) { f.link.setCaption("展开"); },
         "展开", [](Form& f) { f.link.setCaption("收起"); }, "收起", read(&QAbstractButton::text), press,
         "clicked", [](Form& f) { return f.tag; }},
        {"Button", [](Form& f) -> Control& { return f.button; }, [](Form& f) { f.button.setCaption("新增"); },
         "新增(&N)", [](Form& f) { f.button.setCaption("取消"); }, "取消(&C)", read(&QAbstractButton::text),
         press, "clicked", [](Form& f) { return f.tag; }},
        {"Check", [](Form& f) -> Control& { return f.check; }, [](Form& f) { f.check.setChecked(true); },
         "ticked", [](Form& f) { f.check.setChecked(false); }, "open", checkedText,
         [](const Person& person, const Control& control) {
             Person::click(person.at(control), QPoint(8, person.at(control).height() / 2));
         },
         "ticked", [](Form& f) { return std::string(f.check.checked() ? "ticked" : "open"); }},
        {"Option", [](Form& f) -> Control& { return f.option; }, [](Form& f) { f.option.choose(); }, "ticked",
         [](Form& f) { f.other.choose(); }, "open", checkedText,
         [](const Person& person, const Control& control) {
             Person::click(person.at(control), QPoint(8, person.at(control).height() / 2));
         },
         "ticked", [](Form& f) { return std::string(f.option.chosen() ? "ticked" : "open"); }},
        {"Date", [](Form& f) -> Control& { return f.day; },
         [](Form& f) { f.day.setValue(DateTime(2026, 11, 25)); }, "2026-11-25",
         [](Form& f) { f.day.setValue(DateTime(2011, 3, 5)); }, "2011-03-05", read(&QDateEdit::text),
         typing("2012"), "2012-03-05", [](Form& f) { return isoDay(f.day.value()); }},
        {"Calendar", [](Form& f) -> Control& { return f.calendar; },
         [](Form& f) { f.calendar.setValue(DateTime(2026, 11, 25)); }, "2026-11-25",
         [](Form& f) { f.calendar.setValue(DateTime(2011, 3, 5)); }, "2011-03-05",
         [](QWidget& widget) {
             return utf8(dynamic_cast<QCalendarWidget&>(widget).selectedDate().toString(Qt::ISODate));
         },
         [](const Person& person, const Control& control) {
             person.at(control).setFocus();
             if (person.at(control).isEnabled() && person.at(control).isVisible())
                 person.press({Qt::Key_Right, Qt::Key_Return});
         },
         "2011-03-06 clicked", [](Form& f) { return isoDay(f.calendar.value()) + " " + f.tag; }},
        {"Swatch",
         [](Form& f) -> Control& { return f.swatch; },
         [](Form& f) { f.swatch.setColour(rgb(255, 0, 0)); },
         "#ff0000",
         [](Form& f) { f.swatch.setColour(rgb(0, 0, 255)); },
         "#0000ff",
         middleColour,
         press,
         "",
         {}},
        {"Combo", [](Form& f) -> Control& { return f.combo; },
         [](Form& f) {
             for (const char* line : {"01 东塔", "02 西塔"}) f.combo.addItem(line);
             f.combo.setIndex(1);
         },
         "2 02 西塔",
         [](Form& f) {
             f.combo.addItem("10 裙楼");
             f.combo.setIndex(0);
         },
         "3 01 东塔", comboText,
         [](const Person& person, const Control& control) {
             person.at(control).setFocus();
             if (person.at(control).hasFocus()) person.press({Qt::Key_Down});
         },
         "02 西塔", [](Form& f) { return std::string(f.combo.text()); }},
        {"List", [](Form& f) -> Control& { return f.list; },
         [](Form& f) {
             for (const char* line : {"招商专员", "主管"}) f.list.addItem(line);
             f.list.setSelected(1, true);
         },
         "招商专员 [主管]",
         [](Form& f) {
             f.list.addItem("经理");
             f.list.setSelected(2, true);
         },
         "招商专员 主管 [经理]", lines, clickingLine({0}), "招商专员",
         [](Form& f) { return join(f.list.selectedTexts(), ","); }},
        {"ListOfSeveral", [](Form& f) -> Control& { return f.several; },
         [](Form& f) {
             for (const char* line : {"报纸", "网络", "路牌"}) f.several.addItem(line);
             f.several.setSelected(0, true);
             f.several.setSelected(2, true);
         },
         "[报纸] 网络 [路牌]", [](Form& f) { f.several.setSelected(0, false); }, "报纸 网络 [路牌]", lines,
         clickingLine({1}), "网络,路牌", [](Form& f) { return join(f.several.selectedTexts(), ","); }},
        {"Tabs", [](Form& f) -> Control& { return f.tabs; }, [](Form& f) { f.tabs.setIndex(1); }, "二",
         [](Form& f) { f.tabs.setIndex(0); }, "一",
         [](QWidget& widget) {
             auto& bar = dynamic_cast<QTabBar&>(widget);
             return utf8(bar.tabText(bar.currentIndex()));
         },
         [](const Person& person, const Control& control) {
             auto& bar = dynamic_cast<QTabBar&>(person.at(control));
             Person::click(bar, bar.tabRect(2).center());
         },
         "2", [](Form& f) { return std::to_string(f.tabs.index()); }},
        {"StatusBar",
         [](Form& f) -> Control& { return f.status; },
         [](Form& f) { f.status.setPanel(1, "标题"); },
         "|标题",
         [](Form& f) { f.status.setPanel(0, "新增"); },
         "新增|标题",
         panels,
         press,
         "",
         {}},
        {"Tree", [](Form& f) -> Control& { return f.tree; }, [](Form& f) { fillTree(f.tree); },
         "项目([东塔] 西塔)", [](Form& f) { f.tree.remove(*f.tree.find("1")); }, "项目(西塔)", viewRows,
         clickingLine({0, 0}), "2 clicked", [](Form& f) { return selectedKey(f.tree) + " " + f.tag; }},
        {"TreeOfTicks", [](Form& f) -> Control& { return f.ticks; },
         [](Form& f) {
             fillTree(f.ticks);
             f.ticks.setChecked(*f.ticks.find("2"), true);
         },
         "项目([东塔] 西塔√)", [](Form& f) { f.ticks.setChecked(*f.ticks.find("1"), true); },
         "项目([东塔√] 西塔√)", viewRows,
         [](const Person& person, const Control& control) {
             person.at(control).setFocus();
             if (person.at(control).hasFocus()) person.press({Qt::Key_Space});
         },
         "open", [](Form& f) { return std::string(f.ticks.find("1")->checked() ? "ticked" : "open"); }},
        {"Grid", [](Form& f) -> Control& { return f.grid; },
         [](Form& f) {
             for (const char* row : {"1", "2", "3"}) f.grid.addRow({row, "名"});
             f.grid.setCurrent(2, 0);
         },
         "1 [2] 3",
         [](Form& f) {
             f.grid.setText(1, 0, "→");
             f.grid.setCurrent(3, 0);
         },
         "→ 2 [3]", viewRows, clickingLine({0}), "1 clicked",
         [](Form& f) { return std::to_string(f.grid.row()) + " " + f.tag; }},
        {"Canvas", [](Form& f) -> Control& { return f.canvas; },
         [](Form& f) {
             f.canvas.resize(15000, 15000, 1.0 / 15);
             f.canvas.background = rgb(0, 255, 0);
             f.canvas.clear();
             f.canvas.resized += [&f] {
                 f.canvas.background = rgb(255, 0, 0);
                 f.canvas.clear();
             };
         },
         "#ff0000",
         [](Form& f) {
             f.canvas.background = rgb(0, 0, 255);
             f.canvas.clear();
             f.canvas.repaint();
         },
         "#0000ff", middleColour, press, "pressed", [](Form& f) { return f.tag; }},
    };
    return all;
}

class EveryBinding : public testing::TestWithParam<Case> {
  protected:
    EveryBinding() : held(std::make_unique<Form>()), form(*held) {
        form.link.clicked += [this] { form.tag = "clicked"; };
        form.button.clicked += [this] { form.tag = "clicked"; };
        form.calendar.dayClicked += [this](const DateTime&) { form.tag = "clicked"; };
        form.tree.nodeClicked += [this](TreeNode&) { form.tag = "clicked"; };
        form.grid.clicked += [this] { form.tag = "clicked"; };
        form.canvas.pressed += [this](double, double) { form.tag = "pressed"; };
        GetParam().prepare(form);
    }

    std::unique_ptr<Form> held;
    Form& form;
};

TEST_P(EveryBinding, ShowsFollowsTellsAndKeepsStill) {
    const Case& binding = GetParam();
    Control& control = binding.control(form);
    const Person person(shown({&control, &form.second}));
    QWidget& widget = person.at(control);
    EXPECT_EQ(binding.shows(widget), binding.atFirst);
    binding.change(form);
    EXPECT_EQ(binding.shows(widget), binding.changed);

    if (binding.holds) {
        const std::string before = binding.holds(form);
        control.setEnabled(false);
        EXPECT_FALSE(widget.isEnabled());
        binding.act(person, control);
        EXPECT_EQ(binding.holds(form), before) << "while disabled";
        control.setEnabled(true);
    }
    control.setVisible(false);
    EXPECT_FALSE(widget.isVisible());
    control.setVisible(true);
    EXPECT_TRUE(widget.isVisible());
    if (binding.holds) {
        binding.act(person, control);
        EXPECT_EQ(binding.holds(form), binding.told);
    }
}

TEST_P(EveryBinding, TellsItsControlOfTheFocusAndGetsItFromThere) {
    Control& control = GetParam().control(form);
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
    const Case& binding = GetParam();
    Control& control = binding.control(form);
    Person person(shown({&control}));
    person.close();
    binding.change(form);
    control.setEnabled(false);
    control.setVisible(false);
    control.focus();
    EXPECT_FALSE(control.usable());
}

TEST_P(EveryBinding, GoesWithItsControl) {
    Control& control = GetParam().control(form);
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
    Control& control = GetParam().control(form);
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
