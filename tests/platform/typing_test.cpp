#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "base/text.h"
#include "platform/form_in_front.h"
#include "platform/virtual_display.h"
#include "platform/x11/x11_keyboard.h"
#include "support/failures.h"

// Behind all others: its macros have the commonest of names.
#include <X11/XKBlib.h>
#include <X11/extensions/XInput.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include "platform/x11/held_modifiers.h"
#include "platform/x11/server.h"

namespace desk {
namespace {

/// A person's hand on a keyboard of flesh and plugs, and what the desktop makes of it.
class Hand {
  public:
    Hand() : display_(XOpenDisplay(nullptr)) {
        const auto keyboards = x11::Keyboards::of(display_);
        device_ = XOpenDevice(display_, static_cast<XID>(keyboards.physical.front()));
    }
    ~Hand() {
        XCloseDevice(display_, device_);
        XCloseDisplay(display_);
    }
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    void hold(KeySym symbol) { key(symbol, True); }
    void letGo(KeySym symbol) { key(symbol, False); }
    void tap(KeySym symbol) {
        hold(symbol);
        letGo(symbol);
    }
    void chooseLayout(unsigned layout) {
        XkbLockGroup(display_, XkbUseCoreKbd, layout);
        XSync(display_, False);
    }
    /// "held locked", the server's bits.
    std::string modifiers() {
        XkbStateRec state{};
        XkbGetState(display_, XkbUseCoreKbd, &state);
        return fmt::format("{} {}", state.base_mods, state.locked_mods);
    }
    /// All symbols of all keys of all keyboards.
    std::vector<std::vector<KeySym>> symbols() {
        std::vector<std::vector<KeySym>> all;
        for (const int keyboard : x11::Keyboards::of(display_).all()) {
            const auto map = x11::readMap(display_, keyboard);
            for (int code = map->min_key_code; code <= map->max_key_code; ++code) {
                const KeySym* first = XkbKeySymsPtr(map, code);
                all.emplace_back(first, first + XkbKeyNumSyms(map, code));
            }
        }
        return all;
    }
    Display* display() { return display_; }

  private:
    void key(KeySym symbol, Bool down) {
        XTestFakeDeviceKeyEvent(display_, device_, XKeysymToKeycode(display_, symbol), down, nullptr, 0,
                                CurrentTime);
        XSync(display_, False);
    }

    Display* display_;
    XDevice* device_;
};

/// The program tests/platform/form in front of a person.
class Typing : public testing::Test {
  protected:
    explicit Typing(VirtualDisplay::Manager manager = VirtualDisplay::Manager::openbox) : display(manager) {}

    void SetUp() override {
        ASSERT_TRUE(display.isUp());
        layout("us");
        form.emplace();
        ASSERT_TRUE(form->isUp());
    }

    void layout(const std::string& names) {
        ASSERT_EQ(std::system(("setxkbmap " + names).c_str()), 0) << names;
    }
    void send(std::string_view keys) { X11Keyboard().send(keys); }
    Outcome sending(std::string_view keys) {
        return outcomeOf([&] { send(keys); });
    }
    /// All that the form has written down, once there are `count` lines of it.
    std::string lines(std::size_t count) { return join(form->lines(count), "\n"); }
    /// What the form gets to read for these keys in its first field.
    std::string typed(std::string_view keys) {
        form->forgetLines();
        send(keys);
        send("{F9}");
        return lines(1);
    }

