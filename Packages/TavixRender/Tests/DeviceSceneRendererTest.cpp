// Pictures of the phone that comes with the program, small: what every frame keeps to.
#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"
#include "RenderTestKit.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <random>
#include <set>

namespace tavix {
namespace {

using imaging::Image;
using imaging::Rect;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Picture;
using testing::Pixel;
using Settings = DeviceSceneRenderer::Settings;

constexpr imaging::Size size{120, 214};
constexpr double heightFraction = 0.7;

Settings restingSettings() {
    Settings settings;
    settings.initialScene.driftDegrees = 0;
    settings.initialScene.tiltDegrees = {};
    settings.output = size;
    settings.deviceRect = {20, 30, 80, size.height * heightFraction};
    settings.backdrop = Image::solid(imaging::Color::clear());
    settings.smoothPose = true;
    return settings;
}

Settings movingSettings() {
    Settings settings = restingSettings();
    settings.initialScene.poseTrack = {{0, {8, -40, 0}}, {1, {-10, 200, 5}}, {2, {20, 30, 0}}};
    settings.placementSpec.track = {{0, {-0.1, 0.2}, 0.6, {}, {}}, {2, {0.1, 0}, 1.2, {}, {}}};
    settings.motionBlurGain = 0.35;
    settings.depthTrack = {{0, 0.3}, {2, 0.7}};
    return settings;
}

// What a picture holds in a rectangle: of the device, where nothing lies behind it.
struct Box {
    int left = size.width, top = size.height, right = 0, bottom = 0;   // half open
    double centerX() const { return (left + right) / 2.0; }
    double centerY() const { return (top + bottom) / 2.0; }
    int height() const { return bottom - top; }
};
Box boxOf(const Picture& picture) {
    Box box;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            if (picture.at(x, y).a >= 128)
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                    std::max(box.bottom, y + 1)};
    return box;
}

Image screenOf(const imaging::Color& color) { return Image::solid(color).cropped({0, 0, 60, 130}); }

class DeviceRenderer : public ::testing::Test {
protected:
    Picture drawn(DeviceSceneRenderer& renderer, double sec, const Image& screen) {
        return {renderer.render(screen, sec, {evaluator, log}), size};
    }
    Picture drawn(const Settings& settings, double sec = 0) {
        DeviceSceneRenderer renderer(settings);
        return drawn(renderer, sec, card);
    }

