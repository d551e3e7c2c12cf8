// The named edits, one rule a case; and what holds for all of them.
#include "EditStates.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using testing::keyframe;

CompositionLayer layerAt(double fromSec, std::optional<double> durationSec = {}) {
    CompositionLayer layer;
    layer.fromSec = fromSec;
    layer.durationSec = durationSec;
    return layer;
}

// Scenes of that many layers each, all of 4 seconds.
EditState stateOf(std::vector<int> layerCounts) {
    EditState state;
    for (std::size_t i = 0; i < layerCounts.size(); ++i) {
        CompositionScene scene;
        scene.id = "s" + std::to_string(i);
        scene.durationSec = 4;
        for (int j = 0; j < layerCounts[i]; ++j) {
            scene.layers.push_back(layerAt(0));
            scene.layers.back().id = "l" + std::to_string(j);
        }
        state.spec.scenes.push_back(scene);
    }
    return state;
}

std::string sceneOrder(const EditState& state) {
    std::string order;
    for (const CompositionScene& scene : state.spec.scenes) order += scene.id.value_or("-") + " ";
    return order;
}

TEST(SceneOperations, SelectWhatTheyMakeAndMoveTheSelectionWithItsScene) {
    EditState state = stateOf({1, 1, 1});
    SceneOperations::addScene(state);
    EXPECT_EQ(sceneOrder(state), "s0 s1 s2 - ");
    EXPECT_EQ(state.spec.scenes.back().durationSec, 3);
    EXPECT_EQ(state.selection, (Selection{3, {}}));
    SceneOperations::duplicateScene(state, 1);
    EXPECT_EQ(sceneOrder(state), "s0 s1 - s2 - ");
    EXPECT_EQ(state.selection, (Selection{2, {}}));
    SceneOperations::removeScene(state, 0);
    EXPECT_EQ(state.selection, (Selection{1, {}}));
    SceneOperations::moveScene(state, 2, 99);
    EXPECT_EQ(sceneOrder(state), "s1 - - s2 ");
    EXPECT_EQ(state.selection, (Selection{3, {}}));
    SceneOperations::removeScene(state, 3);
    EXPECT_EQ(state.selection, (Selection{2, {}}));

    EditState only = stateOf({1});
    SceneOperations::removeScene(only, 0);
    EXPECT_EQ(only, stateOf({1}));
}

TEST(SceneOperations, StretchAllThatHangsOnTheClockOfAScene) {
    EditState state = stateOf({1, 0});
    CompositionLayer& layer = state.spec.scenes[0].layers[0];
    layer.fromSec = 1;
    layer.durationSec = 2;
    layer.enter.emplace().durationSec = 0.6;
    layer.exit.emplace().durationSec = 0.4;
    layer.tracks.push_back({AnimProperty::opacity, {keyframe(0, 0), keyframe(1.5, 1)}});
    DeviceContent device;
    device.placement = DevicePlacementSpec{{{1, {}, 1, {}, {}}}};
    device.screenOpacity = {keyframe(3, 1)};
    device.scene3D.emplace();
    device.scene3D->poseTrack = {{2, {}}};
    device.scene3D->depthTrack = {{1.2, 0.5}};
    layer.content = device;
    state.spec.scenes[0].transition.emplace().durationSec = 0.5;
    SceneOperations::setSceneDurationRescaling(state, 0, 2);
    EXPECT_EQ(layer.fromSec, 0.5);
    EXPECT_EQ(layer.durationSec, 1);
    EXPECT_EQ(layer.enter->durationSec, 0.3);
    EXPECT_EQ(layer.exit->durationSec, 0.2);
    EXPECT_EQ(layer.tracks[0].keyframes[1].t, 0.75);
    const auto& halved = std::get<DeviceContent>(layer.content);
    EXPECT_EQ(halved.placement->track[0].tSec, 0.5);
    EXPECT_EQ(halved.screenOpacity[0].t, 1.5);
    EXPECT_EQ(halved.scene3D->poseTrack[0].tSec, 1);
    EXPECT_EQ(halved.scene3D->depthTrack[0].tSec, 0.6);
    EXPECT_EQ(state.spec.scenes[0].transition->durationSec, 0.5);
    SceneOperations::setSceneDurationRescaling(state, 0, -3);
    EXPECT_EQ(state.spec.scenes[0].durationSec, 0.1);
}

