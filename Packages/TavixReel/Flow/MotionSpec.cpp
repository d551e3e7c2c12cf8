#include "TavixReel/Flow/MotionSpec.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const MotionSpec MotionSpec::smoothGlide{};
const MotionSpec MotionSpec::flat = [] {
    MotionSpec spec;
    spec.targetZoom = spec.maxZoom = spec.restZoom = 1;
    spec.deadAirRampSpeed = spec.dampingRatio = 1;
    return spec;
}();

const Fields<MotionSpec>& fieldsOf(std::type_identity<MotionSpec>) {
    using M = MotionSpec;
    static const Fields<M> table{"MotionSpec",
        {field<&M::targetZoom>("targetZoom", "Zoom on a step.").measuredIn(Unit::times),
            field<&M::maxZoom>("maxZoom", "Upper bound of any zoom.").measuredIn(Unit::times),
            field<&M::restZoom>("restZoom", "Zoom between steps.").measuredIn(Unit::times),
            field<&M::safeMarginFraction>(
                "safeMarginFraction", "Margin round a target, of the recording's shorter side.")
                .measuredIn(Unit::shorterSides),
            field<&M::touchRingPadPx>("touchRingPadPx", "Pixels added on every side of a target.")
                .measuredIn(Unit::pixels),
            field<&M::minZoomFactor>("minZoomFactor", "A smaller zoom is not made.").measuredIn(Unit::times),
            field<&M::minScaleDelta>("minScaleDelta", "A smaller change of scale is not made.")
                .measuredIn(Unit::times),
            field<&M::minReframeFraction>(
                "minReframeFraction", "A smaller move is not made, of the recording's height.")
                .measuredIn(Unit::fraction),
            field<&M::minBeatSpacingSec>("minBeatSpacingSec", "Least time between two camera beats.")
                .measuredIn(Unit::seconds),
            field<&M::farPanFraction>(
                "farPanFraction", "A longer pan is a far pan, of the recording's height.")
                .measuredIn(Unit::fraction),
            field<&M::settleHoldSec>("settleHoldSec", "How long the camera stays after a beat.")
                .measuredIn(Unit::seconds),
            field<&M::pushInSec>("pushInSec", "How long before its beat a push begins.")
                .measuredIn(Unit::seconds),
            field<&M::deadAirThresholdSec>("deadAirThresholdSec", "A longer gap between steps is dead air.")
                .measuredIn(Unit::seconds),
            field<&M::deadAirHoldSec>("deadAirHoldSec", "What is kept of dead air at each end.")
                .measuredIn(Unit::seconds),
            field<&M::deadAirRampSpeed>("deadAirRampSpeed", "Speed of dead air; at 1 or less it is cut.")
                .measuredIn(Unit::times),
            field<&M::zoomResponseSec>("zoomResponseSec", "Spring period of the zoom.")
                .measuredIn(Unit::seconds),
            field<&M::panResponseSec>("panResponseSec", "Spring period of the pan.")
                .measuredIn(Unit::seconds),
            field<&M::dampingRatio>("dampingRatio", "Damping of the pan's spring; at 1 it does not swing.")}};
    return table;
}

}   // namespace tavix
