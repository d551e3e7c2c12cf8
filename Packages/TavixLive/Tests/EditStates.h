// Small documents for the named edits.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <string>

namespace tavix::testing {

// A scene of four seconds with that many layers, named by their places.
inline EditState stateWithLayers(int layers) {
    EditState state;
    CompositionScene scene;
    scene.durationSec = 4;
    for (int i = 0; i < layers; ++i) {
        scene.layers.emplace_back();
        scene.layers.back().id = std::to_string(i);
    }
    state.spec.scenes = {scene};
    return state;
}

inline CompositionLayer& first(EditState& state) { return state.spec.scenes[0].layers[0]; }

inline CompositionKeyframe keyframe(double t, double value) {
    CompositionKeyframe made;
    made.t = t;
    made.value = value;
    return made;
}

}   // namespace tavix::testing