    imaging::Evaluator evaluator{{.threadCount = 2}};
    std::vector<std::string> lines;
    RenderLog log = testing::messagesTo(lines);
    const Image card = testing::testCard({60, 130}, 3);
};

TEST_F(DeviceRenderer, GivesTheSameFramesInAnyOrderOnAnyNumberOfThreads) {
    const std::vector<double> times{0, 0.4, 0.9, 1.3, 2};
    std::vector<Picture> forward;
    Settings settings = movingSettings();
    settings.darkroom = std::make_shared<DeviceDarkroom>(scene3d::RendererOptions{1});
    DeviceSceneRenderer one(settings);
    for (const double sec : times) forward.push_back(drawn(one, sec, card));
    for (const int threads : {2, 5}) {
        settings.darkroom = std::make_shared<DeviceDarkroom>(scene3d::RendererOptions{threads});
        DeviceSceneRenderer several(settings);
        for (std::size_t i = times.size(); i-- > 0;)
            EXPECT_EQ(drawn(several, times[i], card), forward[i]) << threads << " threads, " << times[i];
    }
    EXPECT_THAT(lines, ::testing::IsEmpty());
}

TEST_F(DeviceRenderer, StandsInTheMiddleAsTallAsItsFrame) {
    const Box box = boxOf(drawn(restingSettings()));
    EXPECT_NEAR(box.height(), size.height * heightFraction, 3);
    EXPECT_NEAR(box.centerX(), size.width / 2.0, 1.5);
    EXPECT_NEAR(box.centerY(), size.height / 2.0, 1.5);
}

TEST_F(DeviceRenderer, MovesByCanvasHeightsAndGrowsByItsScale) {
    Settings settings = restingSettings();
    settings.placementSpec.track = {{0, {0.1, -0.05}, 0.5, {}, {}}};
    const Box box = boxOf(drawn(settings));
    EXPECT_NEAR(box.height(), size.height * heightFraction * 0.5, 3);
    EXPECT_NEAR(box.centerX(), size.width / 2.0 + 0.1 * size.height, 1.5);
    EXPECT_NEAR(box.centerY(), size.height / 2.0 - 0.05 * size.height, 1.5) << "upwards";
}

TEST_F(DeviceRenderer, ComesNearerWithDepth) {
    const double usual = boxOf(drawn(restingSettings())).height();
    for (const double depth : {0.2, 0.5, 0.7}) {
        Settings settings = restingSettings();
        settings.depthTrack = {{0, depth}};
        // The front of the phone lies a little before the distance that counts.
        EXPECT_NEAR(boxOf(drawn(settings)).height(), usual / (1.5 - depth), 4) << depth;
    }
}

TEST_F(DeviceRenderer, ShowsTheColoursOfItsScreenUnchanged) {
    DeviceSceneRenderer renderer(restingSettings());
    std::mt19937 random(5);
    const auto channel = [&] { return int(random() % 256); };
    for (int i = 0; i < 24; ++i) {
        const Pixel color{channel(), channel(), channel(), 255};
        const Image screen = screenOf({color.r / 255.0, color.g / 255.0, color.b / 255.0, 1});
        const Pixel shown = drawn(renderer, i, screen).at(size.width / 2, size.height / 2);
        EXPECT_LE(
            std::max({std::abs(shown.r - color.r), std::abs(shown.g - color.g), std::abs(shown.b - color.b)}),
            1)
            << shown << " for " << color;
        EXPECT_EQ(shown.a, 255);
    }
}

TEST_F(DeviceRenderer, HasADarkScreenWhereItsPictureIsClear) {
    DeviceSceneRenderer renderer(restingSettings());
    EXPECT_EQ(drawn(renderer, 0, screenOf({1, 0, 0, 0})).at(60, 107), (Pixel{0, 0, 0, 255}));
}

TEST_F(DeviceRenderer, HidesItsScreenFromBehindAndShowsItsFinish) {
    Settings settings = restingSettings();
    settings.initialScene.tiltDegrees = {0, 180, 0};
    Pixel backs[3];
    for (const DeviceFinish finish :
        {DeviceFinish::silver, DeviceFinish::cosmicOrange, DeviceFinish::deepBlue}) {
        settings.initialScene.finish = finish;
        DeviceSceneRenderer renderer(settings);
        backs[int(finish)] = drawn(renderer, 0, screenOf({0, 1, 0, 1})).at(60, 130);
    }
    const auto& [silver, orange, blue] = backs;
    EXPECT_LT(std::abs(silver.r - silver.b), 20) << silver;
    EXPECT_GT(orange.r, 2 * orange.b) << orange;
    EXPECT_GT(blue.b, blue.r) << blue;
    EXPECT_GT(silver.g, blue.g + 40) << "a light back and a dark one";
}

TEST_F(DeviceRenderer, ShowsAChangeAppliedLiveAsIfItWereBuiltAnew) {
    const Settings moving = movingSettings();
    DeviceSceneRenderer renderer(restingSettings());
    drawn(renderer, 0, card);
    DeviceScene scene = moving.initialScene;
    scene.cameraDistance = 2.5;
    scene.fovDegrees = 30;
    scene.lightIntensity = 1.4;
    scene.keyLightDegrees = {-60, -20, 0};
    renderer.applyScene(scene, moving.placementSpec, moving.motionBlurGain, moving.depthTrack);
    Settings rebuilt = moving;
    rebuilt.initialScene = scene;
    for (const double sec : {0.0, 0.7, 1.6})
        EXPECT_EQ(drawn(renderer, sec, card), drawn(rebuilt, sec)) << sec;
    const Picture before = drawn(renderer, 1, card);
    renderer.applyScene(scene, moving.placementSpec);
    EXPECT_EQ(drawn(renderer, 1, card), before) << "blur and depth stay when they are not given";
}

TEST_F(DeviceRenderer, AppliesWhatComesBeforeTheFirstFrame) {
    DeviceSceneRenderer renderer(restingSettings());
    const Settings moving = movingSettings();
    renderer.applyScene(moving.initialScene, moving.placementSpec, moving.motionBlurGain, moving.depthTrack);
    EXPECT_EQ(drawn(renderer, 1, card), drawn(moving, 1));
}

TEST_F(DeviceRenderer, TurnsLive) {
    DeviceSceneRenderer renderer(restingSettings());
    drawn(renderer, 0, card);
    renderer.liveUpdateTilt({10, 50, 0});
    Settings turned = restingSettings();
    turned.initialScene.tiltDegrees = {10, 50, 0};
    EXPECT_EQ(drawn(renderer, 0, card), drawn(turned));
}

TEST_F(DeviceRenderer, KnowsFramesThatAreAlikeWithoutDrawingThem) {
    DeviceSceneRenderer renderer(movingSettings());
    const Image other = testing::testCard({60, 130}, 4);
    EXPECT_EQ(renderer.frameHash(card, 5), renderer.frameHash(card, 6)) << "all tracks have ended";
    EXPECT_NE(renderer.frameHash(card, 5), renderer.frameHash(other, 5));
    EXPECT_NE(renderer.frameHash(card, 0.5), renderer.frameHash(card, 0.6));
    const auto before = renderer.frameHash(card, 5);
    DeviceScene brighter = movingSettings().initialScene;
    brighter.lightIntensity = 2;
    renderer.applyScene(brighter, movingSettings().placementSpec);
    EXPECT_NE(renderer.frameHash(card, 5), before);
}

TEST_F(DeviceRenderer, KeepsItsScreenAtATimeThatIsLive) {
    DeviceSceneRenderer renderer(restingSettings());
    const auto middle = [&](const imaging::Color& color, double sec) {
        return drawn(renderer, sec, screenOf(color)).at(60, 107);
    };
    constexpr imaging::Color red{1, 0, 0, 1}, blue{0, 0, 1, 1};
    constexpr Pixel redPixel{255, 0, 0, 255}, bluePixel{0, 0, 255, 255};
    renderer.setLiveMode(true);
    EXPECT_EQ(middle(red, 1), redPixel);
    EXPECT_EQ(middle(blue, 1), redPixel);
    EXPECT_EQ(middle(blue, 1.1), bluePixel);
    renderer.setLiveMode(false);
    EXPECT_EQ(middle(red, 1.1), redPixel);
    renderer.setLiveMode(true);
    EXPECT_EQ(middle(blue, 1.1), bluePixel) << "switching it on forgets the time";
}

TEST_F(DeviceRenderer, LiesOverItsBackdrop) {
    Settings settings = restingSettings();
    settings.backdrop = Image::solid({0, 0, 1, 1});
    const Picture picture = drawn(settings), device = drawn(restingSettings());
    EXPECT_EQ(picture.at(2, 2), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(picture.at(60, 107), device.at(60, 107));
}

TEST_F(DeviceRenderer, DrawsMoreFinelyWithoutMovingAnything) {
    Settings settings = movingSettings();
    settings.motionBlurGain = 0;
    settings.quality = DeviceQuality::preview;
    const Picture plain = drawn(settings, 0.2);
    settings.quality = DeviceQuality::full;
    const Picture fine = drawn(settings, 0.2);
    EXPECT_LT(plain.countBeyond(fine, 48), size.width * size.height / 25) << "edges alone differ";
}

// The picture on the screen is drawn smaller in a preview, whatever its sides: neither its edges nor its
// colours show it.
TEST_F(DeviceRenderer, PreviewsHalveScreensThatHaveTexelsToSpare) {
    for (const imaging::Size texels :
        {imaging::Size{480, 1040}, imaging::Size{473, 1023}, imaging::Size{5, 1001}}) {
        const Rect extent{0, 0, double(texels.width), double(texels.height)};
        const Image halves = Image::stacked({Image::solid(imaging::Color{1, 0.2, 0.1, 1}).cropped(extent),
            Image::solid(imaging::Color{0.1, 0.4, 1, 1}).cropped({0, 0, extent.width, extent.height / 2})});
        Settings settings = restingSettings();
        settings.initialScene.tiltDegrees = {4, -20, 3};
        DeviceSceneRenderer full(settings);
        settings.quality = DeviceQuality::preview;
        DeviceSceneRenderer preview(settings);
        const Picture exact = drawn(full, 0, halves), quick = drawn(preview, 0, halves);
        EXPECT_LT(quick.countBeyond(exact, 24), size.width * size.height / 40) << texels.width;
    }
}

TEST(DevicePassPlan, LeavesAboutATexelAPixel) {
    for (double texels = 0.1; texels < 60; texels *= 1.1) {
        const double left = std::ldexp(texels, -halvingsOfScreen(texels));
        EXPECT_LT(left, 1.8) << texels;
        EXPECT_GE(left, std::min(texels, 0.9)) << texels;
        EXPECT_TRUE(texels >= 1.8 || left == texels) << texels;
    }
    EXPECT_EQ(halvingsOfScreen(0), 0);
}

// What an edge has of steps between nothing and all. Four samples a pixel give five.
TEST_F(DeviceRenderer, HasSmoothEdgesOnLargeCanvasesToo) {
    for (const imaging::Size canvas : {size, imaging::Size{2060, 214}}) {
        Settings settings = restingSettings();
        settings.output = canvas;
        settings.initialScene.tiltDegrees = {10, 35, 8};
        DeviceSceneRenderer renderer(settings);
        const Picture picture(renderer.render(card, 0, {evaluator, log}), canvas);
        std::set<int> coverages;
        for (int y = 0; y < canvas.height; ++y)
            for (int x = 0; x < canvas.width; ++x) coverages.insert(picture.at(x, y).a);
        EXPECT_GE(coverages.size(), 16u) << canvas.width;
    }
}

class DeviceModels : public DeviceRenderer {
protected:
    ~DeviceModels() override { unsetenv("TAVIX_RESOURCES"); }
    void give(const std::string& model) {
        std::filesystem::create_directories(folder.path() / "models");
        std::ofstream(folder.path() / "models" / "device-phone.glb", std::ios::binary) << model;
        setenv("TAVIX_RESOURCES", folder.path().c_str(), 1);
    }
    testing::TemporaryFolder folder;
};

TEST_F(DeviceModels, ThatAreBrokenShowTheBackdropAndSaySoOnce) {
    give("this is no model");
    Settings settings = restingSettings();
    settings.backdrop = Image::solid({0, 0, 1, 1});
    DeviceSceneRenderer renderer(settings);
    for (const double sec : {0.0, 1.0})
        EXPECT_EQ(drawn(renderer, sec, card).at(60, 107), (Pixel{0, 0, 255, 255}));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], ::testing::StartsWith("The device scene failed to build ("));
    EXPECT_THAT(lines[0], ::testing::EndsWith("); frames render backdrop-only"));
}

