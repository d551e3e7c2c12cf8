// A stage that goes on from document to document, against one that keeps nothing.
#include "TavixLive/Stage/Stage.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixLive/Stage/StageDocument.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Tests/RenderTestKit.h"
#include "TestSupport/SourceTree.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace tavix {
namespace {

using testing::Picture;

constexpr imaging::Size room{120, 200};

struct Film {
    std::filesystem::path bundle;
    CompositionSpec spec;
};

Film example(const char* name) {
    const auto bundle = testsupport::inSourceTree("Examples") / name;
    return {bundle, CompositionRoad::judge(CompositionProjectService::load(bundle).spec, bundle).spec};
}

Picture drawn(FrameSource& source, double sec, FrameQuality quality = FrameQuality::full) {
    return Picture(source.draw(sec, quality).pixels->view());
}

Picture drawnAnew(const Film& film, double sec) {
    Stage stage({.evaluation = {.threadCount = 1, .cacheBytes = 0}, .storeBytes = 0, .takesOver = false}, {});
    return drawn(*stage.source(film.spec, film.bundle, room), sec);
}

// Light edits, such as a hand makes them.
void edit(CompositionSpec& spec, std::mt19937& random) {
    CompositionScene& scene = spec.scenes[random() % spec.scenes.size()];
    if (scene.layers.empty()) return;
    CompositionLayer& layer = scene.layers[random() % scene.layers.size()];
    const double part = double(random() % 100) / 100;
    switch (random() % 5) {
    case 0: layer.opacity = 0.3 + part * 0.7; break;
    case 1: layer.position.x += 40 * part - 20; break;
    case 2: layer.fromSec = part * scene.durationSec / 2; break;
    case 3: scene.background = RGBAColor{part, 0.5, 1 - part, 1}; break;
    default:
        if (auto* text = std::get_if<TextContent>(&layer.content)) text->color = RGBAColor{1, part, 0, 1};
        if (auto* device = std::get_if<DeviceContent>(&layer.content); device && device->scene3D)
            device->scene3D->tiltDegrees.y += 30 * part - 15;
    }
}

TEST(Stage, ShowsWhatOneShowsThatKeepsNothingAfterEveryEdit) {
    for (const char* name : {"kinetic-type.tavixcomp", "hero-phone.tavixcomp", "on-the-beat.tavixcomp"}) {
        SCOPED_TRACE(name);
        Film film = example(name);
        std::mt19937 random(4);
        Stage stage({.evaluation = {.comparesStructures = true}}, {});
        const double totalSec = CompositionTimeline(film.spec).totalSec;
        std::vector<double> secs;
        for (int i = 0; i < 4; ++i) secs.push_back(totalSec * (i + 0.5) / 4);
        int stored = 0;
        for (int edits = 0; edits < 8; ++edits) {
            const FrameSourceRef source = stage.source(film.spec, film.bundle, room);
            for (const double sec : {secs[random() % 4], secs[random() % 4]}) {
                // A drag in between leaves nothing behind.
                drawn(*source, secs[random() % 4], FrameQuality::scrub);
                stored += source->isStored(sec);
                ASSERT_EQ(drawn(*source, sec).distanceTo(drawnAnew(film, sec)), 0) << edits << " at " << sec;
            }
            edit(film.spec, random);
        }
        EXPECT_GT(stored, 0);
    }
}

TEST(Stage, KeepsNoFrameOfADrag) {
    Film film = example("hero-phone.tavixcomp");
    Stage stage({}, {});
    std::size_t scene = 0, layer = 0;
    const DeviceContent* device = nullptr;
    for (std::size_t i = 0; i < film.spec.scenes.size() && device == nullptr; ++i)
        for (std::size_t j = 0; j < film.spec.scenes[i].layers.size() && device == nullptr; ++j) {
            device = std::get_if<DeviceContent>(&film.spec.scenes[i].layers[j].content);
            scene = i;
            layer = j;
            if (device && !device->scene3D) device = nullptr;
        }
    ASSERT_NE(device, nullptr);
    const double sec = CompositionTimeline(film.spec).startSec[scene] + 0.8;
    const FrameSourceRef source = stage.source(film.spec, film.bundle, room);
    stage.setLiveMode(true);
    DeviceScene3D turned = *device->scene3D;
    turned.tiltDegrees.y += 60;
    turned.poseTrack.clear();
    stage.liveApply({scene, layer}, turned, device->placement);
    const Picture dragged = drawn(*source, sec);
    EXPECT_FALSE(source->isStored(sec));
    stage.setLiveMode(false);
    const FrameSourceRef next = stage.source(film.spec, film.bundle, room);
    const Picture after = drawn(*next, sec);
    EXPECT_GT(after.countBeyond(dragged, 8), 0);
    EXPECT_EQ(after.distanceTo(drawnAnew(film, sec)), 0);
    EXPECT_TRUE(next->isStored(sec));
}

// Whatever is given up in between is read again.
TEST(Stage, ShowsTheSameAfterARest) {
    Film film = example("phone-tour.tavixcomp");
    Stage stage({}, {});
    std::mt19937 random(9);
    const double totalSec = CompositionTimeline(film.spec).totalSec;
    for (int edits = 0; edits < 6; ++edits) {
        const FrameSourceRef source = stage.source(film.spec, film.bundle, room);
        const double sec = totalSec * (edits + 0.5) / 6;
        if (edits % 2 == 0) source->rest();
        ASSERT_EQ(drawn(*source, sec).distanceTo(drawnAnew(film, sec)), 0) << edits;
        source->rest();
        ASSERT_EQ(drawn(*source, sec).distanceTo(drawnAnew(film, sec)), 0) << edits;
        edit(film.spec, random);
    }
}

TEST(Stage, ForgetsTheFramesOfAnotherSizeAtOnce) {
    const Film film = example("on-the-beat.tavixcomp");
    Stage stage({}, {});
    const FrameSourceRef before = stage.source(film.spec, film.bundle, room);
    drawn(*before, 1);
    EXPECT_GT(stage.storedBytes(), 0u);
    const FrameSourceRef same = stage.source(film.spec, film.bundle, room);
    EXPECT_TRUE(same->isStored(1));
    const FrameSourceRef larger = stage.source(film.spec, film.bundle, {240, 400});
    EXPECT_EQ(stage.storedBytes(), 0u);
    EXPECT_FALSE(larger->isStored(1) || before->isStored(1) || larger->hasRoom());
    drawn(*before, 1);   // until the other one is shown
    EXPECT_TRUE(before->isStored(1));
    drawn(*larger, 1);
    EXPECT_TRUE(larger->isStored(1));
    EXPECT_FALSE(before->isStored(1));
}

TEST(Stage, FitsTheCanvasIntoTheRoomAndNeverEnlargesIt) {
    const struct {
        imaging::Size canvas, room, stage;
    } cases[] = {{{1080, 1920}, {540, 960}, {540, 960}}, {{1920, 1080}, {540, 960}, {540, 304}},
        {{1080, 1920}, {4000, 960}, {540, 960}}, {{100, 50}, {540, 960}, {100, 50}},
        {{10000, 10}, {500, 500}, {500, 2}}, {{1, 1000}, {100, 100}, {1, 100}}};
    for (const auto& c : cases) EXPECT_EQ(stageSize(c.canvas, c.room), c.stage);
}

// A picture in its own pixels takes the same part of the canvas in every size.
TEST(Stage, ShowsAPictureInItsOwnPixelsAsLargeAsTheCanvasDoes) {
    testsupport::TemporaryFolder folder;
    imaging::Evaluator evaluator;
    media::writePng(folder.path() / "red.png",
        evaluator.draw(imaging::Image::solid({1, 0, 0, 1}).cropped({0, 0, 100, 50}), {0, 0, 100, 50}).view());
    CompositionLayer layer;
    layer.content = ImageContent{.path = "red.png", .heightFraction = {}, .sourceRect = {}};
    CompositionSpec spec = testing::specOf({400, 200}, 30, {testing::sceneOf(1, {layer})});
    Stage stage({}, {});
    const Picture small = drawn(*stage.source(spec, folder.path(), {200, 100}), 0);
    double red = 0;   // pixels, of which those at an edge count in part
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) red += small.at(x, y).r / 255.0;
    EXPECT_NEAR(red, 50 * 25, 2);
}

