// A transition of a reel: at a moment of the clock the picture begins to give way to another.
#pragma once

#include "TavixCore/Document/TransitionParams.h"
#include "TavixCore/Document/TransitionStyle.h"
#include "TavixCore/Document/TransitionTimingSpec.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <type_traits>

namespace tavix {

struct ScreenTransition {
    static constexpr double usualLengthSec = 0.1;
    static constexpr double leastLengthSec = 0.05;

    double atSec = 0;
    double revealSec = usualLengthSec;   // when the new picture has taken over
    TransitionStyle style = TransitionStyle::flip;
    std::optional<TransitionTimingSpec> timing;   // absent: slow at both ends
    std::optional<TransitionParams> params;
    std::optional<bool> liveIncoming;
    bool operator==(const ScreenTransition&) const = default;
};

const Fields<ScreenTransition>& fieldsOf(std::type_identity<ScreenTransition>);

}   // namespace tavix
