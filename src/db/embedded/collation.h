#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

struct UCollator;

namespace desk::embedded {

/// The order of texts as on the server: case, width and trailing blanks, wide ones too, do not count; digits
/// come before Latin letters, and these before Han, which goes by pinyin.
class Collation {
  public:
    /// Fails with -2147467259 when the machine has no such order.
    Collation();

    /// Below 0, 0 or above 0 as `a` comes before, with or after `b`. Both are UTF-8.
    int compare(std::string_view a, std::string_view b) const;

    /// Changes whenever the order may have changed with the library that gives it.
    std::int32_t version() const;

  private:
    struct Close {
        void operator()(UCollator* collator) const;
    };

    void rankAscii();

    std::unique_ptr<UCollator, Close> collator_;
    /// The place of each plain ASCII character in the collator's own order, from 1; 0 for bytes that need it
    /// to be asked.
    std::array<std::uint8_t, 256> rank_{};
};

}  // namespace desk::embedded
