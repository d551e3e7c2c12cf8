// A step on which the camera zooms to the step's target.
#pragma once

#include <cstdint>

namespace tavix {

struct HeroBeat {
    std::int64_t index = 0;   // of the step
    double tSec = 0;
    double scale = 1;
    bool operator==(const HeroBeat&) const = default;
};

}   // namespace tavix
