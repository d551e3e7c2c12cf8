// The keyframes of one property of a layer, in rising time.
#pragma once

#include "TavixCore/Animation/AnimProperty.h"
#include "TavixCore/Animation/CompositionKeyframe.h"
#include "TavixCore/Support/Tables.h"

#include <type_traits>
#include <vector>

namespace tavix {

struct PropertyTrack {
    AnimProperty property = AnimProperty::opacity;
    std::vector<CompositionKeyframe> keyframes;
    bool operator==(const PropertyTrack&) const = default;
};

const Fields<PropertyTrack>& fieldsOf(std::type_identity<PropertyTrack>);

}   // namespace tavix
