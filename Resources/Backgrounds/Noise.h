// Noise that is a pure function of position and seed: the same on every run.
#pragma once

#include <cstdint>

namespace tavix::backgrounds {

// White noise on whole positions, 0 up to 1.
float whiteNoise(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

// Gradient noise with second derivatives that are continuous everywhere, so that light shaded by it shows no
// lattice: about -0.7 to 0.7, zero on whole coordinates. Ken Perlin, "Improving Noise", 2002.
float smoothNoise(float x, float y, std::uint32_t seed);

}   // namespace tavix::backgrounds
