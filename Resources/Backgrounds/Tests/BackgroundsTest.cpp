#include "Backgrounds/JpegFile.h"
#include "Backgrounds/Painter.h"
#include "Backgrounds/Recipes.h"
#include "TestSupport/SourceTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>

#include <jpeglib.h>

namespace tavix::backgrounds {

namespace {

constexpr int sidePx = 640;

struct Statistics {
    double mean = 0, deviation = 0;
};

class EveryBackground : public testing::TestWithParam<Recipe> {
protected:
    const Picture picture_ = paint(GetParam(), sidePx);

    int channel(int x, int y, int c) const {
        return picture_.bytes[static_cast<std::size_t>((y * sidePx + x) * 3 + c)];
    }
    double lightness(int x, int y) const {
        const auto hex =
            static_cast<std::uint32_t>(channel(x, y, 0) << 16 | channel(x, y, 1) << 8 | channel(x, y, 2));
        return oklab(hex).lightness;
    }
    Statistics lightnessWithin(int from, int to) const {
        double sum = 0, squares = 0, count = 0;
        for (int y = from; y < to; y += 4)
            for (int x = from; x < to; x += 4, ++count) {
                sum += lightness(x, y);
                squares += lightness(x, y) * lightness(x, y);
            }
        return {sum / count, std::sqrt(std::max(squares / count - sum * sum / count / count, 0.0))};
    }
};

// What libjpeg reads back; it ends the program at a file that is no JPEG.
Picture decoded(const std::filesystem::path& path) {
    jpeg_decompress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&jpeg);
    std::FILE* file = std::fopen(path.c_str(), "rb");
    EXPECT_NE(file, nullptr);
    jpeg_stdio_src(&jpeg, file);
    jpeg_read_header(&jpeg, TRUE);
    EXPECT_EQ(jpeg.image_width, jpeg.image_height);
    EXPECT_EQ(jpeg.comp_info[0].h_samp_factor, jpeg.comp_info[1].h_samp_factor)
        << "chroma is not at full size";
    jpeg_start_decompress(&jpeg);
    Picture picture{static_cast<int>(jpeg.image_width), {}};
    picture.bytes.resize(std::size_t{jpeg.image_width} * jpeg.image_width * 3);
    while (jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW row = picture.bytes.data() + std::size_t{jpeg.output_scanline} * jpeg.image_width * 3;
        jpeg_read_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
    std::fclose(file);
    return picture;
}

}   // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name that GoogleTest looks for
void PrintTo(const Recipe& recipe, std::ostream* out) { *out << recipe.resourceName; }

TEST_P(EveryBackground, IsPaintedTheSameEveryTime) {
    EXPECT_EQ(paint(GetParam(), sidePx).bytes, picture_.bytes);
}

// The eye sees a step that runs along a line; grain must hide all of them but the rims of the folds, and
// these stay soft.
TEST_P(EveryBackground, HasNoHardStep) {
    int largest = 0;
    for (int y = 1; y < sidePx; ++y)
        for (int x = 1; x < sidePx; ++x)
            for (int c = 0; c < 3; ++c)
                largest = std::max({largest, std::abs(channel(x, y, c) - channel(x - 1, y, c)),
                    std::abs(channel(x, y, c) - channel(x, y - 1, c))});
    EXPECT_LT(largest, 32);
}

// Where a slow gradient is cut to whole levels most neighbours are equal, and then a line of them steps at
// once.
TEST_P(EveryBackground, HasNoBands) {
    int equalPairs = 0;
    for (int y = 0; y < sidePx; ++y)
        for (int x = 1; x < sidePx; ++x) equalPairs += channel(x, y, 1) == channel(x - 1, y, 1);
    EXPECT_LT(static_cast<double>(equalPairs) / (sidePx * sidePx), 0.5);
}

// Rounding down, or a grain with a bias, would lose the fractions of a level that a slow gradient
// lives on.
TEST_P(EveryBackground, KeepsFractionsOfALevelOnAverage) {
    constexpr int blockPx = 16;
    std::vector<double> errors;
    for (int top = 0; top < sidePx; top += blockPx)
        for (int left = 0; left < sidePx; left += blockPx) {
            double painted = 0, exact = 0;
            for (int y = top; y < top + blockPx; ++y)
                for (int x = left; x < left + blockPx; ++x) {
                    painted += channel(x, y, 1);
                    const auto rgb = encoded(
                        colorAt(GetParam(), static_cast<float>(x) / sidePx, static_cast<float>(y) / sidePx));
                    exact += 255 * std::clamp<double>(rgb[1], 0, 1);
                }
            errors.push_back(std::abs(painted - exact) / (blockPx * blockPx));
        }
    // The median: blocks with a rim differ a little more, where the spline has softened it.
    const auto middle = errors.begin() + static_cast<std::ptrdiff_t>(errors.size() / 2);
    std::nth_element(errors.begin(), middle, errors.end());
    EXPECT_LT(*middle, 0.07);
}

// Something stands in front of it: there is depth, the middle is calmer than the whole may be, and neither
// text in white or black is lost.
TEST_P(EveryBackground, HasDepthAndACalmMiddle) {
    const Statistics whole = lightnessWithin(0, sidePx), middle = lightnessWithin(sidePx / 3, sidePx * 2 / 3);
    EXPECT_GT(whole.deviation, 0.03);
    EXPECT_LT(middle.deviation, 0.17);
    EXPECT_GT(whole.mean, 0.2);
    EXPECT_LT(whole.mean, 0.97);
}

TEST_P(EveryBackground, SurvivesItsFile) {
    const auto path = std::filesystem::path(testing::TempDir()) / (GetParam().resourceName + ".jpg");
    writeJpeg(picture_, path);
    const Picture read = decoded(path);
    std::filesystem::remove(path);
    ASSERT_EQ(read.sidePx, sidePx);
    double difference = 0;
    for (std::size_t i = 0; i < read.bytes.size(); ++i)
        difference += std::abs(read.bytes[i] - picture_.bytes[i]);
    EXPECT_LT(difference / static_cast<double>(read.bytes.size()), 1.0);
}

INSTANTIATE_TEST_SUITE_P(Backgrounds, EveryBackground, testing::ValuesIn(recipes().begin(), recipes().end()),
    [](const auto& background) {
        std::string name = background.param.resourceName;
        std::replace(name.begin(), name.end(), '-', '_');
        return name;
    });

TEST(Backgrounds, AreFoundByName) {
    for (const Recipe& recipe : recipes()) EXPECT_EQ(recipeNamed(recipe.resourceName), &recipe);
    EXPECT_EQ(recipeNamed("bg-plaid"), nullptr);
}

TEST(Backgrounds, AreAllPaintedByTheBuild) {
    std::ifstream file(testsupport::inSourceTree("Resources/Backgrounds/CMakeLists.txt"));
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    for (const Recipe& recipe : recipes()) EXPECT_NE(script.find(recipe.resourceName), std::string::npos);
}

TEST(Oklab, RoundTripsTheWholeCube) {
    for (std::uint32_t hex = 0; hex <= 0xffffff; hex += 0x0b0d11) {
        const EncodedRgb rgb = encoded(oklab(hex));
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(rgb[static_cast<std::size_t>(c)] * 255, (hex >> (16 - 8 * c)) & 0xff, 0.2)
                << std::hex << hex;
    }
    EXPECT_NEAR(oklab(0xffffff).lightness, 1, 1e-4);
}

}   // namespace tavix::backgrounds
