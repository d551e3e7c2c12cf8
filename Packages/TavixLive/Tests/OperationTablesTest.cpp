// The named edits by tables: what each makes of which document, and what it leaves alone.
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A scene of four seconds with that many layers, named by their places.
EditState stateOf(int layers) {
    EditState state;
    CompositionScene scene;
    scene.durationSec = 4;
    for (int i = 0; i < layers; ++i) {
        scene.layers.emplace_back();
        scene.layers.back().id = std::to_string(i);
    }
    state.spec.scenes = {scene};
    return state;
}

CompositionLayer& first(EditState& state) { return state.spec.scenes[0].layers[0]; }

std::string order(const EditState& state) {
    std::string ids;
    for (const CompositionLayer& layer : state.spec.scenes[0].layers) ids += layer.id.value_or("-");
    return ids;
}

CompositionKeyframe keyframe(double t, double value) {
    CompositionKeyframe made;
    made.t = t;
    made.value = value;
    return made;
}

TEST(SceneTables, GiveASceneItsOwnBackground) {
    EditState state = stateOf(1);
    state.spec.background = RGBAColor{0, 0, 1, 1};
    SceneOperations::setSceneBackgroundOverride(state, 0, true);
    EXPECT_EQ(state.spec.scenes[0].background, state.spec.background);
    state.spec.scenes[0].background = RGBAColor{1, 0, 0, 1};
    const EditState red = state;
    SceneOperations::setSceneBackgroundOverride(state, 0, true);
    EXPECT_EQ(state, red) << "it has one";
    SceneOperations::setSceneBackgroundOverride(state, 0, false);
    EXPECT_FALSE(state.spec.scenes[0].background);
}

TEST(SceneTables, MakeScenesFromNothingAndFromAnother) {
    EditState state = stateOf(2);
    state.spec.scenes[0].id = "one";
    state.spec.scenes[0].transition.emplace();
    state.selection = {0, 1, {{0, 0}}};
    SceneOperations::addScene(state);
    CompositionScene bare;
    bare.durationSec = 3;
    EXPECT_EQ(state.spec.scenes[1], bare);
    EXPECT_EQ(state.selection, (Selection{1, {}}));
    state.selection = {0, 1};
    SceneOperations::duplicateScene(state, 0);
    CompositionScene copy = state.spec.scenes[0];
    copy.id.reset();
    EXPECT_EQ(state.spec.scenes[1], copy);
    EXPECT_EQ(state.selection, (Selection{1, {}}));
}

TEST(SceneTables, LeaveTimesAloneWhereThereIsNoLengthToScaleBy) {
    const struct {
        double before, to, after, layerAt;
    } cases[] = {{4, 2, 2, 0.5}, {4, 0, 0.1, 0.025}, {4, 4.0000000005, 4.0000000005, 1}, {0, 2, 2, 1},
        {0.0000005, 3, 3, 1}, {-1, 3, 3, 1}};
    for (const auto& c : cases) {
        EditState state = stateOf(1);
        state.spec.scenes[0].durationSec = c.before;
        first(state).fromSec = 1;
        SceneOperations::setSceneDurationRescaling(state, 0, c.to);
        EXPECT_EQ(state.spec.scenes[0].durationSec, c.after);
        EXPECT_DOUBLE_EQ(first(state).fromSec, c.layerAt) << c.before << " to " << c.to;
    }
}

TEST(LayerTables, ReorderWithinTheList) {
    const struct {
        std::size_t from, to;
        const char* order;
        std::optional<std::size_t> selected;
    } cases[] = {{0, 2, "120", 2}, {2, 0, "201", 0}, {0, 99, "120", 2}, {2, 99, "012", {}}, {1, 1, "012", {}},
        {5, 0, "012", {}}};
    for (const auto& c : cases) {
        EditState state = stateOf(3);
        LayerOperations::reorderLayer(state, 0, c.from, c.to);
        EXPECT_EQ(order(state), c.order) << c.from << " to " << c.to;
        EXPECT_EQ(state.selection.layer, c.selected);
    }
}

