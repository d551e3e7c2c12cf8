// The tempo of a piece of music, from how its onsets repeat.
#pragma once

#include <optional>
#include <span>

namespace tavix {

struct Tempo {
    double bpm = 0;                         // 60 to 200, before its last refinement
    std::optional<double> alternativeBpm;   // half or twice the tempo, when that is nearly as likely
    double confidence = 0;                  // 0 to 1
};

// The autocorrelation of the onset curve, weighed by how usual a tempo is, then refined to fractions of a
// frame by longer multiples of the beat. The curve has `frameRateHz` values a second. Nothing for a curve
// that is too short or never repeats.
std::optional<Tempo> estimateTempo(std::span<const double> novelty, double frameRateHz);

}   // namespace tavix
