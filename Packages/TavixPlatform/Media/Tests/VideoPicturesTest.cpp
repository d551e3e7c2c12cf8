// The pictures of films are those that are meant: colours, sizes, uprightness, alpha.
#include "TavixPlatform/Media/VideoFile.h"

#include "DecodedMovie.h"
#include "TestClip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

namespace tavix::media::tests {

std::ostream& operator<<(std::ostream& out, const Rgba& c) {
    return out << "(" << c.r << ", " << c.g << ", " << c.b << ", " << c.a << ")";
}

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

class VideoPictures : public ::testing::Test {
protected:
    imaging::Image firstPicture(const ClipRecipe& recipe) {
        makeClip(recipe);
        auto frame = VideoFile(recipe.path).framesFrom(0, endless, Pace::onDemand)->next();
        EXPECT_TRUE(frame) << recipe.path;
        return frame ? frame->image() : imaging::Image();
    }

    TemporaryFolder folder_;
};

// Every matrix, range and depth against the formula of the standards, in real numbers.
TEST_F(VideoPictures, TurnsYuvIntoTheColourThatIsMeant) {
    const struct {
        const char* name;
        AVPixelFormat pixels;
        AVColorSpace matrix;
        AVColorRange range;
        double red, blue;   // weights in luma
    } cases[] = {
        {"601.mkv", AV_PIX_FMT_YUV420P, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG, 0.299, 0.114},
        {"709.mkv", AV_PIX_FMT_YUV420P, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 0.2126, 0.0722},
        {"709-full.mkv", AV_PIX_FMT_YUV420P, AVCOL_SPC_BT709, AVCOL_RANGE_JPEG, 0.2126, 0.0722},
        {"2020.mkv", AV_PIX_FMT_YUV420P10, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG, 0.2627, 0.0593},
        {"601-422.mkv", AV_PIX_FMT_YUV422P, AVCOL_SPC_BT470BG, AVCOL_RANGE_JPEG, 0.299, 0.114},
        {"709-444.mkv", AV_PIX_FMT_YUV444P12, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 0.2126, 0.0722},
        {"unsaid.mkv", AV_PIX_FMT_YUV420P, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED, 0.299, 0.114},
        {"scaled-410.mkv", AV_PIX_FMT_YUV410P, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 0.2126, 0.0722},
        {"scaled-16.mkv", AV_PIX_FMT_YUV444P16, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 0.2126, 0.0722},
    };
    for (const auto& c : cases)
        for (const auto& colour :
            {std::array{80, 100, 170}, {200, 150, 110}, {16, 128, 128}, {235, 128, 128}}) {
            const int y = colour[0], cb = colour[1], cr = colour[2];
            SCOPED_TRACE(std::string(c.name) + " " + std::to_string(y));
            ClipRecipe recipe{.path = folder_ / c.name, .encoder = "ffv1", .pixels = c.pixels};
            recipe.size = {33, 31};
            recipe.times = {0};
            recipe.matrix = c.matrix;
            recipe.range = c.range;
            recipe.paint = [&](AVFrame& frame, int) {
                fillPlane(frame, 0, y);
                fillPlane(frame, 1, cb);
                fillPlane(frame, 2, cr);
            };
            const bool isFull = c.range == AVCOL_RANGE_JPEG;
            const double luma = isFull ? y : (y - 16) * 255.0 / 219, scale = isFull ? 1 : 255.0 / 224;
            const double r = luma + 2 * (1 - c.red) * (cr - 128) * scale,
                         b = luma + 2 * (1 - c.blue) * (cb - 128) * scale;
            const double g = (luma - c.red * r - c.blue * b) / (1 - c.red - c.blue);
            const Rgba got = pixelAt(firstPicture(recipe), 32, 30);
            EXPECT_NEAR(got.r, std::clamp(r, 0.0, 255.0), 1.01);
            EXPECT_NEAR(got.g, std::clamp(g, 0.0, 255.0), 1.01);
            EXPECT_NEAR(got.b, std::clamp(b, 0.0, 255.0), 1.01);
            EXPECT_EQ(got.a, 255);
        }
}

// A step of chroma between two samples is centred on where they stand.
TEST_F(VideoPictures, PutsChromaWhereTheFilmSaysItStands) {
    const struct {
        AVChromaLocation location;
        std::array<int, 4> parts;   // of the step in columns 14 ... 17, in quarters
    } cases[] = {{AVCHROMA_LOC_LEFT, {0, 2, 4, 4}}, {AVCHROMA_LOC_CENTER, {0, 1, 3, 4}}};
    for (const auto& c : cases) {
        ClipRecipe recipe{.path = folder_ / "chroma.mp4", .times = {0}, .chroma = c.location};
        recipe.options = {{"qp", "0"}};
        recipe.paint = [](AVFrame& frame, int) {
            fillPlane(frame, 0, 120);
            fillPlane(frame, 1, 128);
            fillPlane(frame, 2, 128);
            for (int y = 0; y < 32; ++y) std::fill_n(frame.data[2] + y * frame.linesize[2] + 8, 24, 168);
        };
        const imaging::Image image = firstPicture(recipe);
        const int before = pixelAt(image, 4, 20).r, after = pixelAt(image, 40, 20).r;
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(
                pixelAt(image, 14 + i, 20).r, before + (after - before) * c.parts[std::size_t(i)] / 4.0, 1)
                << c.location << " column " << 14 + i;
    }
}

// Four brightnesses over and over, red on the left, of which halving makes one.
TEST_F(VideoPictures, HalvesPicturesOfPreviewsToTheMeanOfWhatTheyCover) {
    ClipRecipe recipe{.path = folder_ / "four.mp4", .times = {0}};
    recipe.options = {{"qp", "0"}};
    recipe.paint = [](AVFrame& frame, int) {
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                frame.data[0][y * frame.linesize[0] + x] = std::uint8_t(60 + x % 2 * 40 + y % 2 * 80);
        for (int plane : {1, 2}) fillPlane(frame, plane, 128);
        for (int y = 0; y < 32; ++y) std::fill_n(frame.data[2] + y * frame.linesize[2], 16, 158);
    };
    const imaging::Image whole = firstPicture(recipe);
    const struct {
        ShownBox box;
        bool isHalved;
    } cases[] = {{{{32, 32}, true}, true}, {{{16, 20}, true}, true}, {{{16, 16}, true}, true},
        {{{20, 33}, true}, false}, {{{16, 16}, false}, false}};
    for (const auto& c : cases) {
        const auto frames = VideoFile(recipe.path, {.shown = c.box}).framesFrom(0, endless, Pace::onDemand);
        const imaging::Image image = frames->next()->image();
        EXPECT_EQ(image.extent(), whole.extent());
        for (const int x : {10, 11, 50}) {
            Rgba expected = pixelAt(whole, x, 20);
            if (c.isHalved) {
                const Rgba right = pixelAt(whole, x + 1, 20), below = pixelAt(whole, x, 21),
                           across = pixelAt(whole, x + 1, 21);
                expected = {(expected.r + right.r + below.r + across.r) / 4,
                    (expected.g + right.g + below.g + across.g) / 4,
                    (expected.b + right.b + below.b + across.b) / 4, 255};
            }
            const Rgba shown = pixelAt(image, x, 20);
            EXPECT_NEAR(shown.r, expected.r, 2) << x << ", box " << c.box.px.width;
            EXPECT_NEAR(shown.g, expected.g, 2) << x << ", box " << c.box.px.width;
            EXPECT_NEAR(shown.b, expected.b, 2) << x << ", box " << c.box.px.width;
        }
    }
}

TEST_F(VideoPictures, TurnsFramesUpright) {
    // Where the upper left corner of the stored picture goes to.
    const struct {
        int clockwiseDeg, x, y;
        imaging::Size shown;
    } cases[] = {{0, 2, 2, {96, 64}}, {90, 61, 2, {64, 96}}, {180, 93, 61, {96, 64}}, {270, 2, 93, {64, 96}}};
    for (const auto& c : cases) {
        ClipRecipe recipe{.path = folder_ / "turned.mp4", .size = {96, 64}, .times = {0}};
        recipe.clockwiseDeg = c.clockwiseDeg;
        recipe.paint = [](AVFrame& frame, int) {
            for (int plane : {1, 2}) fillPlane(frame, plane, 128);
            fillPlane(frame, 0, 16);
            for (int y = 0; y < 16; ++y) std::fill_n(frame.data[0] + y * frame.linesize[0], 16, 235);
        };
        const imaging::Image image = firstPicture(recipe);
        EXPECT_EQ(image.extent(), (imaging::Rect{0, 0, double(c.shown.width), double(c.shown.height)}));
        EXPECT_GT(pixelAt(image, c.x, c.y).r, 200) << c.clockwiseDeg;
        EXPECT_LT(pixelAt(image, c.shown.width - 1 - c.x, c.shown.height - 1 - c.y).r, 50) << c.clockwiseDeg;
    }
}

TEST_F(VideoPictures, MakesPixelsSquare) {
    const struct {
        AVRational aspect;
        int turnDeg;
        double width, height;
    } cases[] = {{{4, 3}, 0, 85, 64}, {{1, 2}, 0, 64, 128}, {{4, 3}, 90, 64, 85}, {{0, 1}, 0, 64, 64}};
    for (const auto& c : cases) {
        ClipRecipe recipe{.path = folder_ / "wide.mp4", .times = {0}, .pixelAspect = c.aspect};
        recipe.clockwiseDeg = c.turnDeg;
        const imaging::Rect extent = firstPicture(recipe).extent();
        EXPECT_NEAR(extent.width, c.width, 1e-9);
        EXPECT_NEAR(extent.height, c.height, 1e-9);
    }
}

TEST_F(VideoPictures, PremultipliesAlpha) {
    const struct {
        const char *file, *encoder;
        AVPixelFormat pixels;
    } cases[] = {{"alpha.mov", "prores_ks", AV_PIX_FMT_YUVA444P10},
        {"alpha.webm", "libvpx-vp9", AV_PIX_FMT_YUVA420P}, {"alpha.mkv", "ffv1", AV_PIX_FMT_YUVA444P},
        {"packed.mkv", "ffv1", AV_PIX_FMT_BGRA}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        ClipRecipe recipe{.path = folder_ / c.file, .encoder = c.encoder, .pixels = c.pixels};
        recipe.times = {0};
        recipe.paint = [&](AVFrame& frame, int) {
            if (c.pixels == AV_PIX_FMT_BGRA) {
                for (int y = 0; y < 64; ++y)
                    for (int x = 0; x < 64; ++x) {
                        const std::uint8_t white[4] = {255, 255, 255, std::uint8_t(x < 32 ? 255 : 64)};
                        std::memcpy(frame.data[0] + y * frame.linesize[0] + x * 4, white, 4);
                    }
                return;
            }
            fillPlane(frame, 0, 235);
            for (int plane : {1, 2}) fillPlane(frame, plane, 128);
            const bool isDeep = c.pixels == AV_PIX_FMT_YUVA444P10;
            for (int y = 0; y < 64; ++y)
                for (int x = 0; x < 64; ++x) {
                    std::uint8_t* row = frame.data[3] + y * frame.linesize[3];
                    if (isDeep)
                        reinterpret_cast<std::uint16_t*>(row)[x] = x < 32 ? 1023 : 257;
                    else
                        row[x] = x < 32 ? 255 : 64;
                }
        };
        const imaging::Image image = firstPicture(recipe);
        const Rgba solid = pixelAt(image, 10, 30), faint = pixelAt(image, 54, 30);
        EXPECT_EQ(solid.a, 255);
        EXPECT_NEAR(solid.r, 255, 2);
        EXPECT_NEAR(faint.a, 64, 2);
        EXPECT_NEAR(faint.r, faint.a, 1);   // white under a quarter of alpha
        EXPECT_NEAR(faint.b, faint.a, 1);
    }
}

}   // namespace
}   // namespace tavix::media::tests
