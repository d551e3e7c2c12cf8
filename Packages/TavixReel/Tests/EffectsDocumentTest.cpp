#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Document/ReelCanvas.h"
#include "TavixReel/Document/ReelFonts.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

template <class T> class ReelRecords : public testing::Test {};
using Records = testing::Types<EffectsSpec, EffectsOutput, Background, CameraKeyframe, MotionModel, Cut,
    RetimeSegment, Narration, Caption, CaptionStyleOverride, TitleCard, TitleCardAnchor, CardText,
    CutDressing, SideCaptionSettings>;
TYPED_TEST_SUITE(ReelRecords, Records);

TYPED_TEST(ReelRecords, WritingAndReadingAgainChangesNothing) {
    const SchemaDocument schema(schemaOf<TypeParam>("T"));
    EXPECT_EQ(schema.departureOfDefaults(), "");
    SeededRandom dice("reel");
    for (int i = 0; i < 150; ++i) {
        const auto manner = i % 2 ? SchemaDocument::Manner::wild : SchemaDocument::Manner::tame;
        const Json made = schema.random(dice, manner);
        SCOPED_TRACE(writeJson(made));
        const auto value = decodeJson<TypeParam>(writeJson(made));
        const std::string written = encodedJson(value);
        ASSERT_EQ(encodedJson(decodeJson<TypeParam>(written)), written);
        if (manner == SchemaDocument::Manner::tame) {
            ASSERT_EQ(schema.departure(Codec<TypeParam>::write(value)), "");
        }
        // A list that was emptied by hand beside a scene that fills it is the one thing that is not kept.
        if constexpr (std::is_same_v<TypeParam, EffectsSpec>) {
            if (value.transitions().empty() && !flipMirror(value.deviceScene).empty()) continue;
            const bool hasTrack = value.devicePlacement() && !value.devicePlacement()->track.empty();
            if (!hasTrack && (value.devicePlacement() || placementMirror(value.deviceScene))) continue;
        }
        ASSERT_EQ(decodeJson<TypeParam>(written), value);
    }
}

template <class T> Json rewritten(const std::string& json) { return Codec<T>::write(decodeJson<T>(json)); }

constexpr const char* onlyOutput = R"({"output": {"widthPx": 1080, "heightPx": 1920, "fps": 60}})";

EffectsSpec specWith(const std::string& members) {
    return decodeJson<EffectsSpec>(
        R"({"output": {"widthPx": 1080, "heightPx": 1920, "fps": 60}, )" + members + "}");
}

TEST(EffectsSpec, AnOutputAloneIsAWholeDocument) {
    const auto spec = decodeJson<EffectsSpec>(onlyOutput);
    EXPECT_EQ(spec.schemaVersion, 3);
    EXPECT_EQ(spec.background, Background{});
    EXPECT_EQ(spec.background.padding, 120);
    EXPECT_EQ(spec.motion, MotionModel((MotionSpring{0.45, 0.62, 1.0})));
    EXPECT_EQ(spec.output.aspect, OutputConfig::Aspect::vertical);
    EXPECT_FALSE(spec.narration || spec.brand || spec.deviceScene || spec.devicePlacement() ||
                 spec.cutDressing || spec.sideCaptions);
    const Json written = Codec<EffectsSpec>::write(spec);
    for (const char* always :
        {"schemaVersion", "output", "background", "cameraTrack", "motion", "cuts", "retimeTrack"})
        EXPECT_TRUE(written.find(always)) << always;
    EXPECT_EQ(written.object()->size(), 7u);
    EXPECT_THROW(decodeJson<EffectsSpec>("{}"), DecodingError);
}

TEST(EffectsOutput, LiesByItsLongerSideUnlessItSaysSo) {
    const struct {
        const char* json;
        OutputConfig::Aspect aspect;
    } cases[] = {
        {R"({"widthPx": 10, "heightPx": 10, "fps": 1})", OutputConfig::Aspect::vertical},
        {R"({"widthPx": 11, "heightPx": 10, "fps": 1})", OutputConfig::Aspect::landscape},
        {R"({"widthPx": 11, "heightPx": 10, "fps": 1, "aspect": "vertical"})",
            OutputConfig::Aspect::vertical},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(decodeJson<EffectsOutput>(c.json).aspect, c.aspect) << c.json;
        EXPECT_TRUE(rewritten<EffectsOutput>(c.json).find("aspect"));
    }
}

