#include "TavixReelLive/Project/ReelProject.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReel/Document/ReelFonts.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixReel/Recording/PixelMarkAlignment.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

namespace tavix {

namespace {

namespace fs = std::filesystem;

// What cannot be read counts as missing, and is told.
template <class T> std::optional<T> readable(const fs::path& file, std::vector<std::string>& ignored) try {
    return isFile(file) ? std::optional(decodeFile<T>(file)) : std::nullopt;
} catch (const Failure& failure) {
    ignored.push_back(
        "\"" + file.filename().string() + "\" cannot be read and counts as missing: " + failure.message());
    return std::nullopt;
}

EffectsSpec authored(const ReelProject& project) {
    Timeline still;
    still.video = {project.probe.widthPx, project.probe.heightPx, project.probe.fps};
    return EffectsAuthor::author(
        project.timeline.value_or(still), Background{}, MotionSpec::smoothGlide, ReelFormat::deviceNative);
}

ReelOnDisk documentOf(const ReelProject& project) {
    ReelOnDisk onDisk;
    try {
        onDisk.text = ReelOnDisk::textIn(project.effectsFile);
        if (onDisk.text) return ReelOnDisk::of(*onDisk.text);
    } catch (const Failure& failure) {
        onDisk.damage = failure.message();
    }
    onDisk.spec = authored(project);
    return onDisk;
}

}   // namespace

ReelFootage ReelProject::footage() const {
    return {.video = rawVideo,
        .size = {int(probe.widthPx), int(probe.heightPx)},
        .durationSec = rawDurationSec,
        .trimStartSec = trimStartSec,
        .trimEndSec = trimEndSec};
}

ReelProject ReelProject::load(const fs::path& bundleOrVideo) {
    ReelProject project;
    const ReelProjectBundle::Parts parts = ReelProjectBundle::parts(bundleOrVideo);
    if (ReelProjectBundle::isBundle(bundleOrVideo)) project.bundle = bundleOrVideo;
    project.rawVideo = parts.rawVideo;
    project.timelineFile = parts.timeline;
    project.effectsFile = parts.effects;
    project.probe = SyncFrameDetector::probe(parts.rawVideo);
    project.rawDurationSec = media::mediaDurationSec(parts.rawVideo);
    project.trimStartSec = project.probe.trimStartSec();
    project.trimEndSec = project.probe.trimEndSec(project.rawDurationSec);
    if (const auto sidecar = readable<Timeline>(parts.timeline, project.ignored))
        project.timeline = PixelMarkAlignment::onReelClock(*sidecar, project.probe).timeline;
    project.flow = readable<FlowSpec>(parts.flow, project.ignored);
    project.onDisk = documentOf(project);
    if (project.onDisk.damage)
        project.ignored.push_back("\"" + parts.effects.filename().string() +
                                  "\" cannot be read, so a new document was made: " + *project.onDisk.damage);
    project.fonts = FontCatalog::embeddedFonts(project.onDisk.spec);
    return project;
}

}   // namespace tavix
