// A point in fractions of a size, usually of the output frame.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct NormalizedPoint {
    double x = 0, y = 0;
    bool operator==(const NormalizedPoint&) const = default;
};

const Fields<NormalizedPoint>& fieldsOf(std::type_identity<NormalizedPoint>);

}   // namespace tavix
