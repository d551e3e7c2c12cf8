// How the author of a flow tunes the camera that follows its steps. Zooms are factors of the whole frame;
// fractions without another word are of the frame's height.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct MotionSpec {
    double targetZoom = 1.22;            // wanted on a step
    double maxZoom = 1.4;                // of any zoom
    double restZoom = 1;                 // between steps
    double safeMarginFraction = 0.045;   // kept round a target; of the shorter side
    double touchRingPadPx = 52;          // added on every side of a target
    double minZoomFactor = 1.12;         // a smaller zoom is not worth making
    double minScaleDelta = 0.06;         // a smaller change of scale is none
    double minReframeFraction = 0.12;    // a smaller move is none
    double minBeatSpacingSec = 1.4;      // between two beats of the camera
    double farPanFraction = 0.22;        // a longer pan is a far one
    double settleHoldSec = 0.4;          // after a beat, before the camera leaves
    double pushInSec = 0.55;             // lead of a push before its beat
    double deadAirThresholdSec = 2.6;    // a longer gap between steps is dead air
    double deadAirHoldSec = 0.6;         // of the gap, kept at each end
    double deadAirRampSpeed = 5;         // of the gap's middle; at 1 or less it is cut out
    double zoomResponseSec = 0.55;       // spring period
    double panResponseSec = 0.85;        // spring period
    double dampingRatio = 0.72;          // of the pan's spring

    static const MotionSpec smoothGlide;   // the values above
    static const MotionSpec flat;          // a camera that never zooms
    bool operator==(const MotionSpec&) const = default;
};

const Fields<MotionSpec>& fieldsOf(std::type_identity<MotionSpec>);

}   // namespace tavix
