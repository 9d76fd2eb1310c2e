#include "platform/key_string.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "support/cases.h"
#include "support/failures.h"

namespace desk {
namespace {

/// The actions as key_strings.txt writes them.
struct InShort {
    static char sign(Modifier modifier) { return "+^%"[static_cast<int>(modifier)]; }
    static std::string repeated(const std::string& what, int times) {
        return times == 1 ? what : fmt::format("{}*{}", what, times);
    }
    std::string operator()(const typing::Hold& hold) const { return fmt::format("{}(", sign(hold.modifier)); }
    std::string operator()(const typing::LetGo& go) const { return fmt::format("{})", sign(go.modifier)); }
    std::string operator()(const typing::Press& press) const {
        const char* const names[] = {"BACKSPACE", "BREAK", "CAPSLOCK",   "DELETE", "DOWN",
                                     "END",       "ENTER", "ESC",        "HELP",   "HOME",
                                     "INSERT",    "LEFT",  "NUMLOCK",    "PGDN",   "PGUP",
                                     "PRTSC",     "RIGHT", "SCROLLLOCK", "TAB",    "UP"};
        if (press.key < Key::f1) return repeated(names[static_cast<int>(press.key)], press.times);
        return repeated(fmt::format("F{}", static_cast<int>(press.key) - static_cast<int>(Key::f1) + 1),
                        press.times);
    }
    std::string operator()(const typing::Type& type) const {
        std::u16string text(1, static_cast<char16_t>(type.character));
        if (type.character > 0xFFFF)
            text = {static_cast<char16_t>(0xD7C0 + (type.character >> 10)),
                    static_cast<char16_t>(0xDC00 + (type.character & 0x3FF))};
        return repeated(type.character == ' ' ? "␣" : toUtf8(text), type.times);
    }
};

std::string read(std::string_view text) {
    std::vector<std::string> words;
    const auto failed = outcomeOf([&] {
        for (const auto& action : readKeyString(text)) words.push_back(std::visit(InShort(), action));
    });
    if (failed.number == failure::invalidCall) return failed.text;
    return join(words, " ");
}

TEST(KeyStrings, AreReadAsTheFileTells) {
    for (const auto& [where, fields] : casesIn("key_strings.txt")) {
        auto expected = fields[1];
        if (expected.starts_with("wrong at "))
            expected = "无效的过程调用或参数：按键文本的第 " + expected.substr(9) + " 个字符有误";
        EXPECT_EQ(read(fields[0]), expected) << where;
    }
}

}  // namespace
}  // namespace desk
