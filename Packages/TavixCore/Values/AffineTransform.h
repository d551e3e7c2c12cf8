// x' = a x + c y + tx, y' = b x + d y + ty.
#pragma once

namespace tavix {

struct AffineTransform {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    static AffineTransform translation(double dx, double dy) { return {1, 0, 0, 1, dx, dy}; }
    static AffineTransform scaling(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
    static AffineTransform rotation(double angleDeg);   // counter-clockwise where y points up
    static AffineTransform skew(double angleXDeg, double angleYDeg);

    AffineTransform concatenating(const AffineTransform& next) const;   // this one first
    bool isFinite() const;
    bool operator==(const AffineTransform&) const = default;
};

}   // namespace tavix
