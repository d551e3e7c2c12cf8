// Films of random layers: what an export draws frame by frame, with all that it keeps, is what anybody draws
// who asks for that frame alone and keeps nothing.
#include "RenderTestKit.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TestAssets.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tavix {
namespace {

using testing::Picture;

constexpr imaging::Size size{192, 108};
constexpr int pictureCount = 10, clipCount = 4;

class Films {
public:
    explicit Films(unsigned seed) : random_(seed) {}
    CompositionSpec film() {
        std::vector<CompositionScene> scenes;
        for (int i = 0; i < 2; ++i) {
            std::vector<CompositionLayer> layers;
            for (int j = 0; j < 7; ++j) layers.push_back(layer());
            scenes.push_back(testing::sceneOf(0.8, layers));
        }
        const auto style = static_cast<TransitionStyle>(int(random_() % 8));
        scenes.front().transition = testing::transitionOf(style, 0.3);
        CompositionSpec spec = testing::specOf(size, 10, scenes);
        for (CompositionScene& scene : spec.scenes)
            for (CompositionLayer& each : scene.layers)
                each.position = {real(0, size.width), real(0, size.height)};
        spec.fonts = {{"bars", testing::testFont}};
        return spec;
    }

    // One change of many kinds, mostly a small one.
    void edit(CompositionSpec& spec) {
        CompositionScene& scene = spec.scenes[std::size_t(below(int(spec.scenes.size())))];
        const auto at = std::size_t(below(int(scene.layers.size())));
        CompositionLayer& touched = scene.layers[at];
        switch (below(13)) {
        case 0: touched.opacity = real(0.2, 1); break;
        case 1: touched.position = {real(0, size.width), real(0, size.height)}; break;
        case 2: touched.content = content(); break;
        case 3: touched.effects = effects(); break;
        case 4: touched.tracks = layer().tracks; break;
        case 5: std::swap(touched, scene.layers[std::size_t(below(int(scene.layers.size())))]); break;
        case 6: {
            const CompositionLayer twin = touched;
            scene.layers.insert(scene.layers.begin() + std::ptrdiff_t(at), twin);
            break;
        }
        case 7:
            if (scene.layers.size() > 3) scene.layers.erase(scene.layers.begin() + std::ptrdiff_t(at));
            break;
        case 8: scene.background = testing::ownColor(below(20)); break;
        case 9: scene.durationSec = real(0.5, 1.2); break;
        case 10:
        case 11:   // of a clip that goes on
            if (auto* video = std::get_if<VideoContent>(&touched.content))
                video->cornerRadiusFraction = real(0, 0.4);
            break;
        default: spec.seed = below(3); break;
        }
    }

private:
    double real(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
    int below(int end) { return int(random_() % unsigned(end)); }

    LayerContent content() {
        switch (below(6)) {
        case 0: {
            ShapeContent shape;
            shape.fill = testing::ownColor(below(20));
            shape.shape = below(2) ? ShapeKind::rect : ShapeKind::ellipse;
            shape.widthFraction = real(0.1, 1.4);
            shape.blurRadiusFraction = below(2) ? 0 : 0.05;
            return shape;
        }
        case 1: {
            TextContent text;
            text.text = "ab cd";
            text.font = "bars";
            text.sizeFraction = real(0.1, 0.3);
            text.color = testing::ownColor(below(20));
            text.kinetic = KineticPresetRef{"fade-up", KineticSpeed::snap, {}, KineticIntensity::medium};
            return text;
        }
        case 2:
        case 3: {
            VideoContent video;
            video.clip.path = testing::clipName(below(clipCount));
            const double side = real(0.08, 0.9);
            video.rect = NormalizedRect{real(0, 0.6), real(0, 0.6), side, side};
            video.cornerRadiusFraction = below(2) ? 0 : 0.2;
            return video;
        }
        default: {
            ImageContent image;
            image.path = testing::pictureName(below(pictureCount));
            if (below(3)) image.heightFraction = real(0.1, 1.5);
            return image;
        }
        }
    }
    std::vector<LayerEffect> effects() {
        const LayerEffect all[] = {BlurEffect{0.03}, TintEffect{}, VignetteEffect{1, 1.4},
            GlowEffect{1, 0.02}, NoiseEffect{0.2, 3}, PixelateEffect{0.05}, ChromaticAberrationEffect{0.01}};
        if (below(3)) return {};
        return {all[below(7)], all[below(7)]};
    }
    CompositionLayer layer() {
        CompositionLayer layer;
        layer.content = content();
        layer.effects = effects();
        if (below(2)) layer.opacity = real(0.2, 1);
        const auto track = [&](AnimProperty property, double from, double to) {
            layer.tracks.push_back({property, {testing::keyframe(0, from), testing::keyframe(0.8, to)}});
        };
        if (below(2)) track(AnimProperty::scale, real(0.05, 1.2), real(0.05, 1.2));
        if (below(3) == 0) track(AnimProperty::rotationDeg, 0, real(-90, 90));
        if (below(3) == 0) track(AnimProperty::x, real(-0.3, 0.3), real(-0.3, 0.3));
        if (below(4) == 0) track(AnimProperty::blur, 0, 0.04);
        return layer;
    }

    std::mt19937 random_;
};

class RandomFilms : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        assets = std::make_unique<testsupport::TemporaryFolder>();
        testing::writeTestAssets(assets->path(), pictureCount, clipCount);
    }
    static void TearDownTestSuite() { assets.reset(); }
    static void complain(const Finding& finding) { ADD_FAILURE() << finding.message; }

