// When each element of a text comes in and goes out within the window of its block.
#pragma once

#include "TavixCore/Typography/Stagger.h"

#include <vector>

namespace tavix::KineticMath {

// Seconds since the window opened.
struct ElementSchedule {
    double inStart = 0, outStart = 0;
    double inDur = 0, outDur = 0;
    bool operator==(const ElementSchedule&) const = default;
};

struct ScheduleRequest {
    int count = 0;
    double windowSec = 0;
    double inSec = 0, outSec = 0;   // wished; phases that do not fit shrink in proportion
    Stagger stagger;                // its delay shrinks so that the last element still finishes
    double cardDelaySec = 0;        // holds back the entrances, not the exits
};

// One entry per element. Who comes in first goes out first, and the last exit ends with the window.
std::vector<ElementSchedule> schedule(const ScheduleRequest& request);

// How much of the idle motion shows: up over the entrance, 1 while the element rests, down over the exit. A
// phase of no length is a step.
double activityEnvelope(double timeSec, const ElementSchedule& element);

}   // namespace tavix::KineticMath
