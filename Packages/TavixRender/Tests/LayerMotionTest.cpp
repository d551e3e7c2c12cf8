#include "RenderTestKit.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Composition2D/ResolvedCompositionLayer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

namespace tavix {
namespace {

using imaging::Image;
using testing::keyframe;
using testing::Picture;
using testing::Pixel;

PropertyTrack held(AnimProperty property, double value) { return {property, {keyframe(0, value)}}; }

CompositionLayer layerWith(std::vector<PropertyTrack> tracks) {
    CompositionLayer layer;
    layer.tracks = std::move(tracks);
    return layer;
}

KineticPhase phaseOf(double durationSec) {
    KineticPhase phase;
    phase.durationSec = durationSec;
    phase.opacity = 0.25;
    phase.offset = {0.1, -0.2};
    phase.scale = 4;
    phase.rotationDeg = {50, 60, 30};
    phase.blurRadiusFraction = 0.02;
    return phase;
}

TEST(LayerMotion, IsAtRestWithoutAnythingThatMoves) {
    const LayerMotion motion = LayerMotion::at(CompositionLayer{}, 0.3, 2);
    EXPECT_TRUE(motion.movesNothing());
    EXPECT_EQ(motion.opacity, 1);
    EXPECT_EQ(motion.blurFraction, 0);
}

TEST(LayerMotion, ReadsEachTrack) {
    const struct {
        AnimProperty property;
        double value, expected;
        double LayerMotion::*member;
    } cases[] = {
        {AnimProperty::opacity, 0.4, 0.4, &LayerMotion::opacity},
        {AnimProperty::opacity, 3, 1, &LayerMotion::opacity},
        {AnimProperty::opacity, -3, 0, &LayerMotion::opacity},
        {AnimProperty::x, 0.3, 0.3, &LayerMotion::dx},
        {AnimProperty::y, -0.3, -0.3, &LayerMotion::dy},
        {AnimProperty::scale, 2, 2, &LayerMotion::scale},
        {AnimProperty::scale, 0, 0.001, &LayerMotion::scale},
        {AnimProperty::scaleX, -5, 0.001, &LayerMotion::scaleX},
        {AnimProperty::scaleY, 3, 3, &LayerMotion::scaleY},
        {AnimProperty::rotationDeg, 400, 400, &LayerMotion::rotationDeg},
        {AnimProperty::skewXDeg, 12, 12, &LayerMotion::skewXDeg},
        {AnimProperty::skewYDeg, -12, -12, &LayerMotion::skewYDeg},
        {AnimProperty::blur, 0.01, 0.01, &LayerMotion::blurFraction},
        {AnimProperty::blur, -1, 0, &LayerMotion::blurFraction},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(nameOf(c.property));
        EXPECT_DOUBLE_EQ(LayerMotion::at(layerWith({held(c.property, c.value)}), 1, 5).*c.member, c.expected);
    }
}

TEST(LayerMotion, IsInFullForceWhenAPhaseBeginsAndGoneWhenItEnds) {
    CompositionLayer entering, leaving;
    entering.enter = leaving.exit = phaseOf(0.5);
    for (const auto& [layer, forceSec, restSec] : {std::tuple{entering, 0.0, 0.5}, {leaving, 2.0, 1.5}}) {
        const LayerMotion full = LayerMotion::at(layer, forceSec, 2);
        EXPECT_DOUBLE_EQ(full.opacity, 0.25);
        EXPECT_DOUBLE_EQ(full.dx, 0.1);
        EXPECT_DOUBLE_EQ(full.dy, -0.2);
        EXPECT_DOUBLE_EQ(full.scale, 4);
        EXPECT_DOUBLE_EQ(full.rotationDeg, 30);
        EXPECT_DOUBLE_EQ(full.blurFraction, 0.02);
        EXPECT_TRUE(LayerMotion::at(layer, restSec, 2).movesNothing());
        EXPECT_DOUBLE_EQ(LayerMotion::at(layer, std::midpoint(forceSec, restSec), 2).scale, 2);   // geometric
    }
}

TEST(LayerMotion, AddsUpPhasesThatOverlap) {
    CompositionLayer layer;
    layer.enter = layer.exit = phaseOf(2);
    const LayerMotion middle = LayerMotion::at(layer, 1, 2);
    EXPECT_DOUBLE_EQ(middle.dx, 0.1);
    EXPECT_DOUBLE_EQ(middle.scale, 4);
    EXPECT_DOUBLE_EQ(middle.opacity, 0.625 * 0.625);
}

TEST(LayerMotion, IgnoresPhasesWithoutLengthOrScaleAndExitsWithoutAnEnd) {
    CompositionLayer layer;
    layer.enter = layer.exit = phaseOf(0);
    EXPECT_TRUE(LayerMotion::at(layer, 0, 2).movesNothing());
    layer.enter = phaseOf(1);
    layer.enter->scale = 0;
    EXPECT_EQ(LayerMotion::at(layer, 0, 2).scale, 1);
    layer.enter.reset();
    layer.exit = phaseOf(1);
    EXPECT_TRUE(LayerMotion::at(layer, 1e9, std::numeric_limits<double>::infinity()).movesNothing());
}

TEST(LayerMotion, TurnsAboutItsAnchorWithPositiveAnglesClockwiseOnScreen) {
    const imaging::Point anchor{100, 60};
    const LayerMotion quarter = LayerMotion::at(layerWith({held(AnimProperty::rotationDeg, 90)}), 0, 1);
    const imaging::Point above{100, 70}, turned = quarter.transform(anchor, 200).apply(above);
    EXPECT_NEAR(turned.x, 110, 1e-9);   // what was above stands to the right
    EXPECT_NEAR(turned.y, 60, 1e-9);
    const imaging::Point still = quarter.transform(anchor, 200).apply(anchor);
    EXPECT_NEAR(still.x, 100, 1e-9);
    EXPECT_NEAR(still.y, 60, 1e-9);
}

TEST(LayerMotion, MeasuresOffsetsInOutputHeightsWithYDown) {
    const LayerMotion moved =
        LayerMotion::at(layerWith({held(AnimProperty::x, 0.1), held(AnimProperty::y, 0.25)}), 0, 1);
    EXPECT_EQ(moved.transform({7, 9}, 200), imaging::Affine::translation(20, -50));
}

TEST(LayerMotion, ScalesThenShearsThenTurns) {
    LayerMotion motion;
    motion.scaleX = 2;
    motion.skewXDeg = 45;
    motion.rotationDeg = 90;
    const imaging::Point p = motion.transform({0, 0}, 1).apply({1, 1});   // scaled (2, 1), sheared (3, 1)
    EXPECT_NEAR(p.x, 1, 1e-9);
    EXPECT_NEAR(p.y, -3, 1e-9);
}

class Finish : public ::testing::Test {
protected:
    static constexpr imaging::Size size{60, 40};
    static constexpr imaging::Rect bounds{0, 0, 60, 40};

