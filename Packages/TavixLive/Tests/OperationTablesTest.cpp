// The named edits by tables: what each makes of which document, and what it leaves alone.
#include "EditStates.h"
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using testing::first;
using ::testing::IsEmpty;
using testing::keyframe;
using testing::stateWithLayers;

std::string order(const EditState& state) {
    std::string ids;
    for (const CompositionLayer& layer : state.spec.scenes[0].layers) ids += layer.id.value_or("-");
    return ids;
}

TEST(SceneTables, GiveASceneItsOwnBackground) {
    EditState state = stateWithLayers(1);
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
    EditState state = stateWithLayers(2);
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
        EditState state = stateWithLayers(1);
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
        EditState state = stateWithLayers(3);
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
        EditState state = stateWithLayers(4);
        state.selection = {0, 1, {{0, 2}, {0, 3}}};
        LayerOperations::deleteLayer(state, 0, c.gone);
        EXPECT_EQ(state.selection, c.left) << c.gone;
        EditState clamped = state;
        clampSelection(clamped);
        EXPECT_EQ(clamped, state);
    }
    EditState state = stateWithLayers(3);
    SceneOperations::addScene(state);
    state.selection = {0, 1, {{0, 2}}};
    SceneOperations::removeScene(state, 1);
    EXPECT_EQ(state.selection, (Selection{0, {}, {}}));
}

TEST(LayerTables, AddLayersOfEveryKindAsMenusTellThem) {
    EditState state = stateWithLayers(0);
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
    EditState state = stateWithLayers(1);
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
    EditState state = stateWithLayers(1);
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
        EditState state = stateWithLayers(1);
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
        EditState state = stateWithLayers(1);
        auto& track = first(state).tracks.emplace_back(PropertyTrack{AnimProperty::opacity, {}});
        for (const double t : c.there) track.keyframes.push_back(keyframe(t, t / 4));
        TrackOperations::addKeyframe(state, {0, 0, 0}, c.atSec);
        ASSERT_EQ(track.keyframes.size(), c.then.size()) << c.atSec;
        for (std::size_t i = 0; i < c.then.size(); ++i) EXPECT_NEAR(track.keyframes[i].t, c.then[i], 1e-9);
    }
    // A layer too short for another one.
    EditState state = stateWithLayers(1);
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
        EditState state = stateWithLayers(1);
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
            EditState state = stateWithLayers(1);
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
    EditState state = stateWithLayers(0);
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

}   // namespace
}   // namespace tavix
