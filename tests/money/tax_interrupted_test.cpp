#include <optional>

#include "money/tax_desk.h"
#include "session/main_window.h"

namespace desk {
namespace {

/// Something that a person does at the screen, and the answers to the questions that come.
struct Deed {
    const char* name;
    bool runs;           ///< whether the tax program is there
    const char* number;  ///< that it shows
    std::vector<Answer> answers;
    std::function<void(Frm税控发票打印&)> act;
};

const std::vector<Deed>& deeds() {
    const auto print = [](Frm税控发票打印& screen) { screen.打印发票.click(); };
    const auto reprint = [print](Frm税控发票打印& screen) {
        print(screen);
        if (!screen.isThere()) return;
        screen.恢复.选项[3].click();
        screen.恢复.确定.click();
    };
    static const std::vector<Deed> all = {
        {"PrintFromTheLoginOn", false, "9002", {Answer::yes}, print},
        {"PrintAtARunningProgram", true, "9001", {Answer::no}, print},
        {"ReadNoNumber", false, "", {}, print},
        {"ReadAWrongNumber", true, "1", {}, print},
        {"FindNoBook",
         true,
         "",
         {},
         [print](Frm税控发票打印& screen) {
             screen.样张.票据本.setIndex(-1);
             print(screen);
         }},
        {"Reprint", true, "9001", {Answer::no, Answer::yes}, reprint},
        {"TakeBack", false, "9001", {Answer::yes}, [](Frm税控发票打印& screen) { screen.税控退票处理(); }},
    };
    return all;
}

/// A cashier's desk with scripts of every kind of step.
struct FullDesk : 税控台 {
    explicit FullDesk(const Deed& deed) {
        if (deed.runs) isRunning();
        number = deed.number;
        for (const Name table : {Name("SKStep"), Name("SKTPStep")}) {
            step(login, "键盘操作", "", "", "", "输入密码", table);
            step(login, "鼠标单击", "1", "2", "", "", table);
            if (!deed.runs) step(login, "获取发票编号", "", "", "", "", table);
            step("开票", "获取发票编号", "", "", "", "", table);
            step("开票", "鼠标双击", "1", "2", "", "", table);
            step("开票", "鼠标移动", "1", "2", "", "", table);
            step("开票", "鼠标选中", "1", "2", "", "", table);
            step("开票", "键盘操作", "", "", "", "按经营项目编号1", table);
            step("开票", "键盘操作", "9", "", "", "按经营项目位置2", table);
            step("开票", "延时", "2", "", "", "", table);
        }
        desktop.answers.assign(deed.answers.begin(), deed.answers.end());
        app.screens.get<Frm意向金收取>();
    }
};

/// Does `deed` once for each moment at which others can act, and lets `interrupt` act there.
template <class Interrupt, class Check>
void atEachMoment(const Deed& deed, Interrupt interrupt, Check check) {
    for (int moment = 1;; ++moment) {
        SCOPED_TRACE(std::string(deed.name) + " at moment " + std::to_string(moment));
        FullDesk desk(deed);
        Frm税控发票打印& screen = desk.open();
        int left = moment;
        std::optional<std::size_t> before;  // calls of the machine when it happened
        desk.meanwhile = [&](const std::string&) {
            if (--left != 0) return;
            before = desk.machine.lines.size();
            interrupt(desk, screen);
        };
        check(
            desk, screen, [&] { deed.act(screen); }, before);
        if (left > 0) {
            EXPECT_GT(moment, 1);
            return;
        }
    }
}

class TaxInterrupted : public testing::TestWithParam<std::size_t> {
  protected:
    const Deed& deed = deeds()[GetParam()];
};

TEST_P(TaxInterrupted, ByTheEndOfItsScreenTypesNothingMore) {
    atEachMoment(
        deed, [](FullDesk& desk, Frm税控发票打印& screen) { desk.app.screens.unload(screen); },
        [](FullDesk& desk, Frm税控发票打印& screen, auto act, const auto& before) {
            act();
            if (before) {
                EXPECT_EQ(desk.machine.lines.size(), *before);
            }
            const bool waits = dynamic_cast<Timer&>(*screen.control("计时")).enabled();
            if (desk.isOpen()) {
                EXPECT_FALSE(waits);
            }
            desk.app.screens.dropUnloaded();
        });
}

TEST_P(TaxInterrupted, ByTheEndOfItsCallerGoesOn) {
    atEachMoment(
        deed,
        [](FullDesk& desk, Frm税控发票打印&) {
            desk.app.screens.unload(*desk.app.screens.loaded(Frm意向金收取::screenName));
            desk.app.screens.dropUnloaded();
        },
        [this](FullDesk& desk, Frm税控发票打印&, auto act, const auto&) {
            act();
            const bool confirmed = !deed.answers.empty() && deed.answers.back() == Answer::yes &&
                                   std::string_view(deed.name) != "TakeBack";
            EXPECT_EQ(desk.isOpen(), !confirmed);
            EXPECT_EQ(desk.handedBack().empty(), !confirmed);
        });
}

TEST_P(TaxInterrupted, ByTheEndOfTheProgramIsNotGoneOnWith) {
    atEachMoment(
        deed, [](FullDesk& desk, Frm税控发票打印&) { desk.desktop.endProcess(); },
        [](FullDesk& desk, Frm税控发票打印&, auto act, const auto& before) {
            bool ended = false;
            try {
                act();
            } catch (const ProcessEnded&) {
                ended = true;
            }
            EXPECT_EQ(ended, before.has_value());
            if (before) {
                EXPECT_EQ(desk.machine.lines.size(), *before);
            }
        });
}

/// All that a person can do at a screen but close its window.
void pressEverything(Screen& screen) {
    const auto controls = screen.controls();
    for (Control* control : controls) {
        if (!screen.isThere()) return;
        if (auto* button = dynamic_cast<Button*>(control)) button->click();
        if (auto* box = dynamic_cast<CheckBox*>(control)) box->click();
        if (auto* option = dynamic_cast<OptionButton*>(control)) option->click();
        if (auto* text = dynamic_cast<TextBox*>(control)) text->type("x");
        if (auto* panel = dynamic_cast<Panel*>(control)) panel->escape();
    }
}

TEST_P(TaxInterrupted, ByOtherHandsStartsNoSecondRun) {
    atEachMoment(
        deed,
        [](FullDesk& desk, Frm税控发票打印& screen) {
            // Where a button is in use already, its own meaning holds.
            if (!screen.打印发票.enabled() && !screen.关闭.enabled()) pressEverything(screen);
            static_cast<void>(desk);
        },
        [this](FullDesk& desk, Frm税控发票打印&, auto act, const auto&) {
            act();
            const auto runs =
                std::count(desk.machine.lines.begin(), desk.machine.lines.end(), "has window 税控软件");
            EXPECT_LE(runs, std::string_view(deed.name) == "Reprint" ? 2 : 1);
        });
}

INSTANTIATE_TEST_SUITE_P(Each, TaxInterrupted, testing::Range<std::size_t>(0, deeds().size()),
                         [](const auto& named) { return deeds()[named.param].name; });

/// What happens as the screen opens.
TEST(TaxOpening, InterruptedByItsOwnEndStops) {
    for (const char* missing : {"票据税控机", "SKOperator"}) {
        税控台 desk;
        desk.db().execute("Delete From " + std::string(missing));
        desk.meanwhile = [&](const std::string&) {
            desk.app.screens.unload(*desk.app.screens.loaded(Frm税控发票打印::screenName));
        };
        desk.app.screens.open(Frm税控发票打印::screenName);
        EXPECT_FALSE(desk.isOpen()) << missing;
        EXPECT_EQ(desk.desktop.messages.size(), 1u);
        desk.app.screens.dropUnloaded();
    }
}

}  // namespace
}  // namespace desk
