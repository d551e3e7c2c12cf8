#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Choreography/DeviceMotionReferenceCatalog.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

namespace tavix {
namespace {

using Direction = DeviceMotionParams::Direction;

DeviceMotion expanded(std::string_view name, const DeviceMotionParams& params = {}) {
    return DeviceMotionExpander::expand(*DeviceMotionPreset::fromRawValue(name), params);
}

// All values finite, all times from the start on and in order, all within the motion's length.
void expectSound(const DeviceMotion& motion) {
    const auto expectInOrder = [&](const auto& keyframes, auto time) {
        double last = 0;
        for (const auto& keyframe : keyframes) {
            EXPECT_GE(time(keyframe), last);
            last = time(keyframe);
        }
        EXPECT_LE(last, motion.sceneDurationSec + 0.0006);
    };
    expectInOrder(motion.scene3D.poseTrack, [](const DevicePoseKeyframe& k) { return k.tSec; });
    expectInOrder(motion.scene3D.depthTrack, [](const DeviceScalarKeyframe& k) { return k.tSec; });
    expectInOrder(motion.placement.track, [](const DevicePlacementKeyframe& k) { return k.tSec; });
    std::set<AnimProperty> properties;
    for (const PropertyTrack& track : motion.tracks) {
        expectInOrder(track.keyframes, [](const CompositionKeyframe& k) { return k.t; });
        EXPECT_TRUE(properties.insert(track.property).second);
    }
    for (const DevicePlacementKeyframe& place : motion.placement.track)
        EXPECT_GE(place.scale, leastPlacementScale);
    EXPECT_NO_THROW(encodedJson(motion));   // which refuses what is not finite
}

TEST(DeviceMotions, AreSoundAtTheEndsOfEveryRange) {
    const double durations[] = {0.6, 8}, intensities[] = {0.3, 1, 1.6}, anchors[] = {-0.75, 0, 0.75};
    for (const std::string_view name : DeviceMotionPreset::knownRawValues()) {
        SCOPED_TRACE(name);
        for (const Direction direction : {Direction::forward, Direction::reversed})
            for (const double durationSec : durations)
                for (const double intensity : intensities)
                    for (const double anchorX : anchors) {
                        const DeviceMotion motion = expanded(
                            name, {durationSec, intensity, direction, anchorX, 45, anchorX > 0 ? 20.0 : 0});
                        expectSound(motion);
                        EXPECT_NEAR(motion.sceneDurationSec, durationSec + (anchorX > 0 ? 20 : 0), 0.0006);
                        EXPECT_EQ(decodeJson<DeviceMotion>(encodedJson(motion)), motion);
                    }
        expectSound(expanded(name));
    }
}

// Mirroring the reversed motion by hand gives the forward motion again.
TEST(DeviceMotions, MirrorWhenReversed) {
    for (const std::string_view name : DeviceMotionPreset::knownRawValues()) {
        if (name == "spinIn" || name == "closeUpScan") continue;   // they keep their side
        SCOPED_TRACE(name);
        const DeviceMotion forward = expanded(name);
        DeviceMotion mirrored = expanded(name, {.direction = Direction::reversed});
        for (DevicePoseKeyframe& pose : mirrored.scene3D.poseTrack) {
            pose.tiltDegrees.y *= -1;
            pose.tiltDegrees.z *= -1;
        }
        for (DevicePlacementKeyframe& place : mirrored.placement.track) place.offset.x *= -1;
        for (PropertyTrack& track : mirrored.tracks)
            if (track.property == AnimProperty::x || track.property == AnimProperty::rotationDeg ||
                track.property == AnimProperty::skewXDeg)
                for (CompositionKeyframe& keyframe : track.keyframes) keyframe.value *= -1;
        mirrored.scene3D.keyLightDegrees.y = forward.scene3D.keyLightDegrees.y;
        EXPECT_EQ(mirrored, forward);
    }
}

TEST(DeviceMotions, ComeToRestWhereTheTableSaysSo) {
    int arriving = 0;
    for (const auto& entry : DeviceMotionReferenceCatalog::definitions()) {
        SCOPED_TRACE(entry.name);
        DeviceMotionFrame rest;
        rest.t = 1;
        if (entry.frames.back() != rest) continue;
        ++arriving;
        const DeviceMotion motion = DeviceMotionReferenceCatalog::expand(entry.name, {.intensity = 1.3});
        EXPECT_EQ(motion.scene3D.poseTrack.back().tiltDegrees, Vector3{});
        EXPECT_EQ(motion.scene3D.depthTrack.back().value, 0.5);
        for (const PropertyTrack& track : motion.tracks) {
            const bool isSize = track.property == AnimProperty::scaleX ||
                                track.property == AnimProperty::scaleY ||
                                track.property == AnimProperty::opacity;
            const double resting = track.property == AnimProperty::scale ? 0.62 : isSize ? 1 : 0;
            EXPECT_EQ(track.keyframes.back().value, resting);
        }
    }
    EXPECT_GT(arriving, 60);
}

TEST(DeviceMotions, HaveTitlesAndLabels) {
    std::set<std::string> titles, labels, ids;
    for (const std::string_view name : DeviceMotionPreset::knownRawValues()) {
        const auto preset = *DeviceMotionPreset::fromRawValue(name);
        const DeviceMotionMetadata metadata = DeviceMotionReferenceCatalog::metadata(preset);
        titles.insert(metadata.title);
        ids.insert(metadata.referenceID);
        labels.insert(DeviceMotionReferenceCatalog::label(preset));
        EXPECT_EQ(DeviceMotionReferenceCatalog::definition(name) == nullptr,
            metadata.origin == DeviceMotionOrigin::tavixOriginal);
    }
    const std::size_t count = DeviceMotionPreset::knownRawValues().size();
    EXPECT_EQ(titles.size(), count);
    EXPECT_EQ(labels.size(), count);
    EXPECT_EQ(ids.size(), count);
}

TEST(DeviceMotions, FollowTheirRecipes) {
    const DeviceMotion natural = expanded("reveal");
    EXPECT_EQ(natural.sceneDurationSec, 2.4);
    EXPECT_EQ(natural.scene3D.depthTrack.back(), (DeviceScalarKeyframe{2.4, 0.8}));
    const DeviceMotion slow =
        expanded("reveal", {.durationSec = 4.8, .intensity = 0.5, .direction = Direction::reversed});
    EXPECT_EQ(slow.scene3D.poseTrack.front(), (DevicePoseKeyframe{0, {0, -105, 0}}));
    EXPECT_EQ(slow.scene3D.poseTrack.back(), (DevicePoseKeyframe{4.8, {0, -360, 0}}));
    EXPECT_EQ(slow.scene3D.depthTrack.back().value, 0.65);
    EXPECT_EQ(slow.enter->durationSec, 2);
    EXPECT_EQ(slow.enter->offset, (NormalizedVec2{0, 0.95}));

    const DeviceMotion scan = expanded("closeUpScan", {.intensity = 1.6});
    EXPECT_NEAR(scan.placement.track[0].scale, 1.71, 1e-12);
    EXPECT_NEAR(scan.placement.track[0].offset.y, 0.285, 1e-12);
    EXPECT_EQ(scan.placement.track[0].move, "scan-top");
    EXPECT_TRUE(scan.scene3D.poseTrack.empty());
    const DeviceMotion upwards = expanded("closeUpScan", {.direction = Direction::reversed});
    EXPECT_EQ(upwards.placement.track[0].move, "scan-bottom");
    EXPECT_NEAR(upwards.placement.track[0].offset.y, -0.25, 1e-12);
    EXPECT_EQ(upwards.placement.track[3].move, "scan-top");
    EXPECT_FALSE(upwards.placement.track[4].move);

    EXPECT_NEAR(expanded("heroRise", {.intensity = 1.6}).scene3D.depthTrack[0].value, 1.3, 1e-12);
    EXPECT_EQ(expanded("beautyTurn").sceneDurationSec, 2.6);
    EXPECT_EQ(expanded("riseYaw360NoBlur").scene3D.motionBlur, 0);
    EXPECT_EQ(expanded("rise-yaw360").scene3D.motionBlur, 0.22);
}

TEST(DeviceMotions, FollowTheirFrames) {
    const DeviceMotion rise = expanded("rise-up");
    EXPECT_TRUE(rise.placement.track.empty());
    ASSERT_EQ(rise.tracks.size(), 2u);
    EXPECT_EQ(rise.tracks[0].property, AnimProperty::scale);
    EXPECT_EQ(rise.tracks[1].property, AnimProperty::y);
    EXPECT_EQ(rise.tracks[1].keyframes[0].value, 180 / 172.0);
    const DeviceMotion lay = expanded("lay-rise");
    EXPECT_EQ(lay.placement.track.size(), 3u);
    EXPECT_EQ(lay.placement.track[1].tSec, 0.48);
    ASSERT_EQ(lay.tracks.size(), 2u);
    EXPECT_EQ(lay.tracks[0].property, AnimProperty::scaleX);
    const DeviceMotion spin = expanded("spin-out");
    EXPECT_EQ(spin.tracks[0].property, AnimProperty::rotationDeg);
    EXPECT_EQ(spin.tracks[0].keyframes[1].value, 450);
    EXPECT_EQ(spin.scene3D.poseTrack[1].tiltDegrees.z, 0);
    EXPECT_FALSE(spin.uses3D);
    EXPECT_EQ(expanded("glitch-in").scene3D.motionBlur, 0.22);
    EXPECT_EQ(expanded("tilt-land").scene3D.motionBlur, 0.7);
}

TEST(DeviceMotions, StandAsideAndStartLate) {
    EXPECT_EQ(expanded("reveal", {.faceInwardDeg = 30}), expanded("reveal"));
    const DeviceMotion aside = expanded("reveal", {.anchorX = 0.2, .faceInwardDeg = 30});
    EXPECT_EQ(aside.placement.track[3].offset.x, 0.2);
    EXPECT_EQ(aside.scene3D.poseTrack[0].tiltDegrees.y, 75);
    const DeviceMotion flat = expanded("rise-up", {.anchorX = -0.2, .faceInwardDeg = 30});
    ASSERT_EQ(flat.tracks.size(), 3u);
    EXPECT_EQ(flat.tracks[2], (PropertyTrack{AnimProperty::x, {{0, -0.2}}}));
    EXPECT_EQ(flat.scene3D.poseTrack, expanded("rise-up").scene3D.poseTrack);
    EXPECT_EQ(expanded("slide-left", {.anchorX = 0.3}).tracks[1].keyframes[1].value, 0.3);

    EXPECT_EQ(expanded("reveal", {.startAtSec = 0.0004}), expanded("reveal"));
    const DeviceMotion late = expanded("reveal", {.startAtSec = 1});
    EXPECT_FALSE(late.enter);
    EXPECT_EQ(late.sceneDurationSec, 3.4);
    EXPECT_EQ(late.scene3D.depthTrack.front().tSec, 1);
}

TEST(DeviceMotions, AreBakedByReading) {
    const auto spec = decodeJson<CompositionSpec>(R"({"scenes": [
        {"durationSec": 1, "layers": [
            {"kind": "shape"},
            {"kind": "device", "tracks": [{"property": "x", "keyframes": [{"value": 1}]}],
             "device": {"motionPreset": {"preset": "spin-out", "params": {"durationSec": 3}},
                        "scene3D": {"fovDegrees": 50}}},
            {"kind": "device", "device": {"motionPreset": {"preset": "reveal"}}}]},
        {"durationSec": 1, "durationBeats": 2, "layers": [
            {"kind": "device", "device": {"motionPreset": {"preset": "reveal"}}}]}]})");
    EXPECT_EQ(spec.scenes[0].durationSec, 3);
    EXPECT_EQ(spec.scenes[1].durationSec, 1);
    const CompositionLayer& flat = spec.scenes[0].layers[1];
    EXPECT_FALSE(std::get<DeviceContent>(flat.content).scene3D);
    EXPECT_EQ(flat.tracks, expanded("spin-out", {.durationSec = 3}).tracks);
    const CompositionLayer& solid = spec.scenes[0].layers[2];
    EXPECT_EQ(std::get<DeviceContent>(solid.content).scene3D, expanded("reveal").scene3D);
    EXPECT_TRUE(solid.enter);
    EXPECT_EQ(encodedJson(spec).find("motionPreset"), std::string::npos);
    CompositionSpec again = spec;
    DeviceMotionExpander::bake(again);
    EXPECT_EQ(again, spec);
    EXPECT_EQ(DeviceMotion::firstDeviceLayer(spec), (DeviceMotion::LayerIndex{0, 1}));
    EXPECT_FALSE(DeviceMotion::firstDeviceLayer({}));
}

