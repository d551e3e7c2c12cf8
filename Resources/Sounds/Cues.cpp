#include "Sounds/Cues.h"

#include "Sounds/Filters.h"
#include "Sounds/Loudness.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix::sounds {

namespace {

constexpr double tau = 2 * std::numbers::pi;

double secAt(std::size_t sample) { return static_cast<double>(sample) / sampleRateHz; }

// From one frequency to another, even to the ear.
double glideHz(double fromHz, double toHz, double fraction) {
    return fromHz * std::pow(toHz / fromHz, std::clamp(fraction, 0.0, 1.0));
}

// The gain of a channel for a place from -1, left, to 1, right, at constant power.
double leftGain(double place) { return std::cos((place + 1) * std::numbers::pi / 4); }
double rightGain(double place) { return std::sin((place + 1) * std::numbers::pi / 4); }

Sound finished(Sound sound, double inSec, double outSec) {
    sound.fadeEnds(inSec, outSec);
    matchLoudness(sound, cueLoudnessLufs);
    return sound;
}

// Two winds, one a channel, and one that both share and that moves across. Each is noise through a resonance
// that climbs towards the passing and sinks behind it, over a body of low air.
class Wind {
public:
    explicit Wind(std::uint32_t seed) : noise_(seed) {}
    double next(double centreHz) {
        const double air = rumbleCut_.next(noise_.next(), 110, 0.7).high;
        return resonance_.next(air, centreHz, 1.2).band + 0.6 * body_.next(air, centreHz * 0.4, 0.7).low +
               0.12 * sheen_.next(air, std::min(centreHz * 3.5, 14000.0), 0.7).high;
    }

private:
    Noise noise_;
    SweptFilter rumbleCut_, resonance_, body_, sheen_;
};

Sound whoosh() {
    constexpr double durationSec = 0.95, passingSec = 0.34;
    Sound sound(durationSec);
    Wind shared(0x6d2b79f5), toLeft(0x1b56c4e9), toRight(0x9e3779b9);
    for (std::size_t i = 0; i < sound.count(); ++i) {
        const double t = secAt(i);
        const bool coming = t < passingSec;
        const double fraction = coming ? t / passingSec : (t - passingSec) / (durationSec - passingSec);
        const double swell = coming ? std::pow(std::sin(fraction * std::numbers::pi / 2), 2.4)
                                    : std::pow(std::cos(fraction * std::numbers::pi / 2), 2.0);
        const double centreHz =
            coming ? glideHz(260, 1900, fraction * fraction) : glideHz(1900, 380, fraction);
        const double place = std::tanh((t - passingSec) * 5) * 0.75;
        const double middle = shared.next(centreHz);
        sound.add(i, swell * (leftGain(place) * middle + 0.35 * toLeft.next(centreHz)),
            swell * (rightGain(place) * middle + 0.35 * toRight.next(centreHz)));
    }
    return finished(std::move(sound), 0.02, 0.08);
}

Sound whip() {
    constexpr double durationSec = 0.5, crackSec = 0.13;
    Sound sound(durationSec);
    Noise swish(0x2545f491), snap(0x8f1bbcdc), roomLeft(0x5a827999), roomRight(0xca62c1d6);
    SweptFilter swishBand, snapBand, airLeft, airRight;
    double phase = 0;
    for (std::size_t i = 0; i < sound.count(); ++i) {
        const double t = secAt(i), after = t - crackSec;
        const double rise = std::clamp(t / crackSec, 0.0, 1.0);
        const double swishGain = after < 0 ? std::pow(rise, 2.6) : std::exp(-after / 0.022);
        const double swishing =
            0.9 * swishGain * swishBand.next(swish.next(), glideHz(700, 5200, rise), 1.6).band;
        const double noise = snapBand.next(snap.next(), 1500, 0.7).high;
        double crack = 0, room = 0;
        if (after >= 0) {
            // A short crack of noise over a tone that falls, as a membrane's does.
            phase += tau * glideHz(1500, 190, after / 0.05) / sampleRateHz;
            crack = 0.9 * std::exp(-after / 0.006) * noise + 0.8 * std::exp(-after / 0.024) * std::sin(phase);
            room = 0.10 * std::exp(-after / 0.085) * -std::expm1(-after / 0.004);
        }
        const double place = 0.5 * (rise - 1);   // it comes from the left and cracks in the middle
        const double direct = std::tanh(1.4 * (swishing + crack)) / 1.4;
        sound.add(i, leftGain(place) * direct + room * airLeft.next(roomLeft.next(), 2600, 0.6).low,
            rightGain(place) * direct + room * airRight.next(roomRight.next(), 2600, 0.6).low);
    }
    return finished(std::move(sound), 0.01, 0.06);
}

// The modes of a small bell: ratios to the strike note, from hum to the highest, after the tuned bells of
// Fletcher and Rossing, "The Physics of Musical Instruments", chapter 21; high modes die first. Each is split
// a little between the ears, so that it floats.
struct Mode {
    double ratio, gain, decaySec;   // to 1/e
};
constexpr Mode bellModes[] = {{0.5, 0.16, 0.42}, {1, 1, 0.46}, {2, 0.46, 0.30}, {2.99, 0.20, 0.17},
    {4.12, 0.13, 0.11}, {5.43, 0.08, 0.07}, {6.79, 0.05, 0.045}};

Sound ding() {
    constexpr double durationSec = 1.9, strikeHz = 1174.66;   // D6
    Sound sound(durationSec);
    Noise mallet(0x7f4a7c15);
    SweptFilter felt;
    for (std::size_t i = 0; i < sound.count(); ++i) {
        const double t = secAt(i);
        const double attack = -std::expm1(-t / 0.0012);
        double toLeft = 0, toRight = 0;
        for (const Mode& mode : bellModes) {
            const double level = mode.gain * attack * std::exp(-t / mode.decaySec);
            const double angle = tau * strikeHz * mode.ratio * t;
            const double spread = tau * 0.45 * mode.ratio * t;
            toLeft += level * std::sin(angle - spread);
            toRight += level * std::sin(angle + spread);
        }
        const double knock = 0.25 * std::exp(-t / 0.004) * felt.next(mallet.next(), 3200, 0.8).band;
        sound.add(i, toLeft + knock, toRight + knock);
    }
    return finished(std::move(sound), 0.001, 0.4);
}

constexpr Cue entries[] = {{"whoosh", whoosh}, {"whip", whip}, {"ding", ding}};

}   // namespace

std::span<const Cue> cues() { return entries; }

}   // namespace tavix::sounds
