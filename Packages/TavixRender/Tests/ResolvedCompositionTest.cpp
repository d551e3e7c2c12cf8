#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Composition2D/CompositionFrameSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using testing::fillLayer;
using testing::keyframe;
using testing::Picture;
using testing::Pixel;
using testing::sceneOf;
using testing::shapeLayer;
using testing::specOf;
using testing::transitionOf;

constexpr imaging::Size size{64, 36};
constexpr RGBAColor red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1};
constexpr Pixel redPixel{255, 0, 0, 255}, greenPixel{0, 255, 0, 255}, bluePixel{0, 0, 255, 255},
    blackPixel{0, 0, 0, 255};

class Resolving : public ::testing::Test {
protected:
    ResolvedComposition resolved(const CompositionSpec& spec) {
        return {spec, std::nullopt, evaluator, testing::messagesTo(lines)};
    }
    Pixel centerAt(ResolvedComposition& composition, double sec) {
        return Picture(composition.frame(sec), size).at(32, 18);
    }

    imaging::Evaluator evaluator{{.threadCount = 1}};
    std::vector<std::string> lines;
};

TEST_F(Resolving, GivesEachLayerItsWindow) {
    const struct {
        double fromSec;
        std::optional<double> durationSec;
        std::optional<LayerWindow> window;
    } cases[] = {
        {0, std::nullopt, LayerWindow{0, 4}},
        {1.5, std::nullopt, LayerWindow{1.5, 4}},
        {1, 2, LayerWindow{1, 3}},
        {-1, 2, LayerWindow{0, 2}},
        {3, 9, LayerWindow{3, 12}},   // the scene's end does not cut it
        {1, 0, std::nullopt},
        {1, -1, std::nullopt},
        {4, std::nullopt, std::nullopt},
    };
    for (const auto& c : cases) {
        CompositionLayer layer = fillLayer(red);
        layer.fromSec = c.fromSec;
        layer.durationSec = c.durationSec;
        const ResolvedComposition composition = resolved(specOf(size, 30, {sceneOf(4, {layer})}));
        ASSERT_EQ(composition.layers(0).size(), c.window ? 1u : 0u);
        for (const auto& kept : composition.layers(0)) EXPECT_EQ(kept.window, *c.window);
    }
}

TEST_F(Resolving, ShowsALayerAtBothEndsOfItsWindow) {
    CompositionLayer layer = fillLayer(red);
    layer.fromSec = 1;
    layer.durationSec = 1;
    ResolvedComposition composition = resolved(specOf(size, 30, {sceneOf(4, {layer})}));
    const std::pair<double, Pixel> cases[] = {
        {0.999, blackPixel}, {1, redPixel}, {1.5, redPixel}, {2, redPixel}, {2.001, blackPixel}};
    for (const auto& [sec, pixel] : cases) EXPECT_EQ(centerAt(composition, sec), pixel) << sec;
}

TEST_F(Resolving, AnchorsALayerInImageCoordinates) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(4, {fillLayer(red)})});
    spec.scenes[0].layers[0].position = {10, 30};
    EXPECT_EQ(resolved(spec).layers(0)[0].anchor, (imaging::Point{10, 6}));
}

TEST_F(Resolving, StacksLayersInDocumentOrderOverTheBackground) {
    CompositionSpec spec =
        specOf(size, 30, {sceneOf(4, {shapeLayer(red, 0.8, 0.8), shapeLayer(green, 0.4, 0.4)})});
    spec.background = blue;
    ResolvedComposition composition = resolved(spec);
    const Picture frame(composition.frame(1), size);
    EXPECT_EQ(frame.at(32, 18), greenPixel);
    EXPECT_EQ(frame.at(10, 18), redPixel);
    EXPECT_EQ(frame.at(1, 1), bluePixel);
}

TEST_F(Resolving, LetsASceneReplaceTheBackground) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(1, {}), sceneOf(1, {})});
    spec.background = blue;
    spec.scenes[1].background = green;
    ResolvedComposition composition = resolved(spec);
    EXPECT_EQ(centerAt(composition, 0.5), bluePixel);
    EXPECT_EQ(centerAt(composition, 1.5), greenPixel);
}

TEST_F(Resolving, AnswersWithBlackWhenThereIsNoScene) {
    ResolvedComposition composition = resolved(specOf(size, 30, {}));
    EXPECT_EQ(composition.frame(3).extent(), composition.bounds());
    EXPECT_EQ(centerAt(composition, 3), blackPixel);
}

TEST_F(Resolving, RunsEachSceneOnItsOwnClockInATransition) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(2, {fillLayer(red)}), sceneOf(2, {fillLayer(blue)})});
    spec.scenes[0].transition = transitionOf(TransitionStyle::fade, 1);
    ResolvedComposition composition = resolved(spec);
    EXPECT_EQ(composition.timeline().totalSec, 3);
    EXPECT_EQ(centerAt(composition, 1), redPixel);   // progress 0
    const Pixel middle = centerAt(composition, 1.5);
    EXPECT_NEAR(middle.r, 127.5, 1);
    EXPECT_NEAR(middle.b, 127.5, 1);
    EXPECT_EQ(centerAt(composition, 2), bluePixel);
}

