// How loud a recording is over time: where it jumps, and its parts of even loudness.
#pragma once

#include "TavixCore/Document/BeatAnalysis.h"

#include <optional>
#include <span>
#include <vector>

namespace tavix {

struct LoudnessEnvelope {
    std::optional<double> dropSec;   // where two seconds are more than 6 dB louder than the two before
    std::vector<BeatAnalysis::Section> sections;
};

// Samples are mono. Less than half a second has no sections, and less than about four and a half has one.
LoudnessEnvelope loudnessEnvelope(std::span<const float> samples, double sampleRateHz);

}   // namespace tavix
