// Times by marks of a recording, turned into seconds. A mark is a labelled event of the sidecar next to the
// clip that a device layer plays.
#pragma once

#include "TavixCore/Time/CompositionResolution.h"
#include "TavixCore/Timeline/Timeline.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace tavix::CompositionMarks {

// Gives the timeline in a sidecar file, or nothing.
using TimelineLoader = std::function<std::optional<Timeline>(const std::filesystem::path& sidecar)>;

// Reads the file. One that is not there, or is no timeline, gives nothing.
std::optional<Timeline> loadTimeline(const std::filesystem::path& sidecar);

// "a/rec.timeline.json" of the clip "a/rec.mov".
std::filesystem::path sidecarFile(const std::filesystem::path& clip);

bool containsMarkRefs(const CompositionSpec& spec);

// With every time by a mark replaced by seconds. A reference that cannot be resolved stays in place, with a
// finding. `assetRoot`: the folder that relative clip paths hang from. Times in beats are resolved before.
CompositionResolution resolve(
    CompositionSpec spec, const std::filesystem::path& assetRoot, const TimelineLoader& load = loadTimeline);

}   // namespace tavix::CompositionMarks
