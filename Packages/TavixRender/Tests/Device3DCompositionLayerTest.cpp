// The 3D device as a layer of a composition.
#include "TavixRender/Composition2D/Device3DCompositionLayer.h"
#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/DeviceScene/RealityDeviceSceneRenderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace tavix {
namespace {

using imaging::Image;
using imaging::Rect;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size canvas{120, 214};

class DeviceInSpace : public ::testing::Test {
protected:
    DeviceInSpace() {
        imaging::Evaluator drawing;
        media::writePng(folder.path() / "screen.png",
            drawing.draw(Image::solid({1, 0, 0, 1}).cropped({0, 0, 60, 130}), {0, 0, 60, 130}).view());
        device.screen = StillScreen{"screen.png"};
        device.basePaddingPx = 20;
        device.scene3D = DeviceScene3D{};
        device.scene3D->tiltDegrees = {};
        device.scene3D->driftDegrees = 0;
    }
    ~DeviceInSpace() override { unsetenv("TAVIX_RESOURCES"); }

    ResolvedComposition resolved() {
        CompositionLayer layer;
        layer.content = device;
        layer.id = "hero";
        CompositionSpec spec = testing::specOf(canvas, 30, {testing::sceneOf(2, {layer})});
        spec.background = RGBAColor{0, 0, 1, 1};
        return {
            spec, folder.path(), evaluator, [this](const std::string& line) { log.push_back(line); }, pool};
    }
    Picture drawn(double sec = 0) { return Picture(resolved().frameOnMain(sec), canvas); }

    testing::TemporaryFolder folder;
    DeviceContent device;
    imaging::Evaluator evaluator;
    std::vector<std::string> log;
    Composition3DRendererPool* pool = nullptr;
};

constexpr Pixel red{255, 0, 0, 255}, blue{0, 0, 255, 255};

TEST_F(DeviceInSpace, IsDrawnByTheMainExecutorAlone) {
    ResolvedComposition composition = resolved();
    EXPECT_TRUE(composition.needsMainActorRender());
    EXPECT_EQ(Picture(composition.frame(0), canvas).at(60, 107), blue);
    EXPECT_EQ(Picture(composition.frameOnMain(0), canvas).at(60, 107), red);
    EXPECT_EQ(composition.frameOnMain(0.4).hash(), composition.frameOnMain(1).hash()) << "nothing moves";
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST_F(DeviceInSpace, IsFlatWithoutAModelAndSaysSo) {
    setenv("TAVIX_RESOURCES", folder.path().c_str(), 1);
    EXPECT_FALSE(resolved().needsMainActorRender());
    EXPECT_EQ(drawn().at(60, 107), red);
    EXPECT_THAT(log, ::testing::Contains(
                         "⚠️ scene3D requested but the 3D device pass is unavailable (no model/GPU) — "
                         "rendering the flat mockup."));
}

TEST_F(DeviceInSpace, IsLeftOutWhileItsModelIsBrokenOrItsScreenHasNoPicture) {
    std::filesystem::create_directories(folder.path() / "models");
    std::ofstream(folder.path() / "models" / "device-phone.glb") << "no model";
    setenv("TAVIX_RESOURCES", folder.path().c_str(), 1);
    EXPECT_EQ(drawn().at(60, 107), blue);
    EXPECT_EQ(log.size(), 1u);
    unsetenv("TAVIX_RESOURCES");
    device.screen = StillScreen{"nowhere.png"};
    EXPECT_EQ(drawn().at(60, 107), blue);
    device.screen = VideoClip{.path = "nowhere.mp4"};
    EXPECT_EQ(drawn().at(60, 107), blue);
}

TEST_F(DeviceInSpace, IsDrawnTwiceAsFinelyUpToACanvasOf2048Pixels) {
    const std::pair<Rect, int> cases[] = {
        {{0, 0, 2048, 2048}, 2}, {{0, 0, 2049, 1000}, 1}, {{0, 0, 1080, 1920}, 2}, {{0, 0, 100, 3840}, 1}};
    for (const auto& [bounds, scale] : cases)
        EXPECT_EQ(Device3DCompositionLayer::renderScaleFor(bounds), scale);
}

TEST_F(DeviceInSpace, TakesTheStageOfItsPoolAndBringsItUpToDate) {
    Composition3DRendererPool kept;
    pool = &kept;
    const Picture front = drawn();
    device.scene3D->tiltDegrees = {0, 180, 0};
    device.placement = DevicePlacementSpec{.track = {{.tSec = 0, .offset = {0.1, 0}, .scale = 0.5}}};
    const Picture turned = drawn();
    kept.removeAll();
    EXPECT_EQ(turned, drawn()) << "as if it were built anew";
    device.scene3D->tiltDegrees = {};
    device.placement.reset();
    EXPECT_EQ(drawn(), front);
}

TEST(CoverCrop, KeepsTheMiddleInTheAspectOfTheScreen) {
    const struct {
        imaging::Size size;
        double aspect;
        imaging::Size expected;
        imaging::Point corner;   // in the picture
    } cases[] = {{{200, 100}, 0.5, {50, 100}, {75, 0}}, {{100, 200}, 1, {100, 100}, {0, 50}},
        {{100, 200}, 0.5, {100, 200}, {0, 0}}, {{4999, 10000}, 0.5, {4999, 10000}, {0, 0}},
        {{100, 200}, 0, {100, 200}, {0, 0}}};
    for (const auto& c : cases) {
        const Image card = testing::testCard({c.size.width / 10, c.size.height / 10}, 3)
                               .placedInto({0, 0, double(c.size.width), double(c.size.height)});
        const Image cut = coverCrop(card, c.aspect);
        EXPECT_EQ(cut.extent(), (Rect{0, 0, double(c.expected.width), double(c.expected.height)}));
        if (c.expected.width < 1000) {
            EXPECT_LE(Picture(cut, c.expected)
                          .distanceTo(Picture(card.translated(-c.corner.x, -c.corner.y), c.expected)),
                1);
        }
    }
}

}   // namespace
}   // namespace tavix
