// The edits of a reel, at its ends and in its middle.
#include "TavixReelLive/Operations/CaptionEdits.h"
#include "TavixReelLive/Operations/CardEdits.h"
#include "TavixReelLive/Operations/LookEdits.h"
#include "TavixReelLive/Operations/TimelineEdits.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

constexpr double lengthSec = 10;
ReelClock clockAt(double playheadSec) { return {lengthSec, playheadSec}; }

TEST(ReelClocks, NoTrimIsTooShortForAnEdit) {
    EXPECT_DOUBLE_EQ(ReelClock::of(2, 7, 0).lengthSec, 5);
    for (const double endSec : {2.0, 2.05, 1.0}) EXPECT_DOUBLE_EQ(ReelClock::of(2, endSec, 0).lengthSec, 0.1);
}

TEST(TimelineEditing, KeyframesStayInTime) {
    EffectsSpec spec;
    TimelineEdits::addKeyframe(spec, clockAt(6), {50, 60});
    TimelineEdits::addKeyframe(spec, clockAt(2), {50, 60});
    EXPECT_EQ(spec.cameraTrack, (std::vector<CameraKeyframe>{{2, 1.2, {50, 60}, Easing::easeInOut},
                                    {6, 1.2, {50, 60}, Easing::easeInOut}}));
    TimelineEdits::moveKeyframe(spec, 0, 99, clockAt(0));
    EXPECT_EQ(spec.cameraTrack[1].tSec, 10);
    EXPECT_EQ(spec.cameraTrack[0].tSec, 6);
    const EffectsSpec before = spec;
    TimelineEdits::moveKeyframe(spec, 2, 1, clockAt(0));
    TimelineEdits::removeKeyframe(spec, 7);
    EXPECT_EQ(spec, before);
}

TEST(TimelineEditing, CutsAndPacesLieAroundThePlayhead) {
    const struct {
        double atSec;
        TimeRangeSec cut, retime;
    } cases[] = {{0, {0, 0.25}, {0, 0.5}}, {5, {4.75, 5.25}, {4.5, 5.5}}, {9.9, {9.65, 10}, {9.4, 10}}};
    for (const auto& c : cases) {
        EffectsSpec spec;
        TimelineEdits::addCut(spec, clockAt(c.atSec));
        TimelineEdits::addRetime(spec, clockAt(c.atSec));
        EXPECT_EQ(spec.cuts[0].dropRange, c.cut) << c.atSec;
        EXPECT_EQ(spec.retimeTrack[0].range, c.retime) << c.atSec;
    }
    EffectsSpec spec;
    TimelineEdits::addCut(spec, clockAt(5));
    for (const auto& [to, start] : {std::pair(-3.0, 0.0), {3.0, 3.0}, {99.0, 9.5}}) {
        TimelineEdits::moveCut(spec, 0, to, clockAt(0));
        EXPECT_DOUBLE_EQ(spec.cuts[0].dropRange.startSec, start);
        EXPECT_DOUBLE_EQ(spec.cuts[0].dropRange.endSec, start + 0.5);
    }
}

TEST(TimelineEditing, APaceMovesWithItsLengthAndNoTransitionEndsBeforeItHasBegun) {
    EffectsSpec spec;
    TimelineEdits::addRetime(spec, clockAt(5));
    for (const auto& [to, start] : {std::pair(-3.0, 0.0), {3.0, 3.0}, {99.0, 9.0}}) {
        TimelineEdits::moveRetime(spec, 0, to, clockAt(0));
        EXPECT_EQ(spec.retimeTrack[0].range, (TimeRangeSec{start, start + 1}));
    }
    TimelineEdits::addTransition(spec, clockAt(9.99));
    EXPECT_GT(spec.transitions()[0].revealSec, spec.transitions()[0].atSec) << "at the very end, too";
    spec.setTransitions({});
    TimelineEdits::addTransition(spec, clockAt(3));
    for (const double to : {-5.0, 0.0, 3.0}) {
        TimelineEdits::setTransitionReveal(spec, 0, to, clockAt(0));
        EXPECT_GT(spec.transitions()[0].revealSec, 3);
        EXPECT_LT(spec.transitions()[0].revealSec, 3.5);
    }
    TimelineEdits::setTransitionReveal(spec, 0, 99, clockAt(0));
    EXPECT_DOUBLE_EQ(spec.transitions()[0].revealSec, 10);
}

