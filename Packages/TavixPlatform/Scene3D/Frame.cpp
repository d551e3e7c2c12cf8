#include "TavixPlatform/Scene3D/Frame.h"

#include <bit>

namespace tavix::scene3d {

const SamplePattern& onePerPixel() {
    static const auto pattern = [] {
        SamplePattern p{2, {}, {}};
        for (int i = 0; i < samplesPerVector; ++i) {
            p.x[std::size_t(i)] = i % 4 * 8 + 4;
            p.y[std::size_t(i)] = i / 4 * 8 + 4;
        }
        return p;
    }();
    return pattern;
}

// Four samples that share no row and no column, so that a nearly level or upright edge has five steps.
const SamplePattern& fourPerPixel() {
    static const auto pattern = [] {
        constexpr int offsetX[4] = {3, 7, 1, 5}, offsetY[4] = {1, 3, 5, 7};
        SamplePattern p{1, {}, {}};
        for (int i = 0; i < samplesPerVector; ++i) {
            p.x[std::size_t(i)] = i / 4 % 2 * 8 + offsetX[i % 4];
            p.y[std::size_t(i)] = i / 8 * 8 + offsetY[i % 4];
        }
        return p;
    }();
    return pattern;
}

namespace {

std::array<MaskPoint, 16> pointsOf(const SamplePattern& pattern) {
    std::array<MaskPoint, 16> points{};
    const int samples = pattern.samplesPerPixel();
    for (unsigned mask = 1; mask < 1u << samples; ++mask) {
        int x = 0, y = 0;
        for (int s = 0; s < samples; ++s) {
            if (!(mask >> s & 1)) continue;
            x += pattern.x[std::size_t(s)];
            y += pattern.y[std::size_t(s)];
        }
        const auto count = float(std::popcount(mask));
        points[mask] = {float(x) / (8 * count), float(y) / (8 * count), count};
    }
    return points;
}

}   // namespace

const std::array<MaskPoint, 16>& maskPoints(const SamplePattern& pattern) {
    static const std::array<MaskPoint, 16> one = pointsOf(onePerPixel()), four = pointsOf(fourPerPixel());
    return pattern.samplesPerPixel() == 1 ? one : four;
}

}   // namespace tavix::scene3d
