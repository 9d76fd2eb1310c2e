#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "money/tax_desk.h"
#include "support/cases.h"

namespace desk {
namespace {

/// What only the surrounding property system has.
struct 外部程序 : Screen {
    外部程序() : Screen("frm外部", "", WindowKind::child, 100, 100) {}
    Button Command16{*this, "Command16", ""};
    Frame Frame3{*this, "Frame3"};
    Button Command5{*this, "Command5", ""};
    Button Command4{*this, "Command4", ""};
    退票窗体 退票{"frm退票", "", WindowKind::dialog, 100, 100};
};

/// A cashier's desk at a running tax program, and whoever has invoices printed there.
struct Callers : 税控台 {
    explicit Callers(bool charged) {
        isRunning();
        outside.Frame3.tag = charged ? "3,4" : "";
        desktop.modalPerson = [this](Screen& dialog) {
            auto& asked = dynamic_cast<退票窗体&>(dialog);
            told += fmt::format(", is asked for {} {} {} {}/{}/{}", asked.tag, asked.Text1.text(),
                                asked.Text4.text(), asked.Text3.text(), asked.Text3.tag, asked.Text2.tag);
        };
    }

    void act(Frm税控发票打印& screen, const std::string& deed) {
        auto& recovery = screen.恢复;
        desktop.answers.assign(2, deed.ends_with("yes") ? Answer::yes : Answer::no);
        if (deed.starts_with("prints")) screen.打印发票.click();
        if (deed.starts_with("takes back")) screen.税控退票处理();
        if (deed == "is closed out") recovery.面板.tag = 未正常打印::非正常;
        if (deed == "closes") screen.关闭.click();
        if (deed.starts_with("reason ")) recovery.选项.at(std::stoul(deed.substr(7))).click();
        if (deed == "back") recovery.退票.click();
        if (deed == "cancels") recovery.取消收款.click();
        if (deed == "confirms") recovery.确定.click();
    }
    /// How the screen stands.
    void tell(const Frm税控发票打印& screen) {
        told += ", stays";
        if (screen.恢复.面板.isOpen()) told += " with its panel";
        if (screen.关闭.enabled()) told += ", may close";
        if (screen.样张.空白票据.count() < 2)
            told += ", has left " + screen.样张.空白票据.items().front().text;
        if (!screen.恢复.面板.tag.empty()) told += ", " + screen.恢复.面板.tag;
    }
    std::string outcome(const std::string& caller, bool bound, const std::string& deeds) {
        auto& screen = open();
        if (bound)
            screen.外部 = {&outside.Command16, &outside.Frame3, &outside.Command5, &outside.Command4,
                           &outside.退票};
        screen.tag = caller;
        try {
            for (const auto& deed : split(deeds, ',')) act(screen, std::string(trimmed(deed)));
        } catch (const RuntimeFailure& failure) {
            told += fmt::format(", fails {}", failure.number());
            if (const auto& last = fault.statements.back(); last.starts_with("Update")) told += " by " + last;
        }
        if (isOpen())
            tell(screen);
        else
            told += ", closes";
        for (const Button* taken : {&outside.Command16, &outside.Command5, &outside.Command4})
            if (!taken->tag.empty()) told += fmt::format(", {}={}", taken->name(), taken->tag);
        if (!handedBack().empty()) told += ", 意向金收取=" + handedBack();
        const auto runs = std::count(machine.lines.begin(), machine.lines.end(), "has window 税控软件");
        return told.substr(2) + (runs > 1 ? fmt::format(", {} runs", runs) : "");
    }

    外部程序 outside;
    std::string told;
};

TEST(TaxCallers, FareAsIsWrittenDown) {
    for (const auto& [where, fields] : casesIn("tax_callers.txt")) {
        SCOPED_TRACE(where);
        const auto words = split(fields[0], '|');
        Callers desk(words.at(1) == "charged");
        EXPECT_EQ(desk.outcome(words.at(0), !words.at(1).empty(), words.at(2)), fields[1]);
    }
}

}  // namespace
}  // namespace desk
