#include "TavixCore/Support/Document.h"
#include "TavixCore/Values/FontWeight.h"
#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixCore/Values/Shadow.h"
#include "TavixCore/Values/TextShadow.h"

#include <gtest/gtest.h>

#include <optional>

namespace tavix {
namespace {

TEST(RGBAColor, ReadsHexadecimalText) {
    const RGBAColor expected{0xaa / 255.0, 0xbb / 255.0, 0xcc / 255.0, 1};
    for (const char* text : {"#ABC", "abc", "  #aabbcc\n", "AABBCC", "\t#aAbBcCfF "})
        EXPECT_EQ(RGBAColor::fromHex(text), expected) << text;
    EXPECT_EQ(
        RGBAColor::fromHex("#abcd"), (RGBAColor{0xaa / 255.0, 0xbb / 255.0, 0xcc / 255.0, 0xdd / 255.0}));
    EXPECT_EQ(RGBAColor::fromHex("01020304"), (RGBAColor{1 / 255.0, 2 / 255.0, 3 / 255.0, 4 / 255.0}));
    for (const char* text : {"", "#", "#12345", "gg0000", "##abc", "#a b", "#1234567", "#123456789", "äb"})
        EXPECT_FALSE(RGBAColor::fromHex(text)) << text;
}

TEST(ValueTypes, AreAsStrictAsTheySayTheyAre) {
    EXPECT_EQ(decodeJson<TextShadow>("{}"), TextShadow::standard);
    EXPECT_EQ(decodeJson<NormalizedVec2>("{}"), NormalizedVec2::zero);
    EXPECT_THROW(decodeJson<Shadow>("{}"), DecodingError);
    EXPECT_THROW(decodeJson<NormalizedPoint>("{}"), DecodingError);
    EXPECT_THROW(decodeJson<RGBAColor>(R"("#fff")"), DecodingError);
    EXPECT_EQ(decodeJson<PixelRect>("[1, 2, 3, 4, 5]"), (PixelRect{1, 2, 3, 4}));
    EXPECT_EQ(Codec<PixelRect>::write({1, 2, 3, 4}), (JsonArray{1, 2, 3, 4}));
    EXPECT_THROW(decodeJson<PixelRect>(R"({"x": 1, "y": 2, "width": 3, "height": 4})"), DecodingError);
    EXPECT_THROW(decodeJson<PixelRect>("[1, 2, 3]"), DecodingError);
}

TEST(PixelRect, IsMeasuredFromItsCorner) {
    const PixelRect rect = PixelRect::of({1, 2, 3, 4}, 2);
    EXPECT_EQ(rect, (PixelRect{2, 4, 6, 8}));
    EXPECT_EQ(rect.maxX(), 8);
    EXPECT_EQ(rect.maxY(), 12);
    EXPECT_EQ(rect.center(), (PixelPoint{5, 8}));
}

TEST(FontWeight, GrowsHeavierStepByStep) {
    const std::vector<FontWeight> cases = allCases<FontWeight>();
    for (std::size_t i = 0; i + 1 < cases.size(); ++i) {
        EXPECT_EQ(oneStepHeavier(cases[i]), cases[i + 1]);
        EXPECT_LT(coreTextWeight(cases[i]), coreTextWeight(cases[i + 1]));
    }
    EXPECT_EQ(oneStepHeavier(FontWeight::black), FontWeight::black);
    EXPECT_EQ(coreTextWeight(FontWeight::regular), 0);
    EXPECT_EQ(decodeJson<FontWeight>(R"("chunky")"), FontWeight::regular);
    EXPECT_THROW(decodeJson<FontWeight>("3"), DecodingError);
}

}   // namespace
}   // namespace tavix
