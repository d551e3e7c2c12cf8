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

template <class T> std::optional<T> readable(const fs::path& file) try {
    return isFile(file) ? std::optional(decodeFile<T>(file)) : std::nullopt;
} catch (const Failure&) {
    return std::nullopt;
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
    project.effectsFile = parts.effects;
    project.probe = SyncFrameDetector::probe(parts.rawVideo);
    project.rawDurationSec = media::mediaDurationSec(parts.rawVideo);
    project.trimStartSec = project.probe.trimStartSec();
    project.trimEndSec = project.probe.trimEndSec(project.rawDurationSec);
    if (const auto sidecar = readable<Timeline>(parts.timeline))
        project.timeline = PixelMarkAlignment::onReelClock(*sidecar, project.probe).timeline;
    project.flow = readable<FlowSpec>(parts.flow);
    if (auto spec = readable<EffectsSpec>(parts.effects)) {
        project.spec = std::move(*spec);
    } else {
        Timeline still;
        still.video = {project.probe.widthPx, project.probe.heightPx, project.probe.fps};
        project.spec = EffectsAuthor::author(project.timeline.value_or(still), Background{},
            MotionSpec::smoothGlide, ReelFormat::deviceNative);
    }
    project.fonts = FontCatalog::embeddedFonts(project.spec);
    return project;
}

}   // namespace tavix
