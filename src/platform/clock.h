#pragma once

#include "base/date.h"

namespace desk {

/// The machine's clock.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual DateTime now() const = 0;
    DateTime today() const { return now().dayOnly(); }
};

class SystemClock : public Clock {
  public:
    DateTime now() const override;
};

}  // namespace desk
