// Drum tracks whose beat is known, for tests of what listens to music.
#pragma once

#include <vector>

namespace tavix::test {

constexpr double musicRateHz = 22050;

struct Track {
    double bpm = 120, firstBeatSec = 0.2, durationSec = 20;
    double swing = 0;        // how far every second eighth is late, as a fraction of a beat
    double offBeatHat = 0;   // loudness of hats between the beats
    double everyBeat = 1;    // loudness of the kick
    double backbeat = 0;     // loudness of a snare on every second beat
    double fadeInSec = 0;
    double hiss = 0;   // loudness of noise over all
};

// Mono samples at `musicRateHz`.
std::vector<float> played(const Track& track);

// White noise of that loudness, -1 to 1.
std::vector<float> noise(double durationSec, double loudness);

}   // namespace tavix::test
