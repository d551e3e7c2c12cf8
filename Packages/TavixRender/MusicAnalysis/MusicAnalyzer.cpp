#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixRender/MusicAnalysis/BeatPhase.h"
#include "TavixRender/MusicAnalysis/LoudnessEnvelope.h"
#include "TavixRender/MusicAnalysis/OnsetNovelty.h"
#include "TavixRender/MusicAnalysis/TempoEstimate.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace tavix::MusicAnalyzer {

namespace {

// The beat next to a time.
double onBeat(double sec, const BeatAnalysis& beats, double periodSec) {
    const auto last = static_cast<double>(beats.beatCount - 1);
    const double beat = std::clamp(std::round((sec - beats.firstBeatSec) / periodSec), 0.0, last);
    return beats.firstBeatSec + periodSec * beat;
}

constexpr int fileRateHz = 22050;

std::string withoutStop(std::string sentence) {
    if (sentence.ends_with('.')) sentence.pop_back();
    return sentence;
}

std::vector<float> samplesOf(media::AudioReader& reader) {
    constexpr std::size_t blockSamples = 1 << 16;
    std::vector<float> samples;
    for (;;) {
        const std::size_t before = samples.size();
        samples.resize(before + blockSamples);
        const std::size_t got = reader.read(std::span(samples).subspan(before));
        samples.resize(before + got);
        if (got < blockSamples) return samples;
    }
}

}   // namespace

BeatAnalysis analyze(const std::filesystem::path& file) {
    const std::string name = file.filename().string();
    std::optional<media::AudioReader> reader;
    try {
        if (!media::probeAudio(file)) throw Failure("No audio track in " + name + ".");
        reader.emplace(file, media::AudioFormat{.sampleRate = fileRateHz, .channels = 1});
    } catch (const media::MediaError& error) {
        throw Failure("Could not decode " + name + ": " + withoutStop(error.what()) + ".");
    }
    try {
        return analyze(samplesOf(*reader), fileRateHz);
    } catch (const media::MediaError& error) {
        throw Failure("Audio decode failed for " + name + ": " + withoutStop(error.what()) + ".");
    }
}

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

    LoudnessEnvelope envelope = loudnessEnvelope(samples, sampleRateHz);
    if (envelope.dropSec)
        result.dropSec =
            result.beatCount > 0 ? onBeat(*envelope.dropSec, result, periodSec) : *envelope.dropSec;
    result.sections = std::move(envelope.sections);
    result.onsetsSec = OnsetNovelty::onsetsSec(novelty, sampleRateHz);
    return result;
}

}   // namespace tavix::MusicAnalyzer
