// A reel on disk: a folder with the recording and its documents, or a loose video with them beside it.
#pragma once

#include "TavixCore/Device/ScreenSource.h"

#include <filesystem>
#include <string_view>

namespace tavix::ReelProjectBundle {

inline constexpr std::string_view pathExtension = "tavixproj";
inline constexpr std::string_view rawVideoName = ReelClip::recordingName;
inline constexpr std::string_view timelineName = "timeline.json";
inline constexpr std::string_view effectsName = "effects.json";
inline constexpr std::string_view flowName = "flow.json";

// Whether the name ends in `pathExtension` and the recording is there.
bool isBundle(const std::filesystem::path& path);

// Where the parts are; none of them need be there. Beside "a/rec.mov" the documents are "a/rec.timeline.json"
// and so on.
struct Parts {
    std::filesystem::path rawVideo, timeline, effects, flow;
};
Parts parts(const std::filesystem::path& bundleOrVideo);

}   // namespace tavix::ReelProjectBundle
