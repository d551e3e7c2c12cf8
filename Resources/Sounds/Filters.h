// What shapes a sound: noise that is the same on every run, and filters whose cut-off may move at every
// sample.
#pragma once

#include "Sounds/Sound.h"

#include <cmath>
#include <cstdint>
#include <numbers>

namespace tavix::sounds {

// White noise, -1 to 1 (xorshift, Marsaglia 2003).
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed) {}
    double next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<double>(state_) / 2147483648.0 - 1;
    }

private:
    std::uint32_t state_;
};

// A state variable filter by the trapezoidal rule, which stays stable while it is swept: Zavalishin, "The Art
// of VA Filter Design", 2012, chapter 3, in Simper's form of 2013.
class SweptFilter {
public:
    struct Bands {
        double low, band, high;   // band has a gain of 1 at the cut-off
    };
    // The resonance is the quality factor: 0.707 is flat, larger rings.
    Bands next(double input, double cutoffHz, double resonance) {
        const double g = std::tan(std::numbers::pi * cutoffHz / sampleRateHz), k = 1 / resonance;
        const double a1 = 1 / (1 + g * (g + k));
        const double v3 = input - second_;
        const double v1 = a1 * (first_ + g * v3);
        const double v2 = second_ + g * v1;
        first_ = 2 * v1 - first_;
        second_ = 2 * v2 - second_;
        return {v2, k * v1, input - k * v1 - v2};
    }

private:
    double first_ = 0, second_ = 0;
};

}   // namespace tavix::sounds
