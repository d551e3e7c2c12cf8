// Drags on the stage: what moves, what stays, and what takes hold.
#include "Editor/EditorDomain/Stage/StageEdits.h"
#include "Editor/EditorDomain/Stage/StageMap.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TestSupport/SourceTree.h"
#include "TestSupport/TemporaryFolder.h"

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

// Of every kind that is not a device, at rest and in the middle of a motion that shifts and enlarges it.
std::vector<CompositionLayer> everyKind(const std::filesystem::path& folder) {
    imaging::Evaluator evaluator;
    media::writePng(folder / "red.png",
        evaluator.draw(imaging::Image::solid({1, 0, 0, 1}).cropped({0, 0, 300, 200}), {0, 0, 300, 200})
            .view());
    const std::string clip =
        (testsupport::inSourceTree("Examples") / "hero-phone.tavixcomp" / "assets" / "tour.mp4").string();
    ShapeContent shape;
    shape.widthFraction = 0.4;
    shape.heightFraction = 0.1;
    ImageContent ownPixels, sized;
    ownPixels.path = sized.path = "red.png";
    sized.heightFraction = 0.2;
    VideoContent whole, placed;
    whole.clip.path = placed.clip.path = clip;
    placed.rect = NormalizedRect{0.2, 0.3, 0.5, 0.3};
    placed.fit = whole.fit = VideoFit::cover;
    TextContent text;
    text.text = "Words";
    text.sizeFraction = 0.1;
    std::vector<CompositionLayer> layers;
    for (const LayerContent& content : std::initializer_list<LayerContent>{
             shape, ownPixels, sized, whole, placed, BackgroundFill(RGBAColor{1, 0, 0, 1}), text})
        for (const bool isMoving : {false, true}) {
            CompositionLayer layer;
            layer.content = content;
            layer.position = {480, 900};
            const auto still = [](AnimProperty property, double value) {
                CompositionKeyframe keyframe;
                keyframe.value = value;
                return PropertyTrack{property, {keyframe}};
            };
            using enum AnimProperty;
            if (isMoving)
                layer.tracks = {still(x, 0.06), still(y, -0.04), still(scale, 1.25), still(scaleX, 0.8)};
            layers.push_back(layer);
        }
    return layers;
}

void expectNear(const PixelRect& got, const PixelRect& wanted, double tolerancePx) {
    EXPECT_NEAR(got.x, wanted.x, tolerancePx);
    EXPECT_NEAR(got.y, wanted.y, tolerancePx);
    EXPECT_NEAR(got.maxX(), wanted.maxX(), tolerancePx);
    EXPECT_NEAR(got.maxY(), wanted.maxY(), tolerancePx);
}

// Wherever the box of a layer was dragged, there the layer is.
TEST(StageMap, ALayerOfEveryKindStandsWhereItsBoxWasDragged) {
    const testsupport::TemporaryFolder folder;
    CompositionSpec spec = twoShapes();
    spec.scenes[0].layers.resize(1);
    CompositionLayer& layer = spec.scenes[0].layers[0];
    const auto stands = [&] { return *StageMap(spec, folder.path()).layer({0, 0}, 1); };
    int kind = 0;
    for (const CompositionLayer& original : everyKind(folder.path())) {
        SCOPED_TRACE(kind++);
        layer = original;
        const StageLayer before = stands();
        moveLayer(layer, 37, -21, before.stand);
        expectNear(
            stands().box, {before.box.x + 37, before.box.y - 21, before.box.width, before.box.height}, 1);
        const bool isText = std::holds_alternative<TextContent>(layer.content);
        const bool isEven = isText || std::holds_alternative<ImageContent>(layer.content);
        for (const StageHandle handle :
            {StageHandle{1, 1}, StageHandle{-1, -1}, StageHandle{-1, 0}, StageHandle{0, 1}}) {
            if (isEven && !handle.isCorner()) continue;
            layer = original;
            for (const double step : {40.0, -25.0}) {   // one drag after another
                const StageLayer now = stands();
                const StageGrowth by = growth(now.box, handle, handle.x * step, handle.y * step);
                growLayer(layer, by, handle, now.stand);
                // Letters are set anew in their size.
                expectNear(stands().box, grown(now.box, by), isText ? 6 : 1);
            }
        }
    }
}

}   // namespace
}   // namespace tavix
