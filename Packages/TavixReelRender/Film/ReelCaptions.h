// The captions of a reel over its frames: plain ones, and those that move.
#pragma once

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixRender/Captions/CaptionOverlay.h"
#include "TavixRender/Composition2D/LayerBuild.h"

#include <optional>

namespace tavix {

// Immutable; any thread may apply it.
class ReelCaptions {
public:
    ReelCaptions(const EffectsSpec& spec, const LayerBuild& build);

    imaging::Image applyPlain(const imaging::Image& frame, double preCutSec) const {
        return plain_ ? plain_->apply(frame, preCutSec) : frame;
    }
    imaging::Image applyMoving(const imaging::Image& frame, double preCutSec) const {
        return moving_ ? moving_->apply(frame, preCutSec) : frame;
    }

private:
    std::optional<CaptionOverlay> plain_;
    std::optional<KineticTextOverlay> moving_;
};

}   // namespace tavix
