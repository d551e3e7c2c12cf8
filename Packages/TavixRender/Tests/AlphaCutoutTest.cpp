#include "TavixRender/Assets/AlphaCutout.h"
#include "RenderTestKit.h"
#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/StillImages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>

namespace tavix {
namespace {

// One character a pixel: '#' is solid, '.' is clear, '-' has an alpha of 15 and '+' of 16.
imaging::Bitmap frameOf(const std::vector<std::string>& rows) {
    imaging::Bitmap frame({int(rows.front().size()), int(rows.size())});
    for (int y = 0; y < frame.size().height; ++y)
        for (int x = 0; x < frame.size().width; ++x) {
            const char c = rows[std::size_t(y)][std::size_t(x)];
            frame.view().row(y)[x * 4 + 3] = c == '#' ? 255 : c == '-' ? 15 : c == '+' ? 16 : 0;
        }
    return frame;
}

// A solid frame of 200 x 300 with a hole of 120 x 220 at (40, 30) whose corners are cut by `inset` of the
// row.
imaging::Bitmap phone(const std::function<int(int row)>& inset) {
    std::vector<std::string> rows(300, std::string(200, '#'));
    for (int k = 0; k < 220; ++k) {
        const int cut = inset(std::min(k, 219 - k));
        for (int x = 40 + cut; x < 160 - cut; ++x) rows[std::size_t(30 + k)][std::size_t(x)] = '.';
    }
    return frameOf(rows);
}

double radiusPx(const imaging::Bitmap& frame, int smallerSide) {
    return AlphaCutout::detect(frame.view(), 16)->cornerRadiusFraction * smallerSide;
}

TEST(AlphaCutout, MeasuresTheHoleAndNotTheOutside) {
    const imaging::Bitmap frame = frameOf({
        "..........",
        ".########.",
        ".#-....-#.",
        ".#......#.",
        ".#..##..#.",
        ".#+....+#.",
        ".########.",
        "..........",
    });
    const auto found = AlphaCutout::detect(frame.view(), 16);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->screen, (NormalizedRect{0.2, 0.25, 0.6, 0.5}));
    EXPECT_EQ(found->frameWidth, 10);
    EXPECT_EQ(found->frameHeight, 8);
}

TEST(AlphaCutout, CountsTheRowsOfTheCorner) {
    EXPECT_DOUBLE_EQ(radiusPx(phone([](int) { return 0; }), 120), 0);
    // One pixel from the edge counts as there.
    EXPECT_DOUBLE_EQ(radiusPx(phone([](int row) { return std::max(9 - row, 0); }), 120), 8);
    EXPECT_DOUBLE_EQ(radiusPx(phone([](int row) { return std::max(40 - row, 0); }), 120), 39);
    // A pointed opening never ends its corner within half its width.
    EXPECT_DOUBLE_EQ(radiusPx(phone([](int row) { return std::max((110 - row) / 2, 0); }), 120), 60);
}

TEST(AlphaCutout, LooksAtAFewRowsOfANarrowHole) {
    const auto funnel = [](int height) {
        std::vector<std::string> rows(std::size_t(height + 2), std::string(12, '#'));
        for (int k = 0; k < height; ++k) {
            const int cut = k >= height / 2 ? 0 : 4;
            for (int x = 1 + cut; x < 11 - cut; ++x) rows[std::size_t(k + 1)][std::size_t(x)] = '.';
        }
        return frameOf(rows);
    };
    EXPECT_DOUBLE_EQ(radiusPx(funnel(40), 10), 5);   // 8 rows, held to half the width
    EXPECT_DOUBLE_EQ(radiusPx(funnel(6), 6), 3);     // its middle row is the first wide one
}

TEST(AlphaCutout, FindsNothingInAnOpenFrame) {
    const std::vector<std::string> gap{"#####", "#...#", "#...#", "##.##"};
    EXPECT_FALSE(AlphaCutout::detect(frameOf(gap).view(), 16));
    const std::vector<std::string> solid{"####", "####"}, diagonal{"###", "#.#", "##."};
    EXPECT_FALSE(AlphaCutout::detect(frameOf(solid).view(), 16));
    EXPECT_TRUE(AlphaCutout::detect(frameOf(diagonal).view(), 16)) << "it leaks through a corner";
}

TEST(AlphaCutout, SaysWhatIsWrongWithAFile) {
    const testing::TemporaryFolder folder;
    const auto sentenceOf = [&](const std::string& name) -> std::string {
        try {
            DeviceFrameCutoutService::detect(folder.path() / name);
        } catch (const Failure& failure) {
            return failure.message();
        }
        return "found";
    };
    media::writePng(folder.path() / "solid.png", frameOf({"###", "###"}).view());
    media::writePng(folder.path() / "frame.png", frameOf({"###", "#.#", "###"}).view());
    std::ofstream(folder.path() / "notes.png") << "no picture";
    EXPECT_EQ(sentenceOf("frame.png"), "found");
    EXPECT_EQ(sentenceOf("solid.png"), "No interior transparent screen region found in solid.png.");
    EXPECT_EQ(sentenceOf("notes.png"), "Could not read frame image: notes.png.");
    EXPECT_EQ(sentenceOf("gone.png"), "Could not read frame image: gone.png.");
}

}   // namespace
}   // namespace tavix
