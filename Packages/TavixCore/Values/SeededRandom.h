// A deterministic random generator: SplitMix64 (Steele, Lea, Flood 2014) with an FNV-1a seed for text. The
// sequence is part of the document format: a stored seed gives the same values on every run and machine.
#pragma once

#include <cstdint>
#include <string_view>

namespace tavix {

constexpr std::uint64_t splitMix64Gamma = 0x9e3779b97f4a7c15;   // 2^64 over the golden ratio, made odd

// The output function of SplitMix64: mixes a counter into 64 well-spread bits. A bijection.
constexpr std::uint64_t splitMix64Mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

// The upper 53 bits as a number from 0 up to, not including, 1.
constexpr double unitFromBits(std::uint64_t bits) { return static_cast<double>(bits >> 11) * 0x1p-53; }

class SeededRandom {
public:
    explicit constexpr SeededRandom(std::uint64_t seed) : state(seed == 0 ? splitMix64Gamma : seed) {}
    explicit constexpr SeededRandom(std::string_view text) : SeededRandom(fnv1a(text)) {}

    static constexpr std::uint64_t fnv1a(std::string_view text) {
        std::uint64_t hash = 0xcbf29ce484222325;
        for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
        return hash;
    }

    constexpr std::uint64_t next() {
        state += splitMix64Gamma;
        return splitMix64Mix(state);
    }
    constexpr double nextUnit() { return unitFromBits(next()); }
    constexpr double next(double from, double to) { return (to - from) * nextUnit() + from; }
    constexpr bool nextBool() { return (next() & 1) != 0; }

    std::uint64_t state;
    bool operator==(const SeededRandom&) const = default;
};

}   // namespace tavix
