#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixCore/Typography/EmphasisBaking.h"
#include "TavixCore/Typography/EmphasisRemap.h"
#include "TavixCore/Typography/EmphasisResolver.h"
#include "TavixCore/Typography/WordMatch.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using enum EmphasisToken;
using Indices = std::vector<std::int64_t>;

double luminance(const RGBAColor& c) { return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b; }
EmphasisStyle looked(EmphasisToken token, const CaptionStyle& style = {}, const BrandKit* brand = nullptr) {
    return EmphasisResolver::resolve(token, style, brand, KineticIntensity::medium, std::nullopt);
}

TEST(EmphasisResolver, SetsWhatATokenMeansAndNothingElse) {
    const EmphasisStyle accented = looked(accent);
    ASSERT_TRUE(accented.textColor);   // the accent is too near to white text
    EXPECT_NEAR(accented.textColor->r, 0.65, 1e-12);
    EXPECT_NEAR(accented.textColor->g, 0.84 * 0.65, 1e-12);
    EXPECT_EQ(accented.textColor->a, 1);
    EXPECT_EQ(accented.fontWeight, FontWeight::bold);
    EXPECT_FALSE(accented.scale || accented.highlightColor);

    const EmphasisStyle popped = looked(scalePop);
    EXPECT_EQ(popped.scale, 1.12);
    EXPECT_FALSE(popped.textColor || popped.highlightColor);

    CaptionStyle dark;
    dark.textColor = RGBAColor::black;
    dark.fontWeight = FontWeight::black;
    const EmphasisStyle marked = looked(highlight, dark);
    EXPECT_EQ(marked.highlightColor, (RGBAColor{1, 0.84, 0.04, 0.92}));
    EXPECT_EQ(marked.textColor, (RGBAColor{0.06, 0.06, 0.08, 1}));
    EXPECT_FALSE(marked.scale || marked.fontWeight);
    EXPECT_EQ(looked(scalePop, dark).fontWeight, FontWeight::black);
}

// For any brand and any ground, what is set apart is further from the text than before.
TEST(EmphasisResolver, MovesTheAccentAwayFromTextAndGround) {
    for (int i = 0; i <= 10; ++i)
        for (const RGBAColor& text : {RGBAColor::white, RGBAColor::black}) {
            BrandKit brand;
            brand.accent = {i / 10.0, i / 10.0, i / 10.0, 0.5};
            CaptionStyle style;
            style.textColor = text;
            const RGBAColor moved = *looked(accent, style, &brand).textColor;
            const double before = std::abs(luminance(brand.accent) - luminance(text));
            const double after = std::abs(luminance(moved) - luminance(text));
            EXPECT_GE(after, before < 0.25 ? before + 0.05 : before);
            EXPECT_NEAR(moved.a, before < 0.25 ? 0.675 : 0.5, 1e-12);
        }
    CaptionStyle style;
    const RGBAColor onLight =
        *EmphasisResolver::resolve(accent, style, nullptr, KineticIntensity::low, 0.8).textColor;
    EXPECT_NEAR(onLight.r, 0.65 * 0.55, 1e-12);
    const RGBAColor onDark =
        *EmphasisResolver::resolve(accent, style, nullptr, KineticIntensity::low, 0.4).textColor;
    EXPECT_NEAR(onDark.r, 0.65 + 0.35 * 0.45, 1e-12);
}

TEST(EmphasisRemap, FollowsEachOccurrence) {
    const EmphasisSpan second{{3}, highlight, {.textColor = RGBAColor::black}};
    const auto moved = [&](const char* from, const char* to, Indices indices) {
        return EmphasisRemap::remap({{std::move(indices), highlight, second.style}}, from, to);
    };
    EXPECT_TRUE(moved("the cat and the dog", "the dog", {3}).empty());
    const auto kept = moved("the cat and the dog", "a cat and the dog and the bird", {3});
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].wordIndices, Indices{6});
    EXPECT_EQ(kept[0].style, second.style);
    EXPECT_EQ(moved("a b c", "c b a", {2, 0, 1, 9, -1})[0].wordIndices, (Indices{0, 2, 1}));
}

TEST(EmphasisBaking, MakesOneSpanForEachToken) {
    const EmphasisStyle own{
        .textColor = RGBAColor{1, 0, 0, 1}, .scale = {}, .fontWeight = {}, .highlightColor = {}};
    const std::vector<EmphasisSpan> existing{{{9}, accent, own}, {{8}, accent, {}}};
    const auto spans =
        EmphasisBaking::bake({{4, accent}, {1, scalePop}, {2, accent}, {5, highlight}, {-1, highlight}},
            existing, "a b c d e", {}, nullptr);
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_EQ(spans[0], (EmphasisSpan{{1}, scalePop, looked(scalePop)}));
    EXPECT_EQ(spans[1], (EmphasisSpan{{2, 4}, accent, own}));
}

TEST(WordMatch, FindsWhatWasTyped) {
    const struct {
        std::vector<std::string> phrases;
        const char* text;
        Indices indices;
        std::vector<std::string> unmatched;
    } cases[] = {
        {{"Pro!"}, "the pro, pro plan", {1, 2}, {}},
        {{"a b a"}, "A b, a b a", {0, 1, 2, 3, 4}, {}},
        {{"ship it", "now"}, "Ship it!", {0, 1}, {"now"}},
        {{"…", ""}, "one … two", {}, {}},
        {{"one two three"}, "one two", {}, {"one two three"}},
        {{"ÉTÉ"}, "un «été» 2", {1}, {}},
        {{"don't!"}, "Don't", {0}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const WordMatch::Result result = WordMatch::indices(c.phrases, c.text);
        EXPECT_EQ(result.indices, c.indices);
        EXPECT_EQ(result.unmatched, c.unmatched);
    }
}

}   // namespace
}   // namespace tavix
