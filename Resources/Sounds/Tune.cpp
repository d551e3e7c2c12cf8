#include "Sounds/Tune.h"

#include "Sounds/Filters.h"
#include "Sounds/Loudness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace tavix::sounds {

namespace {

constexpr double tau = 2 * std::numbers::pi;
constexpr double beatSec = 60 / tuneBpm;
constexpr int beatsInBar = 4;
constexpr double durationSec = tuneFirstBeatSec + (tuneLastBeat + 6) * beatSec;

double secOfBeat(double beat) { return tuneFirstBeatSec + beat * beatSec; }
// MIDI numbers: 69 is the A of 440 Hz.
double pitchHz(double key) { return 440 * std::exp2((key - 69) / 12); }

struct Chord {
    double bass;
    std::array<double, 4> keys;
};
// A minor, F, C, G, each with a note that leads to the next; the last one is the home chord again.
constexpr Chord chords[] = {
    {33, {57, 60, 64, 71}}, {29, {57, 60, 65, 67}}, {36, {55, 60, 64, 71}}, {31, {55, 59, 62, 69}}};
const Chord& chordAtBeat(double beat) { return chords[static_cast<std::size_t>(beat / beatsInBar) % 4]; }

// A sawtooth whose step is rounded over two samples, so that it does not alias: Välimäki, 2007 (PolyBLEP).
class Saw {
public:
    explicit Saw(double phase = 0) : phase_(phase) {}
    double next(double hz) {
        const double step = hz / sampleRateHz;
        phase_ += step;
        phase_ -= std::floor(phase_);
        return 2 * phase_ - 1 - rounding(phase_, step);
    }

private:
    static double rounding(double phase, double step) {
        if (phase < step) {
            const double x = phase / step;
            return 2 * x - x * x - 1;
        }
        if (phase > 1 - step) {
            const double x = (phase - 1) / step;
            return x * x + 2 * x + 1;
        }
        return 0;
    }
    double phase_;
};

// Calls a voice with the seconds since it began, for every sample until it ends.
template <class Voice> void play(Sound& sound, double fromSec, double lengthSec, Voice voice) {
    const auto from = static_cast<std::size_t>(std::lround(fromSec * sampleRateHz));
    const auto to = std::min(sound.count(), from + static_cast<std::size_t>(lengthSec * sampleRateHz));
    for (std::size_t i = from; i < to; ++i) {
        const auto [left, right] = voice(static_cast<double>(i - from) / sampleRateHz);
        sound.add(i, left, right);
    }
}

struct Ears {
    double left, right;
};
Ears centred(double value) { return {value, value}; }

void kick(Sound& drums, double atSec) {
    Noise slap(0x51ed270b);
    play(drums, atSec, 0.4, [&](double t) {
        const double turns = 47 * t + 150 * 0.028 * -std::expm1(-t / 0.028);
        return centred(
            0.95 * std::exp(-t / 0.13) * std::sin(tau * turns) + 0.25 * std::exp(-t / 0.003) * slap.next());
    });
}

void clap(Sound& drums, double atSec) {
    Noise left(0x3c6ef372), right(0xa54ff53a);
    SweptFilter leftBand, rightBand;
    play(drums, atSec, 0.3, [&](double t) {
        // Three hands, then the room.
        const double hands = std::exp(-std::fmod(t, 0.011) / 0.004) * (t < 0.033 ? 1 : 0);
        const double level = 0.5 * (hands + (t < 0.033 ? 0 : std::exp(-(t - 0.033) / 0.075)));
        return Ears{level * leftBand.next(left.next(), 1500, 1.1).band,
            level * rightBand.next(right.next(), 1650, 1.1).band};
    });
}

void hat(Sound& drums, double atSec, double level, double decaySec, double place) {
    Noise noise(0x1f83d9ab);
    SweptFilter high;
    play(drums, atSec, 6 * decaySec, [&](double t) {
        const double value = level * std::exp(-t / decaySec) * high.next(noise.next(), 8200, 0.8).high;
        return Ears{value * (1 - place), value * (1 + place)};
    });
}

void crash(Sound& drums, double atSec) {
    Noise left(0x5be0cd19), right(0x9b05688c);
    SweptFilter leftHigh, rightHigh;
    play(drums, atSec, 2.4, [&](double t) {
        const double level = 0.2 * std::exp(-t / 0.55);
        return Ears{level * leftHigh.next(left.next(), 5200, 0.6).high,
            level * rightHigh.next(right.next(), 5600, 0.6).high};
    });
}

void bassNote(Sound& bass, double atSec, double lengthSec, double key) {
    Saw saw;
    SweptFilter low;
    double sub = 0;
    play(bass, atSec, lengthSec, [&](double t) {
        const double gate = std::min({1.0, t / 0.004, (lengthSec - t) / 0.02}) * std::exp(-t / lengthSec);
        sub += tau * pitchHz(key) / sampleRateHz;
        const double cutoffHz = 180 + 900 * std::exp(-t / 0.09);
        return centred(
            gate * (0.34 * low.next(saw.next(pitchHz(key)), cutoffHz, 1.3).low + 0.30 * std::sin(sub)));
    });
}

// A chord of detuned saws under one filter an ear, which opens towards its end when asked.
void padChord(Sound& pad, double atSec, double lengthSec, const Chord& chord, double fromHz, double toHz) {
    struct String {
        double hz;
        Saw flat, sharp;
    };
    std::vector<String> strings;
    for (const double key : chord.keys) strings.push_back({pitchHz(key), Saw(key * 0.137), Saw(key * 0.391)});
    SweptFilter leftLow, rightLow;
    play(pad, atSec, lengthSec, [&](double t) {
        const double gate = std::min({1.0, t / 0.06, (lengthSec - t) / 0.06});
        double left = 0, right = 0;
        for (String& string : strings) {
            const double flat = string.flat.next(string.hz * 0.9965),
                         sharp = string.sharp.next(string.hz * 1.0035);
            left += 0.8 * flat + 0.4 * sharp;
            right += 0.4 * flat + 0.8 * sharp;
        }
        const double cutoffHz = fromHz * std::pow(toHz / fromHz, t / lengthSec);
        return Ears{0.055 * gate * leftLow.next(left, cutoffHz, 0.9).low,
            0.055 * gate * rightLow.next(right, cutoffHz, 0.9).low};
    });
}

void pluck(Sound& plucks, double atSec, double key, double level) {
    Saw saw(0.25);
    SweptFilter low;
    play(plucks, atSec, 0.5, [&](double t) {
        const double gate = std::min(1.0, t / 0.002) * std::exp(-t / 0.14);
        return centred(
            level * gate * low.next(saw.next(pitchHz(key)), 500 + 3800 * std::exp(-t / 0.05), 1.5).low);
    });
}

// Echoes that go from ear to ear, three eighths apart.
void addEchoes(Sound& sound) {
    const auto apart = static_cast<std::size_t>(std::lround(0.75 * beatSec * sampleRateHz));
    for (std::size_t i = apart; i < sound.count(); ++i)
        sound.add(i, 0.42 * sound.right[i - apart], 0.30 * sound.left[i - apart]);
}

void riser(Sound& sound, double fromSec, double toSec) {
    Noise left(0x428a2f98), right(0x71374491);
    SweptFilter leftBand, rightBand;
    const double lengthSec = toSec - fromSec;
    play(sound, fromSec, lengthSec, [&](double t) {
        const double fraction = t / lengthSec, cutoffHz = 400 * std::pow(20, fraction);
        const double level = 0.16 * fraction * fraction * std::min(1.0, (lengthSec - t) / 0.02);
        return Ears{level * leftBand.next(left.next(), cutoffHz, 1.4).band,
            level * rightBand.next(right.next(), cutoffHz, 1.4).band};
    });
}

// Lowers a sound at every kick and lets it come back, as a compressor keyed by the kick would.
void duck(Sound& sound) {
    for (std::size_t i = 0; i < sound.count(); ++i) {
        const double beat = (static_cast<double>(i) / sampleRateHz - tuneFirstBeatSec) / beatSec;
        if (beat < tuneDropBeat || beat >= tuneLastBeat + 1) continue;
        const double since = beat - std::floor(beat);
        const double gain = 0.35 + 0.65 * std::min(1.0, since / 0.6);
        sound.left[i] = static_cast<float>(sound.left[i] * gain);
        sound.right[i] = static_cast<float>(sound.right[i] * gain);
    }
}

void playDrums(Sound& drums) {
    for (int beat = tuneDropBeat; beat < tuneLastBeat; ++beat) {
        kick(drums, secOfBeat(beat));
        if (beat % 2 == 1) clap(drums, secOfBeat(beat));
        hat(drums, secOfBeat(beat + 0.5), 0.22, 0.05, 0.2);
        for (const double part : {0.25, 0.75}) hat(drums, secOfBeat(beat + part), 0.09, 0.018, -0.3);
    }
    for (const int beat : {tuneDropBeat, tuneLastBeat}) crash(drums, secOfBeat(beat));
    kick(drums, secOfBeat(tuneLastBeat));
}

void playBass(Sound& bass) {
    for (int beat = tuneDropBeat; beat < tuneLastBeat; ++beat)
        for (const double part : {0.5, 0.75})
            bassNote(
                bass, secOfBeat(beat + part), 0.24 * beatSec, chordAtBeat(beat).bass + (part > 0.6 ? 12 : 0));
    bassNote(bass, secOfBeat(tuneLastBeat), 3 * beatSec, chords[0].bass);
}

void playPad(Sound& pad) {
    for (int beat = 0; beat < tuneLastBeat; beat += beatsInBar) {
        const bool isIntro = beat < tuneDropBeat;
        const double fromHz = isIntro ? 380 * (1 + beat / 4.0) : 1500;
        padChord(pad, secOfBeat(beat), beatsInBar * beatSec, chordAtBeat(beat), fromHz,
            isIntro ? fromHz * 2 : 2000);
    }
    padChord(pad, secOfBeat(tuneLastBeat), 5 * beatSec, chords[0], 2400, 220);
}

// Sixteenths over the notes of the chord; the order changes from bar to bar.
void playPlucks(Sound& plucks) {
    constexpr int order[] = {0, 2, 1, 3, 2, 1, 3, 0};
    for (int step = 0; step < tuneLastBeat * 4; ++step) {
        const double beat = step / 4.0;
        if (beat < tuneDropBeat && step % 2 == 1) continue;   // eighths before the drop
        const auto& keys = chordAtBeat(beat).keys;
        const double key =
            keys[static_cast<std::size_t>(order[static_cast<std::size_t>(step + step / 16) % 8])];
        pluck(plucks, secOfBeat(beat), key + 12,
            beat < tuneDropBeat ? 0.05 + 0.004 * beat : (step % 4 == 0 ? 0.13 : 0.09));
    }
    for (const double key : chords[0].keys) pluck(plucks, secOfBeat(tuneLastBeat), key + 12, 0.1);
}

void mixInto(Sound& sound, const Sound& part, double gain) {
    for (std::size_t i = 0; i < sound.count(); ++i) sound.add(i, gain * part.left[i], gain * part.right[i]);
}

}   // namespace

Sound tune() {
    Sound drums(durationSec), bass(durationSec), pad(durationSec), plucks(durationSec), mix(durationSec);
    playDrums(drums);
    playBass(bass);
    playPad(pad);
    playPlucks(plucks);
    addEchoes(plucks);
    duck(bass);
    duck(pad);
    duck(plucks);
    riser(mix, secOfBeat(tuneDropBeat - 4), secOfBeat(tuneDropBeat));
    mixInto(mix, drums, 0.8);
    mixInto(mix, bass, 0.9);
    mixInto(mix, pad, 1);
    mixInto(mix, plucks, 1);
    matchLoudness(mix, -13);
    for (auto* channel : {&mix.left, &mix.right})
        for (float& sample : *channel) sample = static_cast<float>(0.9 * std::tanh(sample / 0.9));
    mix.fadeEnds(0.005, 1.5);
    return mix;
}

}   // namespace tavix::sounds
