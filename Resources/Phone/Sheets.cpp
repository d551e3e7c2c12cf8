// Front and back: the sheets of glass with what lies in them.
#include "Phone/Dimensions.h"
#include "Phone/Pieces.h"

namespace tavix::phone {

namespace {

constexpr Vec3 toFront{0, 0, -1}, toBack{0, 0, 1};
constexpr double frontMm = -halfDepthMm;

// The slit of the speaker lies in the bezel's flat part, above the screen.
constexpr double slitHalfLengthMm = 4.6, slitRadiusMm = 0.17, slitInsetMm = 1.98;

// The flat part of each sheet and its rounded edge.
Profile bezelSection() {
    return section(
        {{{-screenInsetMm, frontMm}}, {{-1.30, frontMm}, 0.36, 6}, {{glassEdgeMm.x, -glassEdgeMm.y}}});
}
Profile backSection() {
    return section({{frameEdgeMm}, {{-1.25, halfDepthMm}, 0.36, 6}, {{-1.7, halfDepthMm}}});
}
// The dark joint between the bezel and the frame, with its floor below both. At the back, light glass meets
// light metal in a mere crease: a line so thin would only flicker.
void addJoint(Surface& surface) {
    constexpr double floor = -3.80;
    const Vec2 glass{glassEdgeMm.x, -glassEdgeMm.y}, frame{frameEdgeMm.x, -frameEdgeMm.y};
    loft(surface, bodyPlace(), bodyOutline(),
        section({{glass}, {{glass.x + 0.03, floor}}, {{frame.x - 0.03, floor}}, {frame}}));
}

// Both ends of the top edge's straight stretch: the last station of the first corner, and the next.
constexpr std::size_t topStation = cornerSteps;

// Seen from behind the sheet, so that its wall sinks into the front.
Placement slitPlace() { return {{0, heightMm - slitInsetMm, frontMm}, {-1, 0, 0}, {0, 1, 0}, toFront}; }

// Of the bezel only what looks straight to the front: it is drawn over the body, and seen from behind none of
// it may show. Its rounded edge and the slit's walls are the body's.
void addBezel(Model& model) {
    Surface &bezel = model["bezel_black2"], &edge = model["edge_black"];
    const Outline& outline = bodyOutline();
    const Profile profile = bezelSection();
    loft(
        [&](std::size_t point, std::size_t station) -> Surface* {
            if (point > 0) return &edge;
            return station == topStation ? nullptr : &bezel;
        },
        bodyPlace(), outline, profile);

    const Outline slit = stadium(slitHalfLengthMm, slitRadiusMm, 8);
    const Profile wall = section({{{0, 0}}, {{-0.03, -0.03}}, {{-0.03, -0.16}}});
    const Loop inner = ringAt(bodyPlace(), outline, profile[0].at),
               outer = ringAt(bodyPlace(), outline, profile[1].at);
    fill(bezel,
        {{inner[topStation], inner[topStation + 1], outer[topStation + 1], outer[topStation]},
            ringAt(slitPlace(), slit, wall.front().at)},
        toFront);
    loft(model["joint_black"], slitPlace(), slit, wall);
    fill(model["speaker_2112"], {ringAt(slitPlace(), slit, wall.back().at)}, toFront);
}

}   // namespace

void addFront(Model& model) {
    const Loop border = ringAt(bodyPlace(), bodyOutline(), {-screenInsetMm, frontMm});
    constexpr double width = widthMm - 2 * screenInsetMm, height = heightMm - 2 * screenInsetMm;
    // The viewer looks along +z and has +x to the left.
    const auto pictureAt = [](Vec3 at) -> Vec2 {
        return {0.5 - at.x / width, 0.5 - (at.y - heightMm / 2) / height};
    };
    fill(model["screen"], {border}, toFront, pictureAt);
    addBezel(model);
    addJoint(model["joint_black"]);
    fill(model["cover_glass"], {ringAt(bodyPlace(), bodyOutline(), {-1.6, frontMm - 0.01})}, toFront);
}

void addBack(Model& model) {
    Surface& back = model["back_color2"];
    const Profile profile = backSection();
    loft(back, bodyPlace(), bodyOutline(), profile);
    std::vector<Loop> loops{ringAt(bodyPlace(), bodyOutline(), profile.back().at), plateBorder()};
    for (const Outline& outline : logoOutlines()) {
        const Loop inlay = ringAt(bodyPlace(), outline, {0, halfDepthMm});
        loops.push_back(inlay);
        fill(model["logo"], {inlay}, toBack);
    }
    fill(back, loops, toBack);
}

std::vector<Outline> logoOutlines() {
    // A play mark turned downwards under a bar: together a T. In the middle of the back, a little below the
    // cameras.
    constexpr Vec2 centre{0, -2};
    const Outline bar = roundedPolygon({{-7.4, 4.2}, {7.4, 4.2}, {7.4, 6.9}, {-7.4, 6.9}}, 1.3, 6);
    const Outline mark = roundedPolygon({{0, -8.4}, {5.6, 2.6}, {-5.6, 2.6}}, 1.3, 8);
    return {moved(bar, centre), moved(mark, centre)};
}

void addStrayGeometry(Model& model) {
    Surface& bezel = model["bezel_black2"];
    for (int i = 0; i < 5; ++i) {
        const double x = -9 + 4.0 * i, z = frontMm - 0.03;
        const auto first = static_cast<std::uint32_t>(bezel.vertices.size());
        for (const Vec3 at : {Vec3{x, 1.2, z}, Vec3{x + 0.6, 3.1, z}, Vec3{x + 3.4, 1.3, z}})
            bezel.vertices.push_back({at, toFront, {}});
        bezel.triangles.push_back({first, first + 1, first + 2});
    }
    const Outline block = roundedPolygon({{-30, -60}, {30, -60}, {30, 40}, {-30, 40}}, 4, 4);
    Surface& chassis = model["chassis_1111"];
    const Profile wall = section({{{0, -2.4}}, {{0, 2.4}}});
    loft(chassis, bodyPlace(), block, wall);
    fill(chassis, {ringAt(bodyPlace(), block, wall.front().at)}, toFront);
    fill(chassis, {ringAt(bodyPlace(), block, wall.back().at)}, toBack);
}

}   // namespace tavix::phone