TEST_F(Resolving, EasesATransitionByItsCurve) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(2, {fillLayer(red)}), sceneOf(2, {fillLayer(blue)})});
    spec.scenes[0].transition = transitionOf(TransitionStyle::fade, 1, BezierCurve{0.9, 0, 1, 0.1});
    ResolvedComposition composition = resolved(spec);
    EXPECT_GT(centerAt(composition, 1.5).r, 200);
}

CompositionLayer deviceLayer(
    std::string id, std::vector<DeviceScalarKeyframe> depthTrack, double fromSec = 0) {
    DeviceContent device;
    device.scene3D = DeviceScene3D{};
    device.scene3D->depthTrack = std::move(depthTrack);
    CompositionLayer layer;
    layer.id = std::move(id);
    layer.fromSec = fromSec;
    layer.content = device;
    return layer;
}

CompositionLayer plainLayer(std::string id) {
    CompositionLayer layer = fillLayer(red);
    layer.id = std::move(id);
    return layer;
}

TEST_F(Resolving, OrdersNeighbouringDevicesByDepth) {
    const std::vector<DeviceScalarKeyframe> near{{0, 0.9}}, middle{{0, 0.5}}, far{{0, 0.1}}, none;
    const std::vector<DeviceScalarKeyframe> approaching{{0, 0.0}, {2, 1.0}};
    CompositionLayer dropped = deviceLayer("dropped", near);
    dropped.durationSec = 0;
    CompositionLayer flat = deviceLayer("flat", none);
    std::get<DeviceContent>(flat.content).scene3D.reset();
    const struct {
        std::vector<CompositionLayer> layers;
        double atSec;
        std::string order;
    } cases[] = {
        {{deviceLayer("a", near), deviceLayer("b", far), deviceLayer("c", middle)}, 0, "b c a "},
        {{deviceLayer("a", middle), deviceLayer("b", middle), deviceLayer("c", far)}, 0, "c a b "},
        {{deviceLayer("a", near), plainLayer("p"), deviceLayer("b", far)}, 0, "a p b "},
        {{deviceLayer("a", near), deviceLayer("n", none), deviceLayer("b", far)}, 0, "a n b "},
        {{deviceLayer("a", near), flat, deviceLayer("b", far)}, 0, "a flat b "},
        {{deviceLayer("a", near), dropped, deviceLayer("b", far)}, 0, "b a "},
        {{deviceLayer("a", near), deviceLayer("late", middle, 3), deviceLayer("b", far)}, 1, "a late b "},
        {{deviceLayer("a", near), deviceLayer("late", middle, 3), deviceLayer("b", far)}, 3, "b late a "},
        {{deviceLayer("a", middle), deviceLayer("b", approaching)}, 0.5, "b a "},
        {{deviceLayer("a", middle), deviceLayer("b", approaching)}, 1.5, "a b "},
        // The track runs on the layer's own clock.
        {{deviceLayer("a", middle), deviceLayer("b", approaching, 1)}, 1.5, "b a "},
    };
    for (const auto& c : cases) {
        const ResolvedComposition composition = resolved(specOf(size, 30, {sceneOf(4, c.layers)}));
        std::string order;
        for (const auto* layer : composition.depthOrderedLayers(0, c.atSec)) order += *layer->layer.id + " ";
        EXPECT_EQ(order, c.order) << "at " << c.atSec;
    }
}

TEST_F(Resolving, CountsLayersInTheDocumentForSeeds) {
    EXPECT_EQ(ResolvedComposition::presetSeed(7, 0, 0), 7);
    EXPECT_EQ(ResolvedComposition::presetSeed(7, 2, 3), 7 + 2 * 1009 + 3 * 9176);
    EXPECT_EQ(ResolvedComposition::presetSeed(-9000, 0, 1), 176);
}

CompositionSpec livelySpec() {
    CompositionLayer spinning = shapeLayer(green, 0.5, 0.3);
    spinning.tracks = {{AnimProperty::rotationDeg, {keyframe(0, 0), keyframe(2, 90)}},
        {AnimProperty::scale, {keyframe(0, 1), keyframe(2, 1.8)}}};
    spinning.effects = {NoiseEffect{0.2, 3}, GlowEffect{}};
    CompositionLayer entering = shapeLayer(red, 0.2, 0.2);
    entering.enter = KineticPhase{};
    entering.enter->durationSec = 0.5;
    entering.enter->opacity = 0;
    entering.enter->offset = {0.3, 0};
    CompositionSpec spec = specOf(size, 30, {sceneOf(2, {spinning, entering}), sceneOf(2, {spinning})});
    spec.scenes[1].background = LinearGradient::standard();
    spec.scenes[0].transition = transitionOf(TransitionStyle::crosswarp, 0.8);
    return spec;
}

