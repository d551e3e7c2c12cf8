#include "Engine/Reel/ReelDocument.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Documents/DocumentFile.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReel/Project/ReelAssets.h"

#include <algorithm>
#include <system_error>
#include <vector>

namespace tavix::engine {

namespace fs = std::filesystem;

ReelFootage ReelDocument::footage() const {
    return {recording.parts.rawVideo, {int(recording.probe.widthPx), int(recording.probe.heightPx)},
        recording.rawDurationSec, recording.probe.trimStartSec(),
        recording.probe.trimEndSec(recording.rawDurationSec)};
}

double ReelDocument::durationSec() const {
    return ReelTimeline::outputDurationSec(reelSegments(spec, footage()));
}

ReelDocument openReel(const std::string& recording, const std::optional<std::string>& effects,
    Terminal& terminal, ProbeMemory memory) {
    ReelDocument reel;
    reel.file = effects ? fs::path(*effects) : ReelProjectBundle::parts(recording).effects;
    reel.assetRoot = fs::absolute(reel.file).lexically_normal().parent_path();
    reel.name = lastComponent(recording).stem().string();
    std::error_code ignored;
    const bool hasDocument = effects || fs::is_regular_file(reel.file, ignored);
    if (hasDocument) reel.spec = readEffects(reel.file, terminal);   // what is wrong with it is told at once
    reel.recording = openRecording(recording, terminal, memory);
    if (hasDocument) return reel;
    terminal.warn("no-effects", "There is no \"" + reel.file.string() +
                                    "\" yet; this is what reel author would make of the steps alone.");
    reel.spec =
        EffectsAuthor::author(reel.recording.timeline, {}, MotionSpec::smoothGlide, ReelFormat::deviceNative);
    return reel;
}

void requireRenderable(const ReelDocument& reel) {
    const EffectsOutput& output = reel.spec.output;
    requireRenderable(FilmClaim{reel.file.string(), output.widthPx, output.heightPx, output.fps,
        reel.durationSec(), "retimeTrack", "slow down less of the recording"});
}

void requireNoPart(const fs::path& target, const ReelDocument& reel) {
    const auto& parts = reel.recording.parts;
    std::vector<fs::path> files{parts.rawVideo, parts.timeline, parts.effects, parts.flow, reel.file};
    EffectsSpec spec = ReelAssets::rooted(reel.spec, reel.assetRoot);
    ReelAssets::forEach(spec, [&](AssetKind, std::string& path) { files.emplace_back(path); });
    std::erase_if(files, [](const fs::path& file) { return file.empty(); });   // a teaser has no recording
    for (fs::path& file : files) file = fs::absolute(file).lexically_normal();
    requireNoneOf(target, files);
}

}   // namespace tavix::engine
