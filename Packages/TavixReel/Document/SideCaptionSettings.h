// Whether and how the device of a landscape reel steps aside for its captions.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct SideCaptionSettings {
    bool enabled = true;
    double gapSec = 4;   // captions further apart belong to another stay of the device
    bool firstParkLeft = true;
    bool operator==(const SideCaptionSettings&) const = default;
};

const Fields<SideCaptionSettings>& fieldsOf(std::type_identity<SideCaptionSettings>);

}   // namespace tavix
