#include "customers/typed_day.h"

#include "base/date.h"

namespace desk {

Value typedDay(const std::string& text) {
    if (text.empty()) return {};
    const auto day = parseDate(text);
    return day ? Value(isoDay(*day)) : Value(text);
}

}  // namespace desk
