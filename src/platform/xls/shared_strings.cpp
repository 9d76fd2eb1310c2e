#include "platform/xls/shared_strings.h"

#include <algorithm>

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

    /// To the next text's start, which may be that of the next segment.
    void settle() {
        if (offset < segments_[segment].size()) return;
        if (offset > segments_[segment].size() || segment + 1 >= segments_.size()) damaged();
        ++segment;
        offset = 0;
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

    bool plain = false;  ///< whether the last text was nothing but characters

  private:
    void next() {
        if (offset != segments_[segment].size() || segment + 1 >= segments_.size()) damaged();
        ++segment;
        offset = 0;
    }

    const std::vector<std::string>& segments_;
};

}  // namespace

SharedStrings::SharedStrings(Globals& globals) : globals_(globals) {
    auto& items = globals.items;
    items.erase(
        std::remove_if(items.begin(), items.end(), [](const auto& item) { return item.id == id::extSst; }),
        items.end());
    const auto first =
        std::find_if(items.begin(), items.end(), [](const auto& item) { return item.id == id::sst; });
    if (first == items.end()) {
        where_ = items.size() - 1;
        segments_.emplace_back(headSize, '\0');
        return;
    }
    auto end = first + 1;
    while (end != items.end() && end->id == id::continuation) ++end;
    for (auto item = first; item != end; ++item) segments_.push_back(std::move(item->body));
    where_ = static_cast<std::size_t>(first - items.begin());
    items.erase(first, end);
    readOld();
}

void SharedStrings::readOld() {
    total_ = longAt(segments_.front(), 0);
    const std::uint32_t count = longAt(segments_.front(), 4);
    Walk walk(segments_);
    for (std::uint32_t i = 0; i < count; ++i) {
        walk.settle();
        places_.push_back({walk.segment, walk.offset});
        std::u16string text = walk.readText();
        if (walk.plain) known_.try_emplace(std::move(text), i);
    }
    // A new text must follow the last one at once.
    segments_.resize(walk.segment + 1);
    segments_.back().resize(walk.offset);
}

std::uint32_t SharedStrings::add(std::string_view text) {
    ++total_;
    const std::u16string wide = toUtf16(text);
    if (wide.size() > longestText)
        throw RuntimeFailure(failure::spreadsheet, "单元格的文字最多 32767 个字符");
    const auto [entry, isNew] = known_.try_emplace(wide, static_cast<std::uint32_t>(places_.size()));
    if (isNew) append(wide);
    return entry->second;
}

void SharedStrings::append(std::u16string_view text) {
    const bool wide = std::any_of(text.begin(), text.end(), [](char16_t c) { return c > 255; });
    const std::size_t width = wide ? 2 : 1;
    // The head of a text stands in one segment, together with a first character.
    if (segments_.back().size() + 3 + width > maxBody) segments_.emplace_back();
    places_.push_back({segments_.size() - 1, segments_.back().size()});
    Bytes head;
    head.u16(static_cast<std::uint32_t>(text.size())).u8(wide ? wideFlag : 0);
    segments_.back() += head.get();
    while (!text.empty()) {
        const std::size_t fit = std::min(text.size(), (maxBody - segments_.back().size()) / width);
        Bytes part;
        for (const char16_t c : text.substr(0, fit))
            if (wide)
                part.u16(c);
            else
                part.u8(c);
        segments_.back() += part.get();
        text.remove_prefix(fit);
        if (!text.empty()) segments_.emplace_back(1, static_cast<char>(wide ? wideFlag : 0));
    }
}

void SharedStrings::finish() {
    putLong(segments_.front(), 0, total_);
    putLong(segments_.front(), 4, static_cast<std::uint32_t>(places_.size()));
    auto place = globals_.items.begin() + static_cast<std::ptrdiff_t>(where_);
    std::vector<Globals::Item> items;
    for (std::size_t i = 0; i < segments_.size(); ++i)
        items.push_back({i == 0 ? id::sst : id::continuation, segments_[i]});
    globals_.items.insert(place, items.begin(), items.end());
    globals_.items.insert(globals_.items.begin() + static_cast<std::ptrdiff_t>(where_ + segments_.size()),
                          {id::extSst, extSst(where_)});
}

std::string SharedStrings::extSst(std::size_t firstItem) const {
    std::size_t start = 0;
    for (std::size_t i = 0; i < firstItem; ++i) start += headerSize + globals_.items[i].body.size();
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
