#include "ui/pie_chart.h"

#include <algorithm>
#include <cmath>

namespace desk {

namespace {

/// A little below the true value: a pie of one slice ends just below the middle line, and so is drawn whole.
constexpr double pi = 3.14159265;
constexpr double step = 0.5;

/// The outer edge of one slice, point by point.
class Arc {
  public:
    Arc(const PieShape& shape, double from, double to)
        : shape_(shape),
          startX_(shape.圆心X - shape.长半轴 * std::cos(from)),
          endX_(shape.圆心X - shape.长半轴 * std::cos(to)),
          startsAbove_(shape.圆心Y - shape.长半轴 * std::sin(from) <= shape.圆心Y),
          endsBelow_(shape.圆心Y - shape.长半轴 * std::sin(to) > shape.圆心Y) {}

    /// Tells `upper` of each point on the far half, and `lower` of each on the near half, so densely that no
    /// pixel between two of them is left out.
    template <class Upper, class Lower>
    void walk(double pixelsPerTwip, Upper upper, Lower lower) const {
        const double right = shape_.圆心X + shape_.长半轴;
        const bool crosses = startsAbove_ && endsBelow_;
        if (startsAbove_)
            walkHalf(startX_, crosses ? right : endX_, step, pixelsPerTwip,
                     [&](double x) { upper(x, shape_.圆心Y - heightAt(x)); });
        if (crosses || !startsAbove_)
            walkHalf(crosses ? right : startX_, endX_, -step, pixelsPerTwip,
                     [&](double x) { lower(x, shape_.圆心Y + heightAt(x)); });
    }

  private:
    template <class Point>
    void walkHalf(double from, double to, double by, double pixelsPerTwip, Point point) const {
        if ((to - from) * by < 0) return;
        for (double x = from;;) {
            point(x);
            const double next = by > 0 ? std::min(x + by, to) : std::max(x + by, to);
            if (next == x) break;
            // Near the ends of the ellipse a step leads over several rows of pixels.
            const double rowsOver = 2 * std::abs(heightAt(next) - heightAt(x)) * pixelsPerTwip;
            const int parts = static_cast<int>(rowsOver * rowsOver);
            for (int part = 1; part < parts; ++part) point(x + (next - x) * part / parts);
            x = next;
        }
    }

    double heightAt(double x) const {
        const double part = (x - shape_.圆心X) / shape_.长半轴;
        return std::sqrt(std::max(0.0, 1 - part * part)) * shape_.短半轴;
    }

    const PieShape& shape_;
    double startX_;
    double endX_;
    bool startsAbove_;  ///< which half a point lies in is told by the circle, not by the ellipse
    bool endsBelow_;
};

Arc arcOf(const PieShape& shape, const std::vector<PieSlice>& slices, std::size_t which) {
    double before = 0;
    for (std::size_t i = 0; i < which; ++i) before += slices[i].share;
    const double behind = before + slices[which].share;
    return {shape, (before + before) * pi, (behind + behind) * pi};
}

/// The walls below the two straight edges of a slice, from `depth` below it up.
void drawEdgeWall(Canvas& canvas, const PieShape& shape, double x, double y, double depth, Colour dark) {
    const double length = std::hypot(x - shape.圆心X, y - shape.圆心Y);
    const int steps = static_cast<int>(length * canvas.pixelsPerTwip() * 2) + 1;
    for (int i = 0; i <= steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        const double edgeX = shape.圆心X + (x - shape.圆心X) * part;
        const double edgeY = shape.圆心Y + (y - shape.圆心Y) * part;
        canvas.line(edgeX, edgeY, edgeX, edgeY + depth, dark);
    }
}

}  // namespace

Colour darkShade(Colour colour) {
    const auto darker = [](int component) { return std::max(0, component - 60); };
    return rgb(darker(redOf(colour)), darker(greenOf(colour)), darker(blueOf(colour)));
}

void drawPie(Canvas& canvas, const PieShape& shape, const std::vector<PieSlice>& slices) {
    for (std::size_t i = 0; i < slices.size(); ++i) {
        const Colour colour = slices[i].colour;
        const Colour dark = darkShade(colour);
        arcOf(shape, slices, i)
            .walk(
                canvas.pixelsPerTwip(),
                [&](double x, double y) { canvas.line(shape.圆心X, shape.圆心Y, x, y, colour); },
                [&](double x, double y) {
                    canvas.line(x, y, x, y + shape.饼厚, dark);
                    canvas.line(shape.圆心X, shape.圆心Y, x, y, colour);
                });
    }
    canvas.repaint();
}

void drawRaised(Canvas& canvas, const PieShape& shape, const std::vector<PieSlice>& slices,
                std::size_t which) {
    PieShape raised = shape;
    raised.圆心Y -= raisedBy;
    const Colour colour = slices[which].colour;
    const Colour dark = darkShade(colour);
    const Arc arc = arcOf(raised, slices, which);
    // The block is what its outline passes over on its way up; the top lies over all of it.
    const auto wall = [&](double x, double y) { canvas.line(x, y, x, y + raisedBy, dark); };
    double firstX = raised.圆心X;
    double firstY = raised.圆心Y;
    double lastX = firstX;
    double lastY = firstY;
    bool any = false;
    const auto outline = [&](double x, double y) {
        if (!any) {
            firstX = x;
            firstY = y;
        }
        any = true;
        lastX = x;
        lastY = y;
        wall(x, y);
    };
    arc.walk(canvas.pixelsPerTwip(), outline, outline);
    if (!any) return;
    drawEdgeWall(canvas, raised, firstX, firstY, raisedBy, dark);
    drawEdgeWall(canvas, raised, lastX, lastY, raisedBy, dark);
    const auto top = [&](double x, double y) { canvas.line(raised.圆心X, raised.圆心Y, x, y, colour); };
    arc.walk(canvas.pixelsPerTwip(), top, top);
    canvas.repaint();
}

}  // namespace desk
