// A point in pixels of the output or of a recording; the origin is at the top left and y points down.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct PixelPoint {
    double x = 0, y = 0;
    bool operator==(const PixelPoint&) const = default;
};

const Fields<PixelPoint>& fieldsOf(std::type_identity<PixelPoint>);

}   // namespace tavix
