#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/xls/globals.h"

namespace desk::xls {

/// Numbers of texts, found by the text. It keeps no text: each must stay where it is.
class TextIndex {
  public:
    /// The number under which the text is known, or `number`, under which it is from now on.
    std::uint32_t findOrAdd(std::string_view text, std::uint32_t number);

  private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0;  ///< counted from 1, 0 = free
    };
    struct Entry {
        const char* text;
        std::uint32_t length;
        std::uint32_t number;
    };

    void grow();

    std::vector<Slot> slots_;    ///< as many as a power of two
    std::deque<Entry> entries_;  ///< of many, so that growing copies none
};

/// The texts of all cells of a workbook. New ones come behind the old ones, which keep their numbers.
class SharedStrings {
  public:
    /// Takes the texts out of `globals`, up to the last whole one. Fails with 1004 if not even their head is
    /// there.
    explicit SharedStrings(Globals& globals);

    /// Cells name so many texts: what is missing of them is filled up with empty ones, so that no cell ever
    /// shows a text that was meant for another. Fails with 1004 where far more are named than there are.
    void fillUpTo(std::uint32_t count);
    /// The number of that text for one more cell. It must stay where it is until finish(). Fails with 1004
    /// where it is too long for a cell.
    std::uint32_t add(std::string_view text);
    /// So many cells with texts have gone.
    void forgetCells(std::uint32_t count) { total_ -= std::min(total_, count); }
    /// Puts the texts back, with the table that finds them fast. Nothing that stands before them in the
    /// globals may change its size afterwards.
    void finish();

  private:
    struct Place {
        std::uint32_t segment;
        std::uint32_t offset;
    };

    static Place placeOf(std::size_t segment, std::size_t offset) {
        return {static_cast<std::uint32_t>(segment), static_cast<std::uint32_t>(offset)};
    }
    void addSegment();
    void readOld();
    void know(std::u16string_view text);
    void append(std::string_view text);
    void append(std::u16string_view text);
    void startText(std::size_t length, char flags);
    std::string extSst() const;

    Globals& globals_;
    std::size_t behind_;                 ///< items of the globals behind the texts; looks come ahead of them
    std::vector<std::string> segments_;  ///< bodies of the record and its continuations
    std::deque<Place> places_;
    std::uint32_t total_ = 0;
    std::string oldTexts_;  ///< those that are nothing but characters, one behind the other
    TextIndex known_;
};

}  // namespace desk::xls
