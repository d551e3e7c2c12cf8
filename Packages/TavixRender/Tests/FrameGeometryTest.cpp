// Boxes that are told without drawing against the ink that drawing leaves.
#include "TavixRender/Judge/FrameGeometry.h"

#include "RenderTestKit.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace tavix {
namespace {

using testing::keyframe;
using testing::Picture;
using testing::sceneOf;
using testing::specOf;
using testing::TemporaryFolder;

constexpr double sceneSec = 2;

struct Box {
    double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
    bool isEmpty() const { return right <= left; }
};

// Neither the white of most content nor the black of a phone's rim.
constexpr RGBAColor backdrop{0, 0.6, 0, 1};
constexpr testing::Pixel backdropPixel{0, 153, 0, 255};

// Of everything that differs from the backdrop by so much. Sampling leaves a faint fringe round edges.
constexpr int faint = 6, clear = 60;
Box inkOf(const Picture& picture, int difference) {
    Box box;
    for (int y = 0; y < picture.size().height; ++y)
        for (int x = 0; x < picture.size().width; ++x) {
            const testing::Pixel p = picture.at(x, y);
            if (std::max({std::abs(p.r - backdropPixel.r), std::abs(p.g - backdropPixel.g),
                    std::abs(p.b - backdropPixel.b)}) < difference)
                continue;
            box.left = std::min(box.left, double(x));
            box.top = std::min(box.top, double(y));
            box.right = std::max(box.right, x + 1.0);
            box.bottom = std::max(box.bottom, y + 1.0);
        }
    return box;
}

Box boxOf(const PixelRect& rect) { return {rect.x, rect.y, rect.maxX(), rect.maxY()}; }

// How far one box reaches out of the other.
double excess(const Box& box, const Box& over) {
    return std::max(
        {over.left - box.left, over.top - box.top, box.right - over.right, box.bottom - over.bottom});
}

bool liesWithin(const ContentShape& shape, const imaging::Rect& canvas) {
    return std::ranges::all_of(shape.parts,
        [&](const Outline& part) { return imaging::intersection(part.bounds(), canvas) == part.bounds(); });
}

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    double between(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(engine_);
    }
    int below(int count) { return int(engine_() % unsigned(count)); }
    bool often() { return below(3) > 0; }
    template <class T, std::size_t N> const T& oneOf(const T (&of)[N]) {
        return of[std::size_t(below(int(N)))];
    }

private:
    std::mt19937 engine_;
};

class BoxesAgainstInk : public ::testing::Test {
protected:
    BoxesAgainstInk() {
        const imaging::PixelRegion region{0, 0, 120, 200};
        const imaging::Image white = imaging::Image::solid(imaging::Color::white()).cropped(region.rect());
        media::writePng(folder / "card.png", evaluator.draw(white, region).view());
    }

    CompositionLayer content(Dice& dice) {
        CompositionLayer layer;
        switch (dice.below(5)) {
        case 0:
            layer.content = ShapeContent{.shape = dice.often() ? ShapeKind::rect : ShapeKind::ellipse,
                .widthFraction = dice.between(0.1, 0.7),
                .heightFraction = dice.between(0.1, 0.7),
                .cornerRadiusFraction = dice.between(0, 0.5)};
            break;
        case 1:
            layer.content = ImageContent{.path = "card.png",
                .heightFraction = dice.between(0.2, 1.2),
                .cornerRadiusFraction = dice.between(0, 0.4),
                .sourceRect =
                    dice.often() ? std::nullopt : std::optional(NormalizedRect{0.25, 0.1, 0.5, 0.6})};
            break;
        case 2: {
            DeviceContent device{.screen = StillScreen{"card.png"}, .basePaddingPx = dice.between(5, 40)};
            if (dice.often())
                device.placement = DevicePlacementSpec{.track = {{.tSec = 0, .scale = dice.between(0.5, 1)},
                                                           {.tSec = 1,
                                                               .offset = {dice.between(-0.3, 0.3), 0.1},
                                                               .scale = dice.between(0.4, 1.3)}}};
            layer.content = device;
            break;
        }
        default: {
            static constexpr const char* texts[] = {
                "Hello", "A longer line that wraps", "Ägypten jquery", "Two\nlines", "Ship it today", "سلام"};
            TextContent text{.text = dice.oneOf(texts), .sizeFraction = dice.between(0.06, 0.3)};
            const auto& presets = KineticVocabulary::presetIDs;
            text.kinetic = KineticPresetRef{
                .preset = std::string(presets[std::size_t(dice.below(int(presets.size())))])};
            layer.content = text;
        }
        }
        return layer;
    }

