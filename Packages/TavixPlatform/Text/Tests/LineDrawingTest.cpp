#include "TavixPlatform/Text/LineDrawing.h"

#include "TavixPlatform/Text/Tests/TextTestKit.h"
#include "TestSupport/SourceTree.h"

#include <gmock/gmock.h>

namespace tavix::text {
namespace {

constexpr imaging::Point origin{10.37, 3.81};

Font fontNamed(const char* name) { return FontBook().named(name, 40).font; }

std::vector<Font> fonts() { return {fontNamed("Inter"), fontNamed("Georgia"), fontNamed("Palatino-Bold")}; }

// Each part rounds on its own where it meets another.
constexpr int roundedLevels = 3;

// All that words or characters of a line leave, each drawn alone and laid over the others.
imaging::Bitmap drawnApart(const TypesetLine& line, const std::vector<TextRange>& ranges, double scale) {
    const imaging::PixelRegion region = regionOf(line, origin, scale);
    imaging::Bitmap sum({region.width(), region.height()});
    for (const TextRange& range : ranges)
        for (const LineSpan& span : line.spans(range))
            sum = laidOver(drawn(line, origin, {range, span}, scale, region), sum);
    return sum;
}

class DrawnAlone : public testing::TestWithParam<Sample> {};
INSTANTIATE_TEST_SUITE_P(Parts, DrawnAlone, testing::ValuesIn(samples), nameOfSample);

TEST_P(DrawnAlone, WordsHaveThePixelsOfTheWholeLine) {
    const std::string text(GetParam().text);
    for (const Font& font : fonts())
        for (const double scale : {1.0, 2.0})
            for (const TypesetLine& line : wrappedLines({text, font}, 400)) {
                SCOPED_TRACE(font.postScriptName());
                const imaging::Bitmap whole =
                    drawn(line, origin, wholeOf(line), scale, regionOf(line, origin, scale));
                EXPECT_EQ(pixelsApart(whole, drawnApart(line, wordsOf(text), scale), roundedLevels), 0u);
            }
}

TEST_P(DrawnAlone, CharactersHaveThePixelsOfTheWholeLineEvenWhereAGlyphIsCut) {
    const std::string text(GetParam().text);
    for (const Font& font : fonts())
        for (const TypesetLine& line : wrappedLines({text, font}, 400)) {
            const imaging::Bitmap whole = drawn(line, origin, wholeOf(line), 1, regionOf(line, origin, 1));
            EXPECT_EQ(pixelsApart(whole, drawnApart(line, charactersOf(text), 1), roundedLevels), 0u);
        }
}

TEST_P(DrawnAlone, ARegionHasThePixelsOfALargerOne) {
    const std::string text(GetParam().text);
    const TypesetLine line = wrappedLines({text, fontNamed("Inter")}, 400).front();
    const imaging::PixelRegion region = regionOf(line, origin, 1);
    const imaging::PixelRegion part =
        intersection({region.x0 + 17, region.y0 + 9, region.x0 + 90, region.y1}, region);
    if (part.isEmpty()) return;
    const imaging::Bitmap whole = drawn(line, origin, wholeOf(line), 1, region);
    const imaging::Bitmap piece = drawn(line, origin, wholeOf(line), 1, part);
    for (int y = 0; y < part.height(); ++y)
        for (int x = 0; x < part.width(); ++x)
            ASSERT_EQ(pixelAt(piece, x, y), pixelAt(whole, x + part.x0 - region.x0, y + region.y1 - part.y1));
}

TEST_P(DrawnAlone, AllInkLiesWithinTheInkRegion) {
    const std::string text(GetParam().text);
    for (const TypesetLine& line : wrappedLines({text, fontNamed("Inter")}, 400)) {
        const imaging::PixelRegion ink = inkRegion(line, origin, wholeOf(line), 1);
        if (ink.isEmpty()) continue;
        const imaging::PixelRegion around = grownBy(ink, 40);
        EXPECT_NEAR(inkOf(drawn(line, origin, wholeOf(line), 1, ink)),
            inkOf(drawn(line, origin, wholeOf(line), 1, around)), 1e-9);
    }
}

TEST(LineDrawing, NoInkIsCutThatReachesOverANeighbour) {
    const FontBook book;
    const FontBook& swash = *book.withFile(
        testsupport::inSourceTree("Packages/TavixPlatform/Text/Tests/Data/TavixSwash-Regular.ttf"));
    const TypesetLine line = wrappedLines({"ab ab", swash.named("Tavix Swash", 100).font}, 1000).front();
    // A bar is 120 wide and 30 high, though its advance is 60; the two of a word lie at different heights.
    for (const TextRange& range : {TextRange{0, 2}, TextRange{3, 5}, TextRange{1, 2}}) {
        const LineSpan span = line.spans(range).front();
        const LinePart part{range, span};
        const imaging::PixelRegion region = inkRegion(line, {}, part, 1);
        EXPECT_NEAR(inkOf(drawn(line, {}, part, 1, region)), 120.0 * 30.0 * double(range.length()), 1);
        EXPECT_EQ(region.x0, int(span.x0) - 30);
        EXPECT_EQ(region.x1, int(span.x1) + 30);
    }
}

TEST(LineDrawing, AWholePixelMovesThePixelsAndHalfAPixelChangesThem) {
    const TypesetLine line = wrappedLines({"Moving", fontNamed("Inter")}, 1000).front();
    const imaging::PixelRegion region = regionOf(line, {}, 1),
                               moved{region.x0 + 5, region.y0 - 3, region.x1 + 5, region.y1 - 3};
    const imaging::Bitmap still = drawn(line, {}, wholeOf(line), 1, region);
    EXPECT_EQ(differingPixels(still, drawn(line, {5, -3}, wholeOf(line), 1, moved)), 0u);
    const imaging::Bitmap between = drawn(line, {0.5, 0}, wholeOf(line), 1, region);
    EXPECT_GT(differingPixels(still, between), 100u);
    EXPECT_NEAR(inkOf(between), inkOf(still), 0.01 * inkOf(still)) << "the same ink, elsewhere";
}

TEST(LineDrawing, TheScaleMagnifiesTheSameInk) {
    for (const Sample& sample : samples) {
        SCOPED_TRACE(sample.name);
        const TypesetLine line = wrappedLines({std::string(sample.text), fontNamed("Inter")}, 1e6).front();
        const double one = inkOf(drawn(line, {}, wholeOf(line), 1, regionOf(line, {}, 1)));
        const double three = inkOf(drawn(line, {}, wholeOf(line), 3, regionOf(line, {}, 3)));
        EXPECT_NEAR(three, 9 * one, 0.03 * three + 1);
    }
}

TEST(LineDrawing, ColourIsPremultiplied) {
    StyledText text{"H", fontNamed("Inter"), {1, 0.5, 0, 0.5}};
    const TypesetLine line = wrappedLines(text, 1000).front();
    const imaging::Bitmap bitmap = drawn(line, {}, wholeOf(line), 4, regionOf(line, {}, 4));
    std::uint32_t densest = 0;
    for (int y = 0; y < bitmap.size().height; ++y)
        for (int x = 0; x < bitmap.size().width; ++x) densest = std::max(densest, pixelAt(bitmap, x, y));
    EXPECT_EQ(densest, 0x80804000u);   // alpha, red, green, blue
}

TEST(LineDrawing, EmojiHaveColoursOfTheirOwn) {
    const TypesetLine line = wrappedLines({"❤️", fontNamed("Inter")}, 1000).front();
    const imaging::PixelRegion region = regionOf(line, {}, 1);
    const imaging::Bitmap bitmap = drawn(line, {}, wholeOf(line), 1, region);
    const std::uint8_t* middle = bitmap.view().row(region.height() / 2) + 4 * (region.width() / 2);
    EXPECT_GT(middle[2], 180);
    EXPECT_LT(middle[1], 100);
    EXPECT_NEAR(line.widthPx(), 47, 8) << "about as wide as the text is high";
}

}   // namespace
}   // namespace tavix::text
