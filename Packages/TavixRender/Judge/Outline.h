// The edge of something convex on the canvas: a polygon. Coordinates are those of pictures, y up.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"

#include <functional>
#include <vector>

namespace tavix {

class Outline {
public:
    Outline() = default;   // of nothing
    // Of the corners of something convex, in either direction.
    explicit Outline(std::vector<imaging::Point> points);

    static Outline of(const imaging::Rect& rect);
    // Round corners are followed to a third of a pixel. The radius is limited to half the smaller side.
    static Outline ofRounded(const imaging::Rect& rect, double radiusPx);
    // The smallest convex outline around points.
    static Outline around(std::vector<imaging::Point> points);

    const std::vector<imaging::Point>& points() const { return points_; }
    const imaging::Rect& bounds() const { return bounds_; }
    bool isEmpty() const { return points_.size() < 3 || bounds_.isEmpty(); }
    double area() const;

    Outline transformed(const imaging::Affine& transform) const;
    // For maps that keep it convex.
    Outline mapped(const std::function<imaging::Point(imaging::Point)>& map) const;
    Outline cut(const imaging::Rect& rect) const;

    bool contains(imaging::Point point) const;
    // Whether the other lies in it, but for half a pixel of an edge.
    bool covers(const Outline& other) const;

private:
    std::vector<imaging::Point> points_;
    imaging::Rect bounds_;
};

}   // namespace tavix
