// The one check of a composition that opens its films: does a clip end before the layer that plays it?
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/CompositionFinding.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace tavix::CompositionFootageAudit {

// The length in seconds of a film, or of the reel of a folder; nothing when it cannot be read.
using DurationLoader = std::function<std::optional<double>(const std::filesystem::path& path)>;
std::optional<double> loadDuration(const std::filesystem::path& path);

// Of a document in seconds, in its own order. A film that is missing gives no finding, and one that several
// layers play is opened once. A layer that is meant to hold its last frame is passed over.
std::vector<CompositionLint::Finding> findings(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, const DurationLoader& load = loadDuration);

}   // namespace tavix::CompositionFootageAudit
