// Loudness for drawing: a pyramid of peaks, each level with half as many as the one before, so that a column
// of pixels reads a few of them at any zoom. 24 kB a minute.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tavix {

class Waveform {
public:
    struct Peak {
        std::int8_t low = 0, high = 0;   // -127 to 127 of full scale
        bool operator==(const Peak&) const = default;
    };
    static constexpr double peaksPerSec = 200;

    Waveform() = default;
    // Of mono samples, -1 to 1.
    Waveform(std::span<const float> samples, double sampleRateHz);

    bool isEmpty() const { return levels_.empty(); }
    double durationSec() const { return levels_.empty() ? 0 : double(levels_[0].size()) / peaksPerSec; }
    // The lowest and the highest of a span of time; silence outside. Reads at most three peaks, so the span
    // may be wider by a part of itself.
    Peak between(double fromSec, double toSec) const;

private:
    std::vector<std::vector<Peak>> levels_;
};

}   // namespace tavix
