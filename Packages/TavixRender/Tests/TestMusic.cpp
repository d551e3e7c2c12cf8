#include "TestMusic.h"

#include "TavixCore/Values/SeededRandom.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tavix::test {

namespace {

// Adds one sound of a drum: a function of the seconds since it was struck.
template <class Drum> void strike(std::vector<float>& samples, double atSec, double loudness, Drum drum) {
    constexpr double ringsSec = 0.25;
    if (loudness <= 0) return;
    const auto from = static_cast<std::size_t>(std::ceil(atSec * musicRateHz));
    const auto to = std::min(samples.size(), from + static_cast<std::size_t>(ringsSec * musicRateHz));
    for (std::size_t i = from; i < to; ++i)
        samples[i] += static_cast<float>(loudness * drum(static_cast<double>(i) / musicRateHz - atSec));
}

// A tone that falls from 190 to 55 Hz under the slap of the beater.
struct Kick {
    SeededRandom& random;
    double operator()(double sec) const {
        const double fallen = 55 * sec + 135 * 0.03 * -std::expm1(-sec / 0.03);
        return 0.8 * std::exp(-sec / 0.09) * std::sin(2 * std::numbers::pi * fallen) +
               random.next(-0.4, 0.4) * std::exp(-sec / 0.004);
    }
};

struct Snare {
    SeededRandom& random;
    double operator()(double sec) const { return random.next(-0.6, 0.6) * std::exp(-sec / 0.06); }
};

// Noise without its lower half.
struct Hat {
    SeededRandom& random;
    double before = 0;
    double operator()(double sec) {
        const double now = random.next(-0.4, 0.4);
        return (now - std::exchange(before, now)) * std::exp(-sec / 0.02);
    }
};

}   // namespace

std::vector<float> noise(double durationSec, double loudness) {
    SeededRandom random(7);
    std::vector<float> samples(static_cast<std::size_t>(durationSec * musicRateHz));
    for (float& sample : samples) sample = static_cast<float>(loudness * random.next(-1, 1));
    return samples;
}

std::vector<float> played(const Track& track) {
    std::vector<float> samples = noise(track.durationSec, track.hiss);
    SeededRandom random(11);
    const double beatSec = 60 / track.bpm;
    for (int beat = 0; track.firstBeatSec + beat * beatSec < track.durationSec; ++beat) {
        const double atSec = track.firstBeatSec + beat * beatSec;
        strike(samples, atSec, track.everyBeat, Kick{random});
        if (beat % 2 == 1) strike(samples, atSec, track.backbeat, Snare{random});
        strike(samples, atSec + (0.5 + track.swing) * beatSec, track.offBeatHat, Hat{random});
    }
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double sec = static_cast<double>(i) / musicRateHz;
        if (sec < track.fadeInSec) samples[i] *= static_cast<float>(sec / track.fadeInSec);
    }
    return samples;
}

}   // namespace tavix::test
