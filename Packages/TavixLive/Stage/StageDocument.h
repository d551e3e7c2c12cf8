// A document made over for the size in which a preview shows it.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <filesystem>
#include <optional>

namespace tavix {

class StillImageCache;

// The canvas as large as it fits into the room, and never larger than it is itself; each side at least 2.
imaging::Size stageSize(imaging::Size canvas, imaging::Size room);

// The document as it is rendered in that size. What is measured in pixels follows; a picture that is shown in
// pixels of its own gets the height that it has on the canvas. Grain stays as coarse in pixels as it is.
CompositionSpec stageDocument(const CompositionSpec& spec, imaging::Size size,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images);

}   // namespace tavix