// Whatever goes, what is selected beside it stays the same layers.
TEST(LayerTables, KeepAllThatIsSelectedOnItsLayers) {
    const struct {
        std::size_t gone;
        Selection left;
    } cases[] = {
        {0, {0, 0, {{0, 1}, {0, 2}}}}, {1, {0, {}, {}}}, {2, {0, 1, {{0, 2}}}}, {3, {0, 1, {{0, 2}}}}};
    for (const auto& c : cases) {
        EditState state = stateOf(4);
        state.selection = {0, 1, {{0, 2}, {0, 3}}};
        LayerOperations::deleteLayer(state, 0, c.gone);
        EXPECT_EQ(state.selection, c.left) << c.gone;
        EditState clamped = state;
        clampSelection(clamped);
        EXPECT_EQ(clamped, state);
    }
    EditState state = stateOf(3);
    SceneOperations::addScene(state);
    state.selection = {0, 1, {{0, 2}}};
    SceneOperations::removeScene(state, 1);
    EXPECT_EQ(state.selection, (Selection{0, {}, {}}));
}

TEST(LayerTables, AddLayersOfEveryKindAsMenusTellThem) {
    EditState state = stateOf(0);
    state.spec.output = {1080, 1920, 30};
    std::vector<std::string> labels, symbols;
    for (const ContentKindRow& row : contentKinds) {
        labels.emplace_back(row.label);
        symbols.emplace_back(row.symbol);
        LayerOperations::addLayer(state, 0, row.kind);
        const CompositionLayer& added = state.spec.scenes[0].layers.back();
        EXPECT_EQ(added.position, (PixelPoint{540, 960}));
        EXPECT_TRUE(!added.id && !added.durationSec && !added.enter && !added.exit && added.tracks.empty());
        EXPECT_EQ(added.fromSec, 0);
        EXPECT_EQ(added.opacity, 1);
        EXPECT_EQ(state.selection, (Selection{0, state.spec.scenes[0].layers.size() - 1}));
    }
    EXPECT_THAT(labels, ElementsAre("Text", "Device", "Image", "Video", "Shape", "Fill"));
    EXPECT_THAT(
        symbols, ElementsAre("textformat", "iphone", "photo", "film", "square.on.circle", "rectangle.fill"));
    const auto& text = *state.content<TextContent>(0, 0);
    EXPECT_EQ(text.text, "New text");
    EXPECT_EQ(text.sizeFraction, 0.045);
    EXPECT_EQ(text.maxWidthFraction, 0.82);
    EXPECT_EQ(text.color, RGBAColor::white);
    EXPECT_EQ(std::get<KineticPresetRef>(text.kinetic).preset, KineticVocabulary::defaultPreset);
    const auto& device = *state.content<DeviceContent>(0, 1);
    EXPECT_EQ(device.mockup, DeviceMockup::iPhone16Pro);
    EXPECT_EQ(device.basePaddingPx, 82);
    EXPECT_EQ(device.scene3D, DeviceScene3D{});
    EXPECT_EQ(std::get<StillScreen>(device.screen).path, "");
    EXPECT_EQ(state.content<ImageContent>(0, 2)->path, "");
    const auto& shape = *state.content<ShapeContent>(0, 4);
    EXPECT_EQ(shape.widthFraction, 0.3);
    EXPECT_EQ(shape.heightFraction, 0.3);
    EXPECT_EQ(*state.content<BackgroundFill>(0, 5), BackgroundFill(RGBAColor{0, 0, 0, 0.4}));
}

TEST(LayerTables, LeaveALayerOfThatKindAsItIs) {
    EditState state = stateOf(1);
    TextContent text;
    text.text = "Mine";
    first(state).content = text;
    const EditState before = state;
    LayerOperations::setLayerContentKind(state, 0, 0, ContentKind::text);
    LayerOperations::updateContent<ShapeContent>(state, 0, 0, [](ShapeContent&) { FAIL(); });
    EXPECT_EQ(state, before);
    LayerOperations::updateContent<TextContent>(state, 0, 0, [](TextContent& it) { it.text = "Yours"; });
    EXPECT_EQ(state.content<TextContent>(0, 0)->text, "Yours");
}

