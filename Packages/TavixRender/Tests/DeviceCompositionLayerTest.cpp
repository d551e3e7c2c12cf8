#include "TavixRender/Composition2D/DeviceCompositionLayer.h"
#include "RenderTestKit.h"
#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Compositor/DeviceFrame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace tavix {
namespace {

using imaging::Color;
using imaging::Image;
using testing::Picture;
using testing::Pixel;

constexpr Pixel clear{}, black{0, 0, 0, 255}, red{255, 0, 0, 255}, green{0, 255, 0, 255},
    blue{0, 0, 255, 255};
constexpr imaging::Size canvas{200, 300};

// A green frame of 100 x 200 whose hole is 80 x 160, a red screen, and a canvas on which the frame has its
// own size: its top left is at (50, 50). Nothing comes with the program.
class FlatDevice : public ::testing::Test {
protected:
    FlatDevice() {
        setenv("TAVIX_RESOURCES", (folder.path() / "share").c_str(), 1);
        const Image hole = Image::solid(Color::white()).cropped({10, 20, 80, 160});
        const Image solid = Image::solid({0, 1, 0, 1}).cropped({0, 0, 100, 200});
        write("frame.png", Image().blendedWithMask(solid, hole), {100, 200});
        write("screen.png", Image::solid({1, 0, 0, 1}), {40, 80});
        device.mockup = {
            .framePath = "frame.png", .screen = {0.1, 0.1, 0.8, 0.8}, .screenCornerRadiusFraction = 0};
        device.screen = StillScreen{"screen.png"};
        device.basePaddingPx = 50;
    }
    ~FlatDevice() override { unsetenv("TAVIX_RESOURCES"); }

    void write(const std::string& name, const Image& image, imaging::Size size) {
        const auto file = folder.path() / name;
        std::filesystem::create_directories(file.parent_path());
        imaging::Evaluator evaluator;
        media::writePng(file, evaluator.draw(image, {0, 0, size.width, size.height}).view());
    }
    // One second: white for half of it, then red.
    void writeClip(const std::string& name) {
        media::MovieWriter writer({.path = folder.path() / name, .sizePx = {64, 128}, .frameDuration = 60});
        for (int i = 0; i < 10; ++i) {
            media::MovieWriter::Slot& slot = writer.acquire();
            const int white[] = {235, 128, 128}, redYuv[] = {63, 102, 240};
            for (int plane = 0; plane < 3; ++plane)
                for (int y = 0; y < (plane == 0 ? 128 : 64); ++y)
                    std::memset(slot.planes.planes[plane] + y * slot.planes.strideBytes[plane],
                        i < 5 ? white[plane] : redYuv[plane], plane == 0 ? 64 : 32);
            writer.submit(slot, i * 60);
        }
        writer.finish();
    }
    void place(const NormalizedVec2& offset, double scale) {
        device.placement = DevicePlacementSpec{.track = {{.tSec = 0, .offset = offset, .scale = scale}}};
    }
    // Over a blue canvas, perhaps after another frame.
    Picture drawn(double atSec = 0, std::optional<double> afterSec = {}) {
        CompositionLayer layer;
        layer.content = device;
        CompositionSpec spec = testing::specOf(canvas, 30, {testing::sceneOf(2, {layer})});
        spec.background = RGBAColor{0, 0, 1, 1};
        imaging::Evaluator evaluator;
        ResolvedComposition resolved(spec, folder.path(), evaluator, testing::messagesTo(log));
        if (afterSec) resolved.frame(*afterSec);
        return Picture(resolved.frame(atSec), canvas);
    }

