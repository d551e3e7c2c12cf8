#include "TavixPlatform/Scene3D/Frame.h"

#include <cstddef>

namespace tavix::scene3d {

namespace {

std::array<SamplePattern::Sum, 256> sumsOf(const SamplePattern& pattern, std::size_t first) {
    std::array<SamplePattern::Sum, 256> sums{};
    for (std::size_t mask = 0; mask < 256; ++mask)
        for (std::size_t i = 0; i < 8; ++i)
            if (mask >> i & 1) {
                sums[mask].x = std::uint16_t(sums[mask].x + pattern.x[first + i]);
                sums[mask].y = std::uint16_t(sums[mask].y + pattern.y[first + i]);
            }
    return sums;
}

template <class Place>
SamplePattern patternOf(int samplesPerPixel, int unitBits, int cellUnitBits, const Place& place) {
    SamplePattern p{};
    p.samplesPerPixel = samplesPerPixel;
    p.unitBits = unitBits;
    p.cellUnitBits = cellUnitBits;
    const float unitPx = float(1 << unitBits) / (1 << subpixelBits);
    p.leastPx = unitPx;
    p.mostPx = float((1 << cellUnitBits) - 1) * unitPx;
    for (int i = 0; i < samplesPerCell; ++i) {
        const auto [x, y] = place(i % 4, i / 4);
        p.x[std::size_t(i)] = 2 * x + 1;
        p.y[std::size_t(i)] = 2 * y + 1;
        p.xPx[std::size_t(i)] = float(2 * x + 1) * unitPx;
        p.yPx[std::size_t(i)] = float(2 * y + 1) * unitPx;
    }
    p.lowSums = sumsOf(p, 0);
    p.highSums = sumsOf(p, 8);
    return p;
}

struct Place {
    int x, y;
};

// One sample in each of 4 x 4 squares, in columns and rows of its own.
Place scattered(int x, int y) {
    constexpr int column[4] = {2, 0, 3, 1}, row[4] = {1, 3, 0, 2};
    return {4 * x + column[y], 4 * y + row[x]};
}

}   // namespace

const SamplePattern& onePerPixel() {
    static const SamplePattern pattern = patternOf(1, 7, 3, [](int x, int y) { return Place{x, y}; });
    return pattern;
}

const SamplePattern& fourPerPixel() {
    static const SamplePattern pattern = patternOf(4, 5, 4, [](int sample, int pixel) {
        constexpr int column[4] = {1, 3, 0, 2};
        return Place{pixel % 2 * 4 + column[sample], pixel / 2 * 4 + sample};
    });
    return pattern;
}

const SamplePattern& sixteenPerPixel() {
    static const SamplePattern pattern = patternOf(16, 3, 5, scattered);
    return pattern;
}

const SamplePattern& sixtyFourPerPixel() {
    static const SamplePattern pattern = patternOf(64, 2, 5, scattered);
    return pattern;
}

}   // namespace tavix::scene3d
