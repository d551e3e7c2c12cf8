#include "Phone/Outline.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace tavix::phone {

namespace {

using std::numbers::pi;

// The curvature along a corner, of no particular scale: smooth ramps over 42 hundredths at both ends.
double cornerCurvature(double progress) {
    constexpr double ramp = 0.42;
    const double t = std::clamp(std::min(progress, 1 - progress) / ramp, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

// One corner from heading +y to heading -x, its extent 1 along both sides, the lower right end at the origin.
std::vector<Station> unitCorner(int steps) {
    constexpr int substeps = 64;
    const int count = steps * substeps;
    double total = 0;
    for (int i = 0; i < count; ++i) total += cornerCurvature((i + 0.5) / count);
    std::vector<Station> corner{{{0, 0}, {1, 0}}};
    Vec2 at;
    double turned = 0;
    for (int i = 0; i < count; ++i) {
        const double bend = cornerCurvature((i + 0.5) / count) / total * pi / 2;
        const double heading = turned + bend / 2;
        at = at + Vec2{-std::sin(heading), std::cos(heading)};
        turned += bend;
        if ((i + 1) % substeps == 0) corner.push_back({at, {std::cos(turned), std::sin(turned)}});
    }
    corner.back().outward = {0, 1};
    for (Station& station : corner) station.at = station.at * (1 / at.y);
    return corner;
}

void appendArc(Outline& outline, Vec2 centre, double radius, double fromRad, double toRad, int steps) {
    for (int i = 0; i <= steps; ++i) {
        const double angle = fromRad + (toRad - fromRad) * i / steps;
        const Vec2 outward{std::cos(angle), std::sin(angle)};
        outline.push_back({centre + outward * radius, outward});
    }
}

}   // namespace

Outline continuousRectangle(Vec2 size, double cornerExtent, int cornerSteps) {
    const std::vector<Station> corner = unitCorner(cornerSteps);
    const Vec2 half = size * 0.5;
    Outline outline;
    // Mirrored from the first quadrant, so that the outline is symmetrical to the last bit.
    const std::array<Vec2, 4> signs{{{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}};
    for (std::size_t quadrant = 0; quadrant < 4; ++quadrant) {
        const Vec2 sign = signs[quadrant];
        const bool isMirrored = quadrant % 2 == 1;
        for (std::size_t i = 0; i < corner.size(); ++i) {
            const Station& unit = corner[isMirrored ? corner.size() - 1 - i : i];
            const Vec2 at{
                half.x + unit.at.x * cornerExtent, half.y - cornerExtent + unit.at.y * cornerExtent};
            outline.push_back(
                {{sign.x * at.x, sign.y * at.y}, {sign.x * unit.outward.x, sign.y * unit.outward.y}});
        }
    }
    return outline;
}

Outline circle(double radius, int steps) {
    Outline outline;
    appendArc(outline, {}, radius, 0, 2 * pi, steps);
    outline.pop_back();
    return outline;
}

Outline stadium(double halfLength, double radius, int halfSteps) {
    Outline outline;
    appendArc(outline, {halfLength, 0}, radius, -pi / 2, pi / 2, halfSteps);
    appendArc(outline, {-halfLength, 0}, radius, pi / 2, 3 * pi / 2, halfSteps);
    return outline;
}

Outline roundedPolygon(const std::vector<Vec2>& corners, double radius, int cornerSteps) {
    Outline outline;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec2 corner = corners[i];
        const Vec2 in = normalized(corner - corners[(i + corners.size() - 1) % corners.size()]);
        const Vec2 out = normalized(corners[(i + 1) % corners.size()] - corner);
        const double turn = std::atan2(cross(in, out), dot(in, out));
        const Vec2 start = corner - in * (radius * std::tan(turn / 2));
        const double from = std::atan2(rightOf(in).y, rightOf(in).x);
        appendArc(outline, start - rightOf(in) * radius, radius, from, from + turn, cornerSteps);
    }
    return outline;
}

void divide(Outline& outline, std::size_t station, const std::vector<double>& fractions) {
    const Station from = outline[station];
    const Vec2 to = outline[(station + 1) % outline.size()].at;
    Outline between;
    for (const double fraction : fractions)
        between.push_back({from.at + (to - from.at) * fraction, from.outward});
    outline.insert(
        outline.begin() + static_cast<std::ptrdiff_t>(station) + 1, between.begin(), between.end());
}

Outline moved(Outline outline, Vec2 by) {
    for (Station& station : outline) station.at = station.at + by;
    return outline;
}

}   // namespace tavix::phone
