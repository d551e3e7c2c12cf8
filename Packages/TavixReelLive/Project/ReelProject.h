// A reel as an editor opens it: the recording with what is known of it, and its document.
#pragma once

#include "TavixCore/Theme/FontCatalog.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Recording/VideoProbe.h"
#include "TavixRender/Composition2D/RecordingPictures.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tavix {

struct ReelProject {
    std::optional<std::filesystem::path> bundle;   // absent: a video with its documents beside it
    std::filesystem::path rawVideo, effectsFile;   // the document may not be there yet
    VideoProbe probe;
    double rawDurationSec = 0;
    std::optional<Timeline> timeline;   // on the clock of the document
    std::optional<FlowSpec> flow;
    EffectsSpec spec;
    std::vector<FontOption> fonts;
    double trimStartSec = 0, trimEndSec = 0;   // on the recording's clock: between the flashes

    ReelFootage footage() const;
    std::filesystem::path assetRoot() const { return effectsFile.parent_path(); }

    // Of a bundle or a video. A document that is damaged counts as missing; without one a first one is
    // authored from the sidecar, and without that the camera stands still. Nothing is written. Decodes the
    // whole recording. Throws a `Failure` when that cannot be read.
    static ReelProject load(const std::filesystem::path& bundleOrVideo);
};

}   // namespace tavix
