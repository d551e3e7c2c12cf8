#include "TavixCore/Support/Document.h"
#include "TavixCore/Typography/TextContent.h"

#include <gtest/gtest.h>

#include <string>

namespace tavix {
namespace {

template <class T> std::string rewritten(const char* json) { return encodedJson(decodeJson<T>(json)); }

TEST(TextContent, ReadsSparselyAndWritesLeanly) {
    const auto text = decodeJson<TextContent>(R"({"text": "Hi"})");
    EXPECT_EQ(text, TextContent{.text = "Hi"});
    EXPECT_EQ(writeJson(Codec<TextContent>::write(text)), writeJson(parseJson(R"({
        "text": "Hi", "color": {"r": 1, "g": 1, "b": 1, "a": 1}, "fontWeight": "semibold",
        "kinetic": {"preset": "fade-up"}, "maxWidthFraction": 0.82, "sizeFraction": 0.045})")));
}

TEST(TextContent, KeepsEverythingItCanHold) {
    const KineticStyle style{.presetID = "slam",
        .speed = KineticSpeed::snap,
        .weight = KineticWeight::elegant,
        .intensity = KineticIntensity::high,
        .scope = AnimationScope::character,
        .stagger = {0.05, StaggerOrder::random, 0.5, -3},
        .inPhase = {.durationSec = 0.4,
            .curve = SpringCurve{0.3, 0.6},
            .opacity = 0,
            .offset = {0.1, -0.2},
            .scale = 1.4,
            .rotationDeg = {1, 2, 3},
            .skewXDeg = 4,
            .skewYDeg = 5,
            .trackingEm = 0.1,
            .blurRadiusFraction = 0.02,
            .clipToBounds = ClipMask::line,
            .motionBlur = 0.6,
            .color = RGBAColor{0.1, 0.2, 0.3, 0.4}},
        .idle = IdlePhase{IdlePhase::Target::rotation, 0.5, 2, 9},
        .outPhase = {.durationSec = 0.2}};
    TextContent text{.text = "Ship it",
        .sizeFraction = 0.1,
        .font = "display",
        .fontWeight = FontWeight::black,
        .color = RGBAColor::black,
        .shadow = TextShadow::standard,
        .maxWidthFraction = 0.5,
        .trackingEm = 0.3,
        .alignment = "left",
        .kinetic = style};
    text.emphasis.push_back(
        {{0, 1}, EmphasisToken::highlight, {RGBAColor::white, 1.2, FontWeight::bold, RGBAColor{1, 0, 0, 1}}});
    const std::string written = encodedJson(text);
    EXPECT_EQ(decodeJson<TextContent>(written), text);
    EXPECT_EQ(rewritten<TextContent>(written.c_str()), written);
    for (const char* key : {"color", "rotationDeg", "skewYDeg", "clipToBounds", "overlap", "frequencyHz"})
        EXPECT_NE(written.find('"' + std::string(key) + '"'), std::string::npos) << key;
}

TEST(KineticSelector, IsAReferenceWhenItHasTheKey) {
    const auto reference = decodeJson<KineticSelector>(R"({"preset": "slam", "inPhase": {"opacity": 0}})");
    EXPECT_EQ(reference, KineticSelector(KineticPresetRef{.preset = "slam"}));
    const auto style = decodeJson<KineticSelector>(R"({"presetID": "slam"})");
    EXPECT_EQ(style, KineticSelector(KineticStyle{.presetID = "slam"}));
    const auto knobs =
        decodeJson<KineticPresetRef>(R"({"preset": "slam", "speed": "snap", "weight": "punchy"})");
    EXPECT_EQ(Codec<KineticPresetRef>::write(knobs),
        Json(JsonObject{{"preset", "slam"}, {"speed", "snap"}, {"weight", "punchy"}}));
}

TEST(KineticRecords, FallBackAndClampWhenRead) {
    const auto stagger = decodeJson<Stagger>(R"({"delaySec": -1, "overlap": 3, "order": "sideways"})");
    EXPECT_EQ(stagger, (Stagger{.delaySec = 0, .overlap = 1}));
    EXPECT_EQ(decodeJson<IdlePhase>(R"({"frequencyHz": 100, "amplitude": -2})"),
        (IdlePhase{.amplitude = 0, .frequencyHz = 30}));
    EXPECT_EQ(
        decodeJson<IdlePhase>(R"({"frequencyHz": 0, "target": "hue"})"), (IdlePhase{.frequencyHz = 0.01}));
    EXPECT_EQ(decodeJson<KineticPhase>(R"({"durationSec": -2})"), KineticPhase::identity);
    const auto style = decodeJson<KineticStyle>(
        R"({"scope": "paragraph", "speed": "warp", "weight": "soft", "intensity": "max"})");
    EXPECT_EQ(style, KineticStyle{});
    EXPECT_EQ(decodeJson<EmphasisSpan>(R"({"token": "blink"})"), EmphasisSpan{});
}

TEST(KineticRecords, RefuseValuesOfTheWrongType) {
    const char* cases[] = {R"({"weight": 3})", R"({"stagger": []})", R"({"inPhase": {"scale": "big"}})",
        R"({"inPhase": {"curve": {"kind": "spring", "damping": "soft"}}})", R"({"idle": {"seed": 0.5}})"};
    for (const char* json : cases) EXPECT_THROW(decodeJson<KineticStyle>(json), DecodingError) << json;
}

}   // namespace
}   // namespace tavix