// However a device came to the stage, a drag of it is seen at once.
TEST(Stage, ShowsADragAfterTheStagesOfDevicesWereForgotten) {
    const Film film = example("hero-phone.tavixcomp");
    const auto& layers = film.spec.scenes[0].layers;
    std::size_t layer = 0;
    while (!(std::get_if<DeviceContent>(&layers[layer].content) &&
             std::get<DeviceContent>(layers[layer].content).scene3D))
        ASSERT_LT(++layer, layers.size());
    const auto& device = std::get<DeviceContent>(layers[layer].content);
    DeviceScene3D turned = *device.scene3D;
    turned.tiltDegrees.y += 60;
    turned.poseTrack.clear();
    Stage stage({}, {});
    drawn(*stage.source(film.spec, film.bundle, room), 0.8);
    stage.forgetDevices();
    const FrameSourceRef source = stage.source(film.spec, film.bundle, room);
    const Picture before = drawn(*source, 0.8);
    stage.liveApply({0, layer}, turned, device.placement);
    EXPECT_GT(drawn(*source, 0.8).countBeyond(before, 8), 100);
}

// A stage that shows what is clear shows squares there, and what is opaque to the byte as one that does not.
TEST(Stage, ShowsWhatIsClearAsSquares) {
    CompositionLayer layer;
    ShapeContent shape;
    shape.widthFraction = shape.heightFraction = 0.5;
    shape.fill = RGBAColor{1, 0, 0, 1};
    layer.content = shape;
    layer.position = {32, 32};
    CompositionSpec spec = testing::specOf({64, 64}, 30, {testing::sceneOf(1, {layer})});
    const auto drawnOn = [&](bool showsClear, double alpha) {
        spec.background = RGBAColor{0, 0, 1, alpha};
        Stage stage({.storeBytes = 0, .showsClear = showsClear}, {});
        return drawn(*stage.source(spec, std::nullopt, {64, 64}), 0);
    };
    EXPECT_EQ(drawnOn(true, 1), drawnOn(false, 1));
    const Picture clear = drawnOn(true, 0), black = drawnOn(false, 0);
    EXPECT_EQ(black.at(3, 3), (testing::Pixel{0, 0, 0, 255}));
    EXPECT_EQ(clear.at(32, 32), (testing::Pixel{255, 0, 0, 255}));
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x + 8 < 16; ++x) {
            EXPECT_NE(clear.at(x, y), clear.at(x + 8, y)) << "square by square";
            EXPECT_EQ(clear.at(x, y).r, clear.at(x, y).b);
        }
}

}   // namespace
}   // namespace tavix
