// Noise without hidden state: every value is a function of a seed, a stream and a position, so any frame can
// be drawn first.
#pragma once

#include "TavixCore/Values/SeededRandom.h"

#include <cstdint>

namespace tavix {
struct IdlePhase;
}

namespace tavix::KineticMath {

constexpr std::uint64_t splitmix64(std::uint64_t x) { return splitMix64Mix(x + splitMix64Gamma); }
constexpr std::uint64_t hash64(std::uint64_t x) { return splitmix64(x); }

// From 0 up to, not including, 1.
constexpr double unitDouble(std::int64_t seed, std::int64_t stream, std::int64_t index) {
    std::uint64_t hash = splitmix64(static_cast<std::uint64_t>(seed));
    hash = splitmix64(static_cast<std::uint64_t>(stream) ^ hash);
    return unitFromBits(splitmix64(static_cast<std::uint64_t>(index) ^ hash));
}

// Smooth value noise in -1 to 1: random values at the whole numbers, joined by 3f² - 2f³.
double lattice(std::int64_t seed, std::int64_t stream, double x);

// Noise streams reserved for each element of a text.
constexpr std::int64_t channelsPerElement = 4;

// The ungated idle motion of one element, in the unit of the phase's target.
double idleValue(const IdlePhase& idle, double timeSec, std::int64_t elementOrdinal, std::int64_t channel);

}   // namespace tavix::KineticMath
