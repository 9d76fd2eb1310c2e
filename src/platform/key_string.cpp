#include "platform/key_string.h"

#include <fmt/format.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "base/failure.h"

namespace desk {

namespace {

struct NamedKey {
    std::string_view name;
    Key key;
};

constexpr std::array names = {
    NamedKey{"BACKSPACE", Key::backspace},
    NamedKey{"BS", Key::backspace},
    NamedKey{"BKSP", Key::backspace},
    NamedKey{"BREAK", Key::breakKey},
    NamedKey{"CAPSLOCK", Key::capsLock},
    NamedKey{"DELETE", Key::deleteKey},
    NamedKey{"DEL", Key::deleteKey},
    NamedKey{"DOWN", Key::down},
    NamedKey{"END", Key::end},
    NamedKey{"ENTER", Key::enter},
    NamedKey{"ESC", Key::escape},
    NamedKey{"HELP", Key::help},
    NamedKey{"HOME", Key::home},
    NamedKey{"INSERT", Key::insert},
    NamedKey{"INS", Key::insert},
    NamedKey{"LEFT", Key::left},
    NamedKey{"NUMLOCK", Key::numLock},
    NamedKey{"PGDN", Key::pageDown},
    NamedKey{"PGUP", Key::pageUp},
    NamedKey{"PRTSC", Key::printScreen},
    NamedKey{"RIGHT", Key::right},
    NamedKey{"SCROLLLOCK", Key::scrollLock},
    NamedKey{"TAB", Key::tab},
    NamedKey{"UP", Key::up},
    NamedKey{"F1", Key::f1},
};

/// The key of a control character that has one.
std::optional<Key> keyOf(char32_t control) {
    switch (control) {
        case '\r':
        case '\n':
            return Key::enter;
        case '\t':
            return Key::tab;
        case '\b':
            return Key::backspace;
        case 0x1B:
            return Key::escape;
        default:
            return std::nullopt;
    }
}

bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

std::optional<Modifier> modifierOf(char32_t sign) {
    switch (sign) {
        case '+':
            return Modifier::shift;
        case '^':
            return Modifier::control;
        case '%':
            return Modifier::alt;
        default:
            return std::nullopt;
    }
}

[[noreturn]] void refuse(std::size_t at) {
    throw RuntimeFailure(failure::invalidCall,
                         fmt::format("无效的过程调用或参数：按键文本的第 {} 个字符有误", at + 1));
}

std::u32string codePoints(std::string_view text) {
    std::u32string points;
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < length;) {
        UChar32 point = 0;
        U8_NEXT(text.data(), i, length, point);
        if (point < 0) refuse(points.size());
        points.push_back(static_cast<char32_t>(point));
    }
    return points;
}

/// F1 to F16.
std::optional<Key> functionKey(std::string_view name) {
    constexpr int last = 16;
    if (name.size() < 2 || name.size() > 3 || name[0] != 'F' || name[1] == '0') return std::nullopt;
    int number = 0;
    for (const char digit : name.substr(1)) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = 10 * number + (digit - '0');
    }
    if (number > last) return std::nullopt;
    return static_cast<Key>(static_cast<int>(Key::f1) + number - 1);
}

std::optional<Key> keyNamed(std::u32string_view text) {
    std::string name;
    for (const char32_t c : text) {
        if (c > 'z') return std::nullopt;
        name += static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c);
    }
    const auto* found =
        std::find_if(names.begin(), names.end(), [&](const NamedKey& each) { return each.name == name; });
    return found == names.end() ? functionKey(name) : found->key;
}

class Reader {
  public:
    explicit Reader(std::string_view text) : text_(codePoints(text)) {}

    std::vector<typing::Action> read() {
        while (at_ < text_.size()) readOne();
        if (groups_.size() > 1) refuse(groups_.back().start);
        letGo(groups_.back().pending);
        return std::move(actions_);
    }

  private:
    using Modifiers = std::vector<Modifier>;

