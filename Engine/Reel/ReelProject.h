// New bundles of reels.
#pragma once

#include "TavixReel/Document/EffectsSpec.h"

#include <filesystem>
#include <optional>

namespace tavix::engine {

// What goes into a bundle; only the video must be there.
struct ReelProjectParts {
    std::filesystem::path video;
    std::optional<std::filesystem::path> sidecar, flow;
};

// All make the bundle, whose name ends in .tavixproj and which is not there yet, whole or not at all. They
// throw `UsageError` for another name, and `Failure`.
void writeProject(const std::filesystem::path& bundle, const ReelProjectParts& parts);
// A reel of cards alone, over a recording of nothing. Returns its document.
std::filesystem::path writeCardProject(const std::filesystem::path& bundle, const EffectsSpec& spec);

}   // namespace tavix::engine
