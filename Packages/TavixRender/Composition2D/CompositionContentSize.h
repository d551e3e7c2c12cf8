// How large a layer's content is on the canvas: where an editor takes hold of it.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <filesystem>
#include <optional>

namespace tavix::CompositionContentSize {

struct CanvasSize {
    double width = 0, height = 0;   // px
    bool operator==(const CanvasSize&) const = default;
};

// Of a text at rest, an image or a shape; zero for other kinds, and for an image that cannot be read.
CanvasSize of(const CompositionLayer& layer, const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot);

}   // namespace tavix::CompositionContentSize
