// A rectangle in fractions of a size, usually of the output frame.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct NormalizedRect {
    double x = 0, y = 0, width = 0, height = 0;
    bool operator==(const NormalizedRect&) const = default;
};

const Fields<NormalizedRect>& fieldsOf(std::type_identity<NormalizedRect>);

}   // namespace tavix
