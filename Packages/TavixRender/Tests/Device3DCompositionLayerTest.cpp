// The 3D device as a layer of a composition.
#include "TavixRender/Composition2D/Device3DCompositionLayer.h"
#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"
#include "TestAssets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <utility>

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
        return {spec, folder.path(), evaluator, testing::messagesTo(log), pool};
    }
    // As a preview goes from edit to edit.
    Picture drawnWarm(Composition3DRendererPool& stages, BuildMemory& memory, double sec = 0) {
        CompositionLayer layer;
        layer.content = device;
        CompositionSpec spec = testing::specOf(canvas, 30, {testing::sceneOf(2, {layer})});
        return Picture(
            ResolvedComposition(spec, folder.path(), evaluator, {}, &stages, &memory).frame(sec), canvas);
    }
    Picture drawn(double sec = 0) { return Picture(resolved().frame(sec), canvas); }

    testing::TemporaryFolder folder;
    DeviceContent device;
    imaging::Evaluator evaluator;
    std::vector<std::string> log;
    Composition3DRendererPool* pool = nullptr;
};

constexpr Pixel red{255, 0, 0, 255}, blue{0, 0, 255, 255};

TEST_F(DeviceInSpace, StandsInTheFrame) {
    ResolvedComposition composition = resolved();
    EXPECT_TRUE(composition.hasDevicesInSpace());
    EXPECT_EQ(Picture(composition.frame(0), canvas).at(60, 107), red);
    EXPECT_EQ(composition.frame(0.4).hash(), composition.frame(1).hash()) << "nothing moves";
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST_F(DeviceInSpace, IsFlatWithoutAModelAndSaysSo) {
    setenv("TAVIX_RESOURCES", folder.path().c_str(), 1);
    EXPECT_FALSE(resolved().hasDevicesInSpace());
    EXPECT_EQ(drawn().at(60, 107), red);
    EXPECT_THAT(log,
        ::testing::Contains(
            "scene3D requested but the 3D device pass is unavailable (no model/GPU) — rendering the flat mockup."));
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

// A stage that is set up, and a canvas that is large, take longer than a frame anywhere.
TEST_F(DeviceInSpace, TellsAPreviewWhatASlowPictureTook) {
    const auto drawLarge = [&] {
        CompositionLayer layer;
        layer.content = device;
        const CompositionSpec spec = testing::specOf({2160, 3840}, 30, {testing::sceneOf(2, {layer})});
        log.clear();
        ResolvedComposition(spec, folder.path(), evaluator, testing::messagesTo(log), pool).frame(0.5);
    };
    drawLarge();
    EXPECT_THAT(log, ::testing::IsEmpty()) << "it is no preview";
    Composition3DRendererPool kept;
    pool = &kept;
    drawLarge();
    ASSERT_EQ(log.size(), 1u);
    EXPECT_THAT(
        log[0], ::testing::MatchesRegex("dev3D u=0\\.50 decode=[0-9]+ms rk=[0-9]+ms raster=[0-9]+ms"));
}

// Two phones side by side that turn apart. Nothing in their names keeps them from sharing a stage.
TEST_F(DeviceInSpace, ShowsEveryPhoneOfAFilmAsAStillDoesWhateverTheyAreCalled) {
    const std::pair<std::optional<std::string>, std::optional<std::string>> names[] = {
        {"hero", "hero"}, {"1", std::nullopt}, {std::nullopt, "0"}, {"", ""}};
    for (const auto& [left, right] : names) {
        const auto phone = [&](const std::optional<std::string>& id, double side) {
            CompositionLayer layer;
            layer.id = id;
            DeviceContent content = device;
            content.placement =
                DevicePlacementSpec{.track = {{.tSec = 0, .offset = {0.14 * side, 0}, .scale = 0.5}}};
            content.scene3D->poseTrack = {{0, {0, 20 * side, 0}}, {1, {0, 75 * side, 0}}};
            layer.content = content;
            return layer;
        };
        const CompositionSpec spec =
            testing::specOf(canvas, 30, {testing::sceneOf(2, {phone(left, -1), phone(right, 1)})});
        for (const bool isPooled : {true, false}) {
            Composition3DRendererPool kept;
            ResolvedComposition film(spec, folder.path(), evaluator, {}, isPooled ? &kept : nullptr);
            for (const double sec : {0.0, 0.3, 0.6, 0.9}) {
                Composition3DRendererPool own;
                ResolvedComposition alone(spec, folder.path(), evaluator, {}, isPooled ? &own : nullptr);
                const Picture still(alone.frame(sec), canvas);
                EXPECT_EQ(Picture(film.frame(sec), canvas), still) << sec;
                EXPECT_GT(still.at(27, 107).r, 100) << sec << " the left one";
                EXPECT_GT(still.at(93, 107).r, 100) << sec << " the right one";
            }
        }
    }
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

// A drag shows other values on the stage that the layer of the next build goes on with.
TEST_F(DeviceInSpace, ShowsItsOwnValuesAgainAfterADragThatCameToNothing) {
    Composition3DRendererPool stages;
    BuildMemory memory;
    const Picture before = drawnWarm(stages, memory);
    DeviceScene3D dragged = *device.scene3D;
    dragged.tiltDegrees.y = 50;
    stages.liveApply({0, 0}, dragged, std::nullopt);
    EXPECT_EQ(drawnWarm(stages, memory).distanceTo(before), 0);
}

TEST_F(DeviceInSpace, IsTheSameOnAWarmMemoryAfterEveryEdit) {
    Composition3DRendererPool stages;
    BuildMemory memory;
    testing::writeTestAssets(folder.path(), 0, 1);
    const VideoClip clip{testing::clipName(0), 0.3, {}, {}};
    const std::pair<double, ScreenSource> edits[] = {{0, StillScreen{"screen.png"}}, {20, clip}, {20, clip},
        {-35, clip}, {0, VideoClip{clip.path, 0.9, {}, {}}}, {10, StillScreen{"screen.png"}}};
    for (double sec = 0.2; const auto& [yaw, screen] : edits) {
        sec = std::fmod(sec + 0.7, 1.5);
        device.screen = screen;
        device.scene3D->tiltDegrees.y = yaw;
        device.placement = DevicePlacementSpec{{{0, {yaw / 300, 0}, 1, {}, {}}}};
        Composition3DRendererPool coldStages;
        BuildMemory cold;
        EXPECT_EQ(drawnWarm(stages, memory, sec).distanceTo(drawnWarm(coldStages, cold, sec)), 0) << yaw;
    }
}

// The scene that comes next, and as many others as are kept ready; and no pixel of what is drawn changes.
TEST_F(DeviceInSpace, IsSetUpBeforeItIsSeen) {
    testing::writeTestAssets(folder.path(), 0, 1);
    CompositionSpec spec = testing::specOf(canvas, 30, {});
    constexpr int sceneCount = 7;
    for (int i = 0; i < sceneCount; ++i) {
        CompositionLayer layer;
        device.screen = VideoClip{testing::clipName(0), i * 0.1, {}, {}};
        layer.content = device;
        spec.scenes.push_back(testing::sceneOf(0.5, {layer}));
    }
    Composition3DRendererPool stages;
    BuildMemory memory;
    ResolvedComposition composition(spec, folder.path(), evaluator, {}, &stages, &memory);
    EXPECT_FALSE(composition.prepare(0.1)) << "the first picture comes first";
    const Picture first(composition.frame(0.1), canvas);
    int setUp = 0;
    while (composition.prepare(0.1) && setUp < 100) ++setUp;
    EXPECT_EQ(setUp, 3) << "beside the scene that is shown";
    EXPECT_EQ(Picture(composition.frame(0.1), canvas), first);
    for (const double sec : {0.6, 3.1, 2.6}) {
        const Picture drawn(composition.frame(sec), canvas);
        while (composition.prepare(sec)) {}
        Composition3DRendererPool coldStages;
        BuildMemory cold;
        ResolvedComposition other(spec, folder.path(), evaluator, {}, &coldStages, &cold);
        EXPECT_EQ(Picture(other.frame(sec), canvas).distanceTo(drawn), 0) << sec;
    }
}

// Three phones with one clip, which two of them show at the same time.
TEST_F(DeviceInSpace, ShowsItsOwnTimeOfAClipThatOthersShowToo) {
    testing::writeTestAssets(folder.path(), 0, 1);
    device.screen = VideoClip{testing::clipName(0), 0, {}, {}};
    CompositionSpec all = testing::specOf(canvas, 30, {testing::sceneOf(2, {})});
    for (const double fromSec : {0.0, 0.4, 0.4}) {
        CompositionLayer& layer = all.scenes[0].layers.emplace_back(
            all.scenes[0].layers.empty() ? CompositionLayer{} : all.scenes[0].layers.back());
        const double at = double(all.scenes[0].layers.size());
        device.placement = DevicePlacementSpec{{{0, {at / 4 - 0.5, 0}, 0.4, {}, {}}}};
        layer.content = device;
        layer.position = {canvas.width / 2.0, canvas.height / 2.0};
        layer.fromSec = fromSec;
    }
    Composition3DRendererPool stages;
    BuildMemory memory;
    ResolvedComposition together(all, folder.path(), evaluator, {}, &stages, &memory);
    for (const double sec : {0.5, 1.7}) {
        const Picture drawn(together.frame(sec), canvas);
        for (std::size_t i = 0; i < 3; ++i) {
            CompositionSpec alone = all;
            alone.scenes[0].layers = {all.scenes[0].layers[i]};
            Composition3DRendererPool ownStages;
            BuildMemory own;
            ResolvedComposition single(alone, folder.path(), evaluator, {}, &ownStages, &own);
            const int x = canvas.width / 2 + int((double(i + 1) / 4 - 0.5) * canvas.height);
            EXPECT_EQ(
                drawn.at(x, canvas.height / 2), Picture(single.frame(sec), canvas).at(x, canvas.height / 2))
                << "phone " << i << " at " << sec;
        }
    }
}

// Within 0.12 s of the picture that was decoded last a scrub shows that one; a screen in a flat layer is
// exact in any case.
TEST_F(DeviceInSpace, HoldsItsScreenWhileSomeoneScrubs) {
    // Grows brighter with every frame.
    media::tests::makeClip({.path = folder.path() / "dawn.mp4",
        .times = media::tests::evenTimes(60),
        .gop = 15,
        .paint = [](AVFrame& frame, int index) {
            media::tests::fillPlane(frame, 0, 40 + 3 * index);
            media::tests::fillPlane(frame, 1, 128);
            media::tests::fillPlane(frame, 2, 128);
        }});
    device.screen = VideoClip{"dawn.mp4", 0, {}, {}};
    Composition3DRendererPool stages;
    pool = &stages;
    ResolvedComposition composition = resolved();
    const auto at = [&](double sec) { return Picture(composition.frame(sec), canvas); };
    const Picture exact = at(0.5), later = at(0.6), muchLater = at(0.7);
    EXPECT_GT(later.countBeyond(exact, 4), 0);
    at(0.5);
    composition.setScrubQuality(true);
    EXPECT_EQ(at(0.6), exact) << "held";
    EXPECT_EQ(at(0.615), exact) << "since the picture was decoded, not since the last step";
    EXPECT_EQ(at(0.39), exact) << "to either side";
    EXPECT_GT(at(0.65).countBeyond(exact, 4), 0);
    composition.setScrubQuality(false);
    EXPECT_EQ(at(0.6), later);
    EXPECT_EQ(at(0.7), muchLater);

    CompositionLayer flat;
    flat.content = VideoContent{.clip = VideoClip{"dawn.mp4", 0, {}, {}}};
    const CompositionSpec spec = testing::specOf(canvas, 30, {testing::sceneOf(2, {flat})});
    Composition3DRendererPool others;
    ResolvedComposition plain(spec, folder.path(), evaluator, {}, &others);
    const Picture before(plain.frame(0.6), canvas);
    plain.frame(0.2);
    plain.setScrubQuality(true);
    EXPECT_EQ(Picture(plain.frame(0.6), canvas), before);
}

// What a preview's scrubs cost is told; a film that is written tells nothing of it.
TEST_F(DeviceInSpace, TellsAPreviewOfTheMapOfItsClip) {
    testing::writeTestAssets(folder.path(), 0, 1);
    device.screen = VideoClip{testing::clipName(0), 0, {}, {}};
    const auto isOfTheMap = [](const std::string& line) {
        return line.starts_with("sampleMap ") && line.find("built=") != std::string::npos &&
               line.find("samples=") != std::string::npos;
    };
    for (const bool isPreview : {true, false}) {
        Composition3DRendererPool stages;
        pool = isPreview ? &stages : nullptr;
        log.clear();
        ResolvedComposition composition = resolved();
        composition.frame(1.5);
        composition.frame(0.2);   // back
        EXPECT_EQ(std::ranges::count_if(log, isOfTheMap), isPreview ? 1 : 0);
    }
}

}   // namespace
}   // namespace tavix
