#include "TavixRender/Export/CompositionRenderer.h"
#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Encoding/FrameSequenceAnimationEncoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using testing::fillLayer;
using testing::keyframe;
using testing::sceneOf;
using testing::shapeLayer;
using testing::specOf;
using testing::transitionOf;

CompositionSpec spinningSpec(imaging::Size size, int fps, double durationSec) {
    CompositionLayer layer = shapeLayer({1, 0.5, 0, 1}, 0.4, 0.4);
    layer.tracks = {{AnimProperty::rotationDeg, {keyframe(0, 0), keyframe(durationSec, 180)}}};
    return specOf(size, fps, {sceneOf(durationSec, {layer})});
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.message();
    }
    return "no failure";
}

class Rendering : public ::testing::Test {
protected:
    CompositionRenderer::Config configFor(CompositionSpec spec, const std::string& name = "movie.mp4") const {
        CompositionRenderer::Config config;
        config.spec = std::move(spec);
        config.output = folder.path() / name;
        config.evaluation.threadCount = 1;
        return config;
    }
    void render(const CompositionRenderer::Config& config, const std::stop_token& stop = {}) {
        CompositionRenderer::render(
            config, testing::messagesTo(lines), [this](double fraction) { progress.push_back(fraction); },
            stop);
    }

    testing::TemporaryFolder folder;
    std::vector<std::string> lines;
    std::vector<double> progress;
};

TEST_F(Rendering, TellsWhatItDoesWordForWord) {
    const auto config = configFor(spinningSpec({32, 18}, 4, 7.5));
    render(config);
    EXPECT_THAT(lines, ElementsAre("32×18 @ 4fps — 1 scenes, 7.5s (30 frames)", "0%", "66%",
                           "Wrote " + config.output.string()));
    EXPECT_THAT(progress,
        ElementsAre(0, 4 / 30.0, 8 / 30.0, 12 / 30.0, 16 / 30.0, 20 / 30.0, 24 / 30.0, 28 / 30.0, 1));
    EXPECT_GT(std::filesystem::file_size(config.output), 500u);
}

TEST_F(Rendering, CountsFramesToTheNearest) {
    const struct {
        double durationSec;
        int fps;
        std::int64_t frames;
    } cases[] = {
        {0.01, 30, 0}, {0.02, 30, 1}, {1, 30, 30}, {0.99, 30, 30}, {2, 0, 0}, {-3, 30, 0}, {12.4, 30, 372}};
    for (const auto& c : cases)
        EXPECT_EQ(
            CompositionRenderer::frameCount(specOf({8, 8}, c.fps, {sceneOf(c.durationSec, {})})), c.frames)
            << c.durationSec;
}

TEST_F(Rendering, RefusesWhatHasNoFrames) {
    for (const auto format : {ExportFormat::video, ExportFormat::gif}) {
        auto config = configFor(specOf({8, 8}, 30, {sceneOf(0.01, {})}));
        config.fileFormat = format;
        EXPECT_EQ(failureOf([&] { render(config); }), "The composition is empty (0 frames).");
        EXPECT_FALSE(std::filesystem::exists(config.output));
    }
    EXPECT_TRUE(lines.empty());
    imaging::Evaluator evaluator;
    EXPECT_EQ(failureOf([&] {
        FrameSequenceAnimationEncoder({folder.path() / "empty.gif", {8, 8}, 10}, evaluator).finish();
    }),
        "No frames were rendered.");
}

TEST_F(Rendering, RefusesASizeThatCannotBeDrawn) {
    for (const auto& [width, height] :
        {std::pair{0ll, 18ll}, {32ll, -1ll}, {40000ll, 18ll}, {1ll << 40, 2ll}}) {
        auto config = configFor(spinningSpec({32, 18}, 4, 1));
        config.spec.output.widthPx = width;
        config.spec.output.heightPx = height;
        EXPECT_THAT(failureOf([&] { render(config); }), ::testing::HasSubstr("cannot be drawn"));
        EXPECT_THAT(failureOf([&] { CompositionRenderer::renderStill(config, 0, folder.path() / "s.png"); }),
            ::testing::HasSubstr("cannot be drawn"));
    }
}

TEST_F(Rendering, SaysWhyTheFileCannotBeWritten) {
    std::ofstream(folder.path() / "a-file") << "in the way";
    const auto config = configFor(spinningSpec({32, 18}, 4, 1), "a-file/movie.mp4");
    EXPECT_THAT(failureOf([&] { render(config); }), ::testing::StartsWith("Writer failed to start: "));
    auto gif = configFor(spinningSpec({32, 18}, 4, 1), "a-file/movie.gif");
    gif.fileFormat = ExportFormat::gif;
    EXPECT_EQ(failureOf([&] { render(gif); }), "Could not create the GIF encoder.");
}

