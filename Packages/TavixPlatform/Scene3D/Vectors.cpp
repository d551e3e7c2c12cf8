#include "TavixPlatform/Scene3D/Vectors.h"

#include <algorithm>
#include <cmath>

namespace tavix::scene3d {

float length(Vec3 a) { return std::sqrt(dot(a, a)); }

Vec3 normalized(Vec3 a) {
    const float size = length(a);
    return size > 0 ? a * (1 / size) : Vec3{};
}

bool isFinite(Vec3 a) { return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z); }

// Reduced to a quarter turn without rounding, then the series of Taylor to the 16th power.
SineCosine sineCosine(double angleDeg) {
    constexpr double radiansPerDegree = 0.017453292519943295;
    int quarter = 0;
    const double x = std::remquo(angleDeg, 90.0, &quarter) * radiansPerDegree;
    const double x2 = x * x;
    double sine = 1, cosine = 1;
    for (int n = 14; n >= 2; n -= 2) {
        sine = 1 - x2 / (n * (n + 1)) * sine;
        cosine = 1 - x2 / ((n + 2) * (n + 1)) * cosine;
    }
    sine *= x;
    cosine = 1 - x2 / 2 * cosine;
    switch (quarter & 3) {
    case 1: return {cosine, -sine};
    case 2: return {-sine, -cosine};
    case 3: return {-cosine, sine};
    default: return {sine, cosine};
    }
}

Rotation Rotation::about(Vec3 axis, double angleDeg) {
    const Vec3 unit = normalized(axis);
    const SineCosine half = sineCosine(angleDeg / 2);
    return {unit.x * half.sine, unit.y * half.sine, unit.z * half.sine, half.cosine};
}

// The largest part first, which the others are divided by (Shepperd, 1978).
Rotation Rotation::ofAxes(Vec3 right, Vec3 up, Vec3 back) {
    const double xx = right.x, yy = up.y, zz = back.z;
    const double w2 = 1 + xx + yy + zz, x2 = 1 + xx - yy - zz, y2 = 1 - xx + yy - zz, z2 = 1 - xx - yy + zz;
    const double largest = std::max({w2, x2, y2, z2}), root = std::sqrt(largest), half = 0.5 / root;
    if (largest == w2)
        return {(up.z - back.y) * half, (back.x - right.z) * half, (right.y - up.x) * half, root / 2};
    if (largest == x2)
        return {root / 2, (up.x + right.y) * half, (back.x + right.z) * half, (up.z - back.y) * half};
    if (largest == y2)
        return {(up.x + right.y) * half, root / 2, (back.y + up.z) * half, (back.x - right.z) * half};
    return {(back.x + right.z) * half, (back.y + up.z) * half, root / 2, (right.y - up.x) * half};
}

Rotation operator*(const Rotation& a, const Rotation& b) {
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
        a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

Vec3 Affine3::apply(Vec3 p) const { return applyToDirection(p) + origin(); }

Vec3 Affine3::applyToDirection(Vec3 d) const {
    const auto row = [&](const std::array<double, 4>& r) {
        return float(r[0] * double(d.x) + r[1] * double(d.y) + r[2] * double(d.z));
    };
    return {row(rows[0]), row(rows[1]), row(rows[2])};
}

Vec3 Affine3::axis(int column) const {
    const auto c = std::size_t(column);
    return {float(rows[0][c]), float(rows[1][c]), float(rows[2][c])};
}

double Affine3::determinant() const {
    const auto& [a, b, c] = rows;
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) +
           a[2] * (b[0] * c[1] - b[1] * c[0]);
}

Affine3 Affine3::inverse() const {
    Affine3 result;
    const double d = determinant();
    const double factor = d != 0 && std::isfinite(1 / d) ? 1 / d : 0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const std::size_t a = (j + 1) % 3, b = (j + 2) % 3, c = (i + 1) % 3, e = (i + 2) % 3;
            result.rows[i][j] = factor * (rows[a][c] * rows[b][e] - rows[a][e] * rows[b][c]);
        }
    }
    for (auto& row : result.rows) row[3] = -(row[0] * rows[0][3] + row[1] * rows[1][3] + row[2] * rows[2][3]);
    return result;
}

Affine3 operator*(const Affine3& a, const Affine3& b) {
    Affine3 result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            result.rows[i][j] = a.rows[i][0] * b.rows[0][j] + a.rows[i][1] * b.rows[1][j] +
                                a.rows[i][2] * b.rows[2][j] + (j == 3 ? a.rows[i][3] : 0);
        }
    }
    return result;
}

Affine3 Transform::matrix() const {
    const auto& [x, y, z, w] = orientation;
    const double sx = scale.x, sy = scale.y, sz = scale.z;
    return {{{{(1 - 2 * (y * y + z * z)) * sx, 2 * (x * y - w * z) * sy, 2 * (x * z + w * y) * sz,
                  position.x},
        {2 * (x * y + w * z) * sx, (1 - 2 * (x * x + z * z)) * sy, 2 * (y * z - w * x) * sz, position.y},
        {2 * (x * z - w * y) * sx, 2 * (y * z + w * x) * sy, (1 - 2 * (x * x + y * y)) * sz, position.z}}}};
}

void Transform::lookAt(Vec3 target, Vec3 from, Vec3 up) {
    position = from;
    const Vec3 back = normalized(from - target);
    Vec3 right = cross(up, back);
    if (length(right) < 1e-6f) right = cross(std::abs(back.z) < 0.9f ? Vec3{0, 0, 1} : Vec3{1, 0, 0}, back);
    right = normalized(right);
    if (back == Vec3{}) return;
    orientation = Rotation::ofAxes(right, cross(back, right), back);
}

void Bounds::add(Vec3 p) {
    if (isEmpty()) {
        least = most = p;
        return;
    }
    least = {std::min(least.x, p.x), std::min(least.y, p.y), std::min(least.z, p.z)};
    most = {std::max(most.x, p.x), std::max(most.y, p.y), std::max(most.z, p.z)};
}

void Bounds::add(const Bounds& other) {
    if (other.isEmpty()) return;
    add(other.least);
    add(other.most);
}

Bounds Bounds::transformed(const Affine3& by) const {
    Bounds result;
    if (isEmpty()) return result;
    for (int corner = 0; corner < 8; ++corner)
        result.add(by.apply(
            {corner & 1 ? most.x : least.x, corner & 2 ? most.y : least.y, corner & 4 ? most.z : least.z}));
    return result;
}

}   // namespace tavix::scene3d
