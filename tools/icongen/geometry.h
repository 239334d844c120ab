// Shapes as signed distance functions in icon units: every icon is drawn on a 32 x 32 unit square,
// whatever its pixel size, and a negative distance means "inside".
#pragma once

#include <functional>
#include <vector>

namespace icongen {

struct Vec2 {
    float x = 0;
    float y = 0;
};

using Shape = std::function<float(Vec2)>;

Shape Circle(Vec2 centre, float radius);
// Axis-aligned box from (left, top) to (right, bottom) with rounded corners.
Shape RoundBox(float left, float top, float right, float bottom, float cornerRadius);
// A line segment with round caps, halfWidth either side of the centre line.
Shape Segment(Vec2 from, Vec2 to, float halfWidth);
// Consecutive segments through the points, joined round.
Shape Polyline(const std::vector<Vec2>& points, float halfWidth);
Shape Polygon(std::vector<Vec2> points);
// Band of halfWidth either side of a circle of the given radius.
Shape Ring(Vec2 centre, float radius, float halfWidth);
Shape Ellipse(Vec2 centre, float radiusX, float radiusY);

Shape Union(Shape a, Shape b);
Shape Intersect(Shape a, Shape b);
Shape Subtract(Shape from, Shape cut);
// Grows (positive) or shrinks (negative) a shape by the given distance.
Shape Grow(Shape s, float by);
Shape Translate(Shape s, Vec2 offset);

}  // namespace icongen