    std::optional<Image> finished(
        const CompositionLayer& layer, const Image& image, double localSec = 0.5) const {
        const ResolvedCompositionLayer resolved{layer, nullptr, {0, 2}, {30, 20}, {layer.effects, bounds}};
        return resolved.finish(image, localSec, bounds.height, bounds);
    }
    const Image card = testing::testCard(size, 8);
};

TEST_F(Finish, WithNothingToDoGivesTheSamePicture) {
    const auto result = finished(CompositionLayer{}, card);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->hash(), card.hash());
    EXPECT_EQ(result->extent(), bounds);
}

TEST_F(Finish, DropsALayerThatCannotBeSeen) {
    for (const double opacity : {0.0, 0.001, -1.0})
        EXPECT_FALSE(finished(layerWith({held(AnimProperty::opacity, opacity)}), card)) << opacity;
    EXPECT_TRUE(finished(layerWith({held(AnimProperty::opacity, 0.002)}), card));
    CompositionLayer opaqueEnough;
    opaqueEnough.opacity = 0.9995;
    EXPECT_EQ(finished(opaqueEnough, card)->hash(), card.hash());
}

TEST_F(Finish, MultipliesByTheOpacity) {
    CompositionLayer layer;
    layer.opacity = 0.5;
    const Image white = Image::solid(imaging::Color::white()).cropped(bounds);
    EXPECT_EQ(Picture(*finished(layer, white), size).at(30, 20), (Pixel{128, 128, 128, 128}));
}

TEST_F(Finish, NeverReachesBeyondTheCanvas) {
    const CompositionLayer layer = layerWith({held(AnimProperty::scale, 3),
        held(AnimProperty::rotationDeg, 20), held(AnimProperty::x, 0.4), held(AnimProperty::blur, 0.1)});
    const auto result = finished(layer, card);
    ASSERT_TRUE(result);
    EXPECT_EQ(imaging::intersection(result->extent(), bounds), result->extent());
}

TEST_F(Finish, MovesByWholePixelsWithoutTouchingThem) {
    const Picture before(card, size);
    const Picture after(
        *finished(layerWith({held(AnimProperty::x, 5.0 / 40), held(AnimProperty::y, 3.0 / 40)}), card), size);
    for (int y = 3; y < size.height; ++y)
        for (int x = 5; x < size.width; ++x) ASSERT_EQ(after.at(x, y), before.at(x - 5, y - 3));
    EXPECT_EQ(after.at(4, 20), Pixel{});
}

TEST_F(Finish, KeepsABlurredEdgeInsideThreeRadii) {
    const Image dot = Image::solid(imaging::Color::white()).cropped({28, 18, 4, 4});
    const auto result = finished(layerWith({held(AnimProperty::blur, 0.05)}), dot);   // 2 pixels
    EXPECT_EQ(result->extent(), (imaging::Rect{22, 12, 16, 16}));
    EXPECT_EQ(finished(layerWith({held(AnimProperty::blur, 0.0004)}), dot)->hash(), dot.hash());
}

}   // namespace
}   // namespace tavix