TEST_F(Resolving, GivesTheSameFrameInAnyOrderAndFromAnyBuild) {
    ResolvedComposition forward = resolved(livelySpec()), backward = resolved(livelySpec());
    const std::vector<double> times{0, 0.21, 0.9, 1.25, 1.61, 2.2, 3.1};
    std::vector<Picture> frames;
    for (const double t : times) frames.emplace_back(forward.frame(t), size);
    for (std::size_t i = times.size(); i-- > 0;)
        EXPECT_EQ(Picture(backward.frame(times[i]), size), frames[i]);
}

TEST_F(Resolving, HandsOutTheVerySamePictureWhileNothingMoves) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(2, {shapeLayer(red), fillLayer({0, 0, 1, 0.3})})});
    spec.scenes[0].layers[0].effects = {NoiseEffect{}, VignetteEffect{}};
    ResolvedComposition composition = resolved(spec);
    EXPECT_EQ(composition.frame(0.5).hash(), composition.frame(1.5).hash());
}

TEST_F(Resolving, KeepsAnEnlargedShapeSharp) {
    CompositionSpec spec = specOf(size, 30, {sceneOf(2, {shapeLayer(green, 0.2, 0.2)})});
    auto& layer = spec.scenes[0].layers[0];
    std::get<ShapeContent>(layer.content).cornerRadiusFraction = 0.5;
    layer.tracks = {{AnimProperty::scale, {keyframe(0, 2)}}};
    CompositionSpec large = spec;
    std::get<ShapeContent>(large.scenes[0].layers[0].content).widthFraction = 0.4;
    std::get<ShapeContent>(large.scenes[0].layers[0].content).heightFraction = 0.4;
    large.scenes[0].layers[0].tracks.clear();
    ResolvedComposition enlarged = resolved(spec), drawnLarge = resolved(large);
    EXPECT_LE(Picture(enlarged.frame(0), size).countBeyond(Picture(drawnLarge.frame(0), size), 48), 8);
}

class WithPicture : public Resolving {
protected:
    WithPicture() {
        media::writePng(folder.path() / "card.png",
            evaluator.draw(testing::testCard({20, 10}, 5), {0, 0, 20, 10}).view());
    }
    CompositionSpec specWith(ImageContent content, int count = 1) const {
        CompositionLayer layer;
        layer.content = std::move(content);
        CompositionSpec spec = specOf(size, 30, {sceneOf(2, std::vector(std::size_t(count), layer))});
        spec.assetRoot = folder.path().string();
        return spec;
    }
    testing::TemporaryFolder folder;
};

TEST_F(WithPicture, PlacesAnImageAtItsOwnSizeOrAsAFractionOfTheHeight) {
    ResolvedComposition own = resolved(specWith({"card.png", {}, 0, {}}));
    const Picture card(testing::testCard({20, 10}, 5), {20, 10}), frame(own.frame(0), size);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x) ASSERT_EQ(frame.at(22 + x, 13 + y), card.at(x, y));
    EXPECT_EQ(frame.at(21, 18), blackPixel);
    const ResolvedComposition half = resolved(specWith({"card.png", 0.5, 0, {}}));
    const auto image = half.layers(0)[0].renderer->contentImage(0);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->extent(), (imaging::Rect{14, 9, 36, 18}));
}

TEST_F(WithPicture, RoundsTheCornersOfAnImage) {
    ResolvedComposition composition = resolved(specWith({"card.png", 0.5, 0.5, {}}));
    EXPECT_EQ(Picture(composition.frame(0), size).at(14, 9), blackPixel);
}

TEST_F(WithPicture, KeepsWhatStandsOutsideTheCanvasForWhenItMovesIn) {
    CompositionSpec spec = specWith({"card.png", {}, 0, {}});
    auto& layer = spec.scenes[0].layers[0];
    layer.position = {-10, 18};   // wholly outside
    layer.tracks = {{AnimProperty::x, {keyframe(0, 42.0 / 36)}}};
    ResolvedComposition composition = resolved(spec);
    EXPECT_EQ(Picture(composition.frame(0), size).at(22, 13),
        Picture(testing::testCard({20, 10}, 5), {20, 10}).at(0, 0));
}

TEST_F(WithPicture, TellsOfAnUnreadableImageOnceAndKeepsItsLayer) {
    ResolvedComposition composition = resolved(specWith({"missing.png", {}, 0, {}}, 3));
    EXPECT_EQ(composition.layers(0).size(), 3u);
    EXPECT_EQ(centerAt(composition, 0), blackPixel);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], ::testing::HasSubstr((folder.path() / "missing.png").string()));
}

TEST_F(Resolving, ServesAPreviewWithItsMeasures) {
    CompositionFrameSource source(livelySpec(), std::nullopt, evaluator, {});
    EXPECT_DOUBLE_EQ(source.totalSec(), 3.2);
    EXPECT_EQ(source.fps(), 30);
    EXPECT_EQ(source.size(), size);
    EXPECT_FALSE(source.hasDevicesInSpace());
    ResolvedComposition composition = resolved(livelySpec());
    EXPECT_EQ(Picture(source.frame(0.4), size), Picture(composition.frame(0.4), size));
}

}   // namespace
}   // namespace tavix
