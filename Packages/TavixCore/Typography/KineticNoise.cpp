#include "TavixCore/Typography/KineticNoise.h"

#include "TavixCore/Typography/KineticStyle.h"

#include <cmath>

namespace tavix::KineticMath {
namespace {

// A whole number as an index. Beyond 2^62, where neighbours are hundreds apart, one index serves them all.
std::int64_t latticeIndex(double whole) {
    constexpr double limit = 0x1p62;
    if (std::isnan(whole)) return 0;
    return static_cast<std::int64_t>(std::fmin(std::fmax(whole, -limit), limit));
}

}   // namespace

double lattice(std::int64_t seed, std::int64_t stream, double x) {
    const double whole = std::floor(x);
    const double fraction = std::isfinite(x) ? x - whole : 0;
    const std::int64_t index = latticeIndex(whole);
    const double here = 2 * unitDouble(seed, stream, index) - 1;
    const double next = 2 * unitDouble(seed, stream, index + 1) - 1;
    return here + fraction * fraction * (3 - 2 * fraction) * (next - here);
}

double idleValue(const IdlePhase& idle, double timeSec, std::int64_t elementOrdinal, std::int64_t channel) {
    return lattice(idle.seed, channel + channelsPerElement * elementOrdinal, idle.frequencyHz * timeSec) *
           idle.amplitude;
}

}   // namespace tavix::KineticMath
