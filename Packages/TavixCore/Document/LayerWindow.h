// When a layer shows.
#pragma once

#include "TavixCore/Document/CompositionScene.h"

#include <algorithm>

namespace tavix {

// Seconds of the scene's clock; both ends belong to it.
struct LayerWindow {
    double startSec = 0, endSec = 0;

    bool contains(double sec) const { return startSec <= sec && sec <= endSec; }
    double lengthSec() const { return endSec - startSec; }
    bool operator==(const LayerWindow&) const = default;
};

// As it is written: from its own start, for its own length or to the scene's end.
inline LayerWindow writtenWindow(const CompositionLayer& layer, const CompositionScene& scene) {
    return {layer.fromSec, layer.durationSec ? layer.fromSec + *layer.durationSec : scene.durationSec};
}

// As it is shown: one that would start before its scene starts with it, and keeps its length.
inline LayerWindow shownWindow(const CompositionLayer& layer, const CompositionScene& scene) {
    const double start = std::max(layer.fromSec, 0.0);
    return {start, layer.durationSec ? start + *layer.durationSec : scene.durationSec};
}

}   // namespace tavix
