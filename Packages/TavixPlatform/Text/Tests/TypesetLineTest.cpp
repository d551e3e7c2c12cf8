#include "TavixPlatform/Text/TypesetLine.h"

#include "TavixPlatform/Text/LineBreaker.h"
#include "TavixPlatform/Text/LineData.h"
#include "TavixPlatform/Text/Tests/TextTestKit.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <thread>

namespace tavix::text {
namespace {

const FontBook& book() {
    static const FontBook fonts;
    return fonts;
}

std::vector<TypesetLine> set(std::string_view text, double maxWidth, bool hasLigatures = true) {
    StyledText styled{std::string(text), book().interfaceFont(40)};
    styled.hasLigatures = hasLigatures;
    return wrappedLines(styled, maxWidth);
}

std::vector<std::string> textsOf(std::string_view text, const std::vector<TypesetLine>& lines) {
    std::vector<std::string> result;
    for (const TypesetLine& line : lines)
        result.emplace_back(text.substr(line.range().begin, line.range().length()));
    return result;
}

bool isLineBreak(std::string_view text) {
    return testing::Matches(testing::AnyOf("", "\n", "\r", "\r\n", "\u2028"))(text);
}

// All that is known of each glyph that the first characters came to.
std::vector<std::string> glyphsOf(const TypesetLine& line, std::size_t bytes) {
    std::vector<std::string> told;
    const LineData& data = line.data();
    for (const PlacedGlyph& glyph : data.glyphs)
        if (glyph.begin < bytes)
            told.push_back(data.fonts[glyph.font]->name + " " + std::to_string(glyph.id) + " at " +
                           std::to_string(glyph.x) + ", " + std::to_string(glyph.y) + " to " +
                           std::to_string(glyph.clusterX1));
    return told;
}

// Text whose font has all of it is set from its family alone; a character of another font has all fonts
// looked through.
TEST(TypesetLine, ASignOfAnotherFontChangesNoGlyphBeforeIt) {
    const std::string texts[] = {"Wolf AVATAR fjord, office 0123 (©)", "Größe, Żółć – «Ça va?»", "AVATAR"};
    for (const char* name : {"Inter", "Inter-Black", "Futura", "Georgia-Bold", "Menlo", "Avenir", "Gill Sans",
             "Noto Sans", "Noto Sans CJK JP"})
        for (const double sizePx : {7.3, 40.0, 388.8})
            for (const double trait : {0.0, 0.4})
                for (const std::string& text : texts) {
                    SCOPED_TRACE(name + (" in " + std::to_string(sizePx)) + ": " + text);
                    StyledText styled{text, book().named(name, sizePx).font.withWeightTrait(trait)};
                    const StyledRange bold{{0, 4}, styled.font.withWeightTrait(0.6), {}};
                    const StyledRange other{{0, 4}, book().named("Palatino", sizePx).font, {}};
                    for (const auto& ranges : {std::vector<StyledRange>{}, {bold}, {other}}) {
                        styled.ranges = ranges;
                        styled.text = text;
                        const auto alone = glyphsOf(wrappedLines(styled, 1e6).at(0), text.size());
                        styled.text = text + " \uE7A0";
                        EXPECT_EQ(alone, glyphsOf(wrappedLines(styled, 1e6).at(0), text.size()));
                        EXPECT_FALSE(alone.empty());
                    }
                }
}

TEST(TypesetLine, EmojiAreColouredEvenWhereTheFontHasThemInOneColour) {
    for (const char* emoji : {"⌚", "☔", "⚡"}) {
        const auto lines = wrappedLines({emoji, book().named("DejaVu Sans", 40).font}, 1e6);
        EXPECT_EQ(lines.at(0).data().fonts.at(0)->name, "Noto Color Emoji") << emoji;
    }
}

class OfEverySample : public testing::TestWithParam<Sample> {};
INSTANTIATE_TEST_SUITE_P(TypesetLine, OfEverySample, testing::ValuesIn(samples), nameOfSample);

TEST_P(OfEverySample, LinesCoverTheTextInOrderAndLeaveOutNothingButLineBreaks) {
    const std::string_view text = GetParam().text;
    for (const double width : {1.0, 60.0, 150.0, 400.0, 1e6}) {
        SCOPED_TRACE(width);
        std::size_t at = 0;
        for (const TypesetLine& line : set(text, width)) {
            ASSERT_GE(line.range().begin, at);
            const std::string_view between = text.substr(at, line.range().begin - at);
            EXPECT_TRUE(isLineBreak(between)) << between;
            at = line.range().end;
        }
        EXPECT_EQ(at, text.size());
    }
}

TEST_P(OfEverySample, ALineIsNoWiderThanAskedUnlessItHoldsOneCharacter) {
    for (const double width : {60.0, 150.0, 400.0})
        for (const TypesetLine& line : set(GetParam().text, width)) {
            const std::size_t bytes = line.range().length();
            // The family of four is the longest character of the samples.
            EXPECT_TRUE(line.widthPx() <= width + 0.5 || bytes <= 25) << line.widthPx();
        }
}

TEST_P(OfEverySample, TheSpansOfTheCharactersMakeUpTheLine) {
    const std::string_view text = GetParam().text;
    for (const TypesetLine& line : set(text, 300)) {
        double sum = 0;
        for (const TextRange& point : codePointsOf(text))
            for (const LineSpan& span : line.spans(point)) {
                EXPECT_LE(span.x0, span.x1);
                EXPECT_GE(span.x0, -0.01);
                EXPECT_LE(span.x1, line.widthPx() + 0.01);
                sum += span.x1 - span.x0;
            }
        if (line.range().isEmpty()) continue;
        EXPECT_NEAR(sum, line.widthPx(), 0.01);
        EXPECT_THAT(line.spans(line.range()), testing::SizeIs(1)) << "a whole line has no gap";
    }
}

TEST_P(OfEverySample, EverySetGivesTheSameLinesOnEveryThread) {
    const std::string_view text = GetParam().text;
    const std::vector<TypesetLine> expected = set(text, 200);
    std::vector<std::thread> threads;
    std::vector<std::size_t> differences(4);
    for (std::size_t& different : differences)
        threads.emplace_back([&different, &expected, text] {
            const std::vector<TypesetLine> mine = set(text, 200);
            different = mine.size() != expected.size();
            for (std::size_t i = 0; i < std::min(mine.size(), expected.size()); ++i) {
                const imaging::PixelRegion region = regionOf(expected[i], {0.3, 0.7}, 1);
                if (region.isEmpty()) continue;
                different += differingPixels(drawn(mine[i], {0.3, 0.7}, wholeOf(mine[i]), 1, region),
                    drawn(expected[i], {0.3, 0.7}, wholeOf(expected[i]), 1, region));
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(differences, testing::Each(0u));
}

TEST(WrappedLines, BreakWhereTheScriptMayBeBroken) {
    const struct {
        const char* text;
        double width;
        std::vector<std::string> lines;
    } cases[] = {
        {"aaa bbb ccc", 160, {"aaa bbb ", "ccc"}}, {"one\n\ntwo", 1000, {"one", "", "two"}},
        {"a-b", 1, {"a", "-", "b"}}, {"สวัสดีชาวโลก", 200, {"สวัสดีชาว", "โลก"}},
        {"日本語。", 121, {"日本", "語。"}},   // a full stop never starts a line
        {"👨‍👩‍👧‍👦👍🏽", 1,
            {"👨‍👩‍👧‍👦", "👍🏽"}},   // one character each
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(textsOf(c.text, set(c.text, c.width)), c.lines);
    }
}

TEST(WrappedLines, WhiteSpaceAtTheEndOfABrokenLineHasNoWidth) {
    const std::vector<TypesetLine> lines = set("aaa      bbb", 100);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].widthPx(), set("aaa", 1000)[0].widthPx());
    EXPECT_EQ(lines[0].offsetPx(9), lines[0].widthPx());
    EXPECT_GT(set("aaa   ", 1000)[0].widthPx(), lines[0].widthPx()) << "at the end of a paragraph it counts";
}

TEST(TypesetLine, TheCaretGoesWithTheDirectionOfTheText) {
    const TypesetLine latin = set("abc", 1000).front(), hebrew = set("אבג", 1000).front();
    EXPECT_EQ(latin.offsetPx(0), 0);
    EXPECT_EQ(latin.offsetPx(3), latin.widthPx());
    EXPECT_NEAR(hebrew.offsetPx(0), hebrew.widthPx(), 1e-9);
    EXPECT_NEAR(hebrew.offsetPx(6), 0, 1e-9);
    EXPECT_LT(hebrew.offsetPx(4), hebrew.offsetPx(2));
}

TEST(TypesetLine, AWordOfBothDirectionsMayLieInTwoPlaces) {
    // Seen from left to right: abc, then the second word, then the end of the first.
    const std::string text = "abcאב גד";
    const TypesetLine line = set(text, 1000).front();
    const std::vector<LineSpan> first = line.spans({0, 7}), second = line.spans({8, 12});
    ASSERT_EQ(first.size(), 2u);
    ASSERT_EQ(second.size(), 1u);
    EXPECT_LE(first[0].x1, second[0].x0);
    EXPECT_LE(second[0].x1, first[1].x0);
}

TEST(TypesetLine, LigaturesAreLeftOutOnDemand) {
    FontBook mine;
    const Font font = mine.named("Linux Biolinum O", 40).font;
    StyledText text{"ffi", font};
    const std::vector<TypesetLine> joined = wrappedLines(text, 1000);
    text.hasLigatures = false;
    const std::vector<TypesetLine> apart = wrappedLines(text, 1000);
    EXPECT_NE(joined[0].widthPx(), apart[0].widthPx());
}

TEST(TypesetLine, ARangeMayHaveAFontAndAColourOfItsOwn) {
    const Font font = book().interfaceFont(40), bold = font.withWeightTrait(0.62);
    StyledText text{"one two", font};
    const TypesetLine plain = wrappedLines(text, 1000).front();
    text.ranges.push_back({{4, 7}, bold, {1, 0, 0, 1}});
    const TypesetLine styled = wrappedLines(text, 1000).front();
    EXPECT_EQ(styled.offsetPx(4), plain.offsetPx(4));
    EXPECT_GT(styled.widthPx(), plain.widthPx());
    const imaging::PixelRegion region = regionOf(styled, {}, 1);
    const imaging::Bitmap second = drawn(styled, {}, {{4, 7}, {0, 1000}}, 1, region);
    for (int y = 0; y < region.height(); ++y)
        for (int x = 0; x < region.width(); ++x) {
            const std::uint8_t* pixel = second.view().row(y) + 4 * x;
            ASSERT_EQ(pixel[0], 0);
            ASSERT_EQ(pixel[2], pixel[3]);
        }
}

TEST(WrappedLines, NoTextMakesThemFailOrLoseTheirPlace) {
    for (const std::string& text : hostileTexts()) {
        SCOPED_TRACE(text.substr(0, 20));
        const std::vector<TypesetLine> lines = set(text, 800);
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(lines.back().range().end, text.size());
        EXPECT_LE(lines.size(), text.size() + 1);
        const TypesetLine& line = lines.front();
        const imaging::PixelRegion region = intersection(regionOf(line, {}, 1), {-100, -200, 1000, 200});
        if (!region.isEmpty()) drawn(line, {}, wholeOf(line), 1, region);
    }
}

TEST(WrappedLines, TellWhereAWordIsBroken) {
    const struct {
        const char* text;
        double widthPx;
        bool breaksAWord;
    } cases[] = {{"plain words that wrap", 200, false}, {"Unbelievable", 120, true},
        {"Unbelievable", 2000, false}, {"well-known", 150, false}, {"我们今天发布", 100, false},
        {"one\ntwo", 2000, false}, {"", 100, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        bool breaks = false;
        for (const TypesetLine& line : set(c.text, c.widthPx)) breaks = breaks || line.breaksWord();
        EXPECT_EQ(breaks, c.breaksAWord);
    }
}

TEST(LineEnds, FillEachLineAndBreakAtAnAllowedPlaceWhenThereIsOne) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::vector<BreakPoint> points(random() % 30 + 1);
        for (BreakPoint& point : points) {
            point.widthPx = double(random() % 40);
            point.isWhite = random() % 5 == 0;
            point.mayBreakBefore = random() % 3 == 0;
            point.startsCharacter = random() % 4 != 0;
        }
        const double most = double(random() % 100 + 1);
        const std::vector<std::size_t> ends = lineEnds(points, most);
        const auto inkEnd = [&](std::size_t begin, std::size_t end) {
            while (end > begin && points[end - 1].isWhite) --end;
            return end;
        };
        const auto widthOf = [&](std::size_t begin, std::size_t end) {
            end = inkEnd(begin, end);
            double width = 0;
            for (std::size_t i = begin; i < end; ++i) width += points[i].widthPx;
            return width;
        };
        std::size_t begin = 0;
        for (const std::size_t end : ends) {
            ASSERT_GT(end, begin);
            const auto breaksWithin = [&](auto isAllowed) {
                for (std::size_t i = begin + 1; i < inkEnd(begin, end); ++i)
                    if (isAllowed(points[i])) return true;
                return false;
            };
            const auto starts = [](const BreakPoint& point) { return point.startsCharacter; };
            const auto allows = [](const BreakPoint& point) {
                return point.startsCharacter && point.mayBreakBefore;
            };
            if (widthOf(begin, end) > most) {
                EXPECT_FALSE(breaksWithin(starts)) << "too wide, though it could be broken";
            }
            if (end < points.size()) {
                EXPECT_TRUE(starts(points[end]));
                if (!allows(points[end])) {
                    EXPECT_FALSE(breaksWithin(allows)) << "broken inside a word without need";
                }
                std::size_t next = end + 1;
                while (next < points.size() && !allows(points[next])) ++next;
                if (allows(points[end])) {
                    EXPECT_GT(widthOf(begin, next), most) << "the next word had room";
                }
            }
            begin = end;
        }
        ASSERT_EQ(begin, points.size());
    }
}

}   // namespace
}   // namespace tavix::text