TEST(LayerOperations, HoldTheWindowInsideTheScene) {
    using Window = std::pair<double, std::optional<double>>;
    const auto windowAfter = [](Window window, auto operation, double toSec) {
        EditState state = stateOf({0});
        state.spec.scenes[0].layers.push_back(layerAt(window.first, window.second));
        operation(state, 0, 0, toSec);
        const CompositionLayer& layer = state.spec.scenes[0].layers[0];
        return Window{std::round(layer.fromSec * 1e9) / 1e9,
            layer.durationSec ? std::optional(std::round(*layer.durationSec * 1e9) / 1e9) : std::nullopt};
    };
    using namespace LayerOperations;
    EXPECT_EQ(windowAfter({1, 2.0}, moveLayer, 9), Window(2, 2.0));
    EXPECT_EQ(windowAfter({1, 2.0}, moveLayer, -1), Window(0, 2.0));
    EXPECT_EQ(windowAfter({1, {}}, moveLayer, 9), Window(3.9, {}));
    EXPECT_EQ(windowAfter({1, 2.0}, setLayerStart, 9), Window(2.9, 0.1));
    EXPECT_EQ(windowAfter({1, 2.0}, setLayerStart, 0.25), Window(0.25, 2.75));
    EXPECT_EQ(windowAfter({1, {}}, setLayerStart, 9), Window(3.9, {}));
    EXPECT_EQ(windowAfter({1, 2.0}, setLayerEnd, 0), Window(1, 0.1));
    EXPECT_EQ(windowAfter({1, {}}, setLayerEnd, 3), Window(1, 2.0));
    EXPECT_EQ(windowAfter({1, 2.0}, setLayerEnd, 3.98), Window(1, {})) << "it follows the scene from now on";
    EXPECT_EQ(windowAfter({1, 2.0}, setLayerEnd, 3.979), Window(1, 2.979));
}

TEST(LayerOperations, KeepTheSelectionOnItsLayer) {
    EditState state = stateOf({3});
    state.selection = {0, 2};
    LayerOperations::deleteLayer(state, 0, 0);
    EXPECT_EQ(state.selection, (Selection{0, 1}));
    LayerOperations::deleteLayer(state, 0, 1);
    EXPECT_EQ(state.selection, (Selection{0, {}}));
    LayerOperations::addLayer(state, 0, ContentKind::shape);
    EXPECT_EQ(state.selection, (Selection{0, 1}));
    EXPECT_EQ(state.spec.scenes[0].layers[1].position, (PixelPoint{960, 540}));
    LayerOperations::reorderLayer(state, 0, 1, 0);
    EXPECT_EQ(state.selection, (Selection{0, 0}));
    LayerOperations::duplicateLayer(state, 0, 1);
    EXPECT_EQ(state.selection, (Selection{0, 2}));
    EXPECT_FALSE(state.spec.scenes[0].layers[2].id);
}

TEST(LayerOperations, GiveADeviceItsPlaceBack) {
    EditState state = stateOf({1});
    for (const AnimProperty property : allCases<AnimProperty>())
        TrackOperations::addTrack(state, 0, 0, property);
    LayerOperations::setLayerContentKind(state, 0, 0, ContentKind::device);
    std::vector<AnimProperty> left;
    for (const PropertyTrack& track : state.spec.scenes[0].layers[0].tracks) left.push_back(track.property);
    EXPECT_THAT(left,
        ElementsAre(AnimProperty::opacity, AnimProperty::scaleX, AnimProperty::scaleY,
            AnimProperty::rotationDeg, AnimProperty::skewXDeg, AnimProperty::skewYDeg, AnimProperty::blur));
    std::get<DeviceContent>(state.spec.scenes[0].layers[0].content).placement.emplace();
    EXPECT_FALSE(TrackOperations::canAddTrack(state.spec, 0, 0, AnimProperty::x));
    EXPECT_FALSE(TrackOperations::canAddTrack(state.spec, 0, 0, AnimProperty::opacity));
}

