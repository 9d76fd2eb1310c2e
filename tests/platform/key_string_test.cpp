#include "platform/key_string.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "support/failures.h"

namespace desk {
namespace {

/// The actions in short: "+( a -)" is a with Shift held, "#6" the key with that number, "a*3" pressed thrice.
struct InShort {
    static char sign(Modifier modifier) { return "+^%"[static_cast<int>(modifier)]; }
    static std::string repeated(const std::string& what, int times) {
        return times == 1 ? what : fmt::format("{}*{}", what, times);
    }
    std::string operator()(const typing::Hold& hold) const { return fmt::format("{}(", sign(hold.modifier)); }
    std::string operator()(const typing::LetGo& go) const { return fmt::format("{})", sign(go.modifier)); }
    std::string operator()(const typing::Press& press) const {
        return repeated(fmt::format("#{}", static_cast<int>(press.key)), press.times);
    }
    std::string operator()(const typing::Type& type) const {
        std::u16string character;
        if (type.character > 0xFFFF) {
            character += static_cast<char16_t>(0xD7C0 + (type.character >> 10));
            character += static_cast<char16_t>(0xDC00 + (type.character & 0x3FF));
        } else {
            character += static_cast<char16_t>(type.character);
        }
        return repeated(toUtf8(character), type.times);
    }
};

std::string read(std::string_view text) {
    std::vector<std::string> words;
    for (const auto& action : readKeyString(text)) words.push_back(std::visit(InShort(), action));
    return join(words, " ");
}

const std::string enter = "#" + std::to_string(static_cast<int>(Key::enter));
const std::string tab = "#" + std::to_string(static_cast<int>(Key::tab));

TEST(KeyString, ACharacterStandsForItself) {
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(read("Ab 1,.-/\\\"'"), "A b   1 , . - / \\ \" '");
    EXPECT_EQ(read("张三😀"), "张 三 😀");
    EXPECT_EQ(read("[a]"), "[ a ]");
}

TEST(KeyString, TildeLineEndsAndTabsAreKeys) {
    EXPECT_EQ(read("~"), enter);
    EXPECT_EQ(read("a\r\nb\nc\rd\r\r\n"),
              "a " + enter + " b " + enter + " c " + enter + " d " + enter + " " + enter);
    EXPECT_EQ(read("a\tb"), "a " + tab + " b");
    EXPECT_EQ(readKeyString("\b"), (std::vector<typing::Action>{typing::Press{Key::backspace}}));
    EXPECT_EQ(readKeyString("\x1B"), (std::vector<typing::Action>{typing::Press{Key::escape}}));
}

TEST(KeyString, KnowsTheNameOfEachKeyInAnyCasing) {
    const std::vector<std::pair<std::string, Key>> all = {{"BACKSPACE", Key::backspace},
                                                          {"BS", Key::backspace},
                                                          {"BKSP", Key::backspace},
                                                          {"BREAK", Key::breakKey},
                                                          {"CAPSLOCK", Key::capsLock},
                                                          {"DELETE", Key::deleteKey},
                                                          {"DEL", Key::deleteKey},
                                                          {"DOWN", Key::down},
                                                          {"END", Key::end},
                                                          {"ENTER", Key::enter},
                                                          {"ESC", Key::escape},
                                                          {"HELP", Key::help},
                                                          {"HOME", Key::home},
                                                          {"INSERT", Key::insert},
                                                          {"INS", Key::insert},
                                                          {"LEFT", Key::left},
                                                          {"NUMLOCK", Key::numLock},
                                                          {"PGDN", Key::pageDown},
                                                          {"PGUP", Key::pageUp},
                                                          {"PRTSC", Key::printScreen},
                                                          {"RIGHT", Key::right},
                                                          {"SCROLLLOCK", Key::scrollLock},
                                                          {"TAB", Key::tab},
                                                          {"UP", Key::up}};
    for (const auto& [name, key] : all)
        EXPECT_EQ(readKeyString("{" + name + "}"), std::vector<typing::Action>{typing::Press{key}}) << name;
    for (int i = 1; i <= 16; ++i)
        EXPECT_EQ(read(fmt::format("{{F{}}}", i)), fmt::format("#{}", static_cast<int>(Key::f1) + i - 1));
    EXPECT_EQ(Key::f16, static_cast<Key>(static_cast<int>(Key::f1) + 15));
    EXPECT_EQ(read("{enter}{Enter}{tAb}"), enter + " " + enter + " " + tab);
}

TEST(KeyString, BracesTakeTheMeaningFromASign) {
    EXPECT_EQ(read("{+}{^}{%}{~}{(}{)}{[}{]}"), "+ ^ % ~ ( ) [ ]");
    EXPECT_EQ(read("{{}{}}"), "{ }");
    EXPECT_EQ(read("{a}{ }{张}{\t}"), "a   张 " + tab);
}

TEST(KeyString, ANumberRepeatsAKey) {
    EXPECT_EQ(read("{h 10}"), "h*10");
    EXPECT_EQ(read("{张  3}{} 2}{{ 2}{  4}"), "张*3 }*2 {*2  *4");
    EXPECT_EQ(read("{tab 3}"), tab + "*3");
    EXPECT_EQ(read("{F2 2}"), fmt::format("#{}*2", static_cast<int>(Key::f1) + 1));
    EXPECT_EQ(read("{5 12}{h 0}{h 32767}"), "5*12 h*0 h*32767");
}

TEST(KeyString, ASignHoldsItsKeyDownForTheNextOne) {
    EXPECT_EQ(read("+ab"), "+( a +) b");
    EXPECT_EQ(read("^%{DEL}x"), fmt::format("^( %( #{} %) ^) x", static_cast<int>(Key::deleteKey)));
    EXPECT_EQ(read("+{a 3}b"), "+( a*3 +) b");
    EXPECT_EQ(read("+~+ +张"), "+( " + enter + " +) +(   +) +( 张 +)");
    EXPECT_EQ(read("%"), "%( %)") << "the key alone opens menus";
    EXPECT_EQ(read("a+^"), "a +( ^( ^) +)");
}

TEST(KeyString, OrForAllOfAGroup) {
    EXPECT_EQ(read("+(ec)d"), "+( e c +) d");
    EXPECT_EQ(read("(ab)c"), "a b c");
    EXPECT_EQ(read("+(a^(b)c)d"), "+( a ^( b ^) c +) d");
    EXPECT_EQ(read("+(a+(b)c)+d"), "+( a b c +) +( d +)") << "held once, and until the outer group ends";
    EXPECT_EQ(read("^(a+)b"), "^( a +( +) ^) b");
    EXPECT_EQ(read("%()a"), "%( %) a");
    EXPECT_EQ(read("^((a)b)c"), "^( a b ^) c");
}

TEST(KeyString, WithCtrlOrAltTheCasingOfALetterIsNoShift) {
    EXPECT_EQ(read("^C"), "^( c ^)");
    EXPECT_EQ(read("^({C})"), "^( c ^)");
    EXPECT_EQ(read("%FX"), "%( f %) X");
    EXPECT_EQ(read("^(AZ+B)A"), "^( a z +( b +) ^) A");
    EXPECT_EQ(read("+A"), "+( A +)");
    EXPECT_EQ(read("^É^@^["), "^( É ^) ^( @ ^) ^( [ ^)");
}

TEST(KeyString, AWrongOneFailsWith5AndNamesThePositionButNotTheText) {
    const std::vector<std::pair<std::string_view, int>> wrong = {
        {"}", 1},         {"a}", 2},
        {"{", 1},         {"ab{", 3},
        {"{}", 1},        {"{}a", 1},
        {"{ENTER", 1},    {"{h 10", 1},
        {"{ENTE}", 2},    {"秘密{hh}", 4},
        {"{F0}", 2},      {"{F17}", 2},
        {"{F01}", 2},     {"{F}x{FX}", 6},
        {"{F100}", 2},    {"{ENTER x}", 8},
        {"{h 1x}", 5},    {"{h 32768}", 8},
        {"{h -1}", 4},    {"{h }", 4},
        {"{ENTER }", 8},  {"(", 1},
        {"+(a", 2},       {")", 1},
        {"(a))", 4},      {"+(a(b)", 2},
        {"++a", 2},       {"^+^a", 3},
        {"C++", 3},       {std::string_view("\0", 1), 1},
        {"a\x01", 2},     {"\x7F", 1},
        {"a\xC2\x85", 2}, {"张\xE4\xB8", 2},
        {"{张三}", 2},    {"{\x01}", 2},
        {"((((", 4},      {"{h 99999999999999999999}", 8}};
    for (const auto& [text, position] : wrong)
        EXPECT_EQ(outcomeOf([&] { readKeyString(text); }),
                  (Outcome{failure::invalidCall,
                           fmt::format("无效的过程调用或参数：按键文本的第 {} 个字符有误", position)}))
            << text;
}

}  // namespace
}  // namespace desk