TEST(LayerTables, EditPhasesAndEffectsByTheirPlace) {
    using namespace LayerOperations;
    EditState state = stateOf(1);
    EXPECT_EQ(enterPhase(state.spec, 0, 0), KineticPhase::identity);
    EXPECT_EQ(exitPhase(state.spec, 9, 0), KineticPhase::identity);
    setEnterPhase(state, 0, 0, KineticPhase{.durationSec = 0.7});
    setExitPhase(state, 0, 0, KineticPhase{.durationSec = 0.2});
    EXPECT_EQ(enterPhase(state.spec, 0, 0).durationSec, 0.7);
    EXPECT_EQ(exitPhase(state.spec, 0, 0).durationSec, 0.2);
    setEnterPhase(state, 0, 0, std::nullopt);
    EXPECT_FALSE(first(state).enter);
    for (const std::string_view kind : effectKinds()) addEffect(state, 0, 0, kind);
    const auto count = first(state).effects.size();
    setEffect(state, 0, 0, 1, defaultEffect(effectKinds()[0]));
    EXPECT_EQ(first(state).effects[1], first(state).effects[0]);
    removeEffect(state, 0, 0, 0);
    removeEffect(state, 0, 0, 99);
    setEffect(state, 0, 0, 99, {});
    EXPECT_EQ(first(state).effects.size(), count - 1);
}

TEST(TrackTables, HaveARangeForEveryProperty) {
    using enum AnimProperty;
    const std::map<AnimProperty, TrackOperations::ValueRange> told{{opacity, {1, 0, 1}}, {x, {0, -1.2, 1.2}},
        {y, {0, -1.2, 1.2}}, {scale, {1, 0.05, 3}}, {scaleX, {1, 0.05, 3}}, {scaleY, {1, 0.05, 3}},
        {rotationDeg, {0, -180, 180}}, {skewXDeg, {0, -180, 180}}, {skewYDeg, {0, -180, 180}},
        {blur, {0, 0, 0.25}}};
    for (const AnimProperty property : allCases<AnimProperty>()) {
        ASSERT_TRUE(told.contains(property));
        EXPECT_EQ(TrackOperations::trackValueRange(property), told.at(property));
        EditState state = stateOf(1);
        first(state).fromSec = 1;
        TrackOperations::addTrack(state, 0, 0, property);
        TrackOperations::addTrack(state, 0, 0, property);   // there is one
        ASSERT_EQ(first(state).tracks.size(), 1u);
        const auto& keyframes = first(state).tracks[0].keyframes;
        ASSERT_EQ(keyframes.size(), 2u);
        EXPECT_EQ(keyframes[0], keyframe(0, told.at(property).rest));
        EXPECT_EQ(keyframes[1], keyframe(3, told.at(property).rest)) << "to the end of its window";
        EXPECT_EQ(keyframes[0].ease, TimingCurve(LinearCurve{}));
        for (const auto& [to, stored] :
            {std::pair{999.0, told.at(property).most}, {-999.0, told.at(property).least}}) {
            TrackOperations::setKeyframeValue(state, {0, 0, 0}, 0, to);
            EXPECT_EQ(keyframes[0].value, stored);
        }
        TrackOperations::removeTrack(state, {0, 0, 0});
        EXPECT_THAT(first(state).tracks, IsEmpty());
    }
}

TEST(TrackTables, PutKeyframesBesideThoseThatAreThere) {
    const struct {
        std::vector<double> there;
        double atSec;
        std::vector<double> then;
    } cases[] = {{{0, 4}, 2, {0, 2, 4}}, {{0, 4}, 9, {0, 3.98, 4}}, {{0, 4}, -9, {0, 0.02, 4}},
        {{1}, 1.01, {1, 1.03}}, {{}, 2, {2}}, {{0.5, 0.52, 0.54}, 0.52, {0.5, 0.52, 0.54, 0.56}}};
    for (const auto& c : cases) {
        EditState state = stateOf(1);
        auto& track = first(state).tracks.emplace_back(PropertyTrack{AnimProperty::opacity, {}});
        for (const double t : c.there) track.keyframes.push_back(keyframe(t, t / 4));
        TrackOperations::addKeyframe(state, {0, 0, 0}, c.atSec);
        ASSERT_EQ(track.keyframes.size(), c.then.size()) << c.atSec;
        for (std::size_t i = 0; i < c.then.size(); ++i) EXPECT_NEAR(track.keyframes[i].t, c.then[i], 1e-9);
    }
    // A layer too short for another one.
    EditState state = stateOf(1);
    first(state).durationSec = 0.03;
    first(state).tracks = {{AnimProperty::opacity, {keyframe(0, 0), keyframe(0.015, 1), keyframe(0.03, 0)}}};
    const EditState before = state;
    TrackOperations::addKeyframe(state, {0, 0, 0}, 0.01);
    EXPECT_EQ(state, before);
}

