#include "TavixRecorder/Film/PointerShape.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>

namespace tavix::recorder::PointerShape {

namespace {

struct Corner {
    double x, y;
};
// From the tip down the left side, round the tail, and back along the right side.
constexpr Corner corners[] = {
    {0, 0}, {0, 17.2}, {4.1, 13.5}, {6.9, 20.2}, {9.9, 18.9}, {7.1, 12.3}, {12.6, 12.1}};

}   // namespace

// Distance to the nearest side, with the sign of the even-odd rule.
double distance(double x, double y) {
    double nearest = std::numeric_limits<double>::infinity();
    bool isInside = false;
    for (std::size_t i = 0; i < std::size(corners); ++i) {
        const Corner a = corners[i], b = corners[(i + 1) % std::size(corners)];
        const double dx = b.x - a.x, dy = b.y - a.y;
        const double along = std::clamp(((x - a.x) * dx + (y - a.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(x - a.x - dx * along, y - a.y - dy * along));
        if ((a.y > y) != (b.y > y) && x < a.x + (y - a.y) / dy * dx) isInside = !isInside;
    }
    return isInside ? -nearest : nearest;
}

}   // namespace tavix::recorder::PointerShape