// What a menu makes can be read, lints by its numbers alone, and is of its kind.
TEST(LayerOperations, HaveDefaultsThatCanBeWrittenAndRead) {
    for (const ContentKindRow& row : contentKinds) {
        CompositionLayer layer;
        layer.content = defaultContent(row.kind);
        EXPECT_EQ(kindOf(layer.content), row.kind);
        EXPECT_EQ(decodeJson<CompositionLayer>(encodedJson(layer)).content, layer.content);
    }
    for (const std::string_view kind : effectKinds()) EXPECT_EQ(kindName(defaultEffect(kind)), kind);
}

TEST(TrackOperations, FindAFreeTimeNearTheOneThatIsWanted) {
    const auto freeAt = [](const std::vector<double>& taken, double nearSec, double windowSec) {
        std::vector<CompositionKeyframe> keyframes;
        for (const double t : taken) keyframes.push_back(keyframe(t, 0));
        const auto sec = TrackOperations::freeTime(keyframes, nearSec, windowSec);
        return sec ? std::round(*sec * 1e6) / 1e6 : -1;
    };
    EXPECT_EQ(freeAt({}, 1, 4), 1);
    EXPECT_EQ(freeAt({1}, 1, 4), 1.02);
    EXPECT_EQ(freeAt({1, 1.02}, 1, 4), 0.98);
    EXPECT_EQ(freeAt({0, 4}, 4, 4), 3.98);
    EXPECT_EQ(freeAt({0, 0.02, 0.04, 0.06}, 0.03, 0.06), -1);
    EXPECT_EQ(freeAt({0}, 0, 0.01), -1);
}

TEST(TrackOperations, KeepKeyframesInOrderAndValuesInTheirRange) {
    EditState state = stateOf({1});
    TrackOperations::addTrack(state, 0, 0, AnimProperty::scale);
    const TrackOperations::Place place{0, 0, 0};
    auto& track = state.spec.scenes[0].layers[0].tracks[0].keyframes;
    TrackOperations::setKeyframeValue(state, place, 1, 4);
    EXPECT_EQ(track[1].value, 3);
    TrackOperations::setKeyframeValue(state, place, 0, -1);
    EXPECT_EQ(track[0].value, 0.05);
    TrackOperations::addKeyframe(state, place, 2);
    ASSERT_EQ(track.size(), 3u);
    EXPECT_NEAR(track[1].value, std::sqrt(0.05 * 3), 1e-12) << "half way, as zooming looks even";
    TrackOperations::setKeyframeTime(state, place, 1, 9);
    EXPECT_NEAR(track[1].t, 3.999, 1e-12);
    TrackOperations::setKeyframeTime(state, place, 2, 9);
    EXPECT_EQ(track[2].t, 4);
    TrackOperations::setKeyframeTime(state, place, 0, -9);
    EXPECT_EQ(track[0].t, 0);
}

TEST(AudioOperations, LeaveNoEmptySoundBehind) {
    EditState state = stateOf({1});
    AudioOperations::setMusicEnabled(state, true);
    EXPECT_EQ(state.spec.audio->music->gain, 0.7);
    AudioOperations::addSoundCue(state, 1.5);
    EXPECT_EQ(state.spec.audio->cues[0].sound, "whoosh");
    AudioOperations::setMusicEnabled(state, false);
    EXPECT_TRUE(state.spec.audio);
    AudioOperations::removeSoundCue(state, 0);
    EXPECT_FALSE(state.spec.audio);
}

class DeviceEdits : public ::testing::Test {
protected:
    DeviceEdits() : state(stateOf({1})) {
        DeviceContent device;
        device.scene3D.emplace();
        state.spec.scenes[0].layers[0].content = device;
    }
    DeviceContent& device() { return std::get<DeviceContent>(state.spec.scenes[0].layers[0].content); }
    EditState state;
};

TEST_F(DeviceEdits, PutTheSettingsInSpaceAsideAndBringThemBack) {
    DeviceOperations::Scene3DStash stash;
    device().scene3D->poseTrack = {{1, {1, 2, 3}}};
    const DeviceScene3D before = *device().scene3D;
    DeviceOperations::setDevice3D(state, stash, 0, 0, false);
    EXPECT_FALSE(device().scene3D);
    DeviceOperations::setDevice3D(state, stash, 0, 0, true);
    EXPECT_EQ(device().scene3D, before);
    stash.clear();
    device().scene3D.reset();
    DeviceOperations::setDevice3D(state, stash, 0, 0, true);
    EXPECT_EQ(device().scene3D, DeviceScene3D{});
}

