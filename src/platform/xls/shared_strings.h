#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/xls/globals.h"

namespace desk::xls {

/// The texts of all cells of a workbook. New ones come behind the old ones, which keep their numbers.
class SharedStrings {
  public:
    /// Takes the texts out of `globals`. Fails with 1004 if they are damaged.
    explicit SharedStrings(Globals& globals);

    /// The number of that text for one more cell. Fails with 1004 where it is too long for a cell.
    std::uint32_t add(std::string_view text);
    /// So many cells with texts have gone.
    void forgetCells(std::uint32_t count) { total_ -= std::min(total_, count); }
    /// Puts the texts back, with the table that finds them fast. Nothing that stands before them in the
    /// globals may change its size afterwards.
    void finish();

  private:
    struct Place {
        std::size_t segment;
        std::size_t offset;
    };

    void readOld();
    void append(std::u16string_view text);
    std::string extSst(std::size_t firstItem) const;

    Globals& globals_;
    std::size_t where_;                  ///< item of the globals at which the texts stand
    std::vector<std::string> segments_;  ///< bodies of the record and its continuations
    std::vector<Place> places_;
    std::uint32_t total_ = 0;
    std::unordered_map<std::u16string, std::uint32_t> known_;  ///< of texts that are nothing but characters
};

}  // namespace desk::xls
