#include "TavixRender/Audio/Loudness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace tavix {
namespace {

// A second-order filter in the transposed direct form II.
class Biquad {
public:
    Biquad(double b0, double b1, double b2, double a1, double a2)
        : b0_(b0), b1_(b1), b2_(b2), a1_(a1), a2_(a2) {}

    double operator()(double in) {
        const double out = b0_ * in + z1_;
        z1_ = b1_ * in - a1_ * out + z2_;
        z2_ = b2_ * in - a2_ * out;
        return out;
    }

private:
    double b0_, b1_, b2_, a1_, a2_, z1_ = 0, z2_ = 0;
};

// The two filters of K-weighting for any sample rate, with the frequencies, gains and qualities that give the
// coefficients which BS.1770 lists for 48 kHz (Brecht De Man, "Evaluation of Implementations of the EBU R128
// Loudness Measurement", 2018).
Biquad shelfOf(double rateHz) {
    constexpr double centreHz = 1681.974450955533, gainDb = 3.999843853973347, quality = 0.7071752369554196;
    const double k = std::tan(std::numbers::pi * centreHz / rateHz);
    const double high = std::pow(10, gainDb / 20), band = std::pow(high, 0.4996667741545416);
    const double a0 = 1 + k / quality + k * k;
    return {(high + band * k / quality + k * k) / a0, 2 * (k * k - high) / a0,
        (high - band * k / quality + k * k) / a0, 2 * (k * k - 1) / a0, (1 - k / quality + k * k) / a0};
}

Biquad highPassOf(double rateHz) {
    constexpr double cornerHz = 38.13547087602444, quality = 0.5003270373238773;
    const double k = std::tan(std::numbers::pi * cornerHz / rateHz);
    const double a0 = 1 + k / quality + k * k;
    return {1, -2, 1, 2 * (k * k - 1) / a0, (1 - k / quality + k * k) / a0};
}

constexpr int overSampling = 4, tapsOfPhase = 12;

// A windowed sinc, a phase for each of the points between two samples.
std::array<std::array<double, tapsOfPhase>, overSampling> interpolator() {
    std::array<std::array<double, tapsOfPhase>, overSampling> phases{};
    for (int p = 0; p < overSampling; ++p)
        for (int t = 0; t < tapsOfPhase; ++t) {
            const double x = t - (tapsOfPhase / 2.0 - 1) - double(p) / overSampling;
            const double sinc =
                std::abs(x) < 1e-12 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
            const double window = std::cos(std::numbers::pi * x / tapsOfPhase);
            phases[std::size_t(p)][std::size_t(t)] = sinc * window * window;
        }
    for (auto& phase : phases) {
        double sum = 0;
        for (const double tap : phase) sum += tap;
        for (double& tap : phase) tap /= sum;
    }
    return phases;
}

struct Channel {
    explicit Channel(double rateHz) : shelf(shelfOf(rateHz)), highPass(highPassOf(rateHz)) {}

    Biquad shelf, highPass;
    std::array<double, tapsOfPhase> last{};   // the newest at `newest`
    std::size_t newest = 0;
};

double lufsOf(double power) { return -0.691 + 10 * std::log10(power); }

}   // namespace

struct LoudnessMeter::State {
    State(double rateHz, int count)
        : channels(std::size_t(count), Channel(rateHz)),
          stepFrames(std::max<std::int64_t>(std::llround(rateHz / 10), 1)) {}

    void takeFrame(const float* frame) {
        static const auto phases = interpolator();
        for (std::size_t c = 0; c < channels.size(); ++c) {
            Channel& channel = channels[c];
            const double sample = std::isfinite(frame[c]) ? double(frame[c]) : 0;
            if (std::abs(sample) >= 1) ++clipped;
            const double weighted = channel.highPass(channel.shelf(sample));
            stepPower += weighted * weighted;
            channel.newest = (channel.newest + 1) % tapsOfPhase;
            channel.last[channel.newest] = sample;
            for (const auto& phase : phases) {
                double sum = 0;
                for (std::size_t t = 0; t < tapsOfPhase; ++t)
                    sum += phase[t] * channel.last[(channel.newest + tapsOfPhase - t) % tapsOfPhase];
                peak = std::max(peak, std::abs(sum));
            }
            peak = std::max(peak, std::abs(sample));
        }
        if (++framesOfStep < stepFrames) return;
        steps.push_back(float(stepPower / double(stepFrames)));
        stepPower = 0;
        framesOfStep = 0;
    }

    std::vector<Channel> channels;
    std::int64_t stepFrames, framesOfStep = 0, clipped = 0;
    double stepPower = 0, peak = 0;
    std::vector<float> steps;   // the power of each 100 ms
};

LoudnessMeter::LoudnessMeter(double sampleRateHz, int channels)
    : state_(std::make_unique<State>(sampleRateHz, channels)) {}
LoudnessMeter::~LoudnessMeter() = default;

void LoudnessMeter::take(std::span<const float> interleaved) {
    const std::size_t channels = state_->channels.size();
    for (std::size_t at = 0; at + channels <= interleaved.size(); at += channels)
        state_->takeFrame(interleaved.data() + at);
}

// Blocks of 400 ms, every 100 ms; gated at -70 LUFS, and then 10 LU below the mean of what passed.
LoudnessMeasure LoudnessMeter::measure() const {
    constexpr std::size_t stepsOfBlock = 4;
    constexpr double absoluteGateLufs = -70, relativeGateLu = -10;
    LoudnessMeasure result{{}, 20 * std::log10(state_->peak), state_->clipped};
    std::vector<double> blocks;
    for (std::size_t i = 0; i + stepsOfBlock <= state_->steps.size(); ++i) {
        double power = 0;
        for (std::size_t n = 0; n < stepsOfBlock; ++n) power += double(state_->steps[i + n]) / stepsOfBlock;
        if (power > 0 && lufsOf(power) > absoluteGateLufs) blocks.push_back(power);
    }
    const auto meanAbove = [&](double gateLufs) {
        double sum = 0;
        std::size_t count = 0;
        for (const double power : blocks)
            if (lufsOf(power) > gateLufs) sum += power, ++count;
        return count > 0 ? sum / double(count) : 0;
    };
    if (blocks.empty()) return result;
    result.integratedLufs = lufsOf(meanAbove(lufsOf(meanAbove(absoluteGateLufs)) + relativeGateLu));
    return result;
}

}   // namespace tavix
