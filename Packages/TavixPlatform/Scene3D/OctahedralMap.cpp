#include "TavixPlatform/Scene3D/OctahedralMap.h"

#include <algorithm>
#include <cmath>

namespace tavix::scene3d {

namespace {

// The point of the octahedron |x| + |y| + |z| = 1 at map coordinates from -1 to 1.
Vec3 unfolded(float u, float v) {
    const float height = 1 - std::abs(u) - std::abs(v);
    if (height >= 0) return {u, height, v};
    return {std::copysign(1 - std::abs(v), u), height, std::copysign(1 - std::abs(u), v)};
}

}   // namespace

OctahedralMap::OctahedralMap(int sidePx)
    : sidePx_(sidePx), texels_(std::size_t(sidePx + 2) * std::size_t(sidePx + 2) * 4) {}

Vec3 OctahedralMap::texel(int x, int y) const {
    const float* p = texels_.data() + offset(x, y);
    return {p[0], p[1], p[2]};
}

void OctahedralMap::set(int x, int y, Vec3 light) {
    float* p = texels_.data() + offset(x, y);
    p[0] = light.x;
    p[1] = light.y;
    p[2] = light.z;
}

// Past an edge the map goes on from the same edge, mirrored about its middle.
void OctahedralMap::closeBorder() {
    const int last = sidePx_ - 1;
    for (int i = 0; i < sidePx_; ++i) {
        set(-1, i, texel(0, last - i));
        set(sidePx_, i, texel(last, last - i));
        set(i, -1, texel(last - i, 0));
        set(i, sidePx_, texel(last - i, last));
    }
    set(-1, -1, texel(last, last));
    set(sidePx_, sidePx_, texel(0, 0));
    set(-1, sidePx_, texel(last, 0));
    set(sidePx_, -1, texel(0, last));
}

Vec3 OctahedralMap::directionOf(int x, int y) const {
    const auto side = float(sidePx_);
    return normalized(unfolded((2 * float(x) + 1) / side - 1, (2 * float(y) + 1) / side - 1));
}

// A face of the octahedron is seen from the middle at 1 over the cube of the distance, times its height,
// times the slant of its area: the last two cancel.
float OctahedralMap::solidAngleOf(int x, int y) const {
    const auto side = float(sidePx_);
    const float distance = length(unfolded((2 * float(x) + 1) / side - 1, (2 * float(y) + 1) / side - 1));
    return 4 / (side * side) / (distance * distance * distance);
}

Vec3 OctahedralMap::at(Vec3 d) const {
    const float scale = 1 / (std::abs(d.x) + std::abs(d.y) + std::abs(d.z));
    float x = d.x * scale, z = d.z * scale;
    if (d.y < 0) {
        const float folded = std::copysign(1 - std::abs(z), x);
        z = std::copysign(1 - std::abs(x), z);
        x = folded;
    }
    const auto side = float(sidePx_);
    const float u = (x * 0.5f + 0.5f) * side + 0.5f, v = (z * 0.5f + 0.5f) * side + 0.5f;
    const int left = std::clamp(int(u), 0, sidePx_), low = std::clamp(int(v), 0, sidePx_);
    const float s = u - float(left), t = v - float(low);
    const float* p = texels_.data() + (std::size_t(low) * std::size_t(sidePx_ + 2) + std::size_t(left)) * 4;
    const float* q = p + std::size_t(sidePx_ + 2) * 4;
    const float w00 = (1 - s) * (1 - t), w10 = s * (1 - t), w01 = (1 - s) * t, w11 = s * t;
    const auto channel = [&](int c) { return p[c] * w00 + p[4 + c] * w10 + q[c] * w01 + q[4 + c] * w11; };
    return {channel(0), channel(1), channel(2)};
}

OctahedralMap OctahedralMap::halved() const {
    OctahedralMap half(sidePx_ / 2);
    for (int y = 0; y < half.sidePx_; ++y) {
        for (int x = 0; x < half.sidePx_; ++x) {
            const Vec3 sum = texel(2 * x, 2 * y) + texel(2 * x + 1, 2 * y) + texel(2 * x, 2 * y + 1) +
                             texel(2 * x + 1, 2 * y + 1);
            half.set(x, y, sum * 0.25f);
        }
    }
    half.closeBorder();
    return half;
}

}   // namespace tavix::scene3d