TEST_F(DeviceModels, WithoutAScreenOrMissingShowTheBackdropAndSaySo) {
    setenv("TAVIX_RESOURCES", folder.path().c_str(), 1);
    EXPECT_EQ(drawn(restingSettings()).at(60, 107), (Pixel{0, 0, 0, 0}));
    give(testing::triangleModel("body_color1"));
    EXPECT_EQ(drawn(restingSettings()).at(60, 107), (Pixel{0, 0, 0, 0}));
    EXPECT_THAT(lines, ElementsAre(HasSubstr("model is not there"), HasSubstr("model has no screen")));
}

TEST_F(DeviceRenderer, TellsOfAFrameThatCannotBeDrawnAndOfAScreenThatStays) {
    std::vector<Finding> told;
    log = testing::findingsTo(told);
    Settings endless = restingSettings();
    endless.output = {scene3d::Pass::mostSidePx + 1, 8};
    DeviceSceneRenderer(endless).render(card, 0, {evaluator, log});
    // A texture of more pixels than a bitmap can have.
    const Image wide = Image::solid({1, 1, 1, 1}).cropped({0, 0, imaging::Bitmap::maxSidePx * 64.0, 1});
    DeviceSceneRenderer still(restingSettings());
    for (const double sec : {0.0, 1.0}) still.render(wide, sec, {evaluator, log});
    ASSERT_EQ(told.size(), 2u) << "each once";
    EXPECT_EQ(told[0].code, RenderCode::phoneNotDrawn);
    EXPECT_THAT(told[0].message, HasSubstr("A frame of the device in 3D is not drawn: A picture of"));
    EXPECT_EQ(told[1].code, RenderCode::screenNotUpdated);
}

