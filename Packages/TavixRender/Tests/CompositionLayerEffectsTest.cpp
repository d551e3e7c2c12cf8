#include "TavixRender/Composition2D/CompositionLayerEffects.h"
#include "RenderTestKit.h"
#include "TavixCore/Typography/KineticNoise.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using imaging::Image;
using imaging::Rect;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size size{80, 50};
constexpr Rect bounds{0, 0, 80, 50};

Image applied(const Image& image, const std::vector<LayerEffect>& effects) {
    return CompositionLayerEffects(effects, bounds).apply(image);
}

TEST(LayerEffects, LeavePixelsAloneAtTheirNeutralParameters) {
    const Image image = testing::testCard(size, 4);
    const Picture before(image, size);
    const LayerEffect neutral[] = {BlurEffect{0}, ColorControlsEffect{}, TintEffect{RGBAColor::white, 0},
        VignetteEffect{0, 1.5}, GlowEffect{0, 0.01}, NoiseEffect{0.001, 5}, PixelateEffect{0},
        ChromaticAberrationEffect{0}, UnknownEffect{"sparkle"}};
    for (const LayerEffect& effect : neutral) {
        SCOPED_TRACE(kindName(effect));
        EXPECT_LE(Picture(applied(image, {effect}), size).distanceTo(before), 1);
    }
    for (const std::size_t skipped : {0u, 5u, 7u, 8u})
        EXPECT_EQ(applied(image, {neutral[skipped]}).hash(), image.hash()) << kindName(neutral[skipped]);
}

TEST(LayerEffects, ChangePixelsAtTheirDefaults) {
    const Image image = testing::testCard(size, 4);
    const LayerEffect strong[] = {BlurEffect{0.05}, ColorControlsEffect{.brightness = 0.2}, TintEffect{},
        DuotoneEffect{}, VignetteEffect{2, 3}, GlowEffect{1.5, 0.03}, NoiseEffect{}, PixelateEffect{0.1},
        ChromaticAberrationEffect{0.01}};
    for (const LayerEffect& effect : strong) {
        SCOPED_TRACE(kindName(effect));
        EXPECT_GT(Picture(applied(image, {effect}), size).distanceTo(Picture(image, size)), 3);
    }
}

TEST(LayerEffects, HoldEveryParameterInsideItsRange) {
    const Image image = testing::testCard(size, 4);
    const struct {
        LayerEffect beyond, limit;
    } cases[] = {
        {BlurEffect{3}, BlurEffect{0.05}},
        {ColorControlsEffect{9, 9, 9}, ColorControlsEffect{0.5, 4, 3}},
        {TintEffect{RGBAColor::white, 7}, TintEffect{RGBAColor::white, 1}},
        {VignetteEffect{9, 9}, VignetteEffect{2, 3}},
        {GlowEffect{9, 9}, GlowEffect{1.5, 0.03}},
        {PixelateEffect{9}, PixelateEffect{0.1}},
        {ChromaticAberrationEffect{9}, ChromaticAberrationEffect{0.01}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(kindName(c.beyond));
        EXPECT_EQ(applied(image, {c.beyond}).hash(), applied(image, {c.limit}).hash());
    }
}

TEST(LayerEffects, ApplyInTheirOrder) {
    const Image image = testing::testCard(size, 4);
    const LayerEffect blur = BlurEffect{0.05}, noise = NoiseEffect{0.3, 1};
    const Picture both(applied(image, {blur, noise}), size);
    EXPECT_EQ(both, Picture(applied(applied(image, {blur}), {noise}), size));
    EXPECT_GT(both.distanceTo(Picture(applied(image, {noise, blur}), size)), 3);
}

// The grain of a layer is told by its seed alone.
TEST(LayerEffects, NoiseIsTheSameInEveryFrame) {
    const Image black = Image::solid(imaging::Color::black()).cropped(bounds);
    const CompositionLayerEffects effects({NoiseEffect{0.3, 21}}, bounds);
    EXPECT_EQ(effects.apply(black).hash(), effects.apply(black).hash());
    EXPECT_EQ(Picture(applied(black, {NoiseEffect{0.3, 21}}), size), Picture(effects.apply(black), size));
    EXPECT_FALSE(
        Picture(applied(black, {NoiseEffect{0.3, 22}}), size) == Picture(effects.apply(black), size));
}

TEST(LayerEffects, NoiseIsAGreyTileThatRepeats) {
    const Picture tile(CompositionLayerEffects::noiseTile(9, 1), {300, 260});
    for (const auto& [x, y] : {std::pair{0, 0}, {17, 100}, {127, 64}, {100, 131}}) {
        const Pixel pixel = tile.at(x, y);
        EXPECT_EQ(pixel.r, pixel.g);
        EXPECT_EQ(pixel.r, pixel.b);
        EXPECT_EQ(pixel.a, 255);
        EXPECT_EQ(pixel, tile.at(x + 128, y));
        EXPECT_EQ(pixel, tile.at(x, y + 128));
    }
    // The tile's bottom-left corner stands at the origin.
    EXPECT_EQ(tile.at(0, 259).r, int(KineticMath::unitDouble(9, 7, 127 * 128) * 255));
    EXPECT_EQ(tile.at(5, 259 - 127).r, int(KineticMath::unitDouble(9, 7, 5) * 255));
}

TEST(LayerEffects, ChromaticAberrationPullsRedAndBlueApart) {
    const Image bar = Image::solid(imaging::Color::white()).cropped({0, 0, 40, 50});
    const Image black = Image::solid(imaging::Color::black()).cropped(bounds);
    // One hundredth of 200 lines is 2 pixels.
    const CompositionLayerEffects effects({ChromaticAberrationEffect{0.01}}, {0, 0, 80, 200});
    const Picture picture(effects.apply(bar.over(black)), size);
    EXPECT_EQ(picture.at(20, 9), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(picture.at(39, 9), (Pixel{255, 255, 0, 255}));
    EXPECT_EQ(picture.at(41, 9), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(picture.at(43, 9), (Pixel{0, 0, 0, 255}));
}

TEST(LayerEffects, DuotoneMapsDarkAndLight) {
    const Image dark = Image::solid(imaging::Color::black()).cropped(bounds);
    const Image light = Image::solid(imaging::Color::white()).cropped(bounds);
    const std::vector<LayerEffect> effects{DuotoneEffect{{1, 0, 0, 1}, {0, 0, 1, 1}}};
    EXPECT_EQ(Picture(applied(dark, effects), size).at(3, 3), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(Picture(applied(light, effects), size).at(3, 3), (Pixel{0, 0, 255, 255}));
}

TEST(LayerEffects, TintIgnoresTheAlphaOfItsColour) {
    const Image image = testing::testCard(size, 4);
    EXPECT_EQ(applied(image, {TintEffect{{0.2, 0.9, 0.4, 0.1}, 1}}).hash(),
        applied(image, {TintEffect{{0.2, 0.9, 0.4, 1}, 1}}).hash());
}

}   // namespace
}   // namespace tavix