    VirtualDisplay display;
    std::optional<FormInFront> form;
};

/// The fields of an invoice, with all signs of a keyboard, and Han that no other invoice has.
std::vector<std::string> invoice(int number) {
    constexpr int firstHan = 0x4E00;
    constexpr int countOfHan = 0x51A5;
    constexpr int each = 20;
    std::string payer = "+^%~(){}[]@#&*_-=|\\/<>?!;:'\",.`$ AZaz09";
    for (int i = number * each; i < (number + 1) * each; ++i)
        payer += toUtf8(
            std::u16string(i % 3 == 0 ? 2 : 1, static_cast<char16_t>(firstHan + i * 7919 % countOfHan)));
    const auto amount = fmt::format("{}.05", number * 1234);
    return {payer + "有限公司", amount, amount, amount, "备注：（€ß）😀 " + amount};
}

std::string escaped(const std::string& text) {
    std::string keys;
    for (const char c : text)
        keys += std::string_view("+^%~(){}[]").find(c) == std::string_view::npos ? std::string(1, c)
                                                                                 : fmt::format("{{{}}}", c);
    return keys;
}

class Layouts : public Typing, public testing::WithParamInterface<const char*> {};

TEST_P(Layouts, NotACharacterIsLostOrSwapped) {
    layout(GetParam());
    const char* asked = std::getenv("TYPED_INVOICES");
    const int count = asked == nullptr ? 6 : std::atoi(asked);
    std::vector<std::string> expected;
    for (int i = 0; i < count; ++i) {
        const auto fields = invoice(i);
        expected.push_back(join(fields, "|"));
        // As the script of an invoice does it: text by text, or all at once.
        std::string keys;
        for (const auto& field : fields) {
            keys += escaped(field) + (&field == &fields.back() ? "{F9}" : "{TAB}");
            if (i % 2 == 0) continue;
            send(keys);
            keys.clear();
        }
        send(keys);
    }
    EXPECT_EQ(form->lines(expected.size()), expected);
}

INSTANTIATE_TEST_SUITE_P(Of, Layouts, testing::Values("us", "de", "cn"));

TEST_F(Typing, TypesWhatTheLayoutHasByItsKeysInEachOfItsLayouts) {
    layout("us,de,fr,ru");
    Hand hand;
    const auto before = hand.symbols();
    for (unsigned each = 0; each < 4; ++each) {
        hand.chooseLayout(each);
        EXPECT_EQ(typed("yYzZ19{[}@\\{}}äÄßéЖ中ж{~}|"), "yYzZ19[@\\}äÄßéЖ中ж~|||||") << each;
        EXPECT_EQ(typed("abc^(a)x"), "x||||") << each;
    }
    EXPECT_EQ(hand.symbols(), before);
}

TEST_F(Typing, ALayoutOfOnePluggedKeyboardIsNotThatOfTypedKeys) {
    Hand hand;
    const auto physical = x11::Keyboards::of(hand.display()).physical.front();
    layout(fmt::format("-device {} de", physical));
    hand.tap(XK_Shift_L);
    const auto before = hand.symbols();
    EXPECT_EQ(typed("zy{[}中z"), "zy[中z||||");
    hand.tap(XK_Shift_L);
    EXPECT_EQ(hand.symbols(), before);
}

TEST_F(Typing, LocksAndHeldKeysAreTakenOffAndPutBack) {
    Hand hand;
    hand.tap(XK_Caps_Lock);
    hand.tap(XK_Num_Lock);
    hand.hold(XK_Shift_R);
    hand.hold(XK_Control_L);
    const std::string before = hand.modifiers();
    ASSERT_NE(before, "0 0");
    send("aB3中");
    EXPECT_EQ(hand.modifiers(), before);
    hand.letGo(XK_Control_L);
    hand.letGo(XK_Shift_R);
    EXPECT_EQ(hand.modifiers(), "0" + before.substr(before.find(' '))) << "none is stuck";
    send("z{F9}");
    EXPECT_EQ(lines(1), "aB3中z||||");
    EXPECT_EQ(typed("{CAPSLOCK}a{CAPSLOCK}b"), "Ab||||") << "its own locks do count";
    send("{CAPSLOCK}");
    EXPECT_NE(hand.modifiers(), "0" + before.substr(before.find(' '))) << "and stay";
}

TEST_F(Typing, AKeyThatIsLetGoWhileTypingIsNotPutBack) {
    Hand hand;
    const auto keyboards = x11::Keyboards::of(hand.display());
    const x11::KeyMap map(hand.display(), keyboards.synthetic, 0);
    hand.hold(XK_Shift_L);
    hand.hold(XK_Control_L);
    {
        x11::ModifiersOff off(hand.display(), keyboards, map);
        EXPECT_EQ(hand.modifiers(), "0 0");
        hand.letGo(XK_Shift_L);
        hand.hold(XK_Alt_L);
        off.keepOff(0);
        EXPECT_EQ(hand.modifiers(), "0 0");
    }
    EXPECT_EQ(hand.modifiers(), fmt::format("{} 0", ControlMask | Mod1Mask));
    // Another program's keys are put back, too, and what is down nowhere else is no obstacle.
    XTestFakeKeyEvent(hand.display(), XKeysymToKeycode(hand.display(), XK_Shift_L), True, CurrentTime);
    hand.letGo(XK_Control_L);
    hand.letGo(XK_Alt_L);
    send("a");
    EXPECT_EQ(hand.modifiers(), fmt::format("{} 0", ShiftMask));
    hand.hold(XK_Shift_L);
    hand.letGo(XK_Shift_L);
    EXPECT_EQ(hand.modifiers(), "0 0");
    send("B");
    EXPECT_EQ(hand.modifiers(), "0 0");
    send("{F9}");
    EXPECT_EQ(lines(1), "aB||||");
}

class TypingWithoutManager : public Typing {
  protected:
    // One that has keys of its own does not pass them on.
    TypingWithoutManager() : Typing(VirtualDisplay::Manager::none) {}
};

TEST_F(TypingWithoutManager, PressesEachNamedKey) {
    send("+{TAB}");
    send("{BS}{BREAK}{DEL}{DOWN}{END}{ENTER}~{ESC}{HELP}{HOME}{INS}{LEFT}{PGDN}{PGUP}{PRTSC}{RIGHT}");
    send("{SCROLLLOCK}{TAB}{UP}{NUMLOCK 2}");
    send("{F1}{F2}{F11}{F13}{F16}^C^({C})%F+a+^{F4}{x 3}");
    EXPECT_EQ(
        lines(34),
        "Backspace\nsymbol ff6b\nDel\nDown\nEnd\nReturn\nReturn\nEsc\nHelp\nHome\nIns\nLeft\nPgDown\nPgUp\n"
        "Print\nRight\nScrollLock\nTab\nUp\nNumLock\nNumLock\nF1\nF2\nF11\nF13\nF16\nCtrl+C\nCtrl+C\n"
        "Alt+F\nShift+A\nCtrl+Shift+F4\nX\nX\nX");
}

TEST_F(Typing, AnotherWindowThatComesBetweenGetsNothing) {
    Hand hand;
    const auto before = hand.symbols();
    EXPECT_EQ(sending("{F8 30}密码secret"),
              (Outcome{failure::permissionDenied, "输入中途键盘转到了另一个窗口，其余按键没有输入"}));
    EXPECT_EQ(hand.symbols(), before);
    EXPECT_EQ(hand.modifiers(), "0 0");
    // Between two sends nobody asks.
    send("x");
    EXPECT_EQ(lines(1), "other x");
}

TEST_F(Typing, AProgramThatDoesNotAnswerIsReported) {
    Hand hand;
    const auto before = hand.symbols();
    send("{F7}");
    EXPECT_EQ(sending("+(ab)中"), (Outcome{failure::permissionDenied, "接收按键的程序没有响应"}));
    EXPECT_EQ(hand.symbols(), before);
    EXPECT_EQ(hand.modifiers(), "0 0");
}

TEST_F(Typing, OfAWrongTextNothingIsTyped) {
    EXPECT_EQ(sending("abc{").number, failure::invalidCall);
    EXPECT_EQ(typed("x"), "x||||");
    EXPECT_EQ(sending(""), Outcome());
    EXPECT_EQ(sending("a中{F8}"), Outcome()) << "the last key may change the window";
}

TEST(TypingNowhere, FailsWith70) {
    const auto sent = [] { return outcomeOf([] { X11Keyboard().send("a"); }); };
    ::unsetenv("DISPLAY");
    EXPECT_EQ(sent(), (Outcome{failure::permissionDenied, "没有 X11 桌面，程序不能代替键盘和鼠标"}));
    ::setenv("WAYLAND_DISPLAY", "wayland-0", 1);
    EXPECT_EQ(sent(), (Outcome{failure::permissionDenied,
                               "Wayland 桌面不允许程序代替键盘和鼠标，请用 X11 会话登录系统"}));
    EXPECT_EQ(X11Keyboard().refusal(), sent().text);
    ::unsetenv("WAYLAND_DISPLAY");
}

}  // namespace
}  // namespace desk
