#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

#include "sample/random.h"

namespace desk::sample {

/// A trade as companies of it name themselves.
struct Trade {
    const char* name;                    ///< as the dictionary has it
    std::span<const char* const> words;  ///< in company names
};

/// The trades of the dictionary, in its order.
std::span<const Trade> trades();

/// The regions of the dictionary, in its order.
std::span<const char* const> regions();

/// Makes up people and companies. None of them exists.
class Names {
  public:
    explicit Names(Random& random) : random_(random) {}

    std::string person();
    /// "王先生", as a caller gives it.
    std::string shortPerson();
    /// A company of the trade that this object has not given out before.
    std::string company(const Trade& trade);
    /// A telephone that this object has not given out before: mobile, or of the city.
    std::string phone();
    /// "黄浦区南京路12号"; the region is one of regions().
    std::string address(std::string_view region);

  private:
    std::string someCompany(const Trade& trade);
    std::string somePhone();

    Random& random_;
    std::unordered_set<std::string> companies_;
    std::unordered_set<std::string> phones_;
};

}  // namespace desk::sample
