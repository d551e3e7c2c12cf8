// One value of an animated property at one time.
#pragma once

#include "TavixCore/Animation/MarkRef.h"
#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <type_traits>

namespace tavix {

struct CompositionKeyframe {
    double t = 0;   // seconds since the layer's start
    double value = 0;
    TimingCurve ease = LinearCurve{};   // of the segment that arrives here
    std::optional<MarkRef> atMark;      // symbolic times: resolved into `t`, then cleared
    std::optional<double> atBeat;
    bool operator==(const CompositionKeyframe&) const = default;
};

const Fields<CompositionKeyframe>& fieldsOf(std::type_identity<CompositionKeyframe>);

}   // namespace tavix
