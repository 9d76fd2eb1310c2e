#include "base/text.h"
#include "money/tax_desk.h"
#include "support/cases.h"
#include "support/scripted_hand.h"

namespace desk {
namespace {

/// A step in a run of the tax program, before one that types {F9}.
class TaxSteps : public testing::Test {
  protected:
    TaxSteps() { desk.isRunning(); }

    /// What the step of these words does, and whether it "ends" the run without a word.
    std::string doneBy(std::vector<std::string> words) {
        words.resize(5);
        desk.run({"Delete From SKStep"});
        desk.step("开票", words[0], words[1], words[2], words[3], words[4]);
        desk.types("{F9}");
        auto& screen = desk.open();
        for (const auto& [field, text] : typed) dynamic_cast<TextBox&>(*screen.control(field)).type(text);
        desk.desktop.messages.clear();
        std::string calls = join(desk.print(screen), ", ") + ", ";
        const bool ended = !screen.打印发票.enabled() && !screen.恢复.面板.isOpen();
        EXPECT_FALSE(screen.关闭.enabled());
        desk.app.screens.unload(screen);
        EXPECT_TRUE(calls.starts_with(before)) << calls;
        calls.erase(0, before.size());
        EXPECT_EQ(desk.desktop.messages.empty(), ended);
        if (ended) return calls + "ends";
        EXPECT_TRUE(calls.ends_with(behind)) << calls;
        return calls.substr(0, calls.size() - behind.size()) + "{F9}";
    }

    const std::string before = "has window 税控软件, activate 税控软件, waits, waits, waits, ";
    const std::string behind = "send {F9}, waits, waits, waits, waits, activate 税控发票打印, ";
    std::vector<std::pair<std::string, std::string>> typed;
    税控台 desk;
};

TEST_F(TaxSteps, DoWhatIsWrittenDown) {
    for (const auto& [where, fields] : casesIn("tax_steps.txt")) {
        SCOPED_TRACE(where);
        if (fields[0] == "given")
            desk.db().execute(fields[1]);
        else if (fields[0] == "type")
            typed.push_back(firstWord(fields[1]));
        else
            EXPECT_EQ(doneBy(split(fields[0], '|')), fields[1]);
    }
}

}  // namespace
}  // namespace desk
