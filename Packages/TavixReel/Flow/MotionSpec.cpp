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
        {field<&M::targetZoom>("targetZoom", "Zoom on a step."),
            field<&M::maxZoom>("maxZoom", "Upper bound of any zoom."),
            field<&M::restZoom>("restZoom", "Zoom between steps."),
            field<&M::safeMarginFraction>(
                "safeMarginFraction", "Margin round a target, of the shorter side."),
            field<&M::touchRingPadPx>("touchRingPadPx", "Pixels added on every side of a target."),
            field<&M::minZoomFactor>("minZoomFactor", "A smaller zoom is not made."),
            field<&M::minScaleDelta>("minScaleDelta", "A smaller change of scale is not made."),
            field<&M::minReframeFraction>("minReframeFraction", "A smaller move is not made."),
            field<&M::minBeatSpacingSec>("minBeatSpacingSec", "Least time between two camera beats."),
            field<&M::farPanFraction>("farPanFraction", "A longer pan is a far pan."),
            field<&M::settleHoldSec>("settleHoldSec", "How long the camera stays after a beat."),
            field<&M::pushInSec>("pushInSec", "How long before its beat a push begins."),
            field<&M::deadAirThresholdSec>("deadAirThresholdSec", "A longer gap between steps is dead air."),
            field<&M::deadAirHoldSec>("deadAirHoldSec", "What is kept of dead air at each end."),
            field<&M::deadAirRampSpeed>("deadAirRampSpeed", "Speed of dead air; at 1 or less it is cut."),
            field<&M::zoomResponseSec>("zoomResponseSec", "Spring period of the zoom."),
            field<&M::panResponseSec>("panResponseSec", "Spring period of the pan."),
            field<&M::dampingRatio>("dampingRatio", "Damping of the pan's spring.")}};
    return table;
}

}   // namespace tavix