TEST_F(Rendering, WritesEveryCodecAndOddSizes) {
    const struct {
        VideoCodec codec;
        imaging::Size size;
    } cases[] = {{VideoCodec::h264, {32, 18}}, {VideoCodec::h264, {33, 17}}, {VideoCodec::hevc, {64, 36}},
        {VideoCodec::proRes422HQ, {33, 17}}, {VideoCodec::proRes4444, {33, 17}}, {VideoCodec::h264, {1, 1}}};
    for (const auto& c : cases) {
        auto config = configFor(spinningSpec(c.size, 4, 1), "movie.mov");
        config.videoCodec = c.codec;
        EXPECT_EQ(failureOf([&] { render(config); }), "no failure") << int(c.codec) << " " << c.size.width;
        EXPECT_GT(std::filesystem::file_size(config.output), 100u);
    }
}

TEST_F(Rendering, AlwaysWritesProResAsQuickTime) {
    auto config = configFor(spinningSpec({32, 18}, 4, 0.5), "movie.mp4");
    config.videoCodec = VideoCodec::proRes422HQ;
    config.container = ExportContainer::mp4;
    render(config);
    EXPECT_EQ(bytesOf(config.output).substr(4, 6), "ftypqt");
}

TEST_F(Rendering, GivesTheSameBytesAgainOnAnyNumberOfThreads) {
    auto first = configFor(spinningSpec({96, 54}, 10, 1), "first.mp4");
    auto second = configFor(spinningSpec({96, 54}, 10, 1), "second.mp4");
    second.evaluation.threadCount = 3;
    render(first);
    render(second);
    EXPECT_EQ(bytesOf(first.output), bytesOf(second.output));
}

TEST_F(Rendering, WritesAGif) {
    auto config = configFor(spinningSpec({32, 18}, 6, 1), "movie.gif");
    config.fileFormat = ExportFormat::gif;
    render(config);
    const std::string bytes = bytesOf(config.output);
    EXPECT_EQ(bytes.substr(0, 6), "GIF89a");
    EXPECT_THAT(bytes, ::testing::HasSubstr("NETSCAPE2.0"));
}

TEST_F(Rendering, StopsBetweenFramesAndLeavesNothingBehind) {
    std::stop_source stop;
    const auto config = configFor(spinningSpec({32, 18}, 10, 30));
    int calls = 0;
    EXPECT_THROW(CompositionRenderer::render(
                     config, {},
                     [&](double) {
                         if (++calls == 3) stop.request_stop();
                     },
                     stop.get_token()),
        RenderStopped);
    EXPECT_EQ(calls, 3);
    EXPECT_FALSE(std::filesystem::exists(config.output));
}

TEST_F(Rendering, WritesAStillOfAnyTime) {
    CompositionSpec spec =
        specOf({32, 18}, 30, {sceneOf(1, {fillLayer({1, 0, 0, 1})}), sceneOf(1, {fillLayer({0, 0, 1, 1})})});
    const auto config = configFor(spec);
    const auto file = folder.path() / "new" / "still.png";
    CompositionRenderer::renderStill(config, 1.5, file);
    const imaging::Bitmap still = media::loadStillImage(file);
    EXPECT_EQ(still.size(), (imaging::Size{32, 18}));
    EXPECT_EQ(testing::Picture(still.view()).at(16, 9), (testing::Pixel{0, 0, 255, 255}));
    EXPECT_FALSE(std::filesystem::exists(config.output));
}

TEST_F(Rendering, FindsTheTimeOfAScene) {
    CompositionSpec spec = specOf({8, 8}, 30, {sceneOf(5, {}), sceneOf(4, {}), sceneOf(3, {})});
    spec.scenes[0].transition = transitionOf(TransitionStyle::fade, 1);
    spec.scenes[1].id = "proof";
    EXPECT_EQ(CompositionRenderer::globalTime(spec, "proof", 0.5), 4.5);
    EXPECT_EQ(CompositionRenderer::globalTime(spec, "scene-2", 1), 9);
    EXPECT_EQ(CompositionRenderer::globalTime(spec, "scene-1", 0), std::nullopt);   // it has a name
}

}   // namespace
}   // namespace tavix