TEST(TrackTables, MoveAKeyframeBetweenItsNeighbours) {
    const struct {
        std::vector<double> there;
        std::size_t which;
        double to, then;
    } cases[] = {{{0, 1, 2}, 1, 0.5, 0.5}, {{0, 1, 2}, 1, 3, 1.999}, {{0, 1, 2}, 1, -3, 0.001},
        {{0, 1, 2}, 0, 9, 0.999}, {{0, 1, 2}, 2, 9, 4}, {{1, 1.0005, 1.001}, 1, 1.0005, 1.001}};
    for (const auto& c : cases) {
        EditState state = stateOf(1);
        auto& track = first(state).tracks.emplace_back(PropertyTrack{AnimProperty::opacity, {}});
        for (const double t : c.there) track.keyframes.push_back(keyframe(t, 0));
        TrackOperations::setKeyframeTime(state, {0, 0, 0}, c.which, c.to);
        EXPECT_NEAR(track.keyframes[c.which].t, c.then, 1e-12) << c.which << " to " << c.to;
        TrackOperations::setKeyframeEase(state, {0, 0, 0}, c.which, TimingCurve(SpringCurve{}));
        EXPECT_EQ(track.keyframes[c.which].ease, TimingCurve(SpringCurve{}));
        TrackOperations::removeKeyframe(state, {0, 0, 0}, c.which);
        TrackOperations::removeKeyframe(state, {0, 0, 0}, 7);
        EXPECT_EQ(track.keyframes.size(), c.there.size() - 1);
    }
}

TEST(TrackTables, LeaveItsPlaceToADevicesPlacement) {
    for (const bool isDevice : {false, true})
        for (const bool isPlaced : {false, true}) {
            EditState state = stateOf(1);
            DeviceContent device;
            if (isPlaced) device.placement.emplace();
            if (isDevice) first(state).content = device;
            using enum AnimProperty;
            for (const AnimProperty property : {x, y, scale})
                EXPECT_EQ(TrackOperations::canAddTrack(state.spec, 0, 0, property), !(isDevice && isPlaced));
            for (const AnimProperty property : {opacity, scaleX, rotationDeg, blur})
                EXPECT_TRUE(TrackOperations::canAddTrack(state.spec, 0, 0, property));
        }
    EXPECT_FALSE(TrackOperations::canAddTrack({}, 0, 0, AnimProperty::x));
}

TEST(AudioTables, BeginWithABedThatFadesOut) {
    EditState state = stateOf(0);
    AudioOperations::setMusicEnabled(state, true);
    MusicBed bed;
    bed.path = "";
    bed.gain = 0.7;
    bed.startAtSec = bed.fadeInSec = 0;
    bed.fadeOutSec = 1.5;
    bed.bpm.reset();
    bed.firstBeatSec = 0;
    EXPECT_EQ(state.spec.audio->music, bed);
    bed.path = "mine.wav";
    AudioOperations::updateMusic(state, bed);
    AudioOperations::setMusicEnabled(state, true);
    EXPECT_EQ(state.spec.audio->music, bed) << "it is on";
    AudioOperations::setMusicEnabled(state, false);
    EXPECT_FALSE(state.spec.audio);
    AudioOperations::updateMusic(state, bed);
    EXPECT_EQ(state.spec.audio->music, bed);
    AudioOperations::addSoundCue(state, 2.5);
    SoundCue cue = state.spec.audio->cues[0];
    EXPECT_EQ(cue.atSec, 2.5);
    EXPECT_EQ(cue.gain, 1);
    cue.sound = "pop";
    AudioOperations::updateSoundCue(state, 0, cue);
    AudioOperations::updateSoundCue(state, 1, {});
    EXPECT_EQ(state.spec.audio->cues, std::vector{cue});
    AudioOperations::removeSoundCue(state, 0);
    EXPECT_TRUE(state.spec.audio) << "the music is left";
}

EditState withDevice() {
    EditState state = stateOf(1);
    DeviceContent device;
    device.scene3D.emplace();
    first(state).content = device;
    return state;
}
DeviceContent& deviceOf(EditState& state) { return *state.content<DeviceContent>(0, 0); }