    void move(CompositionLayer& layer, Dice& dice, imaging::Size canvas) {
        layer.position = {dice.between(0, canvas.width), dice.between(0, canvas.height)};
        const auto track = [&](AnimProperty property, double least, double most) {
            if (!dice.often())
                layer.tracks.push_back({property,
                    {keyframe(0, dice.between(least, most)), keyframe(1.5, dice.between(least, most))}});
        };
        track(AnimProperty::x, -0.2, 0.2);
        track(AnimProperty::y, -0.2, 0.2);
        track(AnimProperty::scale, 0.5, 1.8);
        track(AnimProperty::scaleX, 0.6, 1.5);
        track(AnimProperty::rotationDeg, -60, 60);
        track(AnimProperty::skewXDeg, -20, 20);
        if (!dice.often())
            layer.enter = KineticPhase{
                .durationSec = 1, .offset = {0.2, -0.1}, .scale = 0.6, .rotationDeg = {0, 0, 30}};
    }

    // What is seen of blurs and faint letters is no box.
    static bool isSharp(const CompositionLayer& layer) {
        const auto* text = std::get_if<TextContent>(&layer.content);
        if (!text) return true;
        const KineticStyle style = TextCompositionLayer::styleOf(*text, 0);
        return style.inPhase.blurRadiusFraction == 0 && style.outPhase.blurRadiusFraction == 0 &&
               style.inPhase.motionBlur == 0 && style.outPhase.motionBlur == 0;
    }

    // The ink of letters reaches the edges of their boxes, but not the corners, which show when they are
    // turned.
    static bool fillsItsBox(const CompositionLayer& layer, const imaging::Affine& motion) {
        const auto* text = std::get_if<TextContent>(&layer.content);
        if (!text) return true;
        const KineticStyle style = TextCompositionLayer::styleOf(*text, 0);
        const auto isUpright = [](const KineticPhase& phase) {
            return phase.rotationDeg == Vector3{} && phase.skewXDeg == 0 && phase.skewYDeg == 0;
        };
        return motion.isAxisAligned() && isUpright(style.inPhase) && isUpright(style.outPhase) && !style.idle;
    }

    TemporaryFolder folder;
    imaging::Evaluator evaluator{{.threadCount = 1}};
};

TEST_F(BoxesAgainstInk, AgreeToAPixelOverGeneratedDocuments) {
    int compared = 0;
    for (unsigned seed = 1; seed <= 160; ++seed) {
        Dice dice(seed);
        const imaging::Size canvas = dice.often() ? imaging::Size{320, 180} : imaging::Size{180, 320};
        CompositionLayer layer = content(dice);
        move(layer, dice, canvas);
        if (!isSharp(layer)) continue;
        CompositionSpec spec = specOf(canvas, 30, {sceneOf(sceneSec, {})});
        spec.scenes[0].layers = {layer};
        spec.background = backdrop;
        FilmAssets assets(folder.path());
        const CompositionGeometry geometry(spec, assets);
        ResolvedComposition drawn(spec, folder.path(), evaluator, {});
        for (const double sec : {0.2, 0.9, 1.6}) {
            const auto told = geometry.layerAt(0, 0, sec);
            const Picture picture(drawn.renderScene(0, sec), canvas);
            const Box ink = inkOf(picture, faint);
            if (told && told->opacity < 0.9) continue;   // its edges are too faint to measure
            SCOPED_TRACE(std::string(kindName(layer.content)) + " of seed " + std::to_string(seed) + " at " +
                         std::to_string(sec));
            if (!told || told->visibleFraction <= 0) {
                EXPECT_TRUE(ink.isEmpty() || excess(ink, Box{0, 0, 2, 2}) <= 0);
                continue;
            }
            // Content beyond the canvas is not kept to move into it.
            if (!liesWithin(geometry.layers(0)[0].content->at(sec), geometry.canvas())) continue;
            const Box box = boxOf(told->visibleBox);
            if (box.right - box.left < 3 || box.bottom - box.top < 3) continue;
            ++compared;
            ASSERT_FALSE(ink.isEmpty());
            EXPECT_LE(excess(inkOf(picture, clear), box), 1.5) << "ink outside of the box";
            if (!fillsItsBox(layer, told->motion)) continue;
            EXPECT_LE(excess(box, ink), 2) << "a box larger than its ink";
        }
    }
    EXPECT_GT(compared, 100);
}

TEST_F(BoxesAgainstInk, AgreeForADeviceInSpace) {
    if (!DeviceModelLoader::modelPath()) GTEST_SKIP() << "without the model of the phone";
    for (unsigned seed = 1; seed <= 8; ++seed) {
        Dice dice(seed);
        const imaging::Size canvas{320, 240};
        DeviceScene3D scene{
            .tiltDegrees = {dice.between(-40, 40), dice.between(-170, 170), dice.between(-30, 30)},
            .driftDegrees = 0,
            .motionBlur = 0};
        if (dice.often()) scene.depthTrack = {{0, dice.between(0.2, 0.7)}};
        DeviceContent device{.screen = StillScreen{"card.png"}, .scene3D = scene};
        if (dice.often())
            device.placement = DevicePlacementSpec{
                .track = {
                    {.tSec = 0, .offset = {dice.between(-0.4, 0.4), 0.1}, .scale = dice.between(0.4, 1)}}};
        CompositionLayer layer;
        layer.content = device;
        CompositionSpec spec = specOf(canvas, 30, {sceneOf(1, {layer})});
        spec.background = backdrop;
        FilmAssets assets(folder.path());
        const CompositionGeometry geometry(spec, assets);
        ResolvedComposition drawn(spec, folder.path(), evaluator, {});
        const auto told = geometry.layerAt(0, 0, 0.5);
        const Box ink = inkOf(Picture(drawn.renderScene(0, 0.5), canvas), faint);
        SCOPED_TRACE("seed " + std::to_string(seed));
        ASSERT_TRUE(told);
        if (ink.isEmpty()) {
            EXPECT_LE(told->visibleFraction, 0.01);
            continue;
        }
        const Box box = boxOf(told->visibleBox);
        EXPECT_LE(excess(ink, box), 2);
        EXPECT_LE(excess(box, ink), 3);   // the rim of a dark body is nearly black
    }
}

