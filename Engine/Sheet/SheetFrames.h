// The pictures of a contact sheet, drawn for it.
#pragma once

#include "Engine/Sheet/SheetPlan.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRender/Assets/RenderLog.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace tavix::engine {

// One of that size for each moment, in their order: the film is drawn at twice the size and reduced, on all
// cores. `onFrame` hears how many are done, now and then, and may throw to end the work.
std::vector<imaging::Bitmap> sheetFrames(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, const std::vector<SheetMoment>& moments,
    imaging::Size sizePx, const RenderLog& log, const std::function<void(std::size_t done)>& onFrame);

}   // namespace tavix::engine
