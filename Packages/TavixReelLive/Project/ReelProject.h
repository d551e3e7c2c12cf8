// A reel as an editor opens it: the recording with what is known of it, and its document.
#pragma once

#include "TavixCore/Theme/FontCatalog.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Recording/VideoProbe.h"
#include "TavixReelLive/Project/ReelOnDisk.h"
#include "TavixRender/Composition2D/RecordingPictures.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct ReelProject {
    std::optional<std::filesystem::path> bundle;   // absent: a video with its documents beside it
    std::filesystem::path rawVideo, timelineFile, effectsFile;   // documents may not be there yet
    VideoProbe probe;
    double rawDurationSec = 0;
    std::optional<Timeline> timeline;   // on the clock of the document
    std::optional<FlowSpec> flow;
    ReelOnDisk onDisk;                  // its document, or the first one that was authored
    std::vector<std::string> ignored;   // sentences on documents that are there and cannot be read
    std::vector<FontOption> fonts;
    double trimStartSec = 0, trimEndSec = 0;   // on the recording's clock: between the flashes

    const std::filesystem::path& place() const { return bundle ? *bundle : rawVideo; }
    ReelFootage footage() const;
    std::filesystem::path assetRoot() const { return effectsFile.parent_path(); }

    // Of a bundle or a video. A document that is damaged counts as missing, which is told; without one a
    // first one is authored from the sidecar, and without that the camera stands still. Nothing is written.
    // Decodes the whole recording. Throws a `Failure` when that cannot be read.
    static ReelProject load(const std::filesystem::path& bundleOrVideo);
};

}   // namespace tavix
