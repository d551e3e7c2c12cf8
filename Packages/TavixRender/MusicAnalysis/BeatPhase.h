// Where the beats of a known tempo fall.
#pragma once

#include <span>

namespace tavix::BeatPhase {

// The frame of the first beat, from 0 up to the period: the comb of that period that meets the most novelty.
// 0 when the period is below two frames or not shorter than the curve.
double search(std::span<const double> novelty, double periodFrames);

// Moves a phase to the peak of novelty within 35 ms, when there is one that stands out.
double snapped(double phaseFrames, std::span<const double> novelty, double frameRateHz);

}   // namespace tavix::BeatPhase
