// Points, rectangles and affine transforms of the image graph. The origin is at the bottom left and y points
// up; coordinates are pixels, and pixel (i, j) covers the unit square from (i, j) to (i + 1, j + 1).
#pragma once

#include <cstdint>

namespace tavix::imaging {

struct Point {
    double x = 0, y = 0;
    bool operator==(const Point&) const = default;
};

// A rectangle with real coordinates. It may be infinite; an empty one has no width or no height.
struct Rect {
    double x = 0, y = 0, width = 0, height = 0;

    static Rect infinite();
    static Rect fromEdges(double minX, double minY, double maxX, double maxY);

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Point center() const { return {x + width / 2, y + height / 2}; }
    bool isEmpty() const { return !(width > 0 && height > 0); }
    bool isInfinite() const;
    bool operator==(const Rect&) const = default;
};

Rect intersection(const Rect& a, const Rect& b);
Rect unionOf(const Rect& a, const Rect& b);   // an empty side does not count
Rect grownBy(const Rect& rect, double marginPx);

// A rectangle of whole pixels, half open: x0 <= x < x1. What evaluation works with.
struct PixelRegion {
    int x0 = 0, y0 = 0, x1 = 0, y1 = 0;

    int width() const { return x1 - x0; }
    int height() const { return y1 - y0; }
    bool isEmpty() const { return x1 <= x0 || y1 <= y0; }
    bool contains(const PixelRegion& other) const {
        return other.isEmpty() || (x0 <= other.x0 && y0 <= other.y0 && other.x1 <= x1 && other.y1 <= y1);
    }
    Rect rect() const { return {double(x0), double(y0), double(x1) - x0, double(y1) - y0}; }
    bool operator==(const PixelRegion&) const = default;
};

PixelRegion intersection(const PixelRegion& a, const PixelRegion& b);
PixelRegion unionOf(const PixelRegion& a, const PixelRegion& b);   // an empty side does not count
PixelRegion grownBy(const PixelRegion& region, int marginPx);
// The smallest region of whole pixels that covers the rectangle, limited to +-2^24 so that an infinite one
// stays countable. A coordinate within 1/1024 pixel of a whole number counts as that number.
PixelRegion pixelsCovering(const Rect& rect);

// x' = a x + c y + tx, y' = b x + d y + ty.
struct Affine {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    static Affine translation(double dx, double dy) { return {1, 0, 0, 1, dx, dy}; }
    static Affine scaling(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
    static Affine rotation(double angleRad);   // counter-clockwise
    // Scales or turns about a point: the transform with that point moved to the origin and back.
    Affine about(Point center) const;

    Affine then(const Affine& next) const;   // this one first
    Affine inverse() const;                  // all zeros when there is none
    Point apply(Point p) const { return {a * p.x + c * p.y + tx, b * p.x + d * p.y + ty}; }
    Rect boundsOf(const Rect& rect) const;   // of the transformed rectangle; infinite stays infinite
    double determinant() const { return a * d - b * c; }
    bool isIdentity() const { return *this == Affine{}; }
    bool isTranslation() const { return a == 1 && b == 0 && c == 0 && d == 1; }
    bool isAxisAligned() const { return b == 0 && c == 0; }
    bool operator==(const Affine&) const = default;
};

}   // namespace tavix::imaging
