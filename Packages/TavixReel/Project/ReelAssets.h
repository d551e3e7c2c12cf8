// The files that a reel's document refers to.
#pragma once

#include "TavixCore/Project/AssetReferences.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <filesystem>

namespace tavix::ReelAssets {

// Visits every reference to a file; one may be empty.
void forEach(EffectsSpec& spec, const AssetVisit& visit);

// The document with every relative path, which counts from the document's folder, made a path from there.
// What starts at the home folder ("~/") stays as it is.
EffectsSpec rooted(EffectsSpec spec, const std::filesystem::path& folder);

// The document for a frame of that size: all that it says in output pixels grows with it.
EffectsSpec scaled(EffectsSpec spec, std::int64_t widthPx, std::int64_t heightPx);

}   // namespace tavix::ReelAssets
