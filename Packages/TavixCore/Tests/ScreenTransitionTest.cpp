#include "TavixCore/Document/ScreenTransition.h"
#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Document/SoundCue.h"
#include "TavixCore/Document/TransitionMath.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace tavix {
namespace {

using namespace TransitionMath;
using Kind = TransitionTimingSpec::Kind;
using Preset = TransitionTimingSpec::Preset;

TEST(ScreenTransition, FillsInWhatIsMissing) {
    const struct {
        const char* json;
        ScreenTransition read;
    } cases[] = {{"{}", {.atSec = 0, .revealSec = 0.1, .style = TransitionStyle::flip}},
        {R"({"atSec": 2})", {.atSec = 2, .revealSec = 2.1}},
        {R"({"revealSec": 2.01, "atSec": 2})", {.atSec = 2, .revealSec = 2.05}},
        {R"({"revealSec": -3})", {.revealSec = 0.05}},
        {R"({"style": "vortex"})", {.style = TransitionStyle::flip}},
        {R"({"style": "push", "liveIncoming": false})",
            {.style = TransitionStyle::push, .liveIncoming = false}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        const auto read = decodeJson<ScreenTransition>(c.json);
        EXPECT_EQ(read, c.read);
        EXPECT_EQ(decodeJson<ScreenTransition>(encodedJson(read)), read);
    }
    EXPECT_THROW(decodeJson<ScreenTransition>(R"({"style": 3})"), DecodingError);
}

TEST(TransitionTimingSpec, TakesPresetsForWhatIsMissing) {
    const auto mixed =
        decodeJson<TransitionTimingSpec>(R"({"kind": "spring", "preset": "bouncy", "damping": 0.9})");
    EXPECT_EQ(mixed, (TransitionTimingSpec{Kind::spring, 0.5, 0.9}));
    EXPECT_EQ(encodedJson(mixed).find("preset"), std::string::npos);
    EXPECT_EQ(decodeJson<TransitionTimingSpec>(R"({"kind": "spring", "preset": "frantic"})"),
        (TransitionTimingSpec{Kind::spring}));
    for (const char* json : {R"({"preset": "bouncy"})", R"({"kind": "bouncy"})"})
        EXPECT_THROW(decodeJson<ScreenTransition>(R"({"timing": )" + std::string(json) + "}"), DecodingError);
    for (const Preset preset : allCases<Preset>())
        EXPECT_EQ(TransitionTimingSpec::of(preset).matchedPreset(), preset);
    EXPECT_FALSE((TransitionTimingSpec{Kind::linear, 0.6, 1.0}.matchedPreset()));
    EXPECT_FALSE((TransitionTimingSpec{Kind::spring, 0.6}.matchedPreset()));
    EXPECT_FALSE((TransitionTimingSpec{Kind::spring, 0.6, 0.9}.matchedPreset()));
}

TEST(TransitionMath, RunsFrom0To1) {
    const TransitionTimingSpec linear{Kind::linear};
    EXPECT_EQ(progress(1, 2, 4), 0);
    EXPECT_EQ(progress(3, 2, 4), 0.5);
    EXPECT_EQ(progress(9, 2, 4), 1);
    EXPECT_EQ(easedProgress(-5, 2, 2, std::nullopt), 1);
    EXPECT_EQ(easedProgress(2.5, 2, 4, linear), 0.25);
    EXPECT_EQ(easedProgress(2.5, 2, 4, std::nullopt), 0.0625);
    for (double x = 0; x <= 0.5; x += 0.05)
        EXPECT_NEAR(easeInOutCubic(x) + easeInOutCubic(1 - x), 1, 1e-12) << x;
    const TransitionTimingSpec slow{Kind::spring, 9, {}}, quick{Kind::spring, 0.1, 0.8};
    EXPECT_EQ(easedProgress(2.5, 2, 4, slow), easedProgress(2.5, 2, 4, quick));
}

// The spring obeys x'' = w²(1 - x) - 2ζw x', from rest at 0, for every damping.
TEST(TransitionMath, TheSpringFollowsItsEquation) {
    const double rate = 2 * std::numbers::pi, h = 1e-4;
    for (const double zeta : {0.05, 0.3, 0.8, 1.0, 1.5, 6.0}) {
        SCOPED_TRACE(zeta);
        EXPECT_NEAR(springStep(0, zeta), 0, 1e-15);
        for (const double tau : {0.1, 0.5, 1.3}) {
            const double before = springStep(tau - h, zeta), at = springStep(tau, zeta),
                         after = springStep(tau + h, zeta);
            const double speed = (after - before) / (2 * h), force = (after - 2 * at + before) / (h * h);
            EXPECT_NEAR(force, rate * rate * (1 - at) - 2 * zeta * rate * speed, 0.001);
        }
    }
}

TEST(TransitionMath, TheSpringSettlesInItsTime) {
    EXPECT_NEAR(springProgress(1, 1), 0.9685, 0.00005);
    EXPECT_NEAR(springProgress(1, 0.65), 0.995, 0.001);
    double highest = 0;
    for (double p = 0; p <= 1; p += 0.001) highest = std::max(highest, springProgress(p, 0.65));
    EXPECT_NEAR(highest, 1.068, 0.001);
    for (const double damping : {-1.0, 0.0, 0.2, 1 - 1e-7, 1 + 1e-7, 3.0, 1e3, 1e9, 1e200}) {
        SCOPED_TRACE(damping);
        EXPECT_NEAR(springProgress(0, damping), 0, 1e-15);
        EXPECT_NEAR(springProgress(-1, damping), 0, 1e-15);
        EXPECT_NEAR(springProgress(1, damping), 1, 0.04);
        EXPECT_GT(springSettleDurationSec(0.5, damping), 0);
    }
    for (const double zeta : {1 - 2e-6, 1 - 1e-7, 1 + 2e-6})
        EXPECT_NEAR(springStep(0.4, zeta), springStep(0.4, 1), 1e-5);
    EXPECT_DOUBLE_EQ(springSettleDurationSec(0, 1), 0.05 * std::log(200) / (2 * std::numbers::pi));
}

TEST(TransitionMath, WipesAndPushesLeaveNothingBehind) {
    const double w = 250;
    EXPECT_NEAR(wipeEdge(0, w).x0, -0.12 * w, 1e-12);
    EXPECT_NEAR(wipeEdge(0, w).x1, 0, 1e-12);
    EXPECT_NEAR(wipeEdge(1, w).x0, w, 1e-12);
    EXPECT_NEAR(wipeEdge(1, w).x1, 1.12 * w, 1e-12);
    for (double eased = -0.1; eased < 1.2; eased += 0.1) {
        const PushOffsets push = pushOffsets(eased, w);
        EXPECT_NEAR(push.incomingDx - push.outgoingDx, w, 1e-9);   // side by side all the way
    }
    EXPECT_EQ(pushOffsets(1, w).incomingDx, 0);
}

TEST(SFXCatalog, GoesWithTransitions) {
    for (const TransitionStyle style : allCases<TransitionStyle>())
        EXPECT_EQ(nameOf(SFXCatalog::sound(style)), style == TransitionStyle::dreamyZoom ? "ding" : "whoosh");
    EXPECT_TRUE(isAccent(TransitionStyle::ripple));
    EXPECT_FALSE(isAccent(TransitionStyle::crossZoom));
    const SoundCue cue = SoundCue::of(2, SFXCatalog::Sound::whip, -1);
    EXPECT_EQ(cue.resolvedSound(), SFXCatalog::Sound::whip);
    EXPECT_EQ(cue.gain, 0);
}

}   // namespace
}   // namespace tavix
