#include "TavixCore/Device/DeviceContent.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

namespace tavix {
namespace {

TEST(DeviceContent, KeepsEverythingItCanHold) {
    DeviceContent device{.mockup = {.framePath = "frame.png",
                             .screen = {0.1, 0.2, 0.3, 0.4},
                             .screenCornerRadiusFraction = 0.2,
                             .bundledID = "iphone-16-pro"},
        .screen = VideoClip{"clip.mp4", 1.5, 4, MarkRef{"tap", "phone", 0.2}},
        .basePaddingPx = 10,
        .placement =
            DevicePlacementSpec{{{0.5, {0.1, 0.2}, 0.7, "park-left", MarkRef{"go", {}, 0}}}, 0.4, 0.6},
        .screenOpacity = {{.t = 1, .value = 0.5}}};
    device.scene3D = DeviceScene3D{
        .finish = DeviceFinish::deepBlue, .poseTrack = {{0, {1, 2, 3}}}, .depthTrack = {{0, 0.5}, {1, 0.8}}};
    device.motionPreset = DeviceMotionRef{*DeviceMotionPreset::fromRawValue("rise-up"),
        {.durationSec = 2,
            .intensity = 0.5,
            .direction = DeviceMotionParams::Direction::reversed,
            .anchorX = 0.2}};
    device.choreographyPreset = DeviceChoreographyRef{DeviceChoreographyPreset::depthWave, {.count = 3}};
    const std::string written = encodedJson(device);
    EXPECT_EQ(decodeJson<DeviceContent>(written), device);
    EXPECT_EQ(encodedJson(decodeJson<DeviceContent>(written)), written);
}

TEST(DeviceContent, WritesOnlyWhatItMust) {
    EXPECT_EQ(decodeJson<DeviceContent>("{}"), DeviceContent{});
    const Json written = Codec<DeviceContent>::write({});
    for (const char* key : {"mockup", "screen", "basePaddingPx"}) EXPECT_TRUE(written.find(key)) << key;
    EXPECT_EQ(written.object()->size(), 3u);
    EXPECT_EQ(Codec<ScreenSource>::write(VideoClip{.path = "a.mp4"}),
        Json(JsonObject{{"kind", "video"}, {"path", "a.mp4"}}));
    EXPECT_EQ(decodeJson<ScreenSource>(R"({"kind": "hologram", "path": "a.png"})"),
        ScreenSource(StillScreen{"a.png"}));
    EXPECT_EQ(
        Codec<DeviceMotionParams>::write({}), Json(JsonObject{{"direction", "forward"}, {"intensity", 1}}));
    EXPECT_EQ(Codec<DeviceChoreographyParams>::write({}), Json(JsonObject{}));
}

TEST(DeviceContent, SurvivesPresetsItDoesNotKnow) {
    const char* cases[] = {R"({"motionPreset": {"preset": "no-such"}, "basePaddingPx": 5})",
        R"({"motionPreset": {}, "choreographyPreset": {"preset": "conga"}, "basePaddingPx": 5})",
        R"({"motionPreset": "rise-up", "basePaddingPx": 5})",
        R"({"motionPreset": {"preset": "rise-up", "params": {"direction": "up"}}, "basePaddingPx": 5})",
        R"({"choreographyPreset": {"preset": "fanDeck", "params": {"count": "many"}}, "basePaddingPx": 5})"};
    for (const char* json : cases)
        EXPECT_EQ(decodeJson<DeviceContent>(json), DeviceContent{.basePaddingPx = 5}) << json;
}

TEST(DeviceMotionPreset, HoldsKnownNamesOnly) {
    const auto names = DeviceMotionPreset::knownRawValues();
    EXPECT_EQ(std::set<std::string_view>(names.begin(), names.end()).size(), 111u);
    for (const std::string_view name : names)
        EXPECT_EQ(DeviceMotionPreset::fromRawValue(name)->rawValue(), name);
    EXPECT_TRUE(DeviceMotionPreset::fromRawValue(DeviceMotionPreset().rawValue()));
    try {
        decodeJson<DeviceMotionRef>(R"({"preset": "x"})");
        FAIL() << "read an unknown name";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.message(), "Unknown device motion preset \"x\".");
        EXPECT_EQ(error.path(), "preset");
    }
}

TEST(DeviceRecords, ClampWhenRead) {
    const auto params = decodeJson<DeviceMotionParams>(
        R"({"durationSec": 99, "intensity": 0, "anchorX": -9, "faceInwardDeg": 90, "startAtSec": -1})");
    EXPECT_EQ(params,
        (DeviceMotionParams{.durationSec = 8, .intensity = 0.3, .anchorX = -0.75, .faceInwardDeg = 45}));
    const auto formation = decodeJson<DeviceChoreographyParams>(
        R"({"durationSec": 0, "intensity": 9, "count": 99, "spread": 0, "staggerSec": 4})");
    EXPECT_EQ(
        formation, (DeviceChoreographyParams{
                       .durationSec = 1, .intensity = 1.6, .count = 8, .spread = 0.3, .staggerSec = 0.5}));
    EXPECT_EQ(decodeJson<DeviceChoreographyParams>(R"({"count": -1})").count, 2);
    const auto scene = decodeJson<DeviceScene3D>(
        R"({"finish": "gold", "poseResponseSec": 0, "motionBlur": -1, "driftPeriodSec": -3})");
    EXPECT_EQ(scene, (DeviceScene3D{.poseResponseSec = 0.001, .driftPeriodSec = 0.001, .motionBlur = 0}));
    EXPECT_EQ(decodeJson<DevicePlacementKeyframe>(R"({"scale": 0})").scale, 0.05);
    EXPECT_EQ(decodeJson<DevicePlacementSpec>(R"({"responseSec": 0})").responseSec, 0.001);
}

TEST(DeviceRecords, NeedWhatHasNoDefault) {
    EXPECT_THROW(decodeJson<DeviceScene3D>(R"({"poseTrack": [{"tSec": 0}]})"), DecodingError);
    EXPECT_THROW(decodeJson<DeviceScene3D>(R"({"depthTrack": [{"value": 0}]})"), DecodingError);
    EXPECT_THROW(decodeJson<DeviceScene>(R"({"flips": [{"atSec": 0}]})"), DecodingError);
}

TEST(DeviceScene, SharesItsFieldsWithTheLayerForm) {
    DeviceScene3D layer{.finish = DeviceFinish::cosmicOrange,
        .tiltDegrees = {1, 2, 3},
        .poseTrack = {{0, {4, 5, 6}}},
        .poseResponseSec = 0.1,
        .poseDamping = 0.2,
        .driftDegrees = 3,
        .driftPeriodSec = 4,
        .cameraDistance = 5,
        .fovDegrees = 6,
        .lightIntensity = 7,
        .keyLightDegrees = {8, 9, 10}};
    const DeviceScene scene = layer.asDeviceScene();
    EXPECT_TRUE(scene.enabled);
    const Json written = Codec<DeviceScene>::write(scene), original = Codec<DeviceScene3D>::write(layer);
    for (const JsonMember& member : *original.object()) {
        if (member.key == "motionBlur" || member.key == "depthTrack") continue;
        EXPECT_EQ(*written.find(member.key), member.value) << member.key;
    }
    EXPECT_EQ(scene.floorRoughness, DeviceScene::disabled.floorRoughness);
}

TEST(DeviceScene, SwaysAboutItsTilt) {
    const DeviceScene scene;
    EXPECT_EQ(scene.pose(0), scene.tiltDegrees);
    const Vector3 outmost = scene.pose(scene.driftPeriodSec / 4);
    EXPECT_NEAR(outmost.x, 8 + 3, 1e-12);
    EXPECT_NEAR(outmost.y, -14 + 6, 1e-12);
    EXPECT_NEAR(scene.pose(scene.driftPeriodSec * 0.75).y, -14 - 6, 1e-12);
}

TEST(DeviceScene, LaysItsFlipsOutAroundANewTilt) {
    DeviceScene scene;
    scene.poseTrack = {{0, {9, 9, 9}}};
    scene.setBaseTilt({1, 2, 3});
    EXPECT_EQ(scene.poseTrack.size(), 1u) << "without flips the track is the author's";
    scene.flips = {{4, 4.5}, {0.01, 1}};
    scene.setBaseTilt({1, 2, 3});
    EXPECT_EQ(scene.poseTrack,
        (std::vector<DevicePoseKeyframe>{{0, {1, 2, 3}}, {0.05, {1, 362, 3}}, {4, {1, 722, 3}}}));
}

}   // namespace
}   // namespace tavix
