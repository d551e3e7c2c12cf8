// How much new sound begins at each moment of a recording: the spectral flux of compressed magnitudes, less
// its local mean. Bello et al., "A Tutorial on Onset Detection in Music Signals", 2005, section III.
#pragma once

#include <span>
#include <vector>

namespace tavix::OnsetNovelty {

constexpr int hopSamples = 256;
constexpr int frameSamples = 1024;

// The middle of a frame, which may lie between two.
constexpr double secAt(double frame, double sampleRateHz) {
    return (frame * hopSamples + frameSamples / 2.0) / sampleRateHz;
}

// One value a hop, 0 and up; empty for less than one frame. Samples are mono.
std::vector<double> curve(std::span<const float> samples, double sampleRateHz);

// The seconds of the peaks that stand well above the rest.
std::vector<double> onsetsSec(std::span<const double> novelty, double sampleRateHz);

}   // namespace tavix::OnsetNovelty