TEST(DeviceTables, KnowMotionThatSomebodyMade) {
    using Make = void (*)(EditState&);
    const std::pair<Make, bool> cases[] = {{[](EditState&) {}, false},
        {[](EditState& s) { deviceOf(s).placement.emplace(); }, true},
        {[](EditState& s) {
             deviceOf(s).scene3D->poseTrack = {{0, {}}};
         },
            true},
        {[](EditState& s) {
             deviceOf(s).scene3D->depthTrack = {{0, 1}};
         },
            true},
        {[](EditState& s) { deviceOf(s).scene3D.reset(); }, false},
        {[](EditState& s) { first(s).tracks.emplace_back(); }, true},
        {[](EditState& s) { first(s).enter.emplace(); }, true},
        {[](EditState& s) { first(s).exit.emplace(); }, false},
        {[](EditState& s) { first(s).content = TextContent{}, first(s).enter.emplace(); }, false}};
    for (const auto& [make, has] : cases) {
        EditState state = withDevice();
        make(state);
        EXPECT_EQ(DeviceOperations::deviceHasAuthoredMotion(state.spec, 0, 0), has)
            << &make - &cases[0].first;
    }
    EXPECT_FALSE(DeviceOperations::deviceHasAuthoredMotion({}, 0, 0));
}

// A named motion takes the place of what was there, whatever that was.
TEST(DeviceTables, ReplaceEarlierMotionByANamedOne) {
    for (const char* name : {"rise-up", "tiltShowcase"}) {
        DeviceMotionRef ref;
        ref.preset = *DeviceMotionPreset::fromRawValue(name);
        EditState bare = withDevice(), moved = withDevice();
        deviceOf(moved).placement = DevicePlacementSpec{{{1, {0.4, 0.4}, 2}}};
        deviceOf(moved).scene3D->poseTrack = {{3, {9, 9, 9}}};
        first(moved).tracks = {{AnimProperty::opacity, {keyframe(0, 0)}}};
        first(moved).enter.emplace();
        moved.spec.scenes[0].durationSec = bare.spec.scenes[0].durationSec = 0.5;
        DeviceOperations::applyDeviceMotionPreset(bare, 0, 0, ref);
        DeviceOperations::applyDeviceMotionPreset(moved, 0, 0, ref);
        EXPECT_EQ(moved, bare) << name;
        EXPECT_TRUE(DeviceOperations::deviceHasAuthoredMotion(bare.spec, 0, 0));
        EXPECT_GT(bare.spec.scenes[0].durationSec, 0.9) << "there is time for it";
    }
}

TEST(DeviceTables, CountKeyframesNearEachOtherAsOne) {
    const struct {
        std::vector<double> tilts, places, row;
    } cases[] = {{{}, {}, {}}, {{0, 1}, {1.01, 2}, {0, 1, 2}}, {{1, 1.015}, {1.03}, {1, 1.03}},
        {{2}, {0}, {0, 2}}, {{0.5}, {0.525}, {0.5, 0.525}}};
    for (const auto& c : cases) {
        EditState state = withDevice();
        DeviceContent& device = deviceOf(state);
        for (const double t : c.tilts) device.scene3D->poseTrack.push_back({t, {}});
        if (!c.places.empty()) device.placement.emplace();
        for (const double t : c.places) device.placement->track.push_back({t, {}, 1});
        EXPECT_EQ(DeviceKeyframes::unifiedKeyframeTimes(device), c.row);
        DeviceKeyframes::unifyKeyframeTimes(device, state.spec.output);
        if (c.row.empty()) continue;
        for (const double t : c.row)
            EXPECT_EQ(std::ranges::count_if(device.scene3D->depthTrack,
                          [&](const auto& keyframe) { return keyframe.tSec == t; }),
                1)
                << "every track has one there";
        EXPECT_EQ(device.scene3D->depthTrack.size(), c.row.size());
    }
}

TEST(DeviceTables, ChangeAKeyframeThatIsNearAndAddOneThatIsNot) {
    for (const auto& [atSec, count] :
        {std::pair{1.0, 1u}, {1.019, 1u}, {0.981, 1u}, {1.021, 2u}, {0.5, 2u}}) {
        EditState state = withDevice();
        DeviceContent& device = deviceOf(state);
        DeviceKeyframes::upsertUnifiedKeyframe(device, 1, {{1, 1, 1}, 0.2, {}, 1});
        DeviceKeyframes::upsertUnifiedKeyframe(device, atSec, {{2, 2, 2}, 0.4, {0.3, 0}, -4});
        EXPECT_EQ(device.scene3D->poseTrack.size(), count) << atSec;
        EXPECT_EQ(device.scene3D->depthTrack.size(), count) << atSec;
        EXPECT_EQ(device.placement->track.size(), count) << atSec;
        const auto& changed = device.placement->track[atSec < 1 && count == 2 ? 0 : count - 1];
        EXPECT_EQ(changed.offset.x, 0.3);
        EXPECT_EQ(changed.scale, 0.05) << "never smaller";
    }
}

