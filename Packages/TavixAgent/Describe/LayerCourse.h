// What a layer does over a time: when it shows, moves and rests.
#pragma once

#include "TavixRender/Judge/FrameGeometry.h"

#include <cstddef>
#include <vector>

namespace tavix {

enum class LayerState {
    absent,   // it draws nothing, or what it draws is outside the frame or too clear to be seen
    moving,   // something of it is elsewhere, larger or clearer in the next frame
    resting
};

// On the clock of the scene, half open.
struct StateSpan {
    LayerState state = LayerState::absent;
    double fromSec = 0, toSec = 0;
};

struct CourseTimes {
    double fromSec = 0, toSec = 0;   // on the clock of the scene
    double stepSec = 1.0 / 30;       // how often it is looked
};

// One after another without a gap. What a film shows on a layer does not count as motion.
std::vector<StateSpan> courseOf(
    const CompositionGeometry& geometry, std::size_t scene, std::size_t layer, const CourseTimes& times);

}   // namespace tavix
