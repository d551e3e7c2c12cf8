// Where layers and effects end: no box, no hard edge and no fading at the canvas's border shows it.
#include "RenderTestKit.h"
#include "TavixRender/Composition2D/CanvasEdge.h"
#include "TavixRender/Composition2D/CompositionLayerEffects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

namespace tavix {
namespace {

using imaging::Affine;
using imaging::Color;
using imaging::Image;
using imaging::Rect;
using testing::keyframe;
using testing::Picture;
using testing::Pixel;

constexpr imaging::Size size{320, 180};
constexpr Rect canvas{0, 0, 320, 180};

Image opaque(const Rect& rect) { return Image::solid({0.9, 0.4, 0.1, 1}).cropped(rect); }

Image applied(const Image& image, const LayerEffect& effect) {
    return CompositionLayerEffects({effect}, canvas, CompositionLayerEffects::Vignetted::canvas).apply(image);
}

// All at their strongest.
std::vector<LayerEffect> effects() {
    return {BlurEffect{0.05}, ColorControlsEffect{.brightness = 0.2, .contrast = 2}, TintEffect{},
        DuotoneEffect{}, VignetteEffect{2, 1}, GlowEffect{1.5, 0.03}, NoiseEffect{0.3, 4},
        PixelateEffect{0.1}, ChromaticAberrationEffect{0.01}};
}

// The largest step of alpha from a pixel to the next along a row, or along a column.
int steepestAlpha(const Picture& picture) {
    int steepest = 0;
    for (int y = 1; y < picture.size().height; ++y)
        for (int x = 1; x < picture.size().width; ++x)
            steepest = std::max({steepest, std::abs(picture.at(x, y).a - picture.at(x - 1, y).a),
                std::abs(picture.at(x, y).a - picture.at(x, y - 1).a)});
    return steepest;
}
// That of an edge that a Gaussian has passed over, its own height; with what dithering and rounding may add.
double softestStep(double sigmaPx) { return 255 / (sigmaPx * std::sqrt(2 * 3.14159265)) * 1.1 + 1; }

// Where the clear part of a picture ends is nobody's business.
TEST(PictureEdges, NoEffectShowsTheBoxOfItsLayer) {
    const Image letter = Image::roundedRectangle({140, 70, 9, 40}, 3, {1, 1, 1, 1})
                             .over(Image::roundedRectangle({150, 70, 30, 30}, 15, {0.2, 0.6, 1, 0.8}));
    const Image spacious = letter.over(Image::solid(Color::clear())).cropped({-200, -200, 720, 580});
    for (const LayerEffect& effect : effects()) {
        SCOPED_TRACE(kindName(effect));
        EXPECT_EQ(
            Picture(applied(letter, effect), size).distanceTo(Picture(applied(spacious, effect), size)), 0);
    }
}

TEST(PictureEdges, NoEffectFadesOrDarkensACanvasOfOneColourAtItsEdge) {
    for (const LayerEffect& effect : effects()) {
        const auto kind = kindName(effect);
        if (kind == "vignette" || kind == "noise") continue;   // which are there to do so
        SCOPED_TRACE(kind);
        const Picture picture(applied(opaque(canvas), effect), size);
        const Pixel middle = picture.at(160, 90);
        EXPECT_EQ(middle.a, 255);
        for (const auto& [x, y] :
            {std::pair{0, 0}, {319, 0}, {0, 179}, {319, 179}, {160, 0}, {0, 90}, {7, 172}}) {
            const Pixel pixel = picture.at(x, y);
            EXPECT_EQ(pixel.a, 255);
            for (const int apart : {pixel.r - middle.r, pixel.g - middle.g, pixel.b - middle.b})
                EXPECT_LE(std::abs(apart), 1) << x << ' ' << y;   // light is dithered
        }
    }
}

TEST(PictureEdges, NoiseLiesOnItsLayerAlone) {
    const Image shape = Image::roundedRectangle({40, 30, 90, 60}, 28, {0.5, 0.5, 0.5, 0.7});
    const Picture plain(shape, size), grainy(applied(shape, NoiseEffect{0.3, 1}), size);
    int changed = 0;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            ASSERT_EQ(plain.at(x, y).a, grainy.at(x, y).a) << x << ' ' << y;
            changed += plain.at(x, y) != grainy.at(x, y);
        }
    EXPECT_GT(changed, 3000);
}

// Along an edge that runs the way the colours part they still lie on one another.
TEST(PictureEdges, AberrationDarkensNoSoftEdge) {
    const Image letter = Image::roundedRectangle({100, 60.5, 80, 60}, 20, Color::white());
    const Image white = Image::solid(Color::white()).cropped(canvas);
    const Picture picture(applied(letter, ChromaticAberrationEffect{0.01}).over(white), size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 125; x < 155; ++x)
            for (const int channel : {picture.at(x, y).r, picture.at(x, y).g, picture.at(x, y).b})
                ASSERT_GE(channel, 254) << x << ' ' << y;
}

TEST(PictureEdges, ABlurredPictureBleedsIntoClearAndNotOverTheCanvas) {
    constexpr double sigmaPx = 9;
    const Rect rect{130, 70, 60, 40};
    const Picture picture(applied(opaque(rect), BlurEffect{0.05}), size);
    for (int x = 0; x < size.width; ++x) {
        const double outside = std::max({130.0 - (x + 0.5), x + 0.5 - 190, 0.0}) / sigmaPx;
        if (outside > 4) {
            EXPECT_EQ(picture.at(x, 90).a, 0) << x;
        }
        if (x > 0 && x <= 160) {
            EXPECT_GE(picture.at(x, 90).a + 1, picture.at(x - 1, 90).a) << x;
        }
    }
    EXPECT_EQ(picture.at(160, 5).a, 0);
    EXPECT_NEAR(picture.at(130, 90).a, 0.5 * picture.at(160, 90).a, 10);
    EXPECT_LE(steepestAlpha(picture), softestStep(sigmaPx));
}

// On the left, where it meets the canvas's edge, it goes on; everywhere else it bleeds.
TEST(PictureEdges, ABlurredPictureGoesOnWhereItMeetsTheCanvassEdge) {
    for (const Rect& rect : {Rect{0, 60, 80, 60}, Rect{-5, 60, 85, 60}, Rect{-300, 60, 380, 60}}) {
        const Picture inLayer(applied(opaque(rect), BlurEffect{0.05}), size);
        const Picture inPlace(CanvasEdge::blurredInPlace(opaque(rect), canvas, 9), size);
        for (const Picture* picture : {&inLayer, &inPlace}) {
            for (int x = 0; x < 40; ++x) EXPECT_EQ(picture->at(x, 90).a, 255) << x;
            for (int y = 0; y < size.height; ++y)
                EXPECT_NEAR(picture->at(0, y).a, picture->at(30, y).a, 1) << y;
            EXPECT_NEAR(picture->at(80, 90).a, 127, 8);
            EXPECT_EQ(picture->at(125, 90).a, 0);
            EXPECT_LE(steepestAlpha(*picture), softestStep(9));
        }
    }
}

struct Film {
    explicit Film(CompositionLayer layer)
        : Film(testing::specOf(size, 30, {testing::sceneOf(2, {std::move(layer)})})) {}
    explicit Film(CompositionSpec document)
        : spec(std::move(document)), composition(spec, std::nullopt, evaluator,
                                         [](const Finding& finding) { ADD_FAILURE() << finding.message; }) {}
    Picture at(double sec) { return Picture(composition.renderScene(0, sec), size); }

