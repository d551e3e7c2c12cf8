#include "TavixCore/Choreography/FormationFit.h"
#include "TavixCore/Animation/CompositionMath.h"
#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixCore/Device/DeviceSceneProjection.h"
#include "TavixCore/Support/Names.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace tavix {
namespace {

using enum DeviceChoreographyPreset;
using DeviceSceneProjection::OutputSize;

constexpr std::array<OutputSize, 5> frames{
    {{1080, 1920}, {1920, 1080}, {1080, 1080}, {1080, 1350}, {600, 2400}}};

DeviceChoreography made(
    DeviceChoreographyPreset preset, const OutputSize& frame, const DeviceChoreographyParams& params) {
    CompositionLayer source;
    source.content = DeviceContent{.screen = StillScreen{"screen.png"}};
    const CompositionOutput output{std::int64_t(frame.widthPx), std::int64_t(frame.heightPx), 30};
    DeviceChoreography formation = *DeviceChoreographyExpander::expand(preset, source, output, params);
    fitToFrame(preset, formation.layers, output);
    return formation;
}

const DeviceContent& device(const CompositionLayer& layer) { return std::get<DeviceContent>(layer.content); }

// Seconds of a layer's own clock in which the formation wants it to be seen whole; the rest is arriving,
// leaving or flying by.
struct Span {
    double fromSec, toSec;
};
Span wholeSpan(DeviceChoreographyPreset preset, const CompositionLayer& layer) {
    const double lengthSec = *layer.durationSec;
    switch (preset) {
    case ecosystemHandoff: return {0.5 * lengthSec, 0.68 * lengthSec};
    case infiniteTunnel: return {0, 0.5 * lengthSec};
    case screenCascade: return {2.6, lengthSec};
    default: return {0, lengthSec};
    }
}

// Everywhere in between, springs and all.
void expectInside(DeviceChoreographyPreset preset, const CompositionLayer& layer, const OutputSize& frame) {
    const DevicePlacementSpec& placement = *device(layer).placement;
    const auto trajectory =
        DevicePlacementTrajectory::chasing(placement.track, 60, {placement.responseSec, placement.damping});
    const Span span = wholeSpan(preset, layer);
    for (double t = span.fromSec; t <= span.toSec; t += 1.0 / 60) {
        const auto place = trajectory.sample(t);
        double nearer = 1;   // the camera comes nearer with the depth
        if (const auto& model = device(layer).scene3D)
            nearer = 1 / (1.5 - DeviceDepthTrajectory::sample(model->depthTrack, t).value_or(0.5));
        const NormalizedRect rect = DeviceSceneProjection::deviceRect(
            {place.offset.x * nearer, place.offset.y * nearer}, place.scale * nearer, frame);
        ASSERT_GT(rect.x, 0.01) << *layer.id << " at " << t;
        ASSERT_LT(rect.x + rect.width, 0.99) << *layer.id << " at " << t;
        ASSERT_GT(rect.y, 0.01) << *layer.id << " at " << t;
        ASSERT_LT(rect.y + rect.height, 0.99) << *layer.id << " at " << t;
    }
}

TEST(FormationFit, KeepsEveryDeviceInsideEveryFrame) {
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>())
        for (const OutputSize& frame : frames)
            for (std::int64_t count = 2; count <= 8; ++count)
                for (const auto direction :
                    {DeviceMotionParams::Direction::forward, DeviceMotionParams::Direction::reversed}) {
                    SCOPED_TRACE(std::string(nameOf(preset)) + ", " + std::to_string(count) + " in " +
                                 std::to_string(int(frame.widthPx)) + " by " +
                                 std::to_string(int(frame.heightPx)));
                    for (const CompositionLayer& layer :
                        made(preset, frame, {.direction = direction, .count = count}).layers)
                        if (std::holds_alternative<DeviceContent>(layer.content))
                            expectInside(preset, layer, frame);
                    if (HasFatalFailure()) return;
                }
}

// The cards that a phone throws out, still ones of a phone's shape and moving ones.
TEST(FormationFit, KeepsTheCardsInside) {
    for (const OutputSize& frame : frames)
        for (const bool isFilm : {false, true}) {
            CompositionLayer source;
            source.content = isFilm ? DeviceContent{.screen = VideoClip{"clip.mp4"}}
                                    : DeviceContent{.screen = StillScreen{"screen.png"}};
            const CompositionOutput output{std::int64_t(frame.widthPx), std::int64_t(frame.heightPx), 30};
            const double aspect = frame.widthPx / frame.heightPx;
            DeviceChoreography burst =
                *DeviceChoreographyExpander::expand(uiBurst, source, output, {.count = 8});
            fitToFrame(uiBurst, burst.layers, output);
            for (const CompositionLayer& card : burst.layers) {
                if (std::holds_alternative<DeviceContent>(card.content)) continue;
                const double x = *CompositionMath::sample(card.tracks, AnimProperty::x, 2.2);
                const double scale = *CompositionMath::sample(card.tracks, AnimProperty::scale, 2.2);
                const auto* const film = std::get_if<VideoContent>(&card.content);
                const auto* const picture = std::get_if<ImageContent>(&card.content);
                // A phone's screen is 402 by 874 points.
                const double width = film
                                         ? film->rect->width * aspect
                                         : *picture->heightFraction / picture->sourceRect->height * 402 / 874;
                EXPECT_LT(std::abs(x) + width * scale / 2, aspect / 2) << frame.widthPx << " " << *card.id;
            }
        }
}

// In a wide frame a formation is what its table of numbers says, and devices do not shrink to nothing
// elsewhere.
TEST(FormationFit, LeavesWideFramesAloneAndDevicesLarge) {
    const auto scales = [](const OutputSize& frame, DeviceChoreographyPreset preset) {
        double most = 0;
        for (const CompositionLayer& layer : made(preset, frame, {}).layers)
            if (std::holds_alternative<DeviceContent>(layer.content))
                for (const DevicePlacementKeyframe& place : device(layer).placement->track)
                    most = std::max(most, place.scale);
        return most;
    };
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>()) {
        EXPECT_DOUBLE_EQ(scales({1920, 1080}, preset), scales({3840, 1600}, preset)) << nameOf(preset);
        EXPECT_GE(scales({1080, 1920}, preset), 0.6 * scales({1920, 1080}, preset)) << nameOf(preset);
    }
    const auto wide = made(fanDeck, {1920, 1080}, {});
    EXPECT_EQ(device(wide.layers[0]).placement->track[4].offset, (NormalizedVec2{-0.4, 0}));
}

// Order from left to right stays, and both sides are alike.
TEST(FormationFit, KeepsTheOrderOfALine) {
    for (const DeviceChoreographyPreset preset : {fanDeck, colorwayDomino, splitFocus, depthWave})
        for (std::int64_t count = 2; count <= 8; ++count) {
            const auto formation = made(preset, {1080, 1920}, {.count = count});
            for (std::size_t k = 0; k + 1 < formation.layers.size(); ++k) {
                const auto x = [&](std::size_t i) {
                    return device(formation.layers[i]).placement->track.back().offset.x;
                };
                EXPECT_LT(x(k), x(k + 1)) << nameOf(preset);
                EXPECT_NEAR(x(k), -x(formation.layers.size() - 1 - k), 1e-12) << nameOf(preset);
            }
        }
}

}   // namespace
}   // namespace tavix