TEST(MotionModel, ASpringWithoutNumbersIsTheStandardOne) {
    EXPECT_EQ(decodeJson<MotionModel>(R"({"kind": "spring"})"), MotionModel(MotionSpring::standard));
    EXPECT_EQ(decodeJson<MotionModel>(R"({"kind": "spring", "spring": {"damping": 0.5}})"),
        MotionModel((MotionSpring{0.45, 0.62, 0.5})));
    EXPECT_EQ(decodeJson<MotionModel>(R"({"kind": "keyframeEasing"})"), MotionModel(KeyframeEasing{}));
    EXPECT_THROW(decodeJson<MotionModel>("{}"), DecodingError);
    EXPECT_THROW(decodeJson<MotionModel>(R"({"kind": "glide"})"), DecodingError);
}

TEST(Background, PrefersTheFillToTheOlderImage) {
    EXPECT_EQ(decodeJson<Background>("{}"), Background{});
    const BackgroundFill picture = BackgroundImage{"a.png", std::nullopt};
    EXPECT_EQ(decodeJson<Background>(R"({"image": {"path": "a.png"}})").fill, picture);
    EXPECT_EQ(decodeJson<Background>(R"({"image": {"bundledID": "mint"}, "fill": {"kind": "image",
                                         "image": {"path": "a.png"}}})")
                  .fill,
        picture);
    EXPECT_FALSE(rewritten<Background>(R"({"image": {"path": "a.png"}})").find("image"));
    EXPECT_THROW(decodeJson<Background>(R"({"shadow": {}})"), DecodingError);
}

TEST(CutDressing, KeepsToItsRangesAndFadesFromTheSeam) {
    EXPECT_EQ(decodeJson<CutDressing>(R"({"style": "sparks", "intensity": 7, "halfWidthSec": 0})"),
        CutDressing(CutDressing::Style::flash, 1, 0.02));
    EXPECT_EQ(CutDressing(CutDressing::Style::lightLeak, -1, 9).halfWidthSec, 0.5);
    const CutDressing dressing(CutDressing::Style::flash, 0.8, 0.2);
    EXPECT_DOUBLE_EQ(dressing.alpha(3, 3), 0.8);
    EXPECT_NEAR(dressing.alpha(3.1, 3), 0.4, 1e-12);
    EXPECT_NEAR(dressing.alpha(2.9, 3), dressing.alpha(3.1, 3), 1e-12);
    EXPECT_EQ(dressing.alpha(3.2, 3), 0);
}

TEST(ReelFormat, FramesARecording) {
    using enum OutputConfig::Aspect;
    EXPECT_EQ(outputOf(ReelFormat::deviceNative, 1206, 2622, 60), (EffectsOutput{1206, 2622, 60, vertical}));
    EXPECT_EQ(outputOf(ReelFormat::vertical, 1206, 2622, 24), (EffectsOutput{1080, 1920, 24, vertical}));
    EXPECT_EQ(outputOf(ReelFormat::horizontal, 1206, 2622, 30), (EffectsOutput{1920, 1080, 30, landscape}));
    EXPECT_EQ(parseReelFormat("Device-Native"), ReelFormat::deviceNative);
    EXPECT_EQ(parseReelFormat("HORIZONTAL"), ReelFormat::horizontal);
    EXPECT_EQ(parseReelFormat("-vert-ical"), ReelFormat::vertical);
    EXPECT_FALSE(parseReelFormat("square"));
}

TEST(TitleCard, HasALengthInItsRangeAndAWayToMove) {
    const auto card = decodeJson<TitleCard>("{}");
    EXPECT_EQ(card.anchor, TitleCardAnchor(CustomAnchor{}));
    EXPECT_EQ(card.durationSec, 2.5);
    EXPECT_EQ(card.headline.kinetic.presetID, "fade-up");
    EXPECT_EQ(
        card.headline.kinetic.inPhase.durationSec, KineticStyle(card.headline.kinetic).inPhase.durationSec);
    EXPECT_GT(card.headline.kinetic.inPhase.durationSec, 0.1);
    EXPECT_EQ(decodeJson<TitleCard>(R"({"durationSec": 0.2})").durationSec, 1.2);
    EXPECT_EQ(TitleCard::clamped({.durationSec = 60}).durationSec, 8);
    EXPECT_EQ(rewritten<TitleCardAnchor>(R"({"kind": "afterStep", "index": 4})"),
        parseJson(R"({"kind": "afterStep", "index": 4})"));
    EXPECT_THROW(decodeJson<TitleCardAnchor>(R"({"kind": "afterStep"})"), DecodingError);
}

