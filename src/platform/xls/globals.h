#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace desk::xls {

/// The records that stand before the sheets and belong to all of them.
class Globals {
  public:
    struct Item {
        std::uint16_t id;
        std::string body;
    };

    /// Reads the head of a workbook stream. Fails with 1004 if it is damaged, encrypted or of another
    /// version.
    explicit Globals(std::string_view stream);

    std::vector<Item> items;

    /// Where the sheets began in the stream that was read.
    std::size_t oldSize() const { return oldSize_; }
    std::size_t newSize() const;
    /// The records, which are gone then.
    std::string takeBytes();

    std::size_t count(std::uint16_t id) const;
    /// How many of that kind stand before the first with that body; as many as there are if none has it.
    std::size_t numberOf(std::uint16_t id, std::string_view body) const;
    /// Position of the last item of that kind, `npos` if there is none.
    std::size_t lastOf(std::uint16_t id) const;
    /// Inserts behind the last item of one of the kinds, the first kind that there is; before the end if none
    /// is.
    void insertBehind(std::initializer_list<std::uint16_t> kinds, Item item);

    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  private:
    std::size_t oldSize_ = 0;
};

}  // namespace desk::xls