TEST_F(BoxesAgainstInk, StandInTheOrderOfDrawing) {
    const auto phone = [](double depth) {
        CompositionLayer layer;
        DeviceScene3D scene;
        scene.depthTrack = {{0, depth}};
        layer.content = DeviceContent{.screen = StillScreen{"card.png"}, .scene3D = scene};
        return layer;
    };
    const CompositionSpec spec = specOf({320, 180}, 30,
        {sceneOf(2, {testing::shapeLayer({1, 0, 0, 1}), phone(0.9), phone(0.1), phone(0.5),
                        testing::shapeLayer({0, 1, 0, 1}), phone(0.3)})});
    FilmAssets assets(folder.path());
    const CompositionGeometry geometry(spec, assets);
    std::vector<std::size_t> order, expected;
    for (const LayerGeometry& layer : geometry.frame(0, 1).layers) order.push_back(layer.layer);
    const ResolvedComposition drawn(spec, folder.path(), evaluator, {});
    for (const auto* layer : drawn.depthOrderedLayers(0, 1))
        expected.push_back(std::size_t(layer - drawn.layers(0).data()));
    EXPECT_EQ(order, expected);
    EXPECT_EQ(order, (std::vector<std::size_t>{0, 2, 3, 1, 4, 5}));
}

TEST(Outline, HoldsWhatLiesWithinARoundedRectangle) {
    Dice dice(7);
    for (int round = 0; round < 500; ++round) {
        const imaging::Rect rect{
            dice.between(-500, 900), dice.between(-500, 900), dice.between(20, 900), dice.between(20, 900)};
        const double most = std::min(rect.width, rect.height) / 2;
        const double radius = dice.often() ? most : dice.between(0, most);   // two arcs meet, or not
        const imaging::Affine turn = imaging::Affine::rotation(dice.between(0, 6)).about(rect.center());
        const Outline outline = Outline::ofRounded(rect, radius).transformed(turn);
        for (int n = 0; n < 20; ++n) {
            // By its distance from the rectangle that the corners' centres span.
            const imaging::Point p{
                dice.between(rect.x - 50, rect.maxX() + 50), dice.between(rect.y - 50, rect.maxY() + 50)};
            const double dx = std::max({rect.x + radius - p.x, p.x - (rect.maxX() - radius), 0.0});
            const double dy = std::max({rect.y + radius - p.y, p.y - (rect.maxY() - radius), 0.0});
            const double outside = std::hypot(dx, dy) - radius;
            if (std::abs(outside) < 1.5) continue;   // on the edge
            EXPECT_EQ(outline.contains(turn.apply(p)), outside < 0) << "round " << round;
        }
    }
}

TEST(FrameGeometry, IsQuickOrSilentOnWhatNobodyMeans) {
    CompositionSpec spec = specOf({320, 180}, 30, {sceneOf(2, {testing::shapeLayer({1, 1, 1, 1})})});
    const auto layersAt = [&](double sec) {
        FilmAssets assets(std::nullopt);
        return CompositionGeometry(spec, assets).layers(0).empty()
                   ? std::size_t{0}
                   : CompositionGeometry(spec, assets).frame(0, sec).layers.size();
    };
    EXPECT_EQ(layersAt(1), 1u);
    spec.scenes[0].layers[0].position = {1e300, -1e300};
    spec.scenes[0].layers[0].tracks = {{AnimProperty::scale, {keyframe(0, 1e300)}}};
    EXPECT_LE(layersAt(1), 1u);
    spec.output.widthPx = 0;
    EXPECT_EQ(layersAt(1), 0u);
    spec.output.widthPx = 320;
    spec.scenes[0].durationSec = 1e12;
    EXPECT_EQ(layersAt(1), 0u);
    spec.scenes[0].durationSec = 2;
    spec.scenes[0].layers[0].content =
        DeviceContent{.placement = DevicePlacementSpec{.track = {{.tSec = 0}, {.tSec = 1e15}}}};
    EXPECT_EQ(layersAt(1), 0u);
}

}   // namespace
}   // namespace tavix
