#include "TavixCore/Animation/TimingCurve.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<LinearCurve>& fieldsOf(std::type_identity<LinearCurve>) {
    static const Fields<LinearCurve> table{"LinearCurve", {}};
    return table;
}

const Fields<BezierCurve>& fieldsOf(std::type_identity<BezierCurve>) {
    static const Fields<BezierCurve> table{"BezierCurve",
        {field<&BezierCurve::x1>("x1", "Time of the first control point.").measuredIn(Unit::fraction),
            field<&BezierCurve::y1>("y1", "Progress at the first control point; beyond 0 to 1 it overshoots.")
                .measuredIn(Unit::fraction),
            field<&BezierCurve::x2>("x2", "Time of the second control point.").measuredIn(Unit::fraction),
            field<&BezierCurve::y2>(
                "y2", "Progress at the second control point; beyond 0 to 1 it overshoots.")
                .measuredIn(Unit::fraction)}};
    return table;
}

const Fields<SpringCurve>& fieldsOf(std::type_identity<SpringCurve>) {
    static const Fields<SpringCurve> table{
        "SpringCurve", {field<&SpringCurve::responseSec>(
                            "response", "How long one swing would take without damping; less is stiffer.")
                               .measuredIn(Unit::seconds),
                           field<&SpringCurve::damping>("damping",
                               "How springy: from 0.2, which swings long, to 1, which does not swing.")
                               .measuredIn(Unit::fraction)}};
    return table;
}

const Alternatives<TimingCurve>& alternativesOf(std::type_identity<TimingCurve>) {
    static const Alternatives<TimingCurve> table{.name = "TimingCurve",
        .noun = "curve kind",
        .rows = {flat<TimingCurve, LinearCurve>("linear"), flat<TimingCurve, BezierCurve>("bezier"),
            flat<TimingCurve, SpringCurve>("spring")},
        .fallbackTag = "linear"};
    return table;
}

}   // namespace tavix