TEST(DeviceTables, MoveAKeyframeBetweenItsNeighbours) {
    const struct {
        double from, to;
        std::vector<double> row;
    } cases[] = {{1, 1.5, {0, 1.5, 2}}, {1, 9, {0, 1.98, 2}}, {1, -9, {0, 0.02, 2}}, {0, -1, {0, 1, 2}},
        {2, 9, {0, 1, 4}}, {1.029, 1.2, {0, 1.2, 2}}, {1.031, 1.2, {0, 1, 2}}};
    for (const auto& c : cases) {
        EditState state = withDevice();
        DeviceContent& device = deviceOf(state);
        for (const double sec : {0.0, 1.0, 2.0})
            DeviceKeyframes::upsertUnifiedKeyframe(device, sec, {{sec, 0, 0}, 0.5, {}, 1});
        DeviceKeyframes::moveUnifiedKeyframe(device, c.from, c.to, 4);
        const auto row = DeviceKeyframes::unifiedKeyframeTimes(device);
        ASSERT_EQ(row.size(), c.row.size());
        for (std::size_t i = 0; i < row.size(); ++i) {
            EXPECT_NEAR(row[i], c.row[i], 1e-12) << c.from << " to " << c.to;
            EXPECT_EQ(device.scene3D->poseTrack[i].tSec, row[i]);
            EXPECT_EQ(device.scene3D->depthTrack[i].tSec, row[i]);
            EXPECT_EQ(device.placement->track[i].tSec, row[i]);
        }
    }
}

// A layer that comes later has its keyframes on its own clock; the end of the scene is the end of both.
TEST(DeviceTables, AppendAKeyframeAtTheNewEndOfTheScene) {
    for (const double fromSec : {0.0, 1.5})
        for (const auto& [extraSec, grownSec] : {std::pair{1.0, 1.0}, {0.0, 0.01}, {-3.0, 0.01}}) {
            EditState state = withDevice();
            first(state).fromSec = fromSec;
            DeviceContent& device = deviceOf(state);
            DeviceKeyframes::upsertUnifiedKeyframe(device, 0, {{1, 0, 0}, 0.5, {}, 1});
            DeviceKeyframes::upsertUnifiedKeyframe(device, 1, {{7, 0, 0}, 0.5, {0.2, 0}, 2});
            const auto end = DeviceOperations::appendKeyframe(state, 0, 0, extraSec);
            EXPECT_EQ(end, 4 + grownSec);
            EXPECT_EQ(state.spec.scenes[0].durationSec, 4 + grownSec);
            EXPECT_NEAR(fromSec + device.placement->track.back().tSec, 4 + grownSec, 1e-12);
            EXPECT_EQ(device.placement->track.back().offset.x, 0.2) << "as it stood before";
            EXPECT_EQ(device.scene3D->poseTrack.back().tiltDegrees.x, 7);
        }
}

TEST(DeviceTables, MoveFurtherTheFurtherADeviceIs) {
    const struct {
        double depth, overscan, perPoint;
    } cases[] = {{0.5, 1, 1.0 / 500}, {0, 1, 1.5 / 500}, {1.4, 1, 0.2 / 500}, {9, 1, 0.2 / 500},
        {0.5, 0.5, 2.0 / 500}, {0.5, 0.01, 20.0 / 500}};
    for (const auto& c : cases) {
        DeviceOperations::DeviceDragStart start;
        start.state.depth = c.depth;
        start.state.offset = {0.1, -0.1};
        using enum DeviceOperations::DeviceMoveAxis;
        for (const auto axis : {free, x, y}) {
            const auto to = DeviceOperations::moved(start, 30, -20, {500, c.overscan}, axis);
            EXPECT_NEAR(to.offset.x, 0.1 + (axis == y ? 0 : 30 * c.perPoint), 1e-12);
            EXPECT_NEAR(to.offset.y, -0.1 + (axis == x ? 0 : -20 * c.perPoint), 1e-12);
        }
    }
}

}   // namespace
}   // namespace tavix
