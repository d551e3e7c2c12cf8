#include "TavixRender/Export/RatePlan.h"

#include "RenderTestKit.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/ExportTrial.h"
#include "TavixRender/Export/RateFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <map>

namespace tavix {
namespace {

using testing::keyframe;
using testing::sceneOf;
using testing::specOf;

namespace fs = std::filesystem;

constexpr imaging::Size size{384, 288};
constexpr double busySec = 3, calmSec = 5;

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Fills more than the frame with waves of many lengths, and turns.
CompositionLayer turningPicture(const fs::path& folder) {
    imaging::Bitmap pixels(imaging::Size{500, 500});
    for (int y = 0; y < 500; ++y)
        for (int x = 0; x < 500; ++x)
            for (int c = 0; c < 4; ++c)
                pixels.view().row(y)[4 * x + c] =
                    c == 3 ? 255
                           : std::uint8_t(128 + 60 * std::sin(x * 0.21 + c) + 60 * std::sin(y * x * 0.002));
    media::writePng(folder / "waves.png", pixels.view());
    CompositionLayer layer;
    ImageContent content;
    content.path = "waves.png";
    content.heightFraction = 1.8;
    layer.content = content;
    layer.position = {size.width / 2.0, size.height / 2.0};
    layer.tracks.push_back({AnimProperty::rotationDeg, {keyframe(0, 0), keyframe(busySec, 60)}});
    return layer;
}

// Where little happens and where much does.
class Rates : public ::testing::Test {
protected:
    CompositionRenderer::Config config(const std::string& name, std::optional<std::int64_t> bitsPerSec = {}) {
        CompositionLayer moving = testing::shapeLayer({1, 0.5, 0, 1});
        moving.tracks.push_back({AnimProperty::x, {keyframe(0, 100), keyframe(calmSec, 250)}});
        CompositionRenderer::Config config;
        config.spec =
            specOf(size, 10, {sceneOf(calmSec, {moving}), sceneOf(busySec, {turningPicture(folder.path())})});
        config.spec.assetRoot = folder.path().string();
        config.output = folder.path() / name;
        config.rate.bitsPerSec = bitsPerSec;
        config.evaluation.threadCount = 1;
        return config;
    }

    // The mean square of how far the greens of a film lie from the document's.
    static double errorOf(const CompositionRenderer::Config& asked) {
        const PiecedFilm film = CompositionExport::filmOf(asked);
        imaging::Evaluator evaluator(film.evaluation);
        const auto painter = film.painter(evaluator, {}, {});
        const auto frames =
            media::VideoFile(asked.output)
                .framesFrom(0, std::numeric_limits<double>::infinity(), media::Pace::onDemand);
        const imaging::PixelRegion canvas{0, 0, size.width, size.height};
        double sum = 0;
        std::int64_t count = 0;
        for (auto frame = frames->next(); frame; frame = frames->next()) {
            const imaging::Bitmap shown = evaluator.draw(frame->image(), canvas);
            const imaging::Bitmap drawn = evaluator.draw(painter->frame(film.fps.secAt(count++)), canvas);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x)
                    sum +=
                        std::pow(double(shown.view().row(y)[4 * x + 1]) - drawn.view().row(y)[4 * x + 1], 2);
        }
        EXPECT_EQ(count, film.frameCount);
        return sum / (double(size.width) * size.height * double(count));
    }

    static double sizeOf(const fs::path& file) { return double(fs::file_size(file)); }