TEST(CaptionStyleOverride, TheSystemFontWinsOverTheNarrations) {
    CaptionStyle style;
    style.fontName = "Futura";
    style.fontPath = "f.ttf";
    EXPECT_EQ((CaptionStyleOverride{.fontSizeFraction = 0.1}.resolved(style).fontName), "Futura");
    EXPECT_FALSE((CaptionStyleOverride{.fontName = "system"}.resolved(style).fontName));
    EXPECT_FALSE((CaptionStyleOverride{.fontName = "system"}.resolved(style).fontPath));
    // A name brings its own file, or none.
    EXPECT_FALSE((CaptionStyleOverride{.fontName = "Georgia"}.resolved(style).fontPath));
    EXPECT_TRUE(CaptionStyleOverride{}.isEmpty());
    EXPECT_FALSE(CaptionStyleOverride{.fontPath = "x"}.isEmpty());
}

// Older documents keep flips and places in the device scene.
constexpr const char* olderScene =
    R"("deviceScene": {"enabled": true, "tiltDegrees": {"x": 1, "y": 2, "z": 3},
    "flips": [{"atSec": 4, "revealSec": 4.01}, {"atSec": 2, "revealSec": 2.5}],
    "placementTrack": [{"tSec": 1, "scale": 0.5}], "placementResponseSec": 0, "placementDamping": 0.4})";

TEST(EffectsSpec, ReadsWhatOlderDocumentsKeptInTheScene) {
    const EffectsSpec spec = specWith(olderScene);
    ASSERT_EQ(spec.transitions().size(), 2u);
    EXPECT_EQ(spec.transitions()[0].atSec, 4);
    EXPECT_EQ(spec.transitions()[0].revealSec, 4.05);
    EXPECT_EQ(spec.transitions()[1].revealSec, 2.5);
    EXPECT_EQ(spec.transitions()[1].style, TransitionStyle::flip);
    ASSERT_TRUE(spec.devicePlacement());
    EXPECT_EQ(spec.devicePlacement()->responseSec, 0.001);
    EXPECT_EQ(spec.devicePlacement()->damping, 0.4);
    EXPECT_EQ(spec.devicePlacement()->track.at(0).scale, 0.5);
    const Json written = Codec<EffectsSpec>::write(spec);
    EXPECT_FALSE(written.find("transitions"));
    EXPECT_FALSE(written.find("devicePlacement"));
}

TEST(EffectsSpec, PrefersKeysOfTheirOwn) {
    const EffectsSpec spec = specWith(
        std::string(olderScene) +
        R"(, "transitions": [{"atSec": 1, "revealSec": 2, "style": "wipe"}], "devicePlacement": {"damping": 0.3,
            "track": [{"tSec": 9}]})");
    ASSERT_EQ(spec.transitions().size(), 1u);
    EXPECT_EQ(spec.transitions()[0].style, TransitionStyle::wipe);
    EXPECT_EQ(spec.devicePlacement()->damping, 0.3);
    const Json written = Codec<EffectsSpec>::write(spec);
    EXPECT_TRUE(written.find("transitions"));
    EXPECT_TRUE(written.find("devicePlacement"));
    EXPECT_TRUE(specWith(std::string(olderScene) + R"(, "transitions": [])").transitions().empty());
}

ScreenTransition transitionAt(double atSec, double revealSec, TransitionStyle style = TransitionStyle::wipe) {
    ScreenTransition transition;
    transition.atSec = atSec;
    transition.revealSec = revealSec;
    transition.style = style;
    return transition;
}

TEST(EffectsSpec, GivesEachTransitionTheTimeItNeeds) {
    constexpr double settled = 5.298317366548036 / (2 * M_PI);   // ln 200 over a turn
    ScreenTransition spring = transitionAt(1, 1.2);
    const struct {
        std::optional<double> response, damping;
        double reveal;
    } cases[] = {{{}, {}, 1 + 0.5 * settled / 0.8}, {0.35, 0.9, 1 + 0.35 * settled / 0.9},
        // Over the critical damping the slow pole counts, so that the window grows.
        {0.5, 2.0, 1 + 0.5 * settled / (2 - std::sqrt(3.0))}, {0.0, 1.0, 1.2},
        {0.5, 0.0, 1 + 0.5 * settled / 0.05}};
    for (const auto& c : cases) {
        spring.timing = TransitionTimingSpec{TransitionTimingSpec::Kind::spring, c.response, c.damping};
        EffectsSpec spec;
        spec.setTransitions({spring});
        EXPECT_NEAR(spec.transitions()[0].revealSec, c.reveal, 1e-12) << c.damping.value_or(-1);
        // The next one's start wins over settling.
        spec.setTransitions({transitionAt(1.15, 9), spring});
        EXPECT_EQ(spec.transitions()[0].revealSec, 1.15);
        EXPECT_EQ(spec.transitions()[1].revealSec, 9);
    }
    EffectsSpec spec;
    spec.setTransitions({transitionAt(3, 2)});
    EXPECT_EQ(spec.transitions()[0].revealSec, 3.1);
}

