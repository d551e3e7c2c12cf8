// How large layers are on the canvas, measured once for each look.
#pragma once

#include "TavixLive/Operations/EditState.h"
#include "TavixRender/Composition2D/CompositionContentSize.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace tavix {

// Of one thread.
class ContentSizes {
public:
    // Nothing for what has no size of its own.
    std::optional<CompositionContentSize::CanvasSize> of(const CompositionLayer& layer,
        const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot);

private:
    std::map<std::string, CompositionContentSize::CanvasSize> known_;   // by what changes the size
};

}   // namespace tavix
