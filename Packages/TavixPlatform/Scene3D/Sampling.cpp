#include "TavixPlatform/Scene3D/Sampling.h"

#include "TavixPlatform/Scene3D/Vectors.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace tavix::scene3d {

namespace {

// The bits after the binary point in reverse.
double reversedBits(std::uint32_t i) {
    i = i << 16 | i >> 16;
    i = (i & 0x00ff00ffu) << 8 | (i & 0xff00ff00u) >> 8;
    i = (i & 0x0f0f0f0fu) << 4 | (i & 0xf0f0f0f0u) >> 4;
    i = (i & 0x33333333u) << 2 | (i & 0xccccccccu) >> 2;
    i = (i & 0x55555555u) << 1 | (i & 0xaaaaaaaau) >> 1;
    return double(i) / 4294967296.0;
}

}   // namespace

FacetSample facetSample(int index, int count, double alpha) {
    const double u = (index + 0.5) / count, v = reversedBits(std::uint32_t(index));
    const double cosine = std::sqrt((1 - u) / (1 + (alpha * alpha - 1) * u));
    const double sine = std::sqrt(std::max(1 - cosine * cosine, 0.0));
    const SineCosine around = sineCosine(360 * v);
    return {sine * around.cosine, sine * around.sine, cosine};
}

// The arc tangent of a number up to 1: its angle is halved twice, and the series does the rest.
double turnsOf(double y, double x) {
    constexpr double turnsPerRadian = 0.15915494309189535;
    double low = std::abs(y), high = std::abs(x);
    if (low == 0 && high == 0) return 0;
    const bool isSteep = low > high;
    if (isSteep) std::swap(low, high);
    double t = low / high;
    for (int i = 0; i < 2; ++i) t = t / (1 + std::sqrt(1 + t * t));
    double series = 0;
    for (int n = 21; n >= 1; n -= 2) series = 1.0 / n - t * t * series;
    double turns = 4 * t * series * turnsPerRadian;
    if (isSteep) turns = 0.25 - turns;
    if (x < 0) turns = 0.5 - turns;
    return y < 0 ? -turns : turns;
}

}   // namespace tavix::scene3d
