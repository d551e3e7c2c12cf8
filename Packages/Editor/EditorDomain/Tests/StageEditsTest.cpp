// Drags on the stage: what moves, what stays, and what takes hold.
#include "Editor/EditorDomain/Stage/StageEdits.h"
#include "Editor/EditorDomain/Stage/StageMap.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using namespace StageEdits;

constexpr PixelRect canvas{0, 0, 1000, 2000};
constexpr PixelRect box{100, 200, 300, 150};

TEST(SnappedMove, StaysFreeWhereNothingIsNear) {
    const SnappedMove move = snappedMove(box, 37, 41, canvas, {}, 6);
    EXPECT_EQ(move.dxPx, 37);
    EXPECT_EQ(move.dyPx, 41);
    EXPECT_TRUE(move.guides.empty());
}

TEST(SnappedMove, TakesHoldOfEdgesAndMiddlesOneAxisAtATime) {
    struct Case {
        double dx, dy, snappedDx, snappedDy;
        std::size_t guides;
    };
    const Case cases[] = {
        {-97, 300, -100, 300, 1},    // left edge to the canvas
        {252, 720, 250, 725, 2},     // middle to middle, both ways
        {597, 500, 600, 500, 1},     // right edge to the canvas
        {300, 1655, 300, 1650, 1},   // lower edge to the canvas
        {-106, 300, -106, 300, 0},   // as far away as the tolerance is
    };
    for (const Case& c : cases) {
        const SnappedMove move = snappedMove(box, c.dx, c.dy, canvas, {}, 6);
        EXPECT_EQ(move.dxPx, c.snappedDx) << c.dx;
        EXPECT_EQ(move.dyPx, c.snappedDy) << c.dy;
        EXPECT_EQ(move.guides.size(), c.guides) << c.dx;
    }
}

TEST(SnappedMove, PrefersTheNearestOfSeveral) {
    const std::vector<PixelRect> others{{444, 900, 60, 60}, {440, 1500, 20, 20}};
    const SnappedMove move = snappedMove(box, 43, 333, canvas, others, 6);
    EXPECT_EQ(move.dxPx, 44);   // its right edge to 444 is nearer than to 440
    ASSERT_EQ(move.guides.size(), 1u);
    EXPECT_EQ(move.guides[0], (StageGuide{StageGuide::Axis::vertical, 444}));
}

TEST(Growth, KeepsTheOppositeSideAndBringsTheHandleToThePointer) {
    for (int x = -1; x <= 1; ++x)
        for (int y = -1; y <= 1; ++y) {
            if (x == 0 && y == 0) continue;
            const StageHandle handle{x, y};
            const double dx = handle.isCorner() ? x * 60.0 : 45, dy = handle.isCorner() ? y * 30.0 : 45;
            const PixelRect after = grown(box, growth(box, handle, dx, dy));
            const auto side = [](const PixelRect& rect, int at, bool isAcross) {
                return isAcross ? (at < 0      ? rect.x
                                      : at > 0 ? rect.maxX()
                                               : rect.center().x)
                                : (at < 0      ? rect.y
                                      : at > 0 ? rect.maxY()
                                               : rect.center().y);
            };
            EXPECT_NEAR(side(after, -x, true), side(box, -x, true), 1e-9) << x << y;
            EXPECT_NEAR(side(after, -y, false), side(box, -y, false), 1e-9) << x << y;
            if (x != 0) {
                EXPECT_NEAR(side(after, x, true), side(box, x, true) + dx, 1e-9) << x << y;
            }
            if (y != 0) {
                EXPECT_NEAR(side(after, y, false), side(box, y, false) + dy, 1e-9) << x << y;
            }
        }
}

TEST(Growth, NeverTurnsABoxInsideOut) {
    for (const StageHandle handle : {StageHandle{1, 1}, StageHandle{-1, 0}, StageHandle{0, 1}}) {
        const PixelRect after = grown(box, growth(box, handle, handle.x * -5000, handle.y * -5000));
        EXPECT_GT(after.width, 0);
        EXPECT_GT(after.height, 0);
    }
}

TEST(TurnLayer, AddsToTheTurnThatThereIs) {
    CompositionLayer layer;
    turnLayer(layer, 30, 2);
    ASSERT_EQ(layer.tracks.size(), 1u);
    EXPECT_EQ(layer.tracks[0].property, AnimProperty::rotationDeg);
    turnLayer(layer, -10, 2);
    ASSERT_EQ(layer.tracks.size(), 1u);
    for (const CompositionKeyframe& keyframe : layer.tracks[0].keyframes) EXPECT_EQ(keyframe.value, 20);
}

// A document of shapes, whose places are known without drawing.
CompositionSpec twoShapes() {
    CompositionSpec spec;
    spec.output.widthPx = 1000;
    spec.output.heightPx = 2000;
    CompositionScene scene;
    scene.durationSec = 4;
    for (const double y : {500.0, 560.0}) {
        CompositionLayer layer;
        layer.position = {500, y};
        ShapeContent shape;
        shape.widthFraction = 0.4;
        shape.heightFraction = 0.1;
        layer.content = shape;
        scene.layers.push_back(layer);
    }
    spec.scenes = {scene};
    return spec;
}

TEST(StageMap, FindsTheFrontLayerUnderAPoint) {
    const StageMap map(twoShapes(), std::nullopt);
    const auto at = [&](double x, double y) {
        const auto hit = map.hit({x, y}, 1);
        return hit ? int(hit->place.layer) : -1;
    };
    EXPECT_EQ(at(500, 420), 0);   // the upper shape reaches from 400 to 600
    EXPECT_EQ(at(500, 580), 1);   // both: the front one
    EXPECT_EQ(at(500, 650), 1);
    EXPECT_EQ(at(500, 300), -1);
    EXPECT_EQ(at(299, 500), -1);
}

TEST(StageMap, AGrownShapeStandsWhereItsBoxWasDragged) {
    CompositionSpec spec = twoShapes();
    const PixelRect before = StageMap(spec, std::nullopt).layer({0, 0}, 1)->box;
    for (const StageHandle handle : {StageHandle{1, 1}, StageHandle{-1, 0}, StageHandle{0, -1}}) {
        CompositionSpec changed = spec;
        const StageGrowth by = growth(before, handle, handle.x * 40, handle.y * 40);
        ASSERT_TRUE(growLayer(changed.scenes[0].layers[0], by, handle));
        const PixelRect wanted = grown(before, by),
                        got = StageMap(changed, std::nullopt).layer({0, 0}, 1)->box;
        EXPECT_NEAR(got.x, wanted.x, 1);
        EXPECT_NEAR(got.y, wanted.y, 1);
        EXPECT_NEAR(got.maxX(), wanted.maxX(), 1);
        EXPECT_NEAR(got.maxY(), wanted.maxY(), 1);
    }
}

}   // namespace
}   // namespace tavix
