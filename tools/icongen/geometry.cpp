#include "geometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace icongen {
namespace {

float Dot(Vec2 a, Vec2 b) { return a.x * b.x + a.y * b.y; }
Vec2 Minus(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
float Length(Vec2 v) { return std::sqrt(Dot(v, v)); }

float SegmentDistance(Vec2 p, Vec2 a, Vec2 b) {
    const Vec2 pa = Minus(p, a);
    const Vec2 ba = Minus(b, a);
    const float lengthSquared = Dot(ba, ba);
    const float t = lengthSquared > 0 ? std::clamp(Dot(pa, ba) / lengthSquared, 0.0f, 1.0f) : 0.0f;
    return Length({pa.x - ba.x * t, pa.y - ba.y * t});
}

}  // namespace

Shape Circle(Vec2 centre, float radius) {
    return [=](Vec2 p) { return Length(Minus(p, centre)) - radius; };
}

Shape RoundBox(float left, float top, float right, float bottom, float cornerRadius) {
    const Vec2 centre{(left + right) / 2, (top + bottom) / 2};
    const Vec2 half{(right - left) / 2 - cornerRadius, (bottom - top) / 2 - cornerRadius};
    return [=](Vec2 p) {
        const Vec2 q{std::fabs(p.x - centre.x) - half.x, std::fabs(p.y - centre.y) - half.y};
        const Vec2 outside{std::max(q.x, 0.0f), std::max(q.y, 0.0f)};
        return Length(outside) + std::min(std::max(q.x, q.y), 0.0f) - cornerRadius;
    };
}

Shape Segment(Vec2 from, Vec2 to, float halfWidth) {
    return [=](Vec2 p) { return SegmentDistance(p, from, to) - halfWidth; };
}

Shape Polyline(const std::vector<Vec2>& points, float halfWidth) {
    return [points, halfWidth](Vec2 p) {
        float best = 1e9f;
        for (size_t i = 1; i < points.size(); ++i)
            best = std::min(best, SegmentDistance(p, points[i - 1], points[i]));
        return best - halfWidth;
    };
}

Shape Polygon(std::vector<Vec2> v) {
    return [v = std::move(v)](Vec2 p) {
        float nearestSquared = Dot(Minus(p, v[0]), Minus(p, v[0]));
        float sign = 1;
        for (size_t i = 0, j = v.size() - 1; i < v.size(); j = i, ++i) {
            const Vec2 e = Minus(v[j], v[i]);
            const Vec2 w = Minus(p, v[i]);
            const float t = std::clamp(Dot(w, e) / Dot(e, e), 0.0f, 1.0f);
            const Vec2 b{w.x - e.x * t, w.y - e.y * t};
            nearestSquared = std::min(nearestSquared, Dot(b, b));
            // Crossing count along a horizontal ray decides inside or outside.
            const bool c1 = p.y >= v[i].y;
            const bool c2 = p.y < v[j].y;
            const bool c3 = e.x * w.y > e.y * w.x;
            if ((c1 && c2 && c3) || (!c1 && !c2 && !c3))
                sign = -sign;
        }
        return sign * std::sqrt(nearestSquared);
    };
}

Shape Ring(Vec2 centre, float radius, float halfWidth) {
    return [=](Vec2 p) { return std::fabs(Length(Minus(p, centre)) - radius) - halfWidth; };
}

Shape Ellipse(Vec2 centre, float radiusX, float radiusY) {
    // Scaled circle distance: not exact, but close enough near the edge for anti-aliasing.
    const float scale = std::min(radiusX, radiusY);
    return [=](Vec2 p) {
        const Vec2 q{(p.x - centre.x) / radiusX, (p.y - centre.y) / radiusY};
        return (Length(q) - 1.0f) * scale;
    };
}

Shape Union(Shape a, Shape b) {
    return [a = std::move(a), b = std::move(b)](Vec2 p) { return std::min(a(p), b(p)); };
}

Shape Intersect(Shape a, Shape b) {
    return [a = std::move(a), b = std::move(b)](Vec2 p) { return std::max(a(p), b(p)); };
}

Shape Subtract(Shape from, Shape cut) {
    return [from = std::move(from), cut = std::move(cut)](Vec2 p) { return std::max(from(p), -cut(p)); };
}

Shape Grow(Shape s, float by) {
    return [s = std::move(s), by](Vec2 p) { return s(p) - by; };
}

Shape Translate(Shape s, Vec2 offset) {
    return [s = std::move(s), offset](Vec2 p) { return s({p.x - offset.x, p.y - offset.y}); };
}

}  // namespace icongen
