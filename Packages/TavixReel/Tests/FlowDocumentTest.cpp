#include "TavixCore/Tests/FrozenDocument.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Recording/DoneReport.h"
#include "TavixReel/Recording/Handshake.h"

namespace tavix {
namespace {

MotionSpec tunedMotion() {
    return {.targetZoom = 1.3,
        .maxZoom = 1.6,
        .restZoom = 1.05,
        .safeMarginFraction = 0.05,
        .touchRingPadPx = 40,
        .minZoomFactor = 1.1,
        .minScaleDelta = 0.08,
        .minReframeFraction = 0.14,
        .minBeatSpacingSec = 1.2,
        .farPanFraction = 0.3,
        .settleHoldSec = 0.45,
        .pushInSec = 0.65,
        .deadAirThresholdSec = 3,
        .deadAirHoldSec = 0.7,
        .deadAirRampSpeed = 4,
        .zoomResponseSec = 0.6,
        .panResponseSec = 0.9,
        .dampingRatio = 0.81};
}

Step fullStep() {
    return {.index = 4,
        .interaction = Interaction::scroll,
        .target = {Target::Kind::viewId, "List", "Orders", "Order 18"},
        .state = MockState{.description = "Scrolled"},
        .dwellBeforeMs = 150,
        .dwellAfterMs = 0,
        .direction = SwipeDirection::up,
        .caption = "Scroll to the newest",
        .flip = true,
        .transition = "ripple",
        .transitionTiming = "bouncy",
        .typography = StepTypography{.preset = "word-pop",
            .speed = "snap",
            .weight = "punchy",
            .intensity = "high",
            .emphasis = {{{0, 2}, "scalePop"}},
            .zone = "upper",
            .phone = "park-left"},
        .durationSec = 1.25,
        .distance = 340.5,
        .animated = false};
}

FlowTypography typography() {
    const CardSpec card{.at = "afterStep",
        .afterStep = 4,
        .headline = "Sent in seconds",
        .subline = "No forms at all",
        .emphasis = {{{1}, "highlight"}},
        .sublineEmphasis = {{{0}, "accent"}},
        .showLogo = true,
        .preset = "line-rise",
        .length = "long"};
    return {.style = "slide-up",
        .speed = "glacial",
        .weight = "elegant",
        .intensity = "medium",
        .bpm = 124,
        .offsetSec = 0.35,
        .phoneChoreography = "off",
        .cards = {card}};
}

TEST(FlowSpec, TheFrozenFlowStays) {
    const MockState state{.viewModelType = "OrdersModel",
        .description = "Three open orders",
        .payload = {{{"isSignedIn", true}, {"orders", JsonArray{17, nullptr, "draft"}}}}};
    const FlowSpec flow{.name = "first run",
        .schemaVersion = 2,
        .requestText = "Show how an order is sent",
        .output = {OutputConfig::Aspect::vertical, 1080, 1920, 60, 22.5, OutputConfig::Container::mov,
            OutputConfig::Codec::hevc},
        .entry = {"OrdersView", state},
        .steps = {{.index = 0,
                      .interaction = Interaction::tap,
                      .target = {Target::Kind::accessibilityId, "orders.new", {}, {}},
                      .dwellBeforeMs = 400,
                      .dwellAfterMs = 900},
            fullStep()},
        .motion = tunedMotion(),
        .typography = typography()};
    frozen::expectHolds("first-run.flow.json", flow);
}

TEST(DoneReport, TheFrozenReportStays) {
    const DoneReport report{.flowStart = 1001.5,
        .flowEnd = 1019.25,
        .steps = {{.index = 0, .startedAt = 1002.25, .endedAt = 1003.5},
            {.index = 4,
                .startedAt = 1004.25,
                .endedAt = 1007,
                .rect = LogicalRect{8, 100.25, 160.5, 32},
                .type = "scroll",
                .label = "Orders",
                .actionAt = 1004.625,
                .motionEndAt = 1006}},
        .displayScale = 3,
        .logicalSize = LogicalSize{402, 874}};
    frozen::expectHolds("done.json", report);
    EXPECT_EQ(decodeJson<GoSignal>(R"({"issuedAt": 1001.5})").issuedAt, 1001.5);
    EXPECT_EQ(parseJson(encodedJson(GoSignal{12.5})), parseJson(R"({"issuedAt": 12.5})"));
}

// The words of every choice, in their order: a document says them.
TEST(FlowSpec, KeepsItsWords) {
    using testing::ElementsAre;
    EXPECT_THAT(allNames<Interaction>(),
        ElementsAre("tap", "longPress", "navPush", "navPop", "sheetPresent", "sheetDismiss", "toggle",
            "textEntry", "scroll", "swipe", "listSelection"));
    EXPECT_THAT(allNames<SwipeDirection>(), ElementsAre("left", "right", "up", "down"));
    EXPECT_THAT(allNames<Target::Kind>(), ElementsAre("accessibilityId", "viewId", "text"));
    EXPECT_THAT(allNames<OutputConfig::Aspect>(), ElementsAre("landscape", "vertical"));
    EXPECT_THAT(allNames<OutputConfig::Container>(), ElementsAre("mp4", "mov"));
    EXPECT_THAT(allNames<OutputConfig::Codec>(), ElementsAre("h264", "hevc"));
    EXPECT_THAT(
        (std::vector{HandshakeFile::spec, HandshakeFile::ready, HandshakeFile::go, HandshakeFile::done}),
        ElementsAre("spec.json", "ready.json", "go.json", "done.json"));
}

}   // namespace
}   // namespace tavix
