#include "TavixCore/Document/PixelScaling.h"

#include "TavixCore/Paths/RowFilter.h"
#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Values/PixelPoint.h"

#include <algorithm>

namespace tavix {

void scalePixels(const Type& type, void* document, double across, double down) {
    const auto visit = [&](const MutablePlace& place) {
        if (!place.row) return Walk::into;
        if (auto* point = place.as<PixelPoint>(); point && place.row->role == Role::pixelPoint) {
            point->x *= across;
            point->y *= down;
        }
        if (auto* length = place.as<double>(); length && place.row->role == Role::pixelLength)
            *length *= std::max(across, down);
        return Walk::into;
    };
    const RowFilter inPixels(
        type, [](Role role) { return role == Role::pixelPoint || role == Role::pixelLength; });
    walkValue(type, document, KeyPath(), Visitor<MutablePlace>(visit), &inPixels);
}

}   // namespace tavix
