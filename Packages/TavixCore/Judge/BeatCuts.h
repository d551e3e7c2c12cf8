// How far the cuts of a film lie from the beats of its music.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <cstddef>
#include <optional>

namespace tavix::CompositionLint {

struct BeatCut {
    double startSec = 0, nearestSec = 0;   // of the scene, and the beat next to that, on the film's clock
    double rightLengthSec = 0;             // of the scene before, so that the cut lies on that beat

    double offSec() const;
};

// Of the cut into a scene, which is not the first. Nothing without a beat.
std::optional<BeatCut> beatCut(
    const CompositionSpec& spec, const CompositionTimeline& timeline, std::size_t scene);

}   // namespace tavix::CompositionLint
