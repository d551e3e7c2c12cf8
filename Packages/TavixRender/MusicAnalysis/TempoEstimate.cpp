#include "TavixRender/MusicAnalysis/TempoEstimate.h"

#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixRender/MusicAnalysis/Peaks.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace tavix {

namespace {

constexpr double slowestBpm = 60, fastestBpm = 200;

// Listeners tap near 125 beats a minute; an octave away is a good deal less likely (Parncutt 1994).
double prior(double bpm) {
    const double octaves = std::log2(bpm / 125) / 0.6;
    return std::exp(-0.5 * octaves * octaves);
}

struct Candidate {
    double bpm, score;
};

// The autocorrelation of an onset curve. A lag is in frames; framesPerMinute over a lag is a tempo.
class Repetition {
public:
    static std::optional<Repetition> of(std::span<const double> novelty, double frameRateHz) {
        Repetition result;
        result.framesPerMinute_ = frameRateHz * 60;
        result.minLag_ = std::max(static_cast<long>(std::ceil(result.framesPerMinute_ / fastestBpm)), 2l);
        result.maxLag_ = static_cast<long>(result.framesPerMinute_ / slowestBpm);
        result.lastLag_ = std::min(3 * result.maxLag_ + 3, static_cast<long>(novelty.size()) - 2);
        if (result.maxLag_ <= result.minLag_ || result.lastLag_ <= result.maxLag_) return std::nullopt;
        result.correlate(novelty);
        return result;
    }

    // The likeliest single lag, as a tempo; nothing when nothing repeats.
    std::optional<double> strongestBpm() const {
        long best = 0;
        double bestScore = 0;
        for (long lag = minLag_; lag <= maxLag_; ++lag) {
            const double score = at(lag) * prior(framesPerMinute_ / static_cast<double>(lag));
            if (score > bestScore) bestScore = score, best = lag;
        }
        if (best == 0) return std::nullopt;
        return framesPerMinute_ / static_cast<double>(best);
    }

    // How well a tempo explains the curve, by its beat and by every second beat.
    double score(double bpm) const {
        const double lag = framesPerMinute_ / bpm;
        return at(lag) * prior(bpm) + 0.5 * at(2 * lag) * prior(bpm / 2);
    }

    // The tempo to a fraction of a frame. Three beats, or two, hold the lag three times, or twice, as exactly
    // as one.
    double refinedBpm(double bpm) const {
        double lag = refined(localPeak(std::lround(framesPerMinute_ / bpm)));
        const double threshold = 0.3 * at(lag);
        for (const int beats : {3, 2}) {
            const double expected = lag * beats;
            const long near = std::lround(expected);
            if (near < 2 || near >= lastLag_) continue;
            const long peak = localPeak(near);
            if (at(peak) < threshold) continue;
            const double found = refined(peak);
            if (std::abs(found - expected) > 2.5) continue;
            lag = found / beats;
            break;
        }
        return framesPerMinute_ / lag;
    }

    double confidence(double bpm) const {
        const double mean = std::accumulate(values_.begin() + minLag_, values_.begin() + maxLag_ + 1, 0.0) /
                            static_cast<double>(maxLag_ - minLag_ + 1);
        return mean > 0 ? std::clamp(at(framesPerMinute_ / bpm) / mean, 0.0, 1.0) : 0;
    }

private:
    void correlate(std::span<const double> novelty) {
        values_.assign(static_cast<std::size_t>(lastLag_) + 1, 0);
        for (std::size_t lag = 1; lag < values_.size(); ++lag) {
            imaging::checkStop();
            const std::size_t overlap = novelty.size() - lag;
            values_[lag] =
                std::inner_product(novelty.begin(), novelty.begin() + static_cast<std::ptrdiff_t>(overlap),
                    novelty.begin() + static_cast<std::ptrdiff_t>(lag), 0.0) /
                static_cast<double>(overlap);
        }
    }

    double at(long lag) const { return values_[static_cast<std::size_t>(lag)]; }
    double at(double lag) const {
        if (!(lag >= 1 && lag <= static_cast<double>(lastLag_))) return 0;
        const auto below = static_cast<long>(lag);
        return below == lastLag_ ? at(below)
                                 : std::lerp(at(below), at(below + 1), lag - static_cast<double>(below));
    }

    long localPeak(long near) const {
        constexpr long radius = 2;
        const long from = std::max(near - radius, 2l), to = std::min(near + radius, lastLag_ - 1);
        if (from > to) return std::clamp(near, 2l, lastLag_ - 1);
        return std::max_element(values_.begin() + from, values_.begin() + to + 1) - values_.begin();
    }

    double refined(long lag) const {
        const auto middle = static_cast<double>(lag);
        if (lag < 2 || lag >= lastLag_) return middle;
        return middle + parabolicOffset(at(lag - 1), at(lag), at(lag + 1));
    }

    double framesPerMinute_ = 0;
    long minLag_ = 0, maxLag_ = 0, lastLag_ = 0;
    std::vector<double> values_;   // by lag, 0 to lastLag_; the value at 0 stays 0
};

// A tempo and its octaves, best first.
std::vector<Candidate> candidates(const Repetition& repetition, double bpm) {
    std::vector<Candidate> result;
    for (const double candidate : {bpm, bpm / 2, bpm * 2})
        if (candidate >= slowestBpm && candidate <= fastestBpm)
            result.push_back({candidate, repetition.score(candidate)});
    std::ranges::stable_sort(result, std::greater<>(), &Candidate::score);
    return result;
}

// The best of them, or one in the usual range that is nearly as good.
Candidate chosen(const std::vector<Candidate>& sorted) {
    const auto isUsual = [](const Candidate& one) { return one.bpm >= 70 && one.bpm <= 180; };
    const Candidate best = sorted.front();
    if (isUsual(best)) return best;
    const auto usual = std::ranges::find_if(sorted, isUsual);
    return usual != sorted.end() && best.score <= 1.25 * usual->score ? *usual : best;
}

std::optional<double> alternative(const std::vector<Candidate>& sorted, const Candidate& to) {
    const auto other = std::ranges::find_if(sorted, [&](const Candidate& one) { return one.bpm != to.bpm; });
    if (other == sorted.end() || other->score < 0.75 * to.score) return std::nullopt;
    return other->bpm;
}

}   // namespace

std::optional<Tempo> estimateTempo(std::span<const double> novelty, double frameRateHz) {
    const auto repetition = Repetition::of(novelty, frameRateHz);
    if (!repetition) return std::nullopt;
    const auto strongest = repetition->strongestBpm();
    if (!strongest) return std::nullopt;
    const auto sorted = candidates(*repetition, *strongest);
    const Candidate best = chosen(sorted);
    const double bpm = repetition->refinedBpm(best.bpm);
    return Tempo{bpm, alternative(sorted, best), repetition->confidence(bpm)};
}

}   // namespace tavix
