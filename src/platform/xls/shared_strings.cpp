#include "platform/xls/shared_strings.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "base/failure.h"
#include "base/text.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {

constexpr std::size_t headSize = 8;         ///< both counts, before the first text
constexpr std::size_t longestText = 32767;  ///< of a cell
constexpr std::uint8_t wideFlag = 1;
constexpr std::uint8_t extendedFlag = 4;
constexpr std::uint8_t richFlag = 8;

/// Walks over texts that run on from one segment to the next.
class Walk {
  public:
    explicit Walk(const std::vector<std::string>& segments) : segments_(segments) {}

    std::size_t segment = 0;
    std::size_t offset = headSize;
    bool plain = false;  ///< whether the last text was nothing but characters

    /// To the next text's start, which may be that of a later segment.
    void settle() {
        if (offset == segments_[segment].size()) next();
    }

    /// The text, without what it says of fonts and of its sound.
    std::u16string readText() {
        std::u16string text;
        const std::string_view here = segments_[segment];
        std::size_t characters = shortAt(here, offset);
        const std::uint8_t headFlags = byteAt(here, offset + 2);
        std::uint8_t flags = headFlags;
        offset += 3;
        std::size_t behind = 0;
        if ((flags & richFlag) != 0) {
            behind += std::size_t{4} * shortAt(here, offset);
            offset += 2;
        }
        if ((flags & extendedFlag) != 0) {
            behind += longAt(here, offset);
            offset += 4;
        }
        for (;;) {
            const std::size_t width = (flags & wideFlag) != 0 ? 2 : 1;
            const std::string_view there = segments_[segment];
            const std::size_t fit = std::min(characters, (there.size() - offset) / width);
            for (std::size_t i = 0; i < fit; ++i, offset += width)
                text.push_back(width == 2 ? shortAt(there, offset) : byteAt(there, offset));
            characters -= fit;
            if (characters == 0) break;
            next();
            flags = byteAt(segments_[segment], 0);
            offset = 1;
        }
        while (behind > 0) {
            const std::size_t fit = std::min(behind, segments_[segment].size() - offset);
            offset += fit;
            behind -= fit;
            if (behind > 0) next();
        }
        plain = (headFlags & (richFlag | extendedFlag)) == 0;
        return text;
    }

  private:
    void next() {
        if (offset != segments_[segment].size() || segment + 1 >= segments_.size()) damaged();
        ++segment;
        offset = 0;
    }

    const std::vector<std::string>& segments_;
};

}  // namespace

std::uint32_t TextIndex::findOrAdd(std::string_view text, std::uint32_t number) {
    if (4 * (entries_.size() + 1) > 3 * slots_.size()) grow();
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    for (; slots_[at].entry != 0; at = (at + 1) & mask) {
        const Entry& entry = entries_[slots_[at].entry - 1];
        if (slots_[at].hash == hash && std::string_view(entry.text, entry.length) == text)
            return entry.number;
    }
    entries_.push_back({text.data(), static_cast<std::uint32_t>(text.size()), number});
    slots_[at] = {hash, static_cast<std::uint32_t>(entries_.size())};
    return number;
}

void TextIndex::grow() {
    std::vector<Slot> old(std::max<std::size_t>(1024, 2 * slots_.size()));
    old.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.entry == 0) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].entry != 0) at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

SharedStrings::SharedStrings(Globals& globals) : globals_(globals) {
    auto& items = globals.items;
    items.erase(
        std::remove_if(items.begin(), items.end(), [](const auto& item) { return item.id == id::extSst; }),
        items.end());
    const auto first =
        std::find_if(items.begin(), items.end(), [](const auto& item) { return item.id == id::sst; });
    if (first == items.end()) {
        behind_ = 1;
        segments_.emplace_back(headSize, '\0');
        return;
    }
    auto end = first + 1;
    while (end != items.end() && end->id == id::continuation) ++end;
    // Some readers stumble over a continuation without anything in it, which some programs write.
    for (auto item = first; item != end; ++item)
        if (item == first || !item->body.empty()) segments_.push_back(std::move(item->body));
    behind_ = static_cast<std::size_t>(items.end() - end);
    items.erase(first, end);
    readOld();
}

void SharedStrings::readOld() {
    total_ = longAt(segments_.front(), 0);
    const std::uint32_t count = longAt(segments_.front(), 4);
    // No text takes more room in UTF-8: none may move once it is known.
    std::size_t room = 0;
    for (const auto& segment : segments_) room += 2 * segment.size();
    oldTexts_.reserve(room);
    Walk walk(segments_);
    Place end{0, headSize};
    try {
        while (places_.size() < count) {
            walk.settle();
            const Place start = placeOf(walk.segment, walk.offset);
            const std::u16string text = walk.readText();
            end = placeOf(walk.segment, walk.offset);
            places_.push_back(start);
            if (walk.plain) know(text);
        }
    } catch (const RuntimeFailure&) {
        // Some programs announce more texts than they write. Those that are whole count.
    }
    // A new text must follow the last one at once.
    segments_.resize(end.segment + 1);
    segments_.back().resize(end.offset);
}

