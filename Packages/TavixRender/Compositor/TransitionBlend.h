// Mixes two finished pictures into one. The progress comes eased; a spring may carry it past 0 and 1, and
// every style follows its formula there too.
#pragma once

#include "TavixCore/Document/SceneTransition.h"
#include "TavixPlatform/Imaging/Image.h"

#include <optional>

namespace tavix::TransitionBlend {

struct Pictures {
    imaging::Image outgoing, incoming;
    imaging::Rect rect;   // what both fill, and the extent of the result
};

imaging::Image blend(const Pictures& pictures, double eased, TransitionStyle style,
    const std::optional<TransitionParams>& params);

}   // namespace tavix::TransitionBlend
