#include "TavixRender/Composition2D/VideoCompositionLayer.h"

#include "RenderTestKit.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using media::tests::makeClip;
using testing::Picture;
using testing::Pixel;

CompositionLayer videoLayer(const std::string& path, double trimStartSec = 0) {
    CompositionLayer layer;
    layer.content = VideoContent{.clip = {path, trimStartSec, {}, {}}};
    return layer;
}

// The place of the frame that is shown at a time, given as a fraction of whole numbers: no rounding anywhere.
int shownAt(const std::vector<std::int64_t>& ticks, std::int64_t numerator, std::int64_t denominator) {
    const auto after =
        std::ranges::find_if(ticks, [&](std::int64_t tick) { return tick * denominator > numerator * 600; });
    return std::max(int(after - ticks.begin()) - 1, 0);
}

class VideoCompositionLayerTest : public ::testing::Test {
protected:
    std::string clip(const char* name, std::vector<std::int64_t> times, int gop = 12) {
        const auto path = folder_.path() / name;
        makeClip({.path = path, .times = std::move(times), .gop = gop});
        return path.string();
    }
    // What a film shows, frame by frame.
    static std::vector<int> numbersOf(const std::filesystem::path& film) {
        std::vector<int> numbers;
        const auto frames = media::VideoFile(film).framesFrom(
            0, std::numeric_limits<double>::infinity(), media::Pace::onDemand);
        while (auto frame = frames->next()) numbers.push_back(media::tests::numberIn(frame->image()));
        return numbers;
    }

    testing::TemporaryFolder folder_;
};

TEST_F(VideoCompositionLayerTest, ExportsTheSourceFrameThatCoversEachTime) {
    std::vector<std::int64_t> uneven{0};
    for (int i = 1; i < 60; ++i)
        uneven.push_back(uneven.back() + std::array{10, 20, 25, 40, 95}[std::size_t(i % 5)]);
    const auto even = media::tests::evenTimes(60), dense = media::tests::evenTimes(120, 10);
    // Half seconds and whole ticks, so that every time is a fraction of whole numbers.
    const struct {
        const char* name;
        std::vector<std::int64_t> times;
        std::int64_t trimTicks;
        int halfSeconds, gop;
    } cuts[] = {{"a.mp4", even, 0, 1, 12}, {"b.mp4", uneven, 0, 3, 12}, {"c.mp4", even, 7 * 20, 1, 200},
        {"d.mp4", uneven, 333, 2, 12}, {"e.mkv", even, 11 * 20, 1, 12}, {"f.mp4", dense, 95, 2, 30}};
    for (const int fps : {30, 24}) {
        std::vector<CompositionScene> scenes;
        std::vector<int> expected;
        for (const auto& cut : cuts) {
            const std::string path = clip(cut.name, cut.times, cut.gop);
            scenes.push_back(
                testing::sceneOf(0.5 * cut.halfSeconds, {videoLayer(path, double(cut.trimTicks) / 600)}));
            for (int i = 0; i < cut.halfSeconds * fps / 2; ++i)
                expected.push_back(
                    shownAt(cut.times, cut.trimTicks * fps + std::int64_t(i) * 600, std::int64_t(600) * fps));
        }
        const auto film = folder_.path() / "film.mp4";
        CompositionRenderer::render({.spec = testing::specOf({64, 64}, fps, scenes), .output = film}, {});
        const std::vector<int> shown = numbersOf(film);
        ASSERT_EQ(shown.size(), expected.size());
        for (std::size_t i = 0; i < shown.size(); ++i)
            EXPECT_EQ(shown[i], expected[i]) << "frame " << i << " at " << fps << " frames a second";
    }
}

TEST_F(VideoCompositionLayerTest, ShowsTheSameFramesInAnyOrder) {
    const std::string path = clip("a.mp4", media::tests::evenTimes(90));
    auto spec = testing::specOf({64, 64}, 30,
        {testing::sceneOf(1, {videoLayer(path)}), testing::sceneOf(2, {videoLayer(path, 0.5)})});
    spec.scenes[0].transition = testing::transitionOf(TransitionStyle::fade, 0.4);
    imaging::Evaluator evaluator;
    ResolvedComposition forward(spec, std::nullopt, evaluator, {}), anyhow(spec, std::nullopt, evaluator, {});
    std::vector<Picture> pictures;
    const int count = int(CompositionRenderer::frameCount(spec));
    for (int i = 0; i < count; ++i) pictures.emplace_back(forward.frame(i / 30.0), imaging::Size{64, 64});
    for (int n = 0; n < count; ++n) {
        const int i = n * 31 % count;
        EXPECT_EQ(Picture(anyhow.frame(i / 30.0), {64, 64}), pictures[std::size_t(i)]) << i;
    }
}