    testsupport::TemporaryFolder folder;
};

// The bytes of the film in one go, equally coarse all over and with a key frame every two seconds too, where
// its pictures would lie as far from the document's as those of the pieces do.
TEST_F(Rates, BuyAsMuchInPiecesAsInOneGo) {
    for (const VideoCodec codec : {VideoCodec::h264, VideoCodec::hevc}) {
        std::map<double, double> bytesByError;   // logarithms
        for (const double coarseness : {10, 16, 22, 28, 34, 40}) {
            auto one = config("one.mp4");
            one.videoCodec = codec;
            one.rate = {.coarseness = coarseness};
            CompositionRenderer::render(one, {});
            bytesByError[std::log(errorOf(one))] = std::log(sizeOf(one.output));
        }
        for (const std::int64_t bitsPerSec : {120'000, 400'000}) {
            SCOPED_TRACE(std::string(displayName(codec)) + " at " + std::to_string(bitsPerSec));
            auto pieces = config("pieces.mp4", bitsPerSec);
            pieces.videoCodec = codec;
            CompositionExport::write(pieces, {});
            const double error = std::log(errorOf(pieces));
            const auto above = bytesByError.upper_bound(error);
            ASSERT_TRUE(above != bytesByError.begin() && above != bytesByError.end()) << error;
            const auto below = std::prev(above);
            const double share = (error - below->first) / (above->first - below->first);
            const double ofOne = std::exp(std::lerp(below->second, above->second, share));
            EXPECT_LT(sizeOf(pieces.output) / ofOne, 1.1) << sizeOf(pieces.output) << " for " << ofOne;
        }
    }
}

TEST_F(Rates, AreKeptOnAverage) {
    const std::pair<VideoCodec, std::int64_t> cases[] = {{VideoCodec::h264, 100'000},
        {VideoCodec::h264, 400'000}, {VideoCodec::hevc, 200'000}, {VideoCodec::vp9, 200'000},
        {VideoCodec::av1, 200'000}};
    for (const auto& [codec, bitsPerSec] : cases) {
        SCOPED_TRACE(std::string(displayName(codec)) + " at " + std::to_string(bitsPerSec));
        auto asked = config("a.mp4", bitsPerSec);
        asked.videoCodec = codec;
        CompositionExport::write(asked, {});
        const double bitsOfFilm = double(bitsPerSec) * (calmSec + busySec);
        EXPECT_NEAR(sizeOf(asked.output) * 8 / bitsOfFilm, 1, 0.2);
    }
}

// How coarse a film becomes depends on all of it; but a small edit does not change that.
TEST_F(Rates, LetPiecesBeFoundAgain) {
    auto asked = config("a.mp4", 200'000);
    asked.pieceStore = folder.path() / "store";
    const auto first = CompositionExport::write(asked, {});
    EXPECT_EQ(first.reused, 0u);
    const std::string bytes = bytesOf(asked.output);
    EXPECT_EQ(CompositionExport::write(asked, {}).reused, first.pieces);
    EXPECT_TRUE(bytesOf(asked.output) == bytes);

    asked.spec.scenes[0].layers[0] = testing::shapeLayer({1, 0.5, 0, 1}, 0.45);
    const auto after = CompositionExport::write(asked, {});
    EXPECT_EQ(after.reused, std::size_t(std::ceil(busySec / 2)));
    const std::string edited = bytesOf(asked.output);
    asked.pieceStore.reset();
    asked.evaluation.threadCount = 8;   // four at once
    CompositionExport::write(asked, {});
    EXPECT_TRUE(bytesOf(asked.output) == edited);
}

TEST_F(Rates, AreForetoldForFilmsThatDoNotFitAlone) {
    auto asked = config("film.mp4");
    for (const std::int64_t mostBytes : {150'000, 100'000'000}) {
        SCOPED_TRACE(mostBytes);
        asked.mostBytes = mostBytes;
        const ExportTrial::Outcome trial = ExportTrial::run(asked);
        EXPECT_EQ(trial.bitsPerSec.has_value(), mostBytes < 1'000'000);
        CompositionExport::write(asked, {});
        EXPECT_LE(trial.bytes, double(mostBytes));
        // A stretch stands for the whole.
        EXPECT_GT(trial.bytes, sizeOf(asked.output) / 3);
        EXPECT_LT(trial.bytes, sizeOf(asked.output) * 3);
    }
}

TEST_F(Rates, OfAFilmThatFitsAreTheUsualOnes) {
    const auto usual = config("usual.mp4"), limited = config("limited.mp4");
    CompositionExport::write(usual, {});
    PiecedFilm film = CompositionExport::filmOf(limited);
    RateFit::write(film, 100'000'000, {}, {});
    EXPECT_TRUE(bytesOf(limited.output) == bytesOf(usual.output));

    for (const double share : {0.5, 0.25}) {
        SCOPED_TRACE(share);
        const double most = share * sizeOf(usual.output);
        film = CompositionExport::filmOf(limited);
        RateFit::write(film, std::int64_t(most), {}, {});
        EXPECT_LE(sizeOf(limited.output), most);
        EXPECT_GT(sizeOf(limited.output), 0.7 * most);
    }
}

}   // namespace
}   // namespace tavix