    // By itself, by who keeps nothing.
    static Picture alone(const CompositionSpec& spec, double sec) {
        imaging::Evaluator evaluator({.threadCount = 1, .cacheBytes = 0});
        ResolvedComposition composition(spec, assets->path(), evaluator, complain);
        return Picture(evaluator.draw(composition.frame(sec), {0, 0, size.width, size.height}).view());
    }

    static std::unique_ptr<testsupport::TemporaryFolder> assets;
};
std::unique_ptr<testsupport::TemporaryFolder> RandomFilms::assets;

TEST_F(RandomFilms, AreTheSameWithAndWithoutAllThatIsKept) {
    Films films(2027);
    for (int round = 0; round < 14; ++round) {
        SCOPED_TRACE(round);
        const CompositionSpec spec = films.film();
        imaging::Evaluator evaluator({.threadCount = 3, .comparesStructures = true});
        ResolvedComposition composition(spec, assets->path(), evaluator, complain);
        imaging::FrameSurface surface(evaluator, size);
        for (int frame = 0; frame < 13; ++frame) {
            surface.update(composition.frame(frame / 10.0));
            ASSERT_EQ(Picture(surface.pixels()).distanceTo(alone(spec, frame / 10.0)), 0)
                << "frame " << frame;
        }
    }
}

// Edits on a memory that goes on from build to build, against who builds every frame anew.
TEST_F(RandomFilms, AreTheSameAfterEveryEditAndHaveTheirKeys) {
    Films films(77);
    std::mt19937 random(3);
    std::vector<std::pair<Digest, Picture>> byKey;
    for (int round = 0; round < 5; ++round) {
        CompositionSpec spec = films.film();
        imaging::Evaluator evaluator({.threadCount = 2, .comparesStructures = true});
        BuildMemory memory;
        imaging::FrameSurface surface(evaluator, size);
        byKey.clear();
        int repeats = 0;
        for (int edits = 0; edits < 25; ++edits) {
            ResolvedComposition composition(spec, assets->path(), evaluator, complain, nullptr, &memory);
            for (const double sec : {0.2, 0.6, double(random() % 16) / 10}) {
                if (random() % 2) composition.prepare(double(random() % 16) / 10);
                surface.update(composition.frame(sec));
                const Picture drawn(surface.pixels());
                ASSERT_EQ(drawn.distanceTo(alone(spec, sec)), 0)
                    << "film " << round << ", edit " << edits << " at " << sec;
                const auto key = composition.frameKey(sec);
                ASSERT_TRUE(key);
                const auto known = std::ranges::find(byKey, *key, &std::pair<Digest, Picture>::first);
                if (known == byKey.end()) {
                    byKey.emplace_back(*key, drawn);
                } else {
                    ++repeats;
                    ASSERT_EQ(drawn.distanceTo(known->second), 0);
                }
            }
            films.edit(spec);
        }
        EXPECT_GT(repeats, 10) << "an edit of one scene touches the frames of the other";
    }
}

TEST_F(RandomFilms, HaveTheStillsOfTheirFrames) {
    Films films(11);
    const CompositionSpec spec = films.film();
    CompositionRenderer::Config config;
    config.spec = spec;
    config.assetRoot = assets->path();
    imaging::Evaluator evaluator;
    ResolvedComposition composition(spec, assets->path(), evaluator, complain);
    imaging::FrameSurface surface(evaluator, size);
    for (int frame = 0; frame < 13; ++frame) {
        surface.update(composition.frame(frame / 10.0));
        const auto file = assets->path() / "still.png";
        CompositionRenderer::renderStill(config, frame / 10.0, file);
        EXPECT_EQ(Picture(media::loadStillImage(file).view()).distanceTo(Picture(surface.pixels())), 0)
            << frame;
    }
}

}   // namespace
}   // namespace tavix
