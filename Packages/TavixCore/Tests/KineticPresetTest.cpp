#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/ElementFrameState.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Typography/KineticTiming.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using KineticPresetCatalog::Request;
using KineticPresetCatalog::resolve;
using enum KineticSpeed;
using enum KineticIntensity;

constexpr RGBAColor blue{0.2, 0.4, 0.9, 1};

KineticPresetRef ref(std::string_view id, KineticSpeed speed = smooth, KineticIntensity intensity = medium) {
    return {std::string(id), speed, {}, intensity};
}
KineticStyle styleOf(std::string_view id, KineticSpeed speed = smooth, KineticIntensity intensity = medium) {
    return resolve({.preset = ref(id, speed, intensity)}).style;
}

TEST(KineticPresetCatalog, GivesTheWorkedValues) {
    const KineticStyle pop =
        resolve({.preset = ref("word-pop", snap, high), .text = {}, .seed = 7, .accent = blue}).style;
    EXPECT_EQ(pop.scope, AnimationScope::word);
    EXPECT_NEAR(pop.stagger.delaySec, 0.0585, 1e-12);
    EXPECT_NEAR(pop.stagger.overlap, 0.83929, 5e-6);
    EXPECT_EQ(pop.stagger.seed, 7);
    EXPECT_NEAR(pop.inPhase.durationSec, 0.364, 1e-12);
    const auto& spring = std::get<SpringCurve>(pop.inPhase.curve);
    EXPECT_NEAR(spring.responseSec, 0.182, 1e-12);
    EXPECT_EQ(spring.damping, 0.62);
    EXPECT_NEAR(pop.inPhase.scale, 0.449, 1e-12);
    EXPECT_NEAR(pop.inPhase.offset.y, -0.0203, 1e-12);
    ASSERT_TRUE(pop.inPhase.color);
    EXPECT_NEAR(pop.inPhase.color->r, 0.56, 1e-12);
    EXPECT_NEAR(pop.inPhase.color->g, 0.67, 1e-12);
    EXPECT_NEAR(pop.inPhase.color->b, 0.945, 1e-12);
    EXPECT_NEAR(pop.outPhase.durationSec, 0.143, 1e-12);
    EXPECT_NEAR(pop.outPhase.offset.y, 0.0116, 1e-12);
    EXPECT_NEAR(pop.outPhase.scale, 0.884, 1e-12);

    const KineticStyle rise = styleOf("line-rise", glacial, low);
    EXPECT_NEAR(rise.inPhase.durationSec, 0.8, 1e-12);
    EXPECT_NEAR(rise.stagger.delaySec, 0.224, 1e-12);
    EXPECT_NEAR(rise.stagger.overlap, 0.72, 1e-12);
    EXPECT_NEAR(rise.inPhase.offset.y, 0.0252, 1e-12);
    EXPECT_NEAR(rise.outPhase.durationSec, 0.608, 1e-12);
    EXPECT_EQ(rise.outPhase.clipToBounds, ClipMask::line);

    const KineticStyle slam = styleOf("slam", smooth, high);
    EXPECT_NEAR(slam.inPhase.durationSec, 0.6, 1e-12);
    EXPECT_NEAR(slam.inPhase.scale, 2.2325, 1e-12);
    EXPECT_NEAR(slam.inPhase.motionBlur, 0.87, 1e-12);
    EXPECT_NEAR(slam.outPhase.scale, 1.174, 1e-12);
    ASSERT_TRUE(slam.idle);
    EXPECT_EQ(slam.idle->amplitude, 0.0025);
}

// What each name promises, whatever the knobs.
TEST(KineticPresetCatalog, EveryPresetComesToRestAndStaysInItsLimits) {
    for (const KineticPresetCatalog::Entry& entry : KineticPresetCatalog::presets)
        for (const KineticSpeed speed : allCases<KineticSpeed>())
            for (const KineticIntensity intensity : allCases<KineticIntensity>())
                for (const KineticWeight weight : allCases<KineticWeight>()) {
                    SCOPED_TRACE(entry.id);
                    const auto [style, notes] =
                        resolve({{std::string(entry.id), speed, weight, intensity}, {}, 0, blue});
                    EXPECT_EQ(style.presetID, entry.id);
                    EXPECT_EQ(style.weight, weight);
                    EXPECT_TRUE(notes.empty());
                    EXPECT_EQ(style.idle.has_value(), entry.id == "slam" && intensity == high);
                    EXPECT_FALSE(style.outPhase.color);
                    for (const KineticPhase& phase : {style.inPhase, style.outPhase}) {
                        EXPECT_LE(std::max(std::abs(phase.offset.x), std::abs(phase.offset.y)), 0.12);
                        EXPECT_TRUE(phase.scale >= 0.3 && phase.scale <= 2.4);
                        EXPECT_LE(phase.blurRadiusFraction, 0.05);
                    }
                    KineticMath::KineticElement element;
                    const double in = style.inPhase.durationSec;
                    element.schedule = {0, in + 5, in, style.outPhase.durationSec};
                    const auto rest = KineticMath::stateAt(in + 1, element, style, {1000, 60});
                    EXPECT_EQ(rest.alpha, 1);
                    EXPECT_EQ(rest.gaussianRadius, 0);
                    EXPECT_FALSE(rest.motionBlurRadius);
                    EXPECT_EQ(rest.color, element.restFill);
                }
}