TEST_F(DeviceEdits, ShowOneRowOfKeyframes) {
    device().scene3D->poseTrack = {{0, {}}, {1, {10, 0, 0}}};
    device().scene3D->depthTrack = {{1.01, 0.4}};
    device().placement = DevicePlacementSpec{{{2, {0.2, 0}, 1.5, {}, {}}}};
    EXPECT_THAT(DeviceKeyframes::unifiedKeyframeTimes(device()), ElementsAre(0, 1, 2));
    std::vector<DeviceKeyframes::UnifiedState> before;
    for (const double sec : {0.0, 1.0, 2.0})
        before.push_back(DeviceKeyframes::unifiedState(device(), state.spec.output, sec));
    DeviceKeyframes::unifyKeyframeTimes(device(), state.spec.output);
    EXPECT_EQ(device().scene3D->poseTrack.size(), 3u);
    EXPECT_EQ(device().placement->track.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        const auto after = DeviceKeyframes::unifiedState(device(), state.spec.output, i);
        EXPECT_NEAR(after.tiltDegrees.x, before[std::size_t(i)].tiltDegrees.x, 0.2) << i;
        EXPECT_NEAR(after.offset.x, before[std::size_t(i)].offset.x, 0.01) << i;
    }
}

TEST_F(DeviceEdits, StayAsFarFromTheCameraWhenTheyGetTheirFirstKeyframe) {
    const auto rest = DeviceKeyframes::unifiedState(device(), state.spec.output, 1);
    DeviceKeyframes::upsertUnifiedKeyframe(device(), 1, rest);
    // The camera stands at 1.5 less the depth of its distance.
    EXPECT_EQ(1.5 - device().scene3D->depthTrack.at(0).value, 1);
}

TEST_F(DeviceEdits, MoveAndRemoveAKeyframeInAllTracks) {
    for (const double sec : {0.0, 1.0, 2.0})
        DeviceKeyframes::upsertUnifiedKeyframe(device(), sec, {{sec, 0, 0}, sec, {}, 0.01});
    EXPECT_EQ(device().placement->track[0].scale, leastPlacementScale);
    DeviceKeyframes::moveUnifiedKeyframe(device(), 1.02, 9, 4);
    EXPECT_THAT(DeviceKeyframes::unifiedKeyframeTimes(device()), ElementsAre(0, DoubleNear(1.98, 1e-9), 2));
    DeviceKeyframes::moveUnifiedKeyframe(device(), 0.5, 3, 4);
    DeviceKeyframes::removeUnifiedKeyframe(device(), 0.03);
    EXPECT_EQ(device().scene3D->poseTrack.size(), 2u);
    EXPECT_EQ(device().scene3D->depthTrack.size(), 2u);
    EXPECT_EQ(device().placement->track.size(), 2u);
}

TEST_F(DeviceEdits, LengthenTheSceneForAnotherKeyframe) {
    DeviceKeyframes::upsertUnifiedKeyframe(device(), 1, {{5, 6, 7}, 0.3, {0.1, 0.2}, 1.2});
    EXPECT_EQ(DeviceOperations::appendKeyframe(state, 0, 0, 1.5), 5.5);
    EXPECT_EQ(state.spec.scenes[0].durationSec, 5.5);
    EXPECT_THAT(DeviceKeyframes::unifiedKeyframeTimes(device()), ElementsAre(1, 5.5));
    EXPECT_EQ(device().scene3D->poseTrack.back().tiltDegrees, (Vector3{5, 6, 7}));
}

TEST_F(DeviceEdits, TurnAllPosesWithTheRest) {
    device().scene3D->tiltDegrees = {1, 2, 3};
    device().scene3D->poseTrack = {{0, {10, 20, 30}}, {1, {11, 21, 31}}};
    EXPECT_EQ(DeviceKeyframes::restTilt(device()), (Vector3{10, 20, 30}));
    DeviceKeyframes::setRestTilt(device(), DeviceKeyframes::TiltAxis::y, 7);
    EXPECT_EQ(device().scene3D->tiltDegrees, (Vector3{1, 7, 3}));
    EXPECT_EQ(device().scene3D->poseTrack[1].tiltDegrees, (Vector3{11, 26, 31}));
}

