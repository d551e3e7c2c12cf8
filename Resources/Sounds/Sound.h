// A piece of sound in memory: what the synthesisers fill and the WAV writer stores.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavix::sounds {

constexpr double sampleRateHz = 48000;

// Two channels of equal length; full scale is -1 to 1.
struct Sound {
    std::vector<float> left, right;

    explicit Sound(double durationSec)
        : left(static_cast<std::size_t>(std::lround(durationSec * sampleRateHz))), right(left.size()) {}

    std::size_t count() const { return left.size(); }
    void add(std::size_t at, double toLeft, double toRight) {
        left[at] += static_cast<float>(toLeft);
        right[at] += static_cast<float>(toRight);
    }
    void scale(double gain);
    // The largest magnitude of a sample.
    double peak() const;
    // Sets both ends to silence through half a cosine of these lengths.
    void fadeEnds(double inSec, double outSec);
};

// A WAV file of 24-bit PCM.
std::vector<std::uint8_t> wavBytes(const Sound& sound);

}   // namespace tavix::sounds