    CompositionSpec spec;
    imaging::Evaluator evaluator{{.comparesStructures = true}};
    ResolvedComposition composition;
};

// A white shape on black, so that what is seen is how much of it is there.
CompositionLayer whiteShape(double widthFraction, double heightFraction, ShapeKind kind = ShapeKind::rect) {
    CompositionLayer layer = testing::shapeLayer({1, 1, 1, 1}, widthFraction, heightFraction);
    std::get<ShapeContent>(layer.content).shape = kind;
    return layer;
}
CompositionSpec onBlack(CompositionLayer layer) {
    CompositionSpec spec = testing::specOf(size, 30, {testing::sceneOf(2, {std::move(layer)})});
    spec.background = BackgroundFill{RGBAColor{0, 0, 0, 1}};
    return spec;
}
std::vector<PropertyTrack> held(AnimProperty property, double value) {
    return {{property, {keyframe(0, value), keyframe(2, value)}}};
}

TEST(PictureEdges, ABlurTrackLeavesNoHardEdge) {
    CompositionLayer layer = whiteShape(0.4, 0.4);
    layer.tracks = held(AnimProperty::blur, 0.05);
    Film film(onBlack(layer));
    const Picture picture = film.at(1);
    for (int y = 1; y < size.height; ++y)
        for (int x = 1; x < size.width; ++x)
            ASSERT_LE(std::abs(picture.at(x, y).g - picture.at(x - 1, y).g), softestStep(9)) << x << ' ' << y;
    EXPECT_EQ(picture.at(2, 90).g, 0);
}

TEST(PictureEdges, ABlurTrackOfAFullCanvasNeverLetsTheBackgroundThrough) {
    for (const double scale : {1.0, 1.02, 1.3}) {
        CompositionLayer layer = testing::fillLayer({1, 1, 1, 1});
        layer.tracks = held(AnimProperty::blur, 0.05);
        layer.tracks.push_back(held(AnimProperty::scale, scale).front());
        const Picture picture = Film(onBlack(layer)).at(1);
        for (const auto& [x, y] : {std::pair{0, 0}, {319, 179}, {160, 0}, {0, 90}})
            EXPECT_EQ(picture.at(x, y).g, 255) << scale;
    }
}

// A layer that an effect has blurred is soft at its own edge too, once that comes into sight.
TEST(PictureEdges, ABlurredFullCanvasMadeSmallerHasSoftEdges) {
    CompositionLayer layer = testing::fillLayer({1, 1, 1, 1});
    layer.effects = {BlurEffect{0.05}};
    layer.tracks = held(AnimProperty::scale, 0.4);
    const Picture picture = Film(onBlack(layer)).at(1);
    for (int x = 1; x < size.width; ++x)
        ASSERT_LE(std::abs(picture.at(x, 90).g - picture.at(x - 1, 90).g), softestStep(9 * 0.4)) << x;
    EXPECT_EQ(picture.at(160, 90).g, 255);
    EXPECT_EQ(picture.at(4, 90).g, 0);
}

// What is larger than the canvas and made smaller is what is small.
TEST(PictureEdges, ContentIsCutOnlyAfterItHasMoved) {
    const ShapeFill fills[] = {RGBAColor{1, 1, 1, 1}, LinearGradient{{{{1, 1, 1, 1}, 0}}, 30}};
    for (const ShapeFill& fill : fills)
        for (const ShapeKind kind : {ShapeKind::rect, ShapeKind::ellipse})
            for (const double blur : {0.0, 0.02}) {
                SCOPED_TRACE(::testing::Message() << int(kind) << " blurred by " << blur);
                CompositionLayer large = whiteShape(3.2, 2.4, kind), small = whiteShape(0.8, 0.6, kind);
                for (CompositionLayer* layer : {&large, &small})
                    std::get<ShapeContent>(layer->content).fill = fill;
                std::get<ShapeContent>(large.content).blurRadiusFraction = blur * 4;
                std::get<ShapeContent>(small.content).blurRadiusFraction = blur;
                large.tracks = held(AnimProperty::scale, 0.25);
                const Picture scaled = Film(onBlack(large)).at(1), plain = Film(onBlack(small)).at(1);
                EXPECT_LE(scaled.countBeyond(plain, 24), 40);
                EXPECT_EQ(scaled.at(160, 90), plain.at(160, 90));
            }
}

TEST(PictureEdges, AnEffectReachesContentThatComesIntoSightLater) {
    CompositionLayer layer = whiteShape(3.2, 2.4);
    layer.effects = {NoiseEffect{0.3, 2}};
    layer.tracks = held(AnimProperty::scale, 0.25);
    const Picture picture = Film(onBlack(layer)).at(1);
    int grainy = 0;
    for (int x = 40; x < 90; ++x) grainy += picture.at(x, 50).g < 250;   // once past the canvas's own edge
    EXPECT_GT(grainy, 40);
}

}   // namespace
}   // namespace tavix
