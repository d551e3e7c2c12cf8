// How progress runs over a segment of time. `CurveEvaluation.h` evaluates it.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>
#include <variant>

namespace tavix {

struct LinearCurve {
    bool operator==(const LinearCurve&) const = default;
};

// From (0, 0) to (1, 1), x being time and y progress. x is limited to 0 to 1 where it is evaluated, y is
// free.
struct BezierCurve {
    double x1 = 0.42, y1 = 0;
    double x2 = 0.58, y2 = 1;
    bool operator==(const BezierCurve&) const = default;
};

struct SpringCurve {
    double responseSec = 0.35;   // of one swing without damping
    double damping = 0.8;        // 1 does not swing; evaluated within 0.2 to 1
    bool operator==(const SpringCurve&) const = default;
};

using TimingCurve = std::variant<LinearCurve, BezierCurve, SpringCurve>;

const Fields<LinearCurve>& fieldsOf(std::type_identity<LinearCurve>);
const Fields<BezierCurve>& fieldsOf(std::type_identity<BezierCurve>);
const Fields<SpringCurve>& fieldsOf(std::type_identity<SpringCurve>);
const Alternatives<TimingCurve>& alternativesOf(std::type_identity<TimingCurve>);

}   // namespace tavix
