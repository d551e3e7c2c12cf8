// The effects of a layer, applied to its content before it moves, so they work in canvas coordinates.
#pragma once

#include "TavixCore/Document/LayerEffect.h"
#include "TavixPlatform/Imaging/Image.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tavix {

// Made once for a canvas and applied every frame; immutable, so any thread may apply it.
class CompositionLayerEffects {
public:
    CompositionLayerEffects() = default;
    CompositionLayerEffects(const std::vector<LayerEffect>& effects, const imaging::Rect& bounds);

    // In their order, each on the result of the one before.
    imaging::Image apply(const imaging::Image& image) const;

    // Holds a parameter inside the legal range of its kind; one without a range stays as it is.
    static double clamp(double value, std::string_view kind, std::string_view param);
    // A grain of grey, the same for the same seed, repeated over the canvas.
    static imaging::Image noiseTile(std::int64_t seed, double alpha, const imaging::Rect& bounds);

private:
    struct Step {
        LayerEffect effect;
        imaging::Image grain;   // of a noise effect
    };
    imaging::Image applied(const Step& step, const imaging::Image& image) const;

    std::vector<Step> steps_;
    imaging::Rect bounds_;
};

}   // namespace tavix
