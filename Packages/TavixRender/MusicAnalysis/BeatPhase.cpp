#include "TavixRender/MusicAnalysis/BeatPhase.h"

#include "TavixRender/MusicAnalysis/Peaks.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tavix::BeatPhase {

namespace {

// The novelty under the teeth of a comb; half counts beside them.
double combScore(std::span<const double> novelty, double phaseFrames, double periodFrames) {
    const auto count = novelty.size();
    double score = 0;
    for (int tooth = 0;; ++tooth) {
        const double place = phaseFrames + periodFrames * tooth;
        if (!(place < static_cast<double>(count))) return score;
        const auto i = std::min(static_cast<std::size_t>(std::lround(place)), count - 1);
        score += novelty[i];
        if (i > 0) score += 0.5 * novelty[i - 1];
        if (i + 1 < count) score += 0.5 * novelty[i + 1];
    }
}

}   // namespace

double search(std::span<const double> novelty, double periodFrames) {
    if (!(periodFrames >= 2 && periodFrames < static_cast<double>(novelty.size()))) return 0;
    double best = 0, bestScore = -1;
    for (double phase = 0; phase < periodFrames; phase += 0.25) {
        const double score = combScore(novelty, phase, periodFrames);
        if (score > bestScore) bestScore = score, best = phase;
    }
    return best;
}

double snapped(double phaseFrames, std::span<const double> novelty, double frameRateHz) {
    const long reach = std::max(std::lround(frameRateHz * 0.035), 1l), near = std::lround(phaseFrames);
    const long last = static_cast<long>(novelty.size()) - 1;
    const long from = std::max(near - reach, 0l), to = std::min(near + reach, last);
    if (from > to) return phaseFrames;
    const auto begin = novelty.begin();
    const long peak = std::max_element(begin + from, begin + to + 1) - begin;
    const double mean = std::accumulate(begin, novelty.end(), 0.0) / static_cast<double>(novelty.size());
    if (!(begin[peak] > mean)) return phaseFrames;
    const auto whole = static_cast<double>(peak);
    if (peak == 0 || peak == last) return whole;
    return whole + parabolicOffset(begin[peak - 1], begin[peak], begin[peak + 1]);
}

}   // namespace tavix::BeatPhase