using Pool = Composition3DRendererPool;

Pool::Renderer someRenderer() { return std::make_shared<DeviceSceneRenderer>(restingSettings()); }

TEST(RendererPool, HandsOutOnlyWhatFitsAndGivesUpTheRest) {
    const Pool::Invariants fitting{1080, 1920, 30, {10, 20, 300, 600}, DeviceFinish::silver};
    Pool::Invariants others[] = {fitting, fitting, fitting, fitting, fitting};
    others[0].canvasW = 1081;
    others[1].canvasH = 1919;
    others[2].fps = 60;
    others[3].deviceRect.height = 601;
    others[4].finish = DeviceFinish::deepBlue;
    for (const Pool::Invariants& other : others) {
        Pool pool;
        const Pool::Renderer kept = someRenderer();
        constexpr Pool::Key place{1, 11}, neighbour{11, 1};
        pool.store(place, fitting, kept);
        EXPECT_EQ(pool.checkout(neighbour, fitting), nullptr);
        EXPECT_EQ(pool.checkout(place, fitting), kept);
        EXPECT_EQ(pool.checkout(place, fitting), kept) << "it stays";
        EXPECT_EQ(pool.checkout(place, other), nullptr);
        EXPECT_EQ(pool.checkout(place, fitting), nullptr) << "it is gone";
    }
}

TEST(RendererPool, AppliesLiveToTheLayerOfThatKey) {
    Pool pool;
    const Pool::Renderer one = someRenderer(), other = someRenderer();
    pool.store({0, 1}, {}, one);
    pool.store({0, 2}, {}, other);
    const Image card = testing::testCard({60, 130}, 3);
    const auto before = one->frameHash(card, 0), otherBefore = other->frameHash(card, 0);
    DeviceScene3D turned;
    turned.tiltDegrees = {0, 77, 0};
    pool.liveApply({2, 0}, turned, {});
    EXPECT_EQ(one->frameHash(card, 0), before);
    pool.liveApply({0, 1}, turned, {});
    EXPECT_NE(one->frameHash(card, 0), before);
    EXPECT_EQ(other->frameHash(card, 0), otherBefore);
    pool.removeAll();
    EXPECT_EQ(pool.checkout({0, 1}, {}), nullptr);
}

}   // namespace
}   // namespace tavix
