// Decides which steps of a recording the camera goes to, and what dead air between them is shortened.
#pragma once

#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Camera/HeroBeat.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Flow/MotionSpec.h"

#include <span>
#include <vector>

namespace tavix::EffectsAuthor {

struct DeadAirEdits {
    std::vector<Cut> cuts;
    std::vector<RetimeSegment> retimes;
    bool operator==(const DeadAirEdits&) const = default;
};

struct Plan {
    std::vector<CameraKeyframe> keyframes;   // the first at 0, at rest
    DeadAirEdits deadAir;
    std::vector<HeroBeat> heroBeats;
};

// Times are the sidecar's; the document's are the same for a reel that starts where its recording does.
Plan plan(const Timeline& timeline, const MotionSpec& motion);
std::vector<HeroBeat> heroBeats(const Timeline& timeline, const MotionSpec& motion);

// The middle of every long gap between neighbouring steps, but not after a swipe: what it brought is looked
// at. The events rise in time.
DeadAirEdits deadAirEdits(std::span<const Timeline::Event> events, const MotionSpec& motion);

// How the camera moves.
MotionSpring springOf(const MotionSpec& motion);

// A document with the plan and nothing else.
EffectsSpec author(
    const Timeline& timeline, const Background& background, const MotionSpec& motion, ReelFormat format);

}   // namespace tavix::EffectsAuthor
