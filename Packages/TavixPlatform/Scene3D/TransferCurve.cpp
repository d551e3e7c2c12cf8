#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <algorithm>
#include <cmath>

namespace tavix::scene3d {

namespace {

double twelfthPower(double x) {
    const double x3 = x * x * x, x6 = x3 * x3;
    return x6 * x6;
}

// The fifth root of a number in (0, 1], by Newton's iteration from above, which is monotone.
double fifthRoot(double x) {
    double y = 1;
    for (int i = 0; i < 60; ++i) {
        const double y2 = y * y, next = y - (y - x / (y2 * y2)) / 5;
        if (next >= y) break;
        y = next;
    }
    return y;
}

}   // namespace

// 2.4 is 12 / 5, so both directions are roots and whole powers.
double linearFromSrgb(double encoded) {
    const double e = std::clamp(encoded, 0.0, 1.0);
    return e <= 0.04045 ? e / 12.92 : twelfthPower(fifthRoot((e + 0.055) / 1.055));
}

double srgbFromLinear(double linear) {
    const double l = std::clamp(linear, 0.0, 1.0);
    if (l <= 0.0031308) return l * 12.92;
    double y = 1;   // the twelfth root, then its fifth power
    for (int i = 0; i < 200; ++i) {
        const double y2 = y * y, y4 = y2 * y2, y11 = y4 * y4 * y2 * y, next = y - (y - l / y11) / 12;
        if (next >= y) break;
        y = next;
    }
    const double y2 = y * y;
    return 1.055 * (y2 * y2 * y) - 0.055;
}

const std::array<float, 256>& linearOfBytes() {
    static const auto table = [] {
        std::array<float, 256> values{};
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = float(linearFromSrgb(double(i) / 255));
        return values;
    }();
    return table;
}

const std::array<float, rootTableSize>& srgbOfRoots() {
    static const auto table = [] {
        std::array<float, rootTableSize> values{};
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double root = double(i) / (rootTableSize - 1);
            values[i] = float(srgbFromLinear(root * root));
        }
        return values;
    }();
    return table;
}

}   // namespace tavix::scene3d
