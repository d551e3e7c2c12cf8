// A rectangle in pixels, top-left origin. In JSON it is the list [x, y, width, height].
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/LogicalRect.h"
#include "TavixCore/Values/PixelPoint.h"

#include <type_traits>

namespace tavix {

struct PixelRect {
    double x = 0, y = 0, width = 0, height = 0;

    // `scale`: pixels of the display per point.
    static PixelRect of(const LogicalRect& logical, double scale) {
        return {logical.x * scale, logical.y * scale, logical.width * scale, logical.height * scale};
    }

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    PixelPoint center() const { return {x + width * 0.5, y + height * 0.5}; }
    bool operator==(const PixelRect&) const = default;
};

const Fields<PixelRect>& fieldsOf(std::type_identity<PixelRect>);

}   // namespace tavix
