#include "TavixBase/NearestWord.h"
#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Judge/BeatCuts.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/LintRules.h"
#include "TavixCore/Support/Names.h"

#include <algorithm>

namespace tavix::CompositionLint {
namespace {

constexpr std::int64_t leastFps = 24, mostFps = 120;
constexpr double slowestFps = 24000.0 / 1001;   // which television calls 24
constexpr std::int64_t leastSidePx = 320, mostSidePx = 4096;
constexpr double longTotalSec = 90;
// Nobody hears that a cut is this far off the beat. The last digits are the rounding of sums of times.
constexpr double onBeatSec = 0.08 + 1e-9;

void judgeCue(const SoundCue& cue, const KeyPath& at, double totalSec, LintReport& report) {
    if (cue.atSec > totalSec)
        report.tell(Rule::cueLate, at,
            worded("Cue at {}s is past the composition end ({}s).", {cue.atSec, totalSec}));
    if (cue.resolvedSound() || cue.sound.find('.') != std::string::npos) return;
    const std::vector<std::string_view> sounds = allNames<SFXCatalog::Sound>();
    report.tell(Rule::soundUnknown, at,
        worded("Sound \"{}\" is neither a catalog name ({}) nor an audio-file path — it will be skipped.",
            {cue.sound, listed(sounds)}),
        didYouMean(cue.sound, sounds));
}

}   // namespace

void checkOutput(const CompositionSpec& spec, LintReport& report) {
    const KeyPath root, outputAt(root, "output");
    const auto isOutOfRange = [&](Rule rule, std::string_view key, const std::string& value,
                                  std::int64_t least, std::int64_t most) {
        report.tell(rule, KeyPath(outputAt, key),
            worded("{} {} out of range ({}…{}).", {key, value, std::to_string(least), std::to_string(most)}));
    };
    const auto sideIsWithin = [&](std::string_view key, std::int64_t sidePx) {
        if (sidePx < leastSidePx || sidePx > mostSidePx)
            isOutOfRange(Rule::outputSize, key, std::to_string(sidePx), leastSidePx, mostSidePx);
    };
    if (const auto fps = double(spec.output.fps); fps < slowestFps || fps > mostFps)
        isOutOfRange(Rule::outputFps, "fps", spec.output.fps.shown(), leastFps, mostFps);
    sideIsWithin("widthPx", spec.output.widthPx);
    sideIsWithin("heightPx", spec.output.heightPx);
}

void checkAccents(const CompositionSpec& spec, LintReport& report) {
    const auto accents = std::count_if(spec.scenes.begin(), spec.scenes.end() - 1,
        [](const CompositionScene& scene) { return scene.transition && isAccent(scene.transition->style); });
    const KeyPath root;
    if (accents >= 2)
        report.tell(Rule::accentTransitions, KeyPath(root, "scenes"),
            worded("{} accent transitions (dreamyZoom/crosswarp/ripple) — one accent per composition.",
                {static_cast<double>(accents)}));
}

void checkTotalLength(const CompositionTimeline& timeline, LintReport& report) {
    const KeyPath root;
    if (timeline.totalSec > longTotalSec)
        report.tell(Rule::filmLong, KeyPath(root, "scenes"),
            worded("Total runs {}s — teasers read best under 60–90s.", {timeline.totalSec}));
}

void checkCutsOnBeat(const CompositionSpec& spec, const CompositionTimeline& timeline, LintReport& report) {
    const KeyPath root, scenesAt(root, "scenes");
    for (std::size_t i = 1; i < spec.scenes.size(); ++i) {
        const auto cut = beatCut(spec, timeline, i);
        if (!cut || !(cut->offSec() > onBeatSec)) continue;
        report.tell(Rule::cutOffBeat, KeyPath(scenesAt, i),
            worded("{} starts at {}s — {}s off the beat grid (nearest beat {}s at {} BPM).",
                {spec.scenes[i].displayName(i), cut->startSec, cut->offSec(), cut->nearestSec,
                    *spec.audio->music->bpm}),
            worded("Set scenes[{}].durationSec to {} (or use durationBeats) to land the cut on the beat.",
                {std::to_string(i - 1), cut->rightLengthSec}));
    }
}

void checkAudio(const CompositionSpec& spec, const CompositionTimeline& timeline, LintReport& report) {
    if (!spec.audio) return;
    const KeyPath root, audioAt(root, "audio"), cuesAt(audioAt, "cues"), musicAt(audioAt, "music");
    for (std::size_t i = 0; i < spec.audio->cues.size(); ++i)
        judgeCue(spec.audio->cues[i], KeyPath(cuesAt, i), timeline.totalSec, report);
    if (spec.audio->music && spec.audio->music->path.empty())
        report.tell(Rule::musicPath, KeyPath(musicAt, "path"), "Music bed has an empty path.");
}

}   // namespace tavix::CompositionLint
