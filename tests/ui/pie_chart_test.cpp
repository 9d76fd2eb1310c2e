#include "ui/pie_chart.h"

#include <gtest/gtest.h>

#include <cmath>

#include "ui/screen.h"

namespace desk {
namespace {

constexpr Colour red = rgb(220, 40, 40);
constexpr Colour green = rgb(40, 200, 80);
constexpr Colour blue = rgb(70, 90, 210);

struct Drawing : Screen {
    Drawing() : Screen("drawing", "", WindowKind::child, 9000, 9000) { canvas.resize(9000, 6000, 1.0 / 15); }
    Canvas canvas{*this, "canvas"};
};

class PieChart : public testing::Test {
  protected:
    /// The colour at an angle in turns from the left-hand end, clockwise over the top, as a part of the way
    /// out.
    Colour at(double turns, double part = 0.6, double lift = 0) {
        const double angle = 2 * 3.14159265 * turns;
        return drawing.canvas.point(shape.圆心X - shape.长半轴 * part * std::cos(angle),
                                    shape.圆心Y - lift - shape.短半轴 * part * std::sin(angle));
    }

    Drawing drawing;
    PieShape shape{1800, 1152, 600, 4500, 2800};
};

TEST_F(PieChart, SlicesLieInOrderFromTheLeftOverTheTop) {
    drawPie(drawing.canvas, shape, {{red, 0.25}, {green, 0.5}, {blue, 0.25}});
    EXPECT_EQ(at(0.1), red);
    EXPECT_EQ(at(0.24), red);
    EXPECT_EQ(at(0.27), green);
    EXPECT_EQ(at(0.5), green);
    EXPECT_EQ(at(0.73), green);
    EXPECT_EQ(at(0.78), blue);
    EXPECT_EQ(at(0.95), blue);
    // The wall stands below the near half alone.
    EXPECT_EQ(drawing.canvas.point(4500 + 900, 2800 + 1152 * std::sqrt(0.75) + 300), darkShade(green));
    EXPECT_EQ(drawing.canvas.point(4500 - 900, 2800 + 1152 * std::sqrt(0.75) + 300), darkShade(blue));
    EXPECT_EQ(drawing.canvas.point(4500, 2800 - 1152 - 60), windowColour);
    EXPECT_EQ(drawing.canvas.point(4500, 2800 + 1152 + 600 + 60), windowColour);
}

TEST_F(PieChart, ARaisedSliceIsABlockOverThePie) {
    const std::vector<PieSlice> slices = {{red, 0.25}, {green, 0.5}, {blue, 0.25}};
    drawPie(drawing.canvas, shape, slices);
    const Picture flat = drawing.canvas.picture();
    drawRaised(drawing.canvas, shape, slices, 0);
    // Above the pie the rim of the slice comes out, and the others keep their place.
    EXPECT_EQ(at(0.2, 0.97, raisedBy), red);
    EXPECT_EQ(at(0.5), green);
    EXPECT_EQ(at(0.9), blue);
    // The straight edge towards the blue slice has become a wall.
    EXPECT_EQ(drawing.canvas.point(4500 - 900, 2800 - 60), darkShade(red));
    drawing.canvas.picture() = flat;
    drawRaised(drawing.canvas, shape, slices, 1);
    EXPECT_EQ(drawing.canvas.point(4500 + 900, 2800 - 150 + 1152 * std::sqrt(0.75) + 75), darkShade(green));
    EXPECT_EQ(at(0.5, 0.9, raisedBy), green);
}

}  // namespace
}  // namespace desk