    struct Group {
        std::size_t start;  ///< of its bracket
        Modifiers held;     ///< by the signs before it
        Modifiers pending;  ///< by signs inside that wait for their key
    };

    void readOne() {
        const char32_t c = text_[at_];
        if (const auto modifier = modifierOf(c)) return sign(*modifier);
        if (c == '(') return open();
        if (c == ')') return close();
        if (c == '{') return brace();
        if (c == '}') refuse(at_);
        if (c == '~')
            add(typing::Press{Key::enter});
        else
            character(c, 1);
        // A line end of two characters is one.
        at_ += c == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n' ? 2 : 1;
    }

    /// The same sign twice before one key is a slip, or a text that was not meant for keys.
    void sign(Modifier modifier) {
        Modifiers& pending = groups_.back().pending;
        if (std::find(pending.begin(), pending.end(), modifier) != pending.end()) refuse(at_);
        pending.push_back(modifier);
        hold(modifier);
        ++at_;
    }

    void open() {
        Modifiers held;
        held.swap(groups_.back().pending);
        groups_.push_back({at_++, std::move(held), {}});
    }

    void close() {
        if (groups_.size() == 1) refuse(at_);
        const Group group = std::move(groups_.back());
        groups_.pop_back();
        letGo(group.pending);
        letGo(group.held);
        ++at_;
    }

    void brace() {
        const std::size_t start = at_++;
        // The first character is never the end: "{}}" is the key "}".
        const std::size_t name = at_;
        if (at_ == text_.size()) refuse(start);
        ++at_;
        while (at_ < text_.size() && text_[at_] != '}' && text_[at_] != ' ') ++at_;
        const auto named = std::u32string_view(text_).substr(name, at_ - name);
        const int times = repetition();
        if (at_ == text_.size()) refuse(start);
        if (text_[at_] != '}') refuse(at_);
        ++at_;
        if (named.size() == 1)
            character(named.front(), times, name);
        else if (const auto key = keyNamed(named))
            add(typing::Press{*key, times});
        else
            refuse(name);
    }

    /// The number behind blanks; 1 without one.
    int repetition() {
        constexpr int most = 32767;
        if (at_ == text_.size() || text_[at_] != ' ') return 1;
        while (at_ < text_.size() && text_[at_] == ' ') ++at_;
        if (at_ < text_.size() && text_[at_] == '}') refuse(at_);
        int times = 0;
        for (; at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9'; ++at_) {
            times = 10 * times + static_cast<int>(text_[at_] - '0');
            if (times > most) refuse(at_);
        }
        return times;
    }

    void character(char32_t c, int times) { character(c, times, at_); }

    void character(char32_t c, int times, std::size_t at) {
        if (const auto key = keyOf(c)) return add(typing::Press{*key, times});
        if (isControl(c)) refuse(at);
        const bool ofCommand = holds(Modifier::control) || holds(Modifier::alt);
        if (ofCommand && c >= 'A' && c <= 'Z') c += 'a' - 'A';
        add(typing::Type{c, times});
    }

    void add(typing::Action action) {
        actions_.push_back(action);
        letGo(groups_.back().pending);
        groups_.back().pending.clear();
    }

    bool holds(Modifier modifier) const { return depth_[static_cast<std::size_t>(modifier)] > 0; }

    void hold(Modifier modifier) {
        if (depth_[static_cast<std::size_t>(modifier)]++ == 0) actions_.emplace_back(typing::Hold{modifier});
    }

    void letGo(const Modifiers& modifiers) {
        for (auto each = modifiers.rbegin(); each != modifiers.rend(); ++each)
            if (--depth_[static_cast<std::size_t>(*each)] == 0) actions_.emplace_back(typing::LetGo{*each});
    }

    const std::u32string text_;
    std::size_t at_ = 0;
    std::vector<typing::Action> actions_;
    std::vector<Group> groups_{Group{}};
    std::array<int, 3> depth_{};  ///< how many groups and keys hold each modifier
};

}  // namespace

std::vector<typing::Action> readKeyString(std::string_view text) {
    return Reader(text).read();
}

}  // namespace desk
