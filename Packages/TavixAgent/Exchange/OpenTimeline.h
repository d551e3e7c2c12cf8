// The cuts of a film for editing programs: OpenTimelineIO, its JSON (schemas Timeline.1, Stack.1, Track.1,
// Clip.1, Gap.1, Transition.1, Marker.2).
#pragma once

#include "TavixBase/Finding.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Json.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavix {

struct OpenTimeline {
    Json json;
    std::vector<Finding> notes;   // what it cannot carry, each once with how often
};

// Of a film whose times are in seconds. One video track holds a clip a scene, cut in the middle of each
// transition and named as the scene; a track more each clip that plays in a layer, one more the music. Texts
// and sound cues are markers. All times are whole frames.
OpenTimeline openTimeline(
    const CompositionSpec& film, const std::string& name, const std::filesystem::path& assetRoot);

}   // namespace tavix
