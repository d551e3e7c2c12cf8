// Teasers and themes, by the numbers of their design.
#include "TavixReel/Authoring/TeaserAuthor.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Authoring/ThemeAuthor.h"
#include "TavixReel/Time/ReelTimeline.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TeaserSpec teaserOf(std::vector<TeaserSpec::Beat> beats) {
    TeaserSpec spec;
    spec.output = {1080, 1920, 30};
    spec.beats = std::move(beats);
    return spec;
}

TEST(Teasers, ReadWhatIsThereAndWriteAllOfIt) {
    const auto spec = decodeJson<TeaserSpec>(
        R"({"output": {"widthPx": 1080, "heightPx": 1920, "fps": 30}, "beats": [{}]})");
    EXPECT_EQ(spec, teaserOf({{}}));
    EXPECT_EQ(decodeJson<TeaserSpec>(encodedJson(spec)), spec);
    const Json written = Codec<TeaserSpec>::write(spec);
    EXPECT_TRUE(written.find("output") && written.find("background") && written.find("beats"));
    EXPECT_THROW(decodeJson<TeaserSpec>(R"({"beats": []})"), DecodingError);
}

TEST(Teasers, ABeatIsACardForAsLongAsItIsHeld) {
    const struct {
        const char* text;
        double holdSec;
        std::optional<double> asked;
        double size, lengthSec;
    } cases[] = {{"Walk on", 0.5, {}, 0.08, 1.2}, {"Every walk, remembered", 20, {}, 0.065, 8},
        {"One two three four", 2.5, {}, 0.065, 2.5}, {"One two three four five", 3, {}, 0.05, 3},
        {"Walk on", 3, 0.11, 0.11, 3}};
    for (const auto& c : cases) {
        TeaserSpec::Beat beat{
            .text = c.text, .holdSec = c.holdSec, .subline = " and on ", .sizeFraction = c.asked};
        const EffectsSpec reel = TeaserAuthor::author(teaserOf({beat}));
        const TitleCard& card = reel.titleCards.at(0);
        EXPECT_EQ(card.headline.sizeFraction, c.size) << c.text;
        EXPECT_EQ(card.subline->sizeFraction, c.size * 0.5) << c.text;
        EXPECT_EQ(card.subline->text, " and on ");
        EXPECT_EQ(card.durationSec, c.lengthSec) << c.text;
    }
    TeaserSpec::Beat blank{.text = "A", .subline = " \n"};
    EXPECT_FALSE(TeaserAuthor::author(teaserOf({blank})).titleCards[0].subline);
}

// Nothing of the recording is seen, and the beats come in their order.
TEST(Teasers, PlayTheirBeatsAndNothingElse) {
    const EffectsSpec reel = TeaserAuthor::author(teaserOf(
        {{.text = "One", .holdSec = 2}, {.text = "Two", .holdSec = 3}, {.text = "Three", .holdSec = 1.5}}));
    const auto segments = ReelTimeline::segmentsOf(reel, TeaserAuthor::sourceSeconds);
    EXPECT_DOUBLE_EQ(ReelTimeline::outputDurationSec(segments), 6.5);
    ASSERT_EQ(segments.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(std::get<ReelTimeline::CardSegment>(segments[i]).index, i);
    EXPECT_EQ(TeaserAuthor::author(teaserOf({})).cuts.size(), 1u);
}

BrandKit brandOf(BrandKit::AppMode mode) {
    BrandKit brand;
    brand.accent = {1, 0.5, 0, 1};
    brand.secondary = RGBAColor{0, 0, 1, 1};
    brand.appMode = mode;
    return brand;
}

void expectNear(const RGBAColor& color, double r, double g, double b) {
    EXPECT_NEAR(color.r, r, 1e-9);
    EXPECT_NEAR(color.g, g, 1e-9);
    EXPECT_NEAR(color.b, b, 1e-9);
}

TEST(Themes, DressTheCanvasInTintsOfTheAccent) {
    const LinearGradient dark = ThemeAuthor::canvasGradient(brandOf(BrandKit::AppMode::dark));
    ASSERT_EQ(dark.stops.size(), 2u);
    expectNear(dark.stops[0].color, 1, 0.87, 0.74);
    // 0.18 towards blue, then 0.1 towards white.
    expectNear(
        dark.stops[1].color, 0.82 * 0.9 + 0.1, 0.87 * 0.82 * 0.9 + 0.1, (0.74 * 0.82 + 0.18) * 0.9 + 0.1);
    const LinearGradient light = ThemeAuthor::canvasGradient(brandOf(BrandKit::AppMode::light));
    expectNear(light.stops[0].color, 1 - 0.72 * 0.95, 0.5 - 0.72 * 0.45, 0.72 * 0.08);
    EXPECT_EQ(light.stops[1].location, 1);
}

TEST(Themes, ChangeTheLookAndLeaveTheReel) {
    EffectsSpec spec;
    spec.output = {1080, 1920, 30};
    spec.cuts = {{.dropRange = {1, 2}}};
    const BrandKit brand = brandOf(BrandKit::AppMode::light);
    const EffectsSpec themed = ThemeAuthor::apply(brand, spec);
    EXPECT_EQ(themed.cuts, spec.cuts);
    EXPECT_EQ(themed.brand, brand);
    ASSERT_TRUE(themed.narration);
    EXPECT_TRUE(themed.narration->captions.empty());
    EXPECT_EQ(themed.narration->style.textColor, (RGBAColor{0.07, 0.07, 0.09, 1}));
    const double grey = 0.2126 + 0.7152 * 0.5;
    expectNear(themed.background.shadow.color, 1 + 0.55 * (grey - 1), 0.5 + 0.55 * (grey - 0.5), 0.55 * grey);
    // What captions say of their font stays where the application has none.
    spec.narration.emplace().style.fontName = "Rounded";
    EXPECT_EQ(ThemeAuthor::apply(brand, spec).narration->style.fontName, "Rounded");
}

TEST(Themes, SaturationHasAFloorAndGreyAnEnd) {
    EXPECT_EQ(ThemeAuthor::floorSaturation(RGBAColor::black, 0.5), RGBAColor::black);
    EXPECT_EQ(ThemeAuthor::floorSaturation({0.4, 0.4, 0.4, 0.7}, 0.1), (RGBAColor{0.4, 0.4, 0.5, 0.7}));
    EXPECT_EQ(ThemeAuthor::floorSaturation({0.9, 0.1, 0.1, 1}, 0.1), (RGBAColor{0.9, 0.1, 0.1, 1}));
    expectNear(ThemeAuthor::floorSaturation({0.8, 0.79, 0.78, 1}, 0.5), 0.8, 0.6, 0.4);
    const RGBAColor color{0.2, 0.6, 0.9, 0.5};
    EXPECT_EQ(ThemeAuthor::desaturated(color, -1), color);
    EXPECT_EQ(ThemeAuthor::desaturated(color, 2), ThemeAuthor::desaturated(color, 1));
    const RGBAColor grey = ThemeAuthor::desaturated(color, 1);
    EXPECT_EQ(grey.r, grey.b);
    EXPECT_EQ(grey.a, 0.5);
}

}   // namespace
}   // namespace tavix
