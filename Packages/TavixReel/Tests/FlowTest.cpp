#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Recording/DoneReport.h"
#include "TavixReel/Recording/Handshake.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

template <class T> class FlowRecords : public testing::Test {};
using Records = testing::Types<FlowSpec, MotionSpec, DoneReport, GoSignal, Timeline>;
TYPED_TEST_SUITE(FlowRecords, Records);

TYPED_TEST(FlowRecords, WritingAndReadingAgainChangesNothing) {
    const SchemaDocument schema(schemaOf<TypeParam>("T"));
    SeededRandom dice("flow");
    for (int i = 0; i < 60; ++i) {
        const auto value = decodeValue<TypeParam>(schema.random(dice, SchemaDocument::Manner::tame));
        const Json written = Codec<TypeParam>::write(value);
        ASSERT_EQ(schema.departure(written), "");
        ASSERT_EQ(decodeValue<TypeParam>(written), value) << writeJson(written);
    }
}

constexpr const char* flowText = R"({
  "name": "first run", "schemaVersion": 2,
  "output": {"aspect": "vertical", "width": 1080, "height": 1920, "fps": 60, "container": "mov", "codec": "hevc"},
  "entry": {"rootViewType": "HomeView", "initialState": {"payload": {"items": [1, null, {"deep": true}]}}},
  "motion": {"maxZoom": 2},
  "steps": [{"index": 3, "interaction": "listSelection", "dwellBeforeMs": 400, "dwellAfterMs": 900,
             "target": {"kind": "viewId", "identifier": "row", "label": "First row"}}]
})";

TEST(FlowSpec, ReadsAFlow) {
    const auto flow = decodeJson<FlowSpec>(flowText);
    EXPECT_EQ(flow.output.aspect, OutputConfig::Aspect::vertical);
    EXPECT_EQ(flow.output.codec, OutputConfig::Codec::hevc);
    EXPECT_EQ(flow.steps.at(0).interaction, Interaction::listSelection);
    EXPECT_EQ(flow.steps.at(0).target.label, "First row");
    // The app's own state is carried as it is, down to its nulls.
    EXPECT_EQ(Json(Codec<MockState>::write(*flow.entry.initialState)),
        parseJson(R"({"payload": {"items": [1, null, {"deep": true}]}})"));
    // What a flow does not tune is as in the smooth preset.
    MotionSpec expected = MotionSpec::smoothGlide;
    expected.maxZoom = 2;
    EXPECT_EQ(flow.motion, expected);
}

TEST(FlowSpec, HasTypographyByItselfOrByAStep) {
    auto flow = decodeJson<FlowSpec>(flowText);
    EXPECT_FALSE(flow.hasTypography());
    flow.steps[0].typography = StepTypography{};
    EXPECT_TRUE(flow.hasTypography());
    flow.steps.clear();
    EXPECT_FALSE(flow.hasTypography());
    flow.typography = FlowTypography{};
    EXPECT_TRUE(flow.hasTypography());
}

TEST(Step, KnowsItsTransition) {
    const struct {
        std::optional<std::string> transition;
        std::optional<bool> flip;
        std::optional<TransitionStyle> style;
    } cases[] = {{{}, {}, {}}, {{}, false, {}}, {{}, true, TransitionStyle::flip},
        {"ripple", true, TransitionStyle::ripple}, {"spin", true, {}}, {"", {}, {}}};
    for (const auto& c : cases) {
        const Step step{.flip = c.flip, .transition = c.transition};
        EXPECT_EQ(step.resolvedTransitionStyle(), c.style) << c.transition.value_or("none");
    }
    using Timing = TransitionTimingSpec;
    EXPECT_EQ(Step{.transitionTiming = "bouncy"}.resolvedTransitionTiming(),
        (Timing{Timing::Kind::spring, 0.5, 0.65}));
    EXPECT_FALSE(Step{.transitionTiming = "wild"}.resolvedTransitionTiming());
    EXPECT_FALSE(Step{}.resolvedTransitionTiming());
}

TEST(MotionSpec, IsFlatWithoutZoom) {
    const MotionSpec& flat = MotionSpec::flat;
    for (const double value :
        {flat.targetZoom, flat.maxZoom, flat.restZoom, flat.deadAirRampSpeed, flat.dampingRatio})
        EXPECT_EQ(value, 1);
    EXPECT_EQ(flat.panResponseSec, MotionSpec::smoothGlide.panResponseSec);
}

}   // namespace
}   // namespace tavix