TEST(DeviceMotions, ApplyToDevicesOnly) {
    CompositionSpec spec = expanded("reveal").previewSpec("screen.png", {1080, 1920, 30});
    EXPECT_EQ(spec.output.widthPx, 1080);
    EXPECT_EQ(spec.scenes[0].durationSec, 2.4);
    EXPECT_EQ(std::get<DeviceContent>(spec.scenes[0].layers[0].content).screen,
        ScreenSource(StillScreen{"screen.png"}));
    EXPECT_TRUE(expanded("rise-up").apply(spec, 0, 0));
    EXPECT_EQ(spec.scenes[0].durationSec, 2.4);
    CompositionSpec shown = expanded("rise-up").previewSpec("screen.png", {1080, 1920, 30});
    EXPECT_EQ(shown.scenes[0].layers, spec.scenes[0].layers);
    const CompositionSpec before = spec;
    EXPECT_FALSE(expanded("reveal").apply(spec, 1, 0));
    EXPECT_FALSE(expanded("reveal").apply(spec, 0, 1));
    EXPECT_EQ(spec, before);
    spec.scenes[0].layers[0].content = ShapeContent{};
    EXPECT_FALSE(expanded("reveal").apply(spec, 0, 0));
}

}   // namespace
}   // namespace tavix