TEST_F(DeviceEdits, FollowThePointer) {
    DeviceOperations::DeviceDragStart start;
    start.state = {{}, 0.5, {0.1, 0.1}, 2};
    const auto at = DeviceOperations::moved(start, 100, 50, {500, 0.5}, DeviceOperations::DeviceMoveAxis::x);
    EXPECT_NEAR(at.offset.x, 0.1 + 1.0 / 250 * 100, 1e-12);
    EXPECT_EQ(at.offset.y, 0.1);
    EXPECT_EQ(DeviceOperations::moved(start, 9, 9, {}, DeviceOperations::DeviceMoveAxis::free), start.state);
    EXPECT_NEAR(DeviceOperations::scaled(start, -100).scale, 2 * std::exp(0.6), 1e-12);
    EXPECT_EQ(DeviceOperations::scaled(start, -1e4).scale, 5);
    EXPECT_EQ(DeviceOperations::scaled(start, 1e4).scale, 0.05);
}

TEST_F(DeviceEdits, PutAFormationInThePlaceOfItsDevice) {
    state.spec.scenes[0].durationSec = 1;
    DeviceChoreographyRef ref;
    ref.preset = DeviceChoreographyPreset::splitFocus;
    DeviceOperations::applyDeviceChoreographyPreset(state, 0, 0, ref);
    EXPECT_EQ(state.spec.scenes[0].layers.size(), std::size_t(traitsOf(ref.preset).naturalCount));
    EXPECT_GE(state.spec.scenes[0].durationSec, traitsOf(ref.preset).naturalDurationSec);
    for (const CompositionLayer& layer : state.spec.scenes[0].layers)
        EXPECT_FALSE(std::get<DeviceContent>(layer.content).choreographyPreset);
}

// A view may be a frame behind: nothing that it asks for out of range changes anything.
TEST_F(DeviceEdits, IgnoreIndicesOutOfRange) {
    const EditState before = state;
    DeviceOperations::Scene3DStash stash;
    for (const auto& [scene, layer] : {std::pair<std::size_t, std::size_t>{0, 1}, {1, 0}, {9, 9}}) {
        LayerOperations::duplicateLayer(state, scene, layer);
        LayerOperations::reorderLayer(state, scene, layer, 0);
        LayerOperations::deleteLayer(state, scene, layer);
        LayerOperations::setLayerContentKind(state, scene, layer, ContentKind::fill);
        LayerOperations::moveLayer(state, scene, layer, 1);
        LayerOperations::setLayerStart(state, scene, layer, 1);
        LayerOperations::setLayerEnd(state, scene, layer, 1);
        LayerOperations::setEnterPhase(state, scene, layer, KineticPhase{});
        LayerOperations::addEffect(state, scene, layer, "blur");
        TrackOperations::addTrack(state, scene, layer, AnimProperty::blur);
        TrackOperations::addKeyframe(state, {scene, layer, 0}, 1);
        TrackOperations::setKeyframeValue(state, {scene, layer, 3}, 0, 1);
        DeviceOperations::applyDeviceMotionPreset(state, scene, layer, {});
        DeviceOperations::applyDeviceChoreographyPreset(state, scene, layer, {});
        DeviceOperations::setDevice3D(state, stash, scene, layer, false);
        EXPECT_FALSE(DeviceOperations::appendKeyframe(state, scene, layer, 1));
        EXPECT_EQ(LayerOperations::layerWindowLength(state.spec, scene, layer), 0);
    }
    SceneOperations::duplicateScene(state, 7);
    SceneOperations::moveScene(state, 7, 0);
    SceneOperations::removeScene(state, 7);
    SceneOperations::setSceneBackgroundOverride(state, 7, true);
    SceneOperations::setSceneDurationRescaling(state, 7, 1);
    LayerOperations::addLayer(state, 7, ContentKind::text);
    AudioOperations::updateSoundCue(state, 0, {});
    AudioOperations::removeSoundCue(state, 0);
    EXPECT_EQ(state, before);
}

}   // namespace
}   // namespace tavix