TEST(EffectsSpec, TurnsTheDeviceByItsFlips) {
    EffectsSpec spec = specWith(olderScene);
    spec.setTransitions({transitionAt(8, 9, TransitionStyle::flip), transitionAt(5, 6),
        transitionAt(2, 3, TransitionStyle::flip)});
    ASSERT_EQ(spec.deviceScene->flips.size(), 2u);
    EXPECT_EQ(spec.deviceScene->flips[0], (CardFlip{2, 3}));
    ASSERT_EQ(spec.deviceScene->poseTrack.size(), 3u);
    EXPECT_EQ(spec.deviceScene->poseTrack[2].tiltDegrees, (Vector3{1, 722, 3}));
    spec.setTransitions({});
    EXPECT_TRUE(spec.deviceScene->flips.empty());
    EXPECT_TRUE(spec.deviceScene->poseTrack.empty());
    // Nothing that was taken away comes back with the file.
    EXPECT_EQ(decodeJson<EffectsSpec>(encodedJson(spec)), spec);
}

TEST(EffectsSpec, KeepsTheScenesTrackInStepWithThePlacement) {
    EffectsSpec spec = specWith(olderScene);
    spec.setDevicePlacement(DevicePlacementSpec{{{.tSec = 3}, {.tSec = 1}}, 0, 0.6});
    EXPECT_EQ(spec.devicePlacement()->track[0].tSec, 1);
    EXPECT_EQ(spec.devicePlacement()->responseSec, 0.001);
    EXPECT_EQ(spec.deviceScene->placementTrack, spec.devicePlacement()->track);
    EXPECT_EQ(spec.deviceScene->placementDamping, 0.6);
    EXPECT_FALSE(Codec<EffectsSpec>::write(spec).find("devicePlacement"));
    spec.setDevicePlacement(DevicePlacementSpec{});
    EXPECT_FALSE(spec.devicePlacement());
    EXPECT_TRUE(spec.deviceScene->placementTrack.empty());
    EXPECT_EQ(spec.deviceScene->placementResponseSec, 0.9);
    EXPECT_EQ(spec.deviceScene->placementDamping, 0.85);
    EXPECT_EQ(decodeJson<EffectsSpec>(encodedJson(spec)), spec);
}

TEST(ReelFonts, NamesEachFontFileOnce) {
    EffectsSpec spec;
    spec.narration.emplace();
    spec.narration->style.fontName = "Lobster";
    spec.narration->style.fontPath = "lobster.ttf";
    spec.titleCards.emplace_back().headline.fontName = "Futura-Medium";   // a font of the system has no file
    spec.titleCards.back().subline.emplace().fontName = "Pacifico";
    spec.titleCards.back().subline->fontPath = "pacifico.ttf";
    spec.narration->captions.push_back(
        {.style = CaptionStyleOverride{.fontName = "Anton", .fontPath = "anton.ttf"}});
    spec.narration->captions.push_back({.style = CaptionStyleOverride{.fontName = "system"}});
    spec.narration->captions.push_back({});
    std::string names;
    for (const FontOption& font : FontCatalog::embeddedFonts(spec)) names += *font.postScriptName + " ";
    EXPECT_EQ(names, "Lobster Pacifico Anton ");
    spec.brand = BrandKit{.primaryFontName = "Lobster", .primaryFontPath = "brand.ttf"};
    EXPECT_EQ(FontCatalog::embeddedFonts(spec).at(0).id, "app");
}

TEST(ReelCanvas, CentresTheFrameInThePaddedCanvas) {
    EffectsSpec spec;
    spec.output = outputOf(ReelFormat::horizontal, 0, 0, 60);
    spec.background.padding = 90;
    spec.background.device.framePath = "my.png";
    const PixelRect frame = CanvasGeometry::deviceFrameRect(spec);
    EXPECT_DOUBLE_EQ(frame.height, 900);
    EXPECT_DOUBLE_EQ(frame.width, 0.4982 * 900);
    EXPECT_DOUBLE_EQ(frame.x + frame.width / 2, 960);
    spec.background.device = {};
    spec.background.device.bundledID = "no-such-phone";
    const PixelRect unknown = CanvasGeometry::deviceFrameRect(spec);
    spec.background.device.bundledID.reset();
    EXPECT_EQ(CanvasGeometry::deviceFrameRect(spec), unknown);
}

}   // namespace
}   // namespace tavix
