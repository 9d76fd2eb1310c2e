#pragma once

namespace desk {

/// A rectangle; in twips, from the upper left corner of what it lies in.
struct Area {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const Area&) const = default;
};

}  // namespace desk
