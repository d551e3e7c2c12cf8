// Where a timing curve stands at a time, and how fast it moves. Times are seconds since the start of the
// segment; a value of 0 is its start and 1 its end; the velocity is progress per second.
//
// Every result is finite, whatever the arguments.
#pragma once

#include "TavixCore/Animation/TimingCurve.h"

namespace tavix::KineticMath {

struct CurveState {
    double value = 0;
    double velocityPerSec = 0;
    bool operator==(const CurveState&) const = default;
};

// Before the segment starts the value is 0. A segment of no length has ended at any time.
CurveState evaluate(const TimingCurve& curve, double elapsedSec, double durationSec);

// The value leaves 0 to 1 where the control points do.
CurveState evaluateBezier(const BezierCurve& curve, double elapsedSec, double durationSec);

// A damped spring let go at 0 and pulled to 1. A linear correction makes it land exactly at 1 when the
// segment ends; on the way it may pass 1 and swing back.
CurveState evaluateSpring(const SpringCurve& curve, double elapsedSec, double durationSec);

}   // namespace tavix::KineticMath