void SharedStrings::know(std::u16string_view text) {
    const std::size_t before = oldTexts_.size();
    oldTexts_ += toUtf8(text);
    known_.findOrAdd(std::string_view(oldTexts_).substr(before),
                     static_cast<std::uint32_t>(places_.size() - 1));
}

void SharedStrings::fillUpTo(std::uint32_t count) {
    constexpr std::size_t mostMissing = 1000000;
    if (count > places_.size() + mostMissing) damaged();
    while (places_.size() < count) append(std::string_view());
}

std::uint32_t SharedStrings::add(std::string_view text) {
    ++total_;
    const auto next = static_cast<std::uint32_t>(places_.size());
    const std::uint32_t number = known_.findOrAdd(text, next);
    if (number == next) append(text);
    return number;
}

void SharedStrings::append(std::string_view text) {
    constexpr std::size_t head = 3;
    const bool ascii =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
    if (ascii && segments_.back().size() + head + text.size() <= maxBody) {
        // Most texts are such, and fit as they are.
        startText(text.size(), 0);
        segments_.back() += text;
        return;
    }
    const std::u16string characters = toUtf16(text);
    if (characters.size() > longestText)
        throw RuntimeFailure(failure::spreadsheet, "单元格的文字最多 32767 个字符");
    append(characters);
}

void SharedStrings::append(std::u16string_view text) {
    const bool wide = std::any_of(text.begin(), text.end(), [](char16_t c) { return c > 255; });
    const std::size_t width = wide ? 2 : 1;
    const char flags = static_cast<char>(wide ? wideFlag : 0);
    // The head of a text stands in one segment, together with a first character.
    constexpr std::size_t head = 3;
    if (segments_.back().size() + head + width > maxBody) addSegment();
    startText(text.size(), flags);
    while (!text.empty()) {
        std::string& segment = segments_.back();
        const std::size_t fit = std::min(text.size(), (maxBody - segment.size()) / width);
        for (const char16_t c : text.substr(0, fit)) {
            segment.push_back(static_cast<char>(c & 255U));
            if (wide) segment.push_back(static_cast<char>(c >> 8));
        }
        text.remove_prefix(fit);
        if (text.empty()) break;
        addSegment();
        segments_.back().push_back(flags);
    }
}

void SharedStrings::addSegment() {
    segments_.emplace_back().reserve(maxBody);
}

void SharedStrings::startText(std::size_t length, char flags) {
    std::string& segment = segments_.back();
    places_.push_back(placeOf(segments_.size() - 1, segment.size()));
    segment.push_back(static_cast<char>(length & 255U));
    segment.push_back(static_cast<char>(length >> 8));
    segment.push_back(flags);
}

void SharedStrings::finish() {
    putLong(segments_.front(), 0, total_);
    putLong(segments_.front(), 4, static_cast<std::uint32_t>(places_.size()));
    Globals::Item fast{id::extSst, extSst()};
    std::vector<Globals::Item> items;
    for (std::string& segment : segments_)
        items.push_back({items.empty() ? id::sst : id::continuation, std::move(segment)});
    items.push_back(std::move(fast));
    const auto place = globals_.items.end() - static_cast<std::ptrdiff_t>(behind_);
    globals_.items.insert(place, std::make_move_iterator(items.begin()),
                          std::make_move_iterator(items.end()));
}

std::string SharedStrings::extSst() const {
    std::size_t start = 0;
    for (std::size_t i = 0; i + behind_ < globals_.items.size(); ++i)
        start += headerSize + globals_.items[i].body.size();
    std::vector<std::size_t> starts;
    for (const auto& segment : segments_) {
        starts.push_back(start);
        start += headerSize + segment.size();
    }
    const std::size_t inBucket = std::max<std::size_t>(8, places_.size() / 128 + 1);
    Bytes body;
    body.u16(static_cast<std::uint32_t>(inBucket));
    for (std::size_t i = 0; i < places_.size(); i += inBucket) {
        const Place& place = places_[i];
        body.u32(static_cast<std::uint32_t>(starts[place.segment] + headerSize + place.offset));
        body.u16(static_cast<std::uint32_t>(headerSize + place.offset)).u16(0);
    }
    return body.take();
}

}  // namespace desk::xls
