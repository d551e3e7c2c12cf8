#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include "TavixRender/MusicAnalysis/BeatPhase.h"
#include "TavixRender/MusicAnalysis/LoudnessCourse.h"
#include "TavixRender/MusicAnalysis/OnsetNovelty.h"
#include "TavixRender/MusicAnalysis/TempoEstimate.h"

#include <algorithm>
#include <cmath>

namespace tavix::MusicAnalyzer {

namespace {

constexpr double shortestSec = 3;

// The beat next to a time.
double onBeat(double sec, const BeatAnalysis& beats, double periodSec) {
    const auto last = static_cast<double>(beats.beatCount - 1);
    const double beat = std::clamp(std::round((sec - beats.firstBeatSec) / periodSec), 0.0, last);
    return beats.firstBeatSec + periodSec * beat;
}

}   // namespace

BeatAnalysis analyze(std::span<const float> samples, double sampleRateHz) {
    BeatAnalysis result;
    result.durationSec = static_cast<double>(samples.size()) / sampleRateHz;
    if (result.durationSec < shortestSec) return result;
    const std::vector<double> novelty = OnsetNovelty::curve(samples, sampleRateHz);
    if (novelty.empty() || !(*std::ranges::max_element(novelty) > 1e-9)) return result;
    const double frameRateHz = sampleRateHz / OnsetNovelty::hopSamples;
    const auto tempo = estimateTempo(novelty, frameRateHz);
    if (!tempo) return result;

    result.bpm = tempo->bpm;
    result.alternativeBpm = tempo->alternativeBpm;
    result.confidence = tempo->confidence;
    const double periodSec = 60 / tempo->bpm;
    const double phase = BeatPhase::search(novelty, frameRateHz * periodSec);
    result.firstBeatSec = OnsetNovelty::secAt(BeatPhase::snapped(phase, novelty, frameRateHz), sampleRateHz);
    const double beats = std::floor((result.durationSec - result.firstBeatSec) / periodSec) + 1;
    result.beatCount = std::max<std::int64_t>(static_cast<std::int64_t>(beats), 0);

    LoudnessCourse course = loudnessCourse(samples, sampleRateHz);
    if (course.dropSec)
        result.dropSec = result.beatCount > 0 ? onBeat(*course.dropSec, result, periodSec) : *course.dropSec;
    result.sections = std::move(course.sections);
    result.onsetsSec = OnsetNovelty::onsetsSec(novelty, sampleRateHz);
    return result;
}

}   // namespace tavix::MusicAnalyzer
