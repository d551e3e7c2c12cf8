#include "Phone/Profile.h"

namespace tavix::phone {

namespace {

void appendRounding(Profile& profile, const Corner& corner, Vec2 in, Vec2 out) {
    const double turn = std::atan2(cross(in, out), dot(in, out));
    const double side = turn > 0 ? 1 : -1;   // the centre lies to the left of a left turn
    const Vec2 start = corner.at - in * (corner.radius * std::tan(std::abs(turn) / 2));
    const Vec2 centre = start - rightOf(in) * (side * corner.radius);
    for (int i = 0; i <= corner.steps; ++i) {
        const double angle = turn * i / corner.steps;
        const Vec2 facing = rightOf(in) * std::cos(angle) + in * std::sin(angle);
        profile.push_back({centre + facing * (side * corner.radius), facing});
    }
}

}   // namespace

Profile section(const std::vector<Corner>& corners) {
    Profile profile;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const bool isFirst = i == 0, isLast = i + 1 == corners.size();
        const Vec2 in = isFirst ? Vec2{} : normalized(corners[i].at - corners[i - 1].at);
        const Vec2 out = isLast ? Vec2{} : normalized(corners[i + 1].at - corners[i].at);
        if (!isFirst && !isLast && corners[i].radius > 0) {
            appendRounding(profile, corners[i], in, out);
            continue;
        }
        if (!isFirst) profile.push_back({corners[i].at, rightOf(in)});
        if (!isLast) profile.push_back({corners[i].at, rightOf(out)});
    }
    return profile;
}

Profile dome(Vec2 from, Vec2 to, double rise, int steps) {
    const Vec2 chord = to - from;
    const double half = length(chord) / 2;
    const double radius = (half * half + rise * rise) / (2 * rise);
    const Vec2 facing = rightOf(normalized(chord));
    const Vec2 centre = from + chord * 0.5 - facing * (radius - rise);
    const double halfAngle = std::atan2(half, radius - rise);
    Profile profile;
    for (int i = 0; i <= steps; ++i) {
        const double angle = halfAngle * (2.0 * i / steps - 1);
        const Vec2 outward = facing * std::cos(angle) + normalized(chord) * std::sin(angle);
        // The ends are given back as they came, so that what meets them there leaves no gap.
        const Vec2 at = i == 0 ? from : i == steps ? to : centre + outward * radius;
        profile.push_back({at, outward});
    }
    return profile;
}

}   // namespace tavix::phone