TEST(TimelineEditing, TransitionsKeepTheTimeThatTheyNeed) {
    EffectsSpec spec;
    TimelineEdits::addTransition(spec, clockAt(3));
    ASSERT_EQ(spec.transitions().size(), 1u);
    EXPECT_DOUBLE_EQ(spec.transitions()[0].atSec, 3);
    EXPECT_DOUBLE_EQ(spec.transitions()[0].revealSec, 4);
    TimelineEdits::moveTransition(spec, 0, 99, clockAt(0));
    EXPECT_DOUBLE_EQ(spec.transitions()[0].atSec, 9);
    EXPECT_DOUBLE_EQ(spec.transitions()[0].revealSec, 10);
    TimelineEdits::setTransitionReveal(spec, 0, 9.5, clockAt(0));
    EXPECT_DOUBLE_EQ(spec.transitions()[0].revealSec, 9.5);
    // Those of a spring need as long as it swings.
    TransitionTimingSpec spring;
    spring.kind = TransitionTimingSpec::Kind::spring;
    TimelineEdits::setTransitionTiming(spec, 0, spring);
    EXPECT_GT(spec.transitions()[0].revealSec, 9.5);
    TimelineEdits::setTransitionStyle(spec, 0, TransitionStyle::wipe);
    EXPECT_EQ(spec.transitions()[0].style, TransitionStyle::wipe);
}

TEST(CaptionEditing, WindowsStayInTheReel) {
    EffectsSpec spec;
    CaptionEdits::add(spec, clockAt(9));
    const auto window = [&] { return spec.narration->captions[0].window; };
    EXPECT_EQ(spec.narration->captions[0].text, "New caption");
    EXPECT_EQ(window(), (TimeRangeSec{9, 10}));
    CaptionEdits::setTiming(spec, 0, 4, 0, clockAt(0));
    EXPECT_EQ(window(), (TimeRangeSec{4, 4.3}));
    CaptionEdits::setTiming(spec, 0, 99, 5, clockAt(0));
    EXPECT_EQ(window(), (TimeRangeSec{9.9, 10}));
    CaptionEdits::setTiming(spec, 0, 2, 3, clockAt(0));
    CaptionEdits::move(spec, 0, 8, clockAt(0));
    EXPECT_EQ(window(), (TimeRangeSec{7, 10}));
    CaptionEdits::setEnd(spec, 0, 1, clockAt(0));
    EXPECT_DOUBLE_EQ(window().endSec, 7.3);
    CaptionEdits::setEnd(spec, 0, 99, clockAt(0));
    EXPECT_DOUBLE_EQ(window().endSec, 10);
    CaptionEdits::move(spec, 4, 1, clockAt(0));
    CaptionEdits::remove(spec, 0);
    EXPECT_TRUE(spec.narration->captions.empty());
}

TEST(CaptionEditing, StylesAndWordsFollow) {
    EffectsSpec spec;
    CaptionEdits::add(spec, clockAt(0));
    const auto caption = [&]() -> Caption& { return spec.narration->captions[0]; };
    CaptionEdits::setKinetic(spec, 0, "word-pop");
    EXPECT_EQ(caption().kinetic->presetID, "word-pop");
    caption().emphasis = {EmphasisSpan{.wordIndices = {0}}};
    CaptionEdits::setText(spec, 0, "A New start");
    EXPECT_EQ(caption().emphasis[0].wordIndices, std::vector<std::int64_t>{1}) << "the word is still there";
    EXPECT_EQ(caption().kinetic->presetID, "word-pop");
    CaptionEdits::setOverride(spec, 0, CaptionStyleOverride{});
    EXPECT_FALSE(caption().style);
    CaptionEdits::setOverrideFont(spec, 0, std::nullopt, std::nullopt);
    EXPECT_EQ(caption().style->fontName, CaptionStyleOverride::systemFontSentinel);
    CaptionEdits::setKinetic(spec, 0, std::nullopt);
    EXPECT_FALSE(caption().kinetic);
}