// A film twice as wide as high: red, then green; its upper half bright.
std::string halves(const std::filesystem::path& path) {
    makeClip({.path = path,
        .encoder = "ffv1",
        .pixels = AV_PIX_FMT_YUV444P,
        .size = {80, 40},
        .times = {0, 20},
        .paint = [](AVFrame& frame, int) {
            for (int y = 0; y < 40; ++y)
                for (int x = 0; x < 80; ++x) {
                    const int at = y * frame.linesize[0] + x;
                    frame.data[0][at] = y < 20 ? 160 : 60;
                    frame.data[1][y * frame.linesize[1] + x] = 128;
                    frame.data[2][y * frame.linesize[2] + x] = x < 40 ? 200 : 60;
                }
        }});
    return path.string();
}

TEST_F(VideoCompositionLayerTest, FitsCropsAndRounds) {
    const std::string path = halves(folder_.path() / "halves.mkv");
    const auto red = [](const Pixel& p) { return p.r > p.g + 40; };
    const auto green = [](const Pixel& p) { return p.g > p.r + 40; };
    const auto clear = [](const Pixel& p) { return p.a == 0; };
    const auto drawn = [&](VideoContent content) {
        content.clip.path = path;
        imaging::Evaluator evaluator;
        StillImageCache images({});
        const text::FontBook fonts;
        const LayerBuild build{{0, 0, 100, 100}, 30, {}, evaluator, images, fonts, {}};
        return Picture(VideoCompositionLayer(content, build).contentImage(0).value(), {100, 100});
    };
    const Picture cover = drawn({});
    EXPECT_TRUE(
        red(cover.at(2, 2)) && red(cover.at(48, 97)) && green(cover.at(52, 2)) && green(cover.at(97, 97)));
    const Picture contain = drawn({.fit = VideoFit::contain});
    EXPECT_TRUE(clear(contain.at(50, 22)) && clear(contain.at(50, 78)));
    EXPECT_TRUE(red(contain.at(2, 28)) && green(contain.at(97, 72)));
    const Picture part = drawn({.rect = NormalizedRect{0.5, 0.1, 0.4, 0.4}});
    EXPECT_TRUE(
        clear(part.at(48, 30)) && clear(part.at(92, 30)) && clear(part.at(70, 8)) && clear(part.at(70, 52)));
    EXPECT_TRUE(red(part.at(52, 30)) && green(part.at(88, 30)));
    EXPECT_GT(part.at(55, 15).r, part.at(55, 45).r) << "the upper half is the bright one";
    const Picture cropped = drawn({.sourceRect = NormalizedRect{0.5, 0, 0.5, 0.5}});
    EXPECT_TRUE(green(cropped.at(2, 2)) && green(cropped.at(97, 97)));
    EXPECT_NEAR(cropped.at(50, 3).g, cropped.at(50, 96).g, 3) << "only the bright half";
    const Picture rounded = drawn({.cornerRadiusFraction = 0.5});
    EXPECT_TRUE(clear(rounded.at(3, 3)) && clear(rounded.at(96, 96)) && red(rounded.at(30, 50)) &&
                green(rounded.at(98, 50)));
}

TEST_F(VideoCompositionLayerTest, GoesWhenItsClipEndsUnlessItHolds) {
    const std::string path = clip("a.mp4", media::tests::evenTimes(10));
    for (const bool holds : {true, false}) {
        CompositionLayer layer = videoLayer(path);
        auto& content = std::get<VideoContent>(layer.content);
        content.clip.trimEndSec = 0.2;
        content.holdLastFrame = holds;
        imaging::Evaluator evaluator;
        ResolvedComposition composition(
            testing::specOf({64, 64}, 30, {testing::sceneOf(1, {layer})}), {}, evaluator, {});
        EXPECT_EQ(media::tests::numberIn(composition.frame(0.19)), 5);
        EXPECT_EQ(media::tests::numberIn(composition.frame(0.5)), holds ? 5 : -1);
    }
}

TEST_F(VideoCompositionLayerTest, DrawsNothingForWhatIsNoFilmAndSaysSoOnce) {
    std::ofstream(folder_.path() / "letter.mov") << "This is a letter.";
    std::ofstream(folder_.path() / "empty.mp4") << "";
    for (const char* name : {"letter.mov", "empty.mp4", "absent.mp4"}) {
        SCOPED_TRACE(name);
        const std::string path = (folder_.path() / name).string();
        const auto film = folder_.path() / "film.mp4";
        std::vector<Finding> log;
        const auto spec = testing::specOf({64, 64}, 10,
            {testing::sceneOf(0.5, {videoLayer(path), videoLayer(path)}),
                testing::sceneOf(0.5, {videoLayer(path)})});
        CompositionRenderer::render({.spec = spec, .output = film}, testing::findingsTo(log));
        ASSERT_EQ(std::ranges::count(log, Finding::Level::warning, &Finding::level), 1);
        const Finding& told = *std::ranges::find(log, Finding::Level::warning, &Finding::level);
        EXPECT_EQ(told.code, RenderCode::clipMissing);
        EXPECT_EQ(told.path, "scenes[0].layers[0]");
        EXPECT_EQ(told.file, path);
        EXPECT_THAT(told.message, ::testing::HasSubstr(path));
        EXPECT_EQ(numbersOf(film).size(), 10u);
    }
}

}   // namespace
}   // namespace tavix
