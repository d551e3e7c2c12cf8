#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Judge/CompositionLint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace tavix::CompositionLint {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::array<double, 8> wildNumbers{
    std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308, -1e308, 5e-324, -0.0, 9.3e18};

TEST(LintWording, WritesWholeNumbersWholeAndOthersShort) {
    const struct {
        double number;
        const char* text;
    } cases[] = {{0, "0"}, {-0.0, "0"}, {-3, "-3"}, {1234567, "1234567"}, {0.35, "0.35"}, {1.0 / 3, "0.333"},
        {1234.5, "1.23e+03"}, {0.00001, "1e-05"}, {1e19, "1e+19"}, {infinity, "inf"}, {std::nan(""), "nan"}};
    for (const auto& c : cases) EXPECT_EQ(fmt(c.number), c.text);
}

TEST(LintWording, TellsNumbersApart) {
    const struct {
        double number, other;
        const char *text, *otherText;
    } cases[] = {{5.002, 5, "5.002", "5"}, {12.34, 12.3, "12.34", "12.3"}, {2, 1, "2", "1"},
        {1234.5, 1234.25, "1234.5", "1234.2"}, {0.1 + 0.2, 0.3, "0.30000000000000004", "0.29999999999999999"},
        {7, 7, "7", "7"}};
    for (const auto& c : cases) {
        EXPECT_EQ(apart(c.number, c.other), c.text);
        EXPECT_EQ(apart(c.other, c.number), c.otherText);
    }
}

// A scene with every kind of layer, in which every time and size is this number.
CompositionSpec filledWith(double n) {
    const std::vector<CompositionKeyframe> keyframes{{n, n, SpringCurve{n, n}}, {n, n, SpringCurve{n, n}}};
    DeviceContent device{.screenOpacity = keyframes};
    device.placement = DevicePlacementSpec{.track = {{.tSec = n}, {.tSec = n}}};
    device.scene3D = DeviceScene3D{.poseTrack = {{n}, {n}}, .depthTrack = {{n, n}, {n, n}}};
    CompositionScene scene{.durationSec = n, .durationBeats = n};
    for (const LayerContent& content :
        {LayerContent(TextContent{.text = "a", .sizeFraction = n}), LayerContent(device),
            LayerContent(ImageContent{}), LayerContent(VideoContent{.clip = {"", n, n}}),
            LayerContent(ShapeContent{.widthFraction = n}), LayerContent(BackgroundFill{})})
        scene.layers.push_back({.fromSec = n,
            .durationSec = n,
            .fromBeat = n,
            .position = {n, n},
            .enter = KineticPhase{.curve = SpringCurve{n, n}, .opacity = n},
            .tracks = {{AnimProperty::opacity, keyframes}, {AnimProperty::scale, keyframes}},
            .effects = {GlowEffect{n, n}, UnknownEffect{}},
            .content = content});
    scene.transition = SceneTransition{.durationSec = n, .curve = SpringCurve{n, n}};
    CompositionSpec spec{.scenes = {scene, scene, scene}};
    spec.audio = CompositionAudio{MusicBed{.startAtSec = n, .bpm = n, .firstBeatSec = n}, {{.atSec = n}}};
    return spec;
}

TEST(CompositionLint, JudgesAnyNumbers) {
    for (const double number : wildNumbers) {
        SCOPED_TRACE(number);
        CompositionSpec spec = filledWith(number);
        spec.output.widthPx = std::numeric_limits<std::int64_t>::min();
        spec.output.heightPx = std::numeric_limits<std::int64_t>::max();
        const std::vector<Finding> findings = lint(spec);
        EXPECT_EQ(lint(spec), findings);
        EXPECT_TRUE(std::ranges::any_of(findings, [](const Finding& f) { return f.level == Level::error; }));
        for (const Finding& finding : findings) {
            EXPECT_FALSE(finding.path.empty());
            EXPECT_EQ(finding.message.find("{}"), std::string::npos) << finding.message;
        }
    }
}

TEST(CompositionLint, EndsOnNamesOfAnyLength) {
    const std::string endless(2'000'000, 'x');
    CompositionLayer layer{.fromMark = MarkRef{endless, endless}, .effects = {UnknownEffect{endless}}};
    layer.content =
        TextContent{.text = endless, .font = endless, .kinetic = KineticPresetRef{.preset = endless}};
    CompositionLayer device{.id = endless, .content = DeviceContent{}};
    device.id->back() = 'y';
    const CompositionSpec spec{.scenes = {{.durationSec = 1, .layers = {layer, device}}}};
    EXPECT_EQ(lint(spec).size(), 4u);   // clip, effect, preset, screen
}

}   // namespace
}   // namespace tavix::CompositionLint