    testing::TemporaryFolder folder;
    DeviceContent device;
    std::vector<std::string> log;
};

TEST_F(FlatDevice, ShowsItsScreenThroughItsFrame) {
    const Picture picture = drawn();
    EXPECT_EQ(picture.at(49, 150), blue);
    EXPECT_EQ(picture.at(50, 50), green);
    EXPECT_EQ(picture.at(149, 249), green);
    EXPECT_EQ(picture.at(60, 70), red);
    EXPECT_EQ(picture.at(139, 229), red);
    EXPECT_EQ(picture.at(140, 150), green);
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST_F(FlatDevice, StandsWhereItsPlacementSays) {
    place({0.1, -0.2}, 0.5);   // its middle at (130, 90)
    const Picture picture = drawn();
    EXPECT_EQ(picture.at(130, 90), red);
    EXPECT_EQ(picture.at(107, 42), green);
    EXPECT_EQ(picture.at(103, 90), blue);
    EXPECT_EQ(picture.at(130, 142), blue);
}

TEST_F(FlatDevice, MovesAlongASpring) {
    device.placement = DevicePlacementSpec{
        .track = {{.tSec = 0, .offset = {0, -0.2}}, {.tSec = 0.5}}, .responseSec = 0.4, .damping = 1};
    const auto topOfFrame = [&](double atSec) {
        const Picture picture = drawn(atSec);
        for (int y = 0; y < canvas.height; ++y)
            if (picture.at(100, y).g > 200) return y;
        return canvas.height;
    };
    EXPECT_LT(topOfFrame(0), 1);
    EXPECT_GT(topOfFrame(0.2), 5);
    EXPECT_LT(topOfFrame(0.2), 48);
    EXPECT_NEAR(topOfFrame(1.9), 50, 1);
}

// One picture that is moved, or parts that are moved each by themselves: people must not see which.
TEST_F(FlatDevice, LooksTheSameInOnePieceAndInParts) {
    write("screen.png", testing::testCard({160, 320}, 7).gaussianBlurred(6).cropped({0, 0, 160, 320}),
        {160, 320});
    device.mockup.screenCornerRadiusFraction = 0.2;
    for (const double scale : {1.0, 0.8, 0.37}) {
        place({0.031, 0.017}, scale);
        const Picture whole = drawn();
        device.screenOpacity = {testing::keyframe(0, 1)};
        const Picture parts = drawn();
        device.screenOpacity.clear();
        EXPECT_LT(whole.distanceTo(parts), 90) << scale;
        EXPECT_LT(whole.countBeyond(parts, 12), 400) << scale;   // along the edges of the opening
        EXPECT_NE(whole.at(100, 150), blue);
    }
}

TEST_F(FlatDevice, FadesItsScreenToBlackAndNotItsFrame) {
    device.screenOpacity = {testing::keyframe(0, 1), testing::keyframe(1, -0.5)};
    device.screenOpacity.push_back({.t = 0, .value = 0, .atMark = MarkRef{"never found", {}, 0}});
    EXPECT_EQ(drawn(0).at(100, 150), red);
    EXPECT_NEAR(drawn(1.0 / 3).at(100, 150).r, 128, 2);
    EXPECT_EQ(drawn(1.0 / 3).at(100, 150).a, 255);
    EXPECT_EQ(drawn(1).at(100, 150), black);
    EXPECT_EQ(drawn(1).at(55, 150), green);
}

TEST_F(FlatDevice, PlaysAClipAndHoldsItsLastFrame) {
    writeClip("clip.mp4");
    device.screen = VideoClip{.path = "clip.mp4", .trimStartSec = 0.2};
    place({0.05, 0}, 0.9);
    const auto isWhite = [&](double atSec, std::optional<double> afterSec = {}) {
        const Pixel screen = drawn(atSec, afterSec).at(115, 150);
        EXPECT_GT(screen.r, 245) << atSec;
        return screen.g > 245;
    };
    EXPECT_TRUE(isWhite(0));
    EXPECT_TRUE(isWhite(0.29));
    EXPECT_FALSE(isWhite(0.31));
    EXPECT_FALSE(isWhite(1.9));
    std::get<VideoClip>(device.screen).trimEndSec = 0.4;
    EXPECT_TRUE(isWhite(1.9, 0.1));
    device.screenOpacity = {testing::keyframe(0, 0)};
    EXPECT_EQ(drawn(0.1).at(115, 150), black);
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST_F(FlatDevice, RoundsItsScreen) {
    device.mockup.screenCornerRadiusFraction = 0.25;   // 20 pixels
    const Picture picture = drawn();
    EXPECT_EQ(picture.at(61, 71), blue);
    EXPECT_EQ(picture.at(80, 71), red);
    EXPECT_EQ(picture.at(67, 77), red);
}

TEST_F(FlatDevice, ShowsNothingWithoutItsScreen) {
    device.screen = StillScreen{"lost.png"};
    EXPECT_EQ(drawn().at(50, 50), blue);
    EXPECT_THAT(log, ::testing::ElementsAre(::testing::HasSubstr("lost.png")));
}

TEST_F(FlatDevice, IsFlatWhereItCannotBeDrawnInSpace) {
    device.scene3D.emplace();
    EXPECT_EQ(drawn().at(100, 150), red);
    EXPECT_THAT(log,
        ::testing::ElementsAre(
            "scene3D requested but the 3D device pass is unavailable (no model/GPU) — rendering the flat mockup."));
}

TEST_F(FlatDevice, TakesTheFirstFrameThatCanBeRead) {
    const auto sky = *DeviceCatalog::device("iphone-air-sky-blue");
    const auto colorOf = [&] {
        StillImageCache images({});
        const Image frame = CanvasDrawing::resolveFrameImage(device.mockup, folder.path(), images);
        return frame.isEmpty() ? clear : Picture(frame, {2, 2}).at(0, 0);
    };
    device.mockup.bundledID = sky.id;
    EXPECT_EQ(colorOf(), green);
    device.mockup.framePath = "lost.png";
    EXPECT_EQ(colorOf(), clear);
    const auto share = std::string("share/device-frames/");
    write(share + DeviceCatalog::defaultDevice().resourceName + ".png", Image::solid({1, 1, 1, 1}), {8, 16});
    EXPECT_EQ(colorOf(), (Pixel{255, 255, 255, 255}));
    write(share + sky.resourceName + ".png", Image::solid({1, 0, 0, 1}), {8, 16});
    EXPECT_EQ(colorOf(), red);
    device.mockup.bundledID = "no-such-phone";
    EXPECT_EQ(colorOf(), (Pixel{255, 255, 255, 255}));
}

TEST_F(FlatDevice, AFrameThatWasReplacedIsReadAgain) {
    const auto colorAfterWriting = [&](const Color& color) {
        write("frame.png", Image::solid(color), {100, 200});
        std::filesystem::last_write_time(folder.path() / "frame.png", std::filesystem::file_time_type{});
        StillImageCache images({});
        return Picture(CanvasDrawing::resolveFrameImage(device.mockup, folder.path(), images), {2, 2})
            .at(0, 0);
    };
    EXPECT_EQ(colorAfterWriting({1, 0, 0, 1}), red);
    EXPECT_EQ(colorAfterWriting({0, 1, 0, 1}), green);
}

TEST_F(FlatDevice, FitsItsFrameIntoThePaddedCanvas) {
    const auto fitted = [&](double padding, imaging::Size size) {
        StillImageCache images({});
        return CanvasDrawing::resolveDevice(
            device.mockup, padding, {0, 0, double(size.width), double(size.height)}, folder.path(), images);
    };
    EXPECT_EQ(fitted(10, {1000, 220}).frameRect, (PixelRect{450, 10, 100, 200}));
    EXPECT_EQ(fitted(10, {70, 1000}).frameRect, (PixelRect{10, 450, 50, 100}));
    EXPECT_EQ(fitted(10, {70, 1000}).screenRect, (PixelRect{15, 460, 40, 80}));
    // Without a picture the catalog's shape stands in, so that the screen is still seen.
    device.mockup.framePath = "lost.png";
    EXPECT_NEAR(fitted(0, {1000, 1000}).frameRect.width, 498.2, 1e-9);
    EXPECT_TRUE(fitted(0, {1000, 1000}).picture.isEmpty());
}

// A preview keeps the frame in the size in which it shows it; what is seen is what a film shows, and a frame
// whose file has changed is another one.
TEST_F(FlatDevice, LooksInAPreviewAsInAFilm) {
    const auto writeFrame = [&](const Color& left, const Color& right) {
        const Image all = Image::smoothLinearGradient({0, 0}, left, {1000, 300}, right);
        const Image outside =
            Image::roundedRectangle({0, 0, 1000, 2000}, 120, Color::white()).cropped({0, 0, 1000, 2000});
        const Image hole = Image::roundedRectangle({100, 200, 800, 1600}, 90, Color::white());
        write(
            "large.png", Image().blendedWithMask(all.blendedWithMask(Image(), outside), hole), {1000, 2000});
    };
    writeFrame({0, 1, 0, 1}, {0.2, 0.3, 0.9, 1});
    writeClip("clip.mp4");
    device.mockup.framePath = "large.png";
    imaging::Evaluator evaluator;
    Composition3DRendererPool pool;
    BuildMemory memory;
    const auto shown = [&](bool isPreview) {
        CompositionLayer layer;
        layer.content = device;
        CompositionSpec spec = testing::specOf(canvas, 30, {testing::sceneOf(2, {layer})});
        spec.background = RGBAColor{0, 0, 1, 1};
        ResolvedComposition resolved(spec, folder.path(), evaluator, testing::messagesTo(log),
            isPreview ? &pool : nullptr, isPreview ? &memory : nullptr);
        return Picture(resolved.frame(0.2), canvas);
    };
    for (const ScreenSource& screen :
        {ScreenSource(StillScreen{"screen.png"}), ScreenSource(VideoClip{"clip.mp4", 0, {}, {}})})
        for (const double scale : {1.0, 1.9}) {
            device.screen = screen;
            place({0.03, -0.02}, scale);
            const Picture film = shown(false);
            for (int again = 0; again < 2; ++again) EXPECT_LE(shown(true).distanceTo(film), 2) << scale;
            EXPECT_TRUE(scale != 1 || film.at(62, 150) != blue) << "there is a frame to be seen";
        }
    const Picture before = shown(true);
    writeFrame({1, 0, 0, 1}, {1, 1, 0, 1});
    EXPECT_GT(shown(true).countBeyond(before, 20), 100);
    EXPECT_LE(shown(true).distanceTo(shown(false)), 2);
}

}   // namespace
}   // namespace tavix
