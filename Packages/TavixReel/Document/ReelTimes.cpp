#include "TavixReel/Document/ReelTimes.h"

#include "TavixCore/Support/FieldTables.h"

#include <cmath>

namespace tavix {

bool RetimeSegment::isRamp() const { return std::abs(speedFactor - 1) > 0.000000001; }

const Fields<TimeRangeSec>& fieldsOf(std::type_identity<TimeRangeSec>) {
    using T = TimeRangeSec;
    static const Fields<T> table{"TimeRangeSec",
        {field<&T::startSec>("startSec", "Where it starts, in seconds.").measuredIn(Unit::seconds).required(),
            field<&T::endSec>("endSec", "Where it ends, in seconds.").measuredIn(Unit::seconds).required()}};
    return table;
}

const Names<Cut::Kind>& namesOf(std::type_identity<Cut::Kind>) {
    static const Names<Cut::Kind> table{"cut kind", {{Cut::Kind::trim, "trim"}}};
    return table;
}

const Fields<Cut>& fieldsOf(std::type_identity<Cut>) {
    static const Fields<Cut> table{
        "Cut", {field<&Cut::kind>("kind", "How it cuts.").required(),
                   field<&Cut::dropRange>("dropRange", "What is left out of the recording.").required()}};
    return table;
}

const Names<RetimeFrames>& namesOf(std::type_identity<RetimeFrames>) {
    using enum RetimeFrames;
    static const Names<RetimeFrames> table{"retime frames", {{pick, "pick"}, {blend, "blend"}}, pick};
    return table;
}

const Fields<RetimeSegment>& fieldsOf(std::type_identity<RetimeSegment>) {
    using R = RetimeSegment;
    static const Fields<R> table{
        "RetimeSegment", {field<&R::range>("range", "What is played at another pace.").required(),
                             field<&R::speedFactor>("speedFactor", "The pace; 2 is twice as fast.")
                                 .measuredIn(Unit::times)
                                 .required()}};
    return table;
}

}   // namespace tavix
