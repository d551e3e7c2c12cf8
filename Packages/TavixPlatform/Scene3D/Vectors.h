// Points, rotations and transforms of space. Right-handed, y up; a camera and a light look along -z. All of
// it is plain arithmetic in a fixed order, without a library's sine, so that a scene has the same bits
// everywhere.
#pragma once

#include "TavixBase/Vec3.h"

#include <array>

namespace tavix::scene3d {

struct Vec2 {
    float x = 0, y = 0;
    bool operator==(const Vec2&) const = default;
};

using Vec3 = Vec3Of<float>;
float length(Vec3 a);
Vec3 normalized(Vec3 a);   // zero stays zero
bool isFinite(Vec3 a);

// Sine and cosine of an angle in degrees, within 2e-16 of the true values, exact at multiples of 90.
struct SineCosine {
    double sine, cosine;
};
SineCosine sineCosine(double angleDeg);

// A unit quaternion.
struct Rotation {
    double x = 0, y = 0, z = 0, w = 1;
    static Rotation about(Vec3 axis, double angleDeg);   // counter-clockwise seen against the axis
    // Turns x, y and z to three unit vectors at right angles, right-handed.
    static Rotation ofAxes(Vec3 x, Vec3 y, Vec3 z);
    bool operator==(const Rotation&) const = default;
};
Rotation operator*(const Rotation& a, const Rotation& b);   // b first

// A linear map and a shift: 3 rows of 4.
struct Affine3 {
    std::array<std::array<double, 4>, 3> rows{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

    Vec3 apply(Vec3 point) const;
    Vec3 applyToDirection(Vec3 direction) const;   // the linear part alone
    Vec3 origin() const { return {float(rows[0][3]), float(rows[1][3]), float(rows[2][3])}; }
    Vec3 axis(int column) const;   // the image of a basis vector: 0 x, 1 y, 2 z
    double determinant() const;    // of the linear part; below 0 it mirrors
    Affine3 inverse() const;       // all zeros when there is none
};
Affine3 operator*(const Affine3& a, const Affine3& b);   // b first

// Scale first, then orientation, then position. A negative scale mirrors.
struct Transform {
    Vec3 position;
    Rotation orientation;
    Vec3 scale{1, 1, 1};

    Affine3 matrix() const;
    // Stands at `from` and looks along -z at `target`; `up` tells which way the head points. The scale stays.
    void lookAt(Vec3 target, Vec3 from, Vec3 up = {0, 1, 0});
    bool operator==(const Transform&) const = default;
};

// An axis-aligned box. Empty until something is added.
struct Bounds {
    Vec3 least{1, 1, 1}, most{-1, -1, -1};

    bool isEmpty() const { return !(least.x <= most.x && least.y <= most.y && least.z <= most.z); }
    Vec3 extents() const { return isEmpty() ? Vec3{} : most - least; }
    Vec3 center() const { return isEmpty() ? Vec3{} : (least + most) * 0.5f; }
    void add(Vec3 point);
    void add(const Bounds& other);
    Bounds transformed(const Affine3& by) const;   // of its eight corners
    bool operator==(const Bounds&) const = default;
};

}   // namespace tavix::scene3d