TEST(CaptionEditing, TheDeviceStepsAsideOnWideCanvasesAlone) {
    EffectsSpec spec;
    spec.output = {1920, 1080, 30, OutputConfig::Aspect::landscape};
    spec.sideCaptions.emplace();
    CaptionEdits::add(spec, clockAt(4));
    EXPECT_TRUE(spec.devicePlacement()) << "it makes room";
    CaptionEdits::remove(spec, 0);
    EXPECT_FALSE(spec.devicePlacement()) << "and comes back";
    CaptionEdits::add(spec, clockAt(4));
    const auto early = spec.devicePlacement();
    CaptionEdits::move(spec, 0, 7, clockAt(0));
    EXPECT_NE(spec.devicePlacement(), early) << "when there is something to make room for";
    VideoProbe probe;
    probe.widthPx = 1170, probe.heightPx = 2532, probe.fps = 60;
    LookEdits::setCanvasFormat(spec, ReelFormat::vertical, probe);
    EXPECT_EQ(spec.output, (EffectsOutput{1080, 1920, 60, OutputConfig::Aspect::vertical}));
    EXPECT_FALSE(spec.devicePlacement());
}

TEST(CardEditing, FollowsItsRules) {
    EffectsSpec spec;
    CardEdits::add(spec, AtStart{}, clockAt(4));
    ASSERT_EQ(spec.titleCards.size(), 1u);
    TitleCard& card = spec.titleCards[0];
    EXPECT_EQ(card.headline.text, "Headline");
    EXPECT_EQ(card.insertionSec, 4);
    EXPECT_EQ(card.durationSec, 2.5);
    for (const auto& [asked, given] : {std::pair(0.0, 1.2), {3.0, 3.0}, {99.0, 8.0}}) {
        CardEdits::setDuration(spec, 0, asked);
        EXPECT_DOUBLE_EQ(card.durationSec, given);
    }
    CardEdits::move(spec, 0, 99, clockAt(0));
    EXPECT_EQ(card.anchor, TitleCardAnchor(CustomAnchor{}));
    EXPECT_EQ(card.insertionSec, 10);
    card.headline.emphasis = {EmphasisSpan{.wordIndices = {0}}};
    CardEdits::setHeadlineText(spec, 0, "A new Headline");
    ASSERT_EQ(card.headline.emphasis.size(), 1u) << "the word is still there";
    CardEdits::setSublineText(spec, 0, "below");
    ASSERT_TRUE(card.subline);
    EXPECT_DOUBLE_EQ(card.subline->sizeFraction, 0.028);
    EXPECT_EQ(card.subline->kinetic.presetID, "fade-up");
    CardEdits::setPreset(spec, 0, "slam");
    EXPECT_EQ(card.subline->kinetic.presetID, "slam");
    CardEdits::setSublineText(spec, 0, "");
    EXPECT_FALSE(card.subline);
    CardEdits::remove(spec, 3);
    CardEdits::remove(spec, 0);
    EXPECT_TRUE(spec.titleCards.empty());
}

TEST(LookEditing, ADeviceIsOneOfTheCatalog) {
    EffectsSpec spec;
    const EffectsSpec before = spec;
    EXPECT_FALSE(LookEdits::setBundledDevice(spec, "toaster"));
    EXPECT_EQ(spec, before);
    EXPECT_TRUE(LookEdits::setBundledDevice(spec, "iphone-16-pro"));
    EXPECT_EQ(spec.background.device.bundledID, "iphone-16-pro");
    LookEdits::setDeviceFrame(spec, "mine.png", NormalizedRect{0.1, 0.1, 0.8, 0.8}, 0.05);
    EXPECT_FALSE(spec.background.device.bundledID);
    EXPECT_EQ(spec.background.device.screen.width, 0.8);
}

}   // namespace
}   // namespace tavix
