// Listens to a piece of music: its tempo, its first beat, its drop, its parts, its onsets.
#pragma once

#include "TavixCore/Document/BeatAnalysis.h"

#include <filesystem>
#include <span>

namespace tavix::MusicAnalyzer {

// Shorter music has no beat.
constexpr double shortestSec = 3;

// A pure function of mono samples. Music that is too short, or in which nothing repeats, has a tempo
// of 0.
BeatAnalysis analyze(std::span<const float> samples, double sampleRateHz);

// Reads the first sound track of a file whole, as mono. Throws a `Failure` when there is none or it cannot be
// decoded.
BeatAnalysis analyze(const std::filesystem::path& file);

// Hears the first sound track of a file, whole and as mono. Throws a `Failure` when there is none or it
// cannot be decoded.
BeatAnalysis analyze(const std::filesystem::path& file);

}   // namespace tavix::MusicAnalyzer
