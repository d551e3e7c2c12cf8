// The effects of a layer, applied to its content before it moves, so they work in canvas coordinates.
#pragma once

#include "TavixCore/Document/LayerEffect.h"
#include "TavixPlatform/Imaging/Image.h"

#include <cstdint>
#include <vector>

namespace tavix {

// Made once for a canvas and applied every frame; immutable, so any thread may apply it. No effect ends at
// the edge of what it is applied to: light, blur and squares go on outward, and past the canvas's edge it is
// as if the layer did.
class CompositionLayerEffects {
public:
    // What a vignette darkens to its corners: a picture by itself, or the canvas, for layers whose own extent
    // nobody sees.
    enum class Vignetted { layer, canvas };

    CompositionLayerEffects() = default;
    CompositionLayerEffects(const std::vector<LayerEffect>& effects, const imaging::Rect& bounds,
        Vignetted vignetted = Vignetted::layer);

    // In their order, each on the result of the one before.
    imaging::Image apply(const imaging::Image& image) const;

    // A grain of grey, the same for the same seed, repeated over the plane.
    static imaging::Image noiseTile(std::int64_t seed, double alpha);

private:
    struct Step {
        LayerEffect effect;
        imaging::Image grain;   // of a noise effect
    };

    std::vector<Step> steps_;
    imaging::Rect bounds_;
    Vignetted vignetted_ = Vignetted::layer;
};

}   // namespace tavix
