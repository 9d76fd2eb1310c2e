#pragma once

#include <vector>

#include "ui/canvas.h"

namespace desk {

/// Where a pie lies on its canvas; all in twips.
struct PieShape {
    double 长半轴 = 0;  ///< of the ellipse, horizontal
    double 短半轴 = 0;
    double 饼厚 = 0;  ///< depth of the side wall
    double 圆心X = 0;
    double 圆心Y = 0;
};

struct PieSlice {
    Colour colour;
    double share;  ///< of the whole pie, 1 being all of it
};

/// The colour of a slice's side wall: each component less 60.
Colour darkShade(Colour colour);

/// Draws all slices, from the left-hand end upward and clockwise. Shares that add up to less than 1 leave a
/// gap at that end; where they add up to more, the last slice runs over.
void drawPie(Canvas& canvas, const PieShape& shape, const std::vector<PieSlice>& slices);

/// How far a raised slice comes out, in twips.
inline constexpr double raisedBy = 150;

/// Draws one slice of the same pie as a block that has risen out of it.
void drawRaised(Canvas& canvas, const PieShape& shape, const std::vector<PieSlice>& slices,
                std::size_t which);

}  // namespace desk
