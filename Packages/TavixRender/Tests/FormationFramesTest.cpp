// Formations as they are seen: whole, in frames of every shape, each device with its own screen.
#include "RenderTestKit.h"
#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/FormationFit.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/Names.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tavix {
namespace {

using enum DeviceChoreographyPreset;
using imaging::Image;
using testing::Picture;
using testing::Pixel;

class FormationFrames : public ::testing::Test {
protected:
    FormationFrames() {
        imaging::Evaluator drawing;
        const auto write = [&](const char* name, const imaging::Color& color) {
            media::writePng(folder.path() / name,
                drawing.draw(Image::solid(color).cropped({0, 0, 46, 100}), {0, 0, 46, 100}).view());
        };
        write("red.png", {1, 0, 0, 1});
        write("green.png", {0, 1, 0, 1});
        source.id = "f";
    }

    Picture drawn(DeviceChoreographyPreset preset, imaging::Size size, double sec, std::int64_t count) {
        CompositionSpec spec = testing::specOf(size, 30, {testing::sceneOf(8, {})});
        spec.background = RGBAColor{0, 0, 1, 1};
        DeviceContent device;
        device.screen = StillScreen{"red.png"};
        device.screens = {StillScreen{"red.png"}, StillScreen{"green.png"}};
        device.basePaddingPx = 8;
        source.content = device;
        DeviceChoreographyParams params;
        params.count = count;
        spec.scenes[0].layers =
            DeviceChoreographyExpander::expand(preset, source, spec.output, params)->layers;
        fitToFrame(preset, spec.scenes[0].layers, spec.output);
        ResolvedComposition resolved(spec, folder.path(), evaluator, {});
        return Picture(resolved.frame(sec), size);
    }

    testing::TemporaryFolder folder;
    CompositionLayer source;
    imaging::Evaluator evaluator;
};

bool isGround(const Pixel& pixel) { return pixel.r < 24 && pixel.g < 24 && pixel.b > 230; }

int countBeside(const Picture& picture, int marginPx) {
    int count = 0;
    for (int y = 0; y < picture.size().height; ++y)
        for (int x = 0; x < picture.size().width; ++x) {
            const bool isInner = x >= marginPx && y >= marginPx && x < picture.size().width - marginPx &&
                                 y < picture.size().height - marginPx;
            count += !isInner && !isGround(picture.at(x, y));
        }
    return count;
}

// Once they have found their places, and before they leave.
TEST_F(FormationFrames, HoldEveryDeviceWhole) {
    const struct {
        DeviceChoreographyPreset preset;
        std::vector<double> secs;
    } cases[] = {{fanDeck, {0.2, 2, 2.8}}, {uiBurst, {2}}, {orbitCarousel, {0, 1, 2.4}},
        {colorwayDomino, {0.2, 3}}, {infiniteTunnel, {0.5}}, {screenCascade, {2.7}}, {splitFocus, {1.6, 2.6}},
        {depthWave, {0.9, 3.4}}};
    for (const auto& c : cases)
        for (const imaging::Size size : {imaging::Size{108, 192}, {192, 108}, {108, 108}})
            for (const double sec : c.secs) {
                SCOPED_TRACE(std::string(nameOf(c.preset)) + " at " + std::to_string(sec) + ", " +
                             std::to_string(size.width));
                const Picture picture = drawn(c.preset, size, sec, 4);
                EXPECT_EQ(countBeside(picture, 2), 0);
                EXPECT_GT(countBeside(picture, size.height), 40) << "there is something to see";
            }
}

// A narrow frame leaves room above and below, and a ring that stands in the midst of it leaves as much of it
// above as below.
TEST_F(FormationFrames, StandInTheMiddleOfATallFrame) {
    constexpr imaging::Size tall{108, 192};
    int top = tall.height, bottom = 0;
    for (double sec = 0.2; sec < 3.8; sec += 0.3) {
        const Picture picture = drawn(orbitCarousel, tall, sec, 5);
        for (int y = 0; y < tall.height; ++y)
            for (int x = 0; x < tall.width; ++x)
                if (!isGround(picture.at(x, y))) top = std::min(top, y), bottom = std::max(bottom, y);
    }
    EXPECT_NEAR(top, tall.height - 1 - bottom, 0.08 * tall.height);
}

// By their names alone, over and over in one film, with one pool: none takes another's phones.
TEST_F(FormationFrames, ShowTwoOfAKindAtOnce) {
    const auto spec = decodeJson<CompositionSpec>(R"({"output": {"widthPx": 192, "heightPx": 108, "fps": 30},
        "background": {"kind": "solid", "color": {"r": 0, "g": 0, "b": 1, "a": 1}},
        "scenes": [{"durationSec": 4, "layers": [
            {"kind": "device", "device": {"basePaddingPx": 8, "screen": {"path": "red.png"}, "choreographyPreset": {
                "preset": "fanDeck", "params": {"count": 3, "spread": 1.6}}}},
            {"kind": "device", "fromSec": 0.4, "device": {"basePaddingPx": 8, "screen": {"path": "green.png"}, "choreographyPreset": {
                "preset": "fanDeck", "params": {"count": 3, "spread": 0.4}}}}]}]})");
    constexpr imaging::Size size{192, 108};
    imaging::Evaluator filming;
    Composition3DRendererPool stages;
    ResolvedComposition film(spec, folder.path(), filming, {}, &stages);
    for (int frame = 48; frame < 54; ++frame) {
        SCOPED_TRACE(frame);
        const double sec = frame / 30.0;
        const Picture shown(film.frame(sec), size);
        int red = 0, green = 0;
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x) {
                const Pixel pixel = shown.at(x, y);
                red += pixel.r > 150 && pixel.g < 80;
                green += pixel.g > 150 && pixel.r < 80;
            }
        EXPECT_GT(red, 60);
        EXPECT_GT(green, 60);
        imaging::Evaluator drawing;
        ResolvedComposition still(spec, folder.path(), drawing, {});
        EXPECT_LT(shown.countBeyond(Picture(still.frame(sec), size), 24), size.width * size.height / 50)
            << "as alone, but for the samples";
    }
}

TEST_F(FormationFrames, ShowEachDevicesOwnScreen) {
    for (const auto preset : {fanDeck, splitFocus, depthWave, orbitCarousel}) {
        SCOPED_TRACE(nameOf(preset));
        const Picture picture = drawn(preset, {192, 108}, 2, 3);
        int red = 0, green = 0;
        for (int y = 0; y < 108; ++y)
            for (int x = 0; x < 192; ++x) {
                const Pixel pixel = picture.at(x, y);
                red += pixel.r > 150 && pixel.g < 80;
                green += pixel.g > 150 && pixel.r < 80;
            }
        EXPECT_GT(red, 60);
        EXPECT_GT(green, 60);
    }
}

}   // namespace
}   // namespace tavix