TEST(KineticPresetCatalog, GoesAsItsNameSays) {
    EXPECT_GT(styleOf("slide-up").inPhase.offset.y, 0);
    EXPECT_LT(styleOf("slide-down").inPhase.offset.y, 0);
    EXPECT_GT(styleOf("slide-left").inPhase.offset.x, 0);
    EXPECT_LT(styleOf("slide-left").outPhase.offset.x, 0);
    EXPECT_LT(styleOf("slide-right").inPhase.offset.x, 0);
    EXPECT_EQ(styleOf("none").inPhase.durationSec + styleOf("none").outPhase.durationSec, 0);
    EXPECT_EQ(styleOf("karaoke-fill", smooth, low).inPhase.color, (RGBAColor{1, 1, 1, 0.42}));
    const KineticStyle linear =
        resolve({.preset = {"word-pop", smooth, KineticWeight::linear, medium}}).style;
    EXPECT_EQ(linear.inPhase.curve, TimingCurve(LinearCurve{}));
    EXPECT_EQ(linear.outPhase.curve, TimingCurve(LinearCurve{}));
    EXPECT_NEAR(linear.stagger.delaySec, 0.09, 1e-12);
    EXPECT_FALSE(
        resolve({.preset = ref("word-pop"), .text = {}, .seed = 0, .accent = blue}).style.inPhase.color);
}

TEST(KineticPresetCatalog, MovesLargerPiecesOfLongTexts) {
    const struct {
        const char *preset, *text;
        AnimationScope scope;
        std::vector<std::string> notes;
    } cases[] = {
        {"char-cascade", "exactly 14 ch.", AnimationScope::character, {}},
        {"char-cascade", "the 15 letters.", AnimationScope::word, {"character→word (15 chars > 14)"}},
        {"char-cascade", "a b c d e f gh i", AnimationScope::line,
            {"character→word (16 chars > 14)", "word→line (8 words > 5)"}},
        {"char-cascade", "👩‍👩‍👧👩‍👩‍👧👩‍👩‍👧", AnimationScope::character,
            {}},
        {"word-pop", "one two three four five", AnimationScope::word, {}},
        {"word-pop", "one two three four five six", AnimationScope::line, {"word→line (6 words > 5)"}},
        {"line-rise", "one two three four five six seven", AnimationScope::line, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const auto [style, notes] = resolve({.preset = ref(c.preset), .text = c.text});
        EXPECT_EQ(style.scope, c.scope);
        EXPECT_EQ(notes, c.notes);
        EXPECT_EQ(style.stagger, styleOf(c.preset).stagger);
    }
}

TEST(KineticPresetCatalog, FallsBackAndSaysSo) {
    const auto [style, notes] = resolve({.preset = ref("Slam", snap, high), .text = "x", .seed = 3});
    EXPECT_EQ(style, resolve({.preset = ref("fade-up", snap, high), .text = "x", .seed = 3}).style);
    EXPECT_EQ(notes, std::vector<std::string>{"unknown preset 'Slam' → fade-up"});
}

TEST(KineticTiming, CountsThePiecesOfAText) {
    const struct {
        const char* text;
        int lines, words, characters;
    } cases[] = {{"", 1, 1, 1}, {"  \n ", 2, 1, 1}, {"one two", 1, 2, 6},
        {"one\r\n\n two\u2028three\n", 3, 3, 11}, {"e\u0301 👩‍👩‍👧", 1, 2, 2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(KineticTiming::elementCount(AnimationScope::block, c.text), 1);
        EXPECT_EQ(KineticTiming::elementCount(AnimationScope::line, c.text), c.lines);
        EXPECT_EQ(KineticTiming::elementCount(AnimationScope::word, c.text), c.words);
        EXPECT_EQ(KineticTiming::elementCount(AnimationScope::character, c.text), c.characters);
    }
    const KineticStyle fill = styleOf("karaoke-fill");
    EXPECT_NEAR(KineticTiming::inCompletionSec(fill, "one two three"), 0.2 + 0.22, 1e-12);
    EXPECT_NEAR(KineticTiming::minWindowSec(fill, "a b c d e"), 0.4 + 0.22 + 0.2 + 0.3 + 0.4, 1e-12);
    EXPECT_EQ(KineticTiming::minWindowSec(styleOf("none"), "a"), 1.2);
}

TEST(KineticVocabulary, JudgesWords) {
    EXPECT_FALSE(KineticVocabulary::problem("slam", KineticVocabulary::presetIDs, "preset"));
    EXPECT_EQ(KineticVocabulary::problem("Fast", KineticVocabulary::speeds(), "speed"),
        "speed: unknown value \"Fast\" (use snap, smooth, glacial)");
    for (const auto& [preset, weight] :
        {std::pair{"slam", "punchy"}, {"none", "linear"}, {"karaoke-fill", "linear"}, {"no such", "elegant"}})
        EXPECT_EQ(KineticVocabulary::defaultWeight(preset), weight);
    EXPECT_EQ(KineticVocabulary::cardLengthSeconds("short"), 1.6);
    EXPECT_EQ(KineticVocabulary::cardLengthSeconds({}), 2.5);
}

}   // namespace
}   // namespace tavix
