// The sRGB transfer curve (IEC 61966-2-1) without the library's power function, so that it has the same bits
// on every machine.
#pragma once

#include <array>
#include <cstdint>

namespace tavix::scene3d {

double linearFromSrgb(double encoded);   // limited to 0 ... 1; within 1e-15
double srgbFromLinear(double linear);    // likewise

// Linear light of the 256 bytes.
const std::array<float, 256>& linearOfBytes();
// The byte of linear light v stands at round(sqrt(v) * (size - 1)); the square root spends the entries where
// the eye, and so the curve, does. No entry is off by more than 0.1 of a byte.
constexpr int rootTableSize = 4096;
// Encoded light as a fraction of 1, by the same index.
const std::array<float, rootTableSize>& srgbOfRoots();

}   // namespace tavix::scene3d
