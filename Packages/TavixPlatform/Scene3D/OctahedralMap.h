// Light by direction, on an octahedron that is unfolded into a square (Engelhardt and Dachsbacher, 2008). The
// upper half lies in the middle; a border of one texel continues over the folds. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/ParallelLoop.h"
#include "TavixPlatform/Scene3D/Vectors.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tavix::scene3d {

class OctahedralMap {
public:
    explicit OctahedralMap(int sidePx);

    int sidePx() const { return sidePx_; }
    std::span<const float> texels() const { return texels_; }   // with the border; red, green, blue, 0
    Vec3 at(Vec3 direction) const;                              // bilinear
    OctahedralMap halved() const;

    // Sets each texel to the light from its direction, which is asked for on several threads.
    template <class LightFrom> void fill(imaging::ParallelLoop& rows, const LightFrom& lightFrom) {
        rows.run(sidePx_, [&](int y) {
            for (int x = 0; x < sidePx_; ++x) set(x, y, lightFrom(directionOf(x, y)));
        });
        closeBorder();
    }
    // Calls visit(direction, light, solid angle) for each texel.
    template <class Visit> void forEach(const Visit& visit) const {
        for (int y = 0; y < sidePx_; ++y)
            for (int x = 0; x < sidePx_; ++x) visit(directionOf(x, y), texel(x, y), solidAngleOf(x, y));
    }

private:
    std::size_t offset(int x, int y) const {
        return (std::size_t(y + 1) * std::size_t(sidePx_ + 2) + std::size_t(x + 1)) * 4;
    }
    Vec3 texel(int x, int y) const;
    void set(int x, int y, Vec3 light);
    void closeBorder();
    Vec3 directionOf(int x, int y) const;
    float solidAngleOf(int x, int y) const;

    int sidePx_;
    std::vector<float> texels_;
};

}   // namespace tavix::scene3d
