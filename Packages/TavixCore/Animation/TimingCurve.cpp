#include "TavixCore/Animation/TimingCurve.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<LinearCurve>& fieldsOf(std::type_identity<LinearCurve>) {
    static const Fields<LinearCurve> table{"LinearCurve", {}};
    return table;
}

const Fields<BezierCurve>& fieldsOf(std::type_identity<BezierCurve>) {
    static const Fields<BezierCurve> table{
        "BezierCurve", {field<&BezierCurve::x1>("x1", "Time of the first control point, 0 to 1."),
                           field<&BezierCurve::y1>(
                               "y1", "Progress of the first control point; beyond 0 to 1 it overshoots."),
                           field<&BezierCurve::x2>("x2", "Time of the second control point, 0 to 1."),
                           field<&BezierCurve::y2>(
                               "y2", "Progress of the second control point; beyond 0 to 1 it overshoots.")}};
    return table;
}

const Fields<SpringCurve>& fieldsOf(std::type_identity<SpringCurve>) {
    static const Fields<SpringCurve> table{"SpringCurve",
        {field<&SpringCurve::responseSec>("response", "Seconds of one swing; less is stiffer."),
            field<&SpringCurve::damping>("damping", "From 0.2, springy, to 1, without a swing.")}};
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
