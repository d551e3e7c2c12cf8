// What the timeline shows, what lies under the pointer, and what drags, keys and the clipboard make of a
// document.
#include "Editor/EditorDomain/Timeline/TimelineDrag.h"
#include "Editor/EditorDomain/Timeline/Snapping.h"
#include "Editor/EditorDomain/Timeline/TimelineCommands.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include "TavixLive/Operations/DeviceKeyframes.h"
#include <gmock/gmock.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tavix::timeline {
namespace {

CompositionLayer textLayer(double fromSec, std::optional<double> durationSec, const std::string& text) {
    CompositionLayer layer;
    layer.fromSec = fromSec;
    layer.durationSec = durationSec;
    TextContent content;
    content.text = text;
    layer.content = content;
    return layer;
}

// Two scenes of 6 and 5 seconds that overlap by 1: 10 seconds, and 100 points a second in a view of 1020.
EditState film() {
    EditState state;
    CompositionScene first, second;
    first.durationSec = 6;
    first.transition.emplace().durationSec = 1;
    first.layers = {
        textLayer(0, std::nullopt, "Back"), textLayer(1, 2, "Middle"), textLayer(3.5, 1, "Front")};
    second.durationSec = 5;
    second.layers = {textLayer(0.5, 3, "Later")};
    state.spec.scenes = {first, second};
    return state;
}

const Layout layout{Scale::of(10, 1020, 1)};
constexpr double pps = 100;

void withBeats(EditState& state, double bpm) {
    MusicBed& music = state.spec.audio.emplace().music.emplace();
    music.path = "song.mp3";
    music.bpm = bpm;
}

EditState dragged(
    const EditState& state, const Hit& hit, double fromSec, double toSec, Drag::Pull pull = {}) {
    const Scene scene = sceneOf(state, {});
    const auto drag = Drag::of(state, scene, hit, fromSec, {});
    EXPECT_TRUE(drag);
    pull.toSec = toSec;
    pull.pps = pps;
    return drag->at(pull);
}

std::size_t barOf(const EditState& state, const LayerPlace& place) {
    const Scene scene = sceneOf(state, {});
    for (std::size_t i = 0; i < scene.bars.size(); ++i)
        if (scene.bars[i].place == place) return i;
    return 999;
}

TEST(TimelineScene, StacksLayersFromTheFrontAndPutsTheSelectedSceneOnTop) {
    EditState state = film();
    Scene scene = sceneOf(state, {});
    EXPECT_EQ(scene.totalSec, 10);
    ASSERT_EQ(scene.bars.size(), 4u);
    EXPECT_EQ(scene.rows, 3);
    EXPECT_EQ(scene.bars[2].label, "Front");
    EXPECT_EQ(scene.bars[2].row, 0);
    EXPECT_EQ(scene.bars[0].row, 2);
    EXPECT_EQ(scene.bars[3].row, 0);   // the front of its own scene
    EXPECT_EQ(scene.bars[3].startSec, 5.5);
    EXPECT_EQ(scene.bars[0].endSec, 6);   // to its scene's end
    EXPECT_TRUE(scene.bars[0].isOpen);
    EXPECT_EQ(scene.bands[0].length, "6.0s");
    state.selection.scene = 0;
    scene = sceneOf(state, {});
    EXPECT_EQ(scene.bars.back().label, "Front");
    scene = sceneOf(state, {0});
    EXPECT_EQ(scene.bars.size(), 1u);
    EXPECT_EQ(scene.rows, 1);
}

TEST(TimelineScene, TellsWhatIsSelected) {
    EditState state = film();
    EXPECT_EQ(selectionSummary(state), "");
    state.selection.scene = 1;
    EXPECT_EQ(selectionSummary(state), "scene-1");
    state.selection.layer = 0;
    EXPECT_EQ(selectionSummary(state), "scene-1 · text layer 0");
}

TEST(TimelineScene, ShowsTheKeyframesOfTheSelectedLayer) {
    EditState state = film();
    CompositionLayer& layer = state.spec.scenes[0].layers[1];
    DeviceContent device;
    device.scene3D.emplace().poseTrack = {{0, {}}, {1.005, {}}};
    device.placement.emplace().track = {{1, {}, 1, {}, {}}};
    layer.content = device;
    layer.tracks.push_back({AnimProperty::opacity, {{0, 0, {}, {}, {}}, {0.5, 4, {}, {}, {}}}});
    state.selection = {0, 1, {}};
    const Scene scene = sceneOf(state, {});
    ASSERT_EQ(scene.keyframeRows.size(), 2u);
    EXPECT_EQ(scene.keyframeRows[0].label, "Device");
    ASSERT_EQ(scene.keyframeRows[0].marks.size(), 2u);   // 1 and 1.005 are one
    EXPECT_EQ(scene.keyframeRows[0].marks[1].sec, 1);
    EXPECT_EQ(scene.keyframeRows[1].label, "Opacity");
    EXPECT_EQ(scene.keyframeRows[1].marks[1].value, 1);
    EXPECT_EQ(layout.markX(scene, scene.keyframeRows[1].marks[1]), 10 + 100 * 1.5);
}

TEST(TimelineLayout, TicksOfKeyframesStayOnTheirBar) {
    const Bar bar{{0, 0}, 0, ContentKind::text, 2, 4, "", {}, false, false};
    EXPECT_EQ(layout.tickX(bar, 0), 1);
    EXPECT_EQ(layout.tickX(bar, 1), 100);
    EXPECT_EQ(layout.tickX(bar, 2), 199);
    EXPECT_EQ(layout.tickX(bar, 9), 199);
}

TEST(TimelineLayout, KnowsWhatLiesUnderThePointer) {
    const Scene scene = sceneOf(film(), {});
    const double front = layout.laneTop(0) + 5, middle = layout.laneTop(1) + 5;
    const struct {
        double x, y;
        Hit expected;
    } cases[] = {{500, 5, {Part::ruler}}, {300, 25, {Part::bandBody, 0}}, {15, 25, {Part::chevron, 0}},
        {800, 25, {Part::bandBody, 1}}, {1008, 25, {Part::bandEnd, 1}}, {511, 25, {Part::transitionStart, 0}},
        {560, 25, {Part::transition, 0}}, {400, front, {Part::barBody, 2}}, {361, front, {Part::barStart, 2}},
        {458, front, {Part::barEnd, 2}}, {200, middle, {Part::barBody, 1}}, {900, front, {Part::nothing}},
        {580, front, {Part::barBody, 3}}};   // the later scene lies on top
    for (const auto& c : cases) EXPECT_EQ(layout.hit(scene, c.x, c.y), c.expected) << c.x << ", " << c.y;
    EXPECT_THAT(layout.barsIn(scene, {100, layout.laneTop(0), 300, 40}), testing::ElementsAre(1, 2));
}

TEST(Snapping, TakesTheNearestWithinSixPointsAndTheFirstOfEquals) {
    const double candidates[] = {1.0, 1.1};
    EXPECT_EQ(nearest(1.05, candidates, 100), 1.0);   // 5 points from both
    EXPECT_EQ(nearest(1.06, candidates, 100), 1.1);
    EXPECT_EQ(nearest(0.93, candidates, 100), 0.93);   // 7 points away
    EXPECT_EQ(nearest(0.94, candidates, 100), 0.94);   // 6 points is not closer than 6
}

TEST(Snapping, OfABarGoesToThePlayheadOtherBarsAndBeats) {
    EditState state = film();
    const struct {
        double playhead, to, expected;
    } cases[] = {{2.5, 2.55, 2.5}, {2.5, 2.57, 2.57}, {9, 3.04, 3}, {9, 3.46, 3.5}, {9, 4.52, 4.5},
        {9, 0.03, 0}, {9, 5.97, 6}};
    for (const auto& c : cases) {
        const LayerPlace moved = c.to == 3.04 ? LayerPlace{0, 2} : LayerPlace{0, 1};
        EXPECT_NEAR(snapped(state, moved, c.playhead, pps, c.to), c.expected, 1e-9) << c.to;
    }
    withBeats(state, 75);   // every 0.8 s
    EXPECT_NEAR(snapped(state, {0, 1}, 9, pps, 1.63), 1.6, 1e-9);
    EXPECT_NEAR(
        snapped(state, {1, 0}, 9, pps, 1.43), 1.4, 1e-9);   // 6.4 s of the film, in a scene from 5 s on
    EXPECT_NEAR(snappedEdge(state, 1, pps, 2.22), 2.2, 1e-9);
}

TEST(Drags, ABarFollowsThePointerAndStaysInItsScene) {
    EditState state = film();
    state.selection = {0, 1, {}};
    const Hit bar{Part::barBody, barOf(state, {0, 1})};
    const auto fromSec = [&](double to) {
        return dragged(state, bar, 1.5, to, {.playheadSec = 9}).spec.scenes[0].layers[1].fromSec;
    };
    EXPECT_NEAR(fromSec(2.75), 2.25, 1e-9);
    EXPECT_NEAR(fromSec(1.5), 1, 1e-9);
    EXPECT_NEAR(fromSec(-3), 0, 1e-9);
    EXPECT_NEAR(fromSec(40), 4, 1e-9);
}

TEST(Drags, SeveralBarsKeepTheirDistances) {
    EditState state = film();
    state.selection = {0, 1, {{0, 2}, {1, 0}}};
    const Hit bar{Part::barBody, barOf(state, {0, 1})};
    const EditState moved = dragged(state, bar, 1.5, 9, {.playheadSec = 9});
    // The front one has 1.5 s of room, and so has the one of the other scene.
    EXPECT_NEAR(moved.spec.scenes[0].layers[1].fromSec, 2.5, 1e-9);
    EXPECT_NEAR(moved.spec.scenes[0].layers[2].fromSec, 5, 1e-9);
    EXPECT_NEAR(moved.spec.scenes[1].layers[0].fromSec, 2, 1e-9);
    EXPECT_EQ(moved.selection, state.selection);
}

TEST(Drags, TheEndsOfABarTrimIt) {
    const EditState state = film();
    const std::size_t bar = barOf(state, {0, 1});
    const CompositionLayer later = dragged(state, {Part::barStart, bar}, 1, 1.7).spec.scenes[0].layers[1];
    EXPECT_NEAR(later.fromSec, 1.7, 1e-9);
    EXPECT_NEAR(*later.durationSec, 1.3, 1e-9);
    const CompositionLayer open = dragged(state, {Part::barEnd, bar}, 3, 5.96).spec.scenes[0].layers[1];
    EXPECT_EQ(open.durationSec, std::nullopt);   // stuck to the scene's end
}

TEST(Drags, ASceneGrowsWithAllThatFollowsAndNeverCutsItsLayers) {
    EditState state = film();
    const EditState longer = dragged(state, {Part::bandEnd, 0}, 6, 8);
    EXPECT_NEAR(CompositionTimeline(longer.spec).totalSec, 12, 1e-9);
    EXPECT_NEAR(CompositionTimeline(longer.spec).startSec[1], 7, 1e-9);
    EXPECT_EQ(longer.spec.scenes[0].layers, state.spec.scenes[0].layers);
    // The front one ends at 4.5 s.
    EXPECT_NEAR(dragged(state, {Part::bandEnd, 0}, 6, 1).spec.scenes[0].durationSec, 4.55, 1e-9);
    const EditState stretched = dragged(state, {Part::bandEnd, 0}, 6, 12, {.stretches = true});
    EXPECT_NEAR(stretched.spec.scenes[0].layers[2].fromSec, 7, 1e-9);
    state.spec.scenes[1].layers.clear();
    EXPECT_NEAR(minimumSceneDurationSec(state.spec, 1), 1.1, 1e-9);
    EXPECT_NEAR(minimumSceneDurationSec(state.spec, 0), 4.55, 1e-9);
}

TEST(Drags, ATransitionGrowsFromItsStart) {
    EditState state = film();
    const auto length = [&](double to) {
        return dragged(state, {Part::transitionStart, 0}, 5, to).spec.scenes[0].transition->durationSec;
    };
    EXPECT_NEAR(length(4), 2, 1e-9);
    EXPECT_NEAR(length(5.6), 0.4, 1e-9);
    EXPECT_NEAR(length(9), 0.05, 1e-9);
    EXPECT_NEAR(length(-9), 4.9, 1e-9);   // within the shorter scene
    withBeats(state, 75);
    EXPECT_NEAR(length(4.83), 1.2, 1e-9);   // from the beat at 4.8 s
}

TEST(Drags, KeyframesGoTogetherAndStopAtTheirNeighbours) {
    EditState state = film();
    state.spec.scenes[0].layers[1].tracks.push_back(
        {AnimProperty::opacity, {{0.2, 0, {}, {}, {}}, {0.6, 1, {}, {}, {}}, {1.0, 0, {}, {}, {}}}});
    state.selection = {0, 1, {}};
    const Scene scene = sceneOf(state, {});
    const auto drag = Drag::of(state, scene, {Part::keyframe, 0, 0}, 1.2, {{0, 1}});
    ASSERT_TRUE(drag);
    const auto times = [&](double to) {
        std::vector<double> all;
        const EditState moved = drag->at({.toSec = to, .playheadSec = 9, .pps = pps});
        for (const auto& keyframe : moved.spec.scenes[0].layers[1].tracks[0].keyframes)
            all.push_back(std::round(keyframe.t * 1000) / 1000);
        return all;
    };
    EXPECT_THAT(times(1.4), testing::ElementsAre(0.4, 0.8, 1.0));
    EXPECT_THAT(times(1.02), testing::ElementsAre(0, 0.4, 1.0));   // the window's start holds it
    EXPECT_THAT(times(9), testing::ElementsAre(0.998, 0.999, 1.0));
}

TEST(Drags, ASoundSticksToTheBeat) {
    EditState state = film();
    withBeats(state, 75);
    SoundCue cue;
    cue.atSec = 2;
    state.spec.audio->cues.push_back(cue);
    EXPECT_NEAR(dragged(state, {Part::cue, 0}, 2, 3.22).spec.audio->cues[0].atSec, 3.2, 1e-9);
    EXPECT_NEAR(
        dragged(state, {Part::cue, 0}, 2, 3.22, {.isSnapping = false}).spec.audio->cues[0].atSec, 3.22, 1e-9);
}

TEST(Selecting, OneAfterAnotherOrAllBetween) {
    EditState state = film();
    selectLayer(state, {0, 0}, Extend::no);
    selectLayer(state, {0, 2}, Extend::toggle);
    EXPECT_EQ(state.selection, (Selection{0, 2, {{0, 0}}}));
    selectLayer(state, {0, 2}, Extend::toggle);
    EXPECT_EQ(state.selection, (Selection{0, 0, {}}));
    selectLayer(state, {0, 2}, Extend::range);
    EXPECT_EQ(state.selection.layers().size(), 3u);
    selectLayer(state, {0, 7}, Extend::no);   // not there
    EXPECT_EQ(state.selection.layers().size(), 3u);
}

TEST(Commands, DeleteDuplicateAndRestackSeveralLayers) {
    EditState state = film();
    state.selection = {0, 0, {{0, 2}}};
    EditState removed = state;
    deleteSelection(removed);
    ASSERT_EQ(removed.spec.scenes[0].layers.size(), 1u);
    EXPECT_EQ(barLabel(removed.spec.scenes[0].layers[0]), "Middle");
    EXPECT_EQ(removed.selection, (Selection{0, std::nullopt, {}}));
    EditState doubled = state;
    duplicateSelection(doubled);
    std::string names;
    for (const CompositionLayer& layer : doubled.spec.scenes[0].layers) names += barLabel(layer) + " ";
    EXPECT_EQ(names, "Back Back Middle Front Front ");
    EXPECT_EQ(doubled.selection, (Selection{0, 4, {{0, 1}}}));
    restackSelection(state, 1);
    EXPECT_EQ(barLabel(state.spec.scenes[0].layers[1]), "Back");
    EXPECT_EQ(barLabel(state.spec.scenes[0].layers[2]), "Front");   // it was in front already
}

TEST(Commands, SplittingShowsTheSameOnBothSides) {
    EditState state = film();
    state.spec.scenes[0].layers[1].tracks.push_back(
        {AnimProperty::x, {{0, 0, {}, {}, {}}, {2, 1, {}, {}, {}}}});
    state.selection = {0, 1, {}};
    splitSelection(state, 2.25);
    ASSERT_EQ(state.spec.scenes[0].layers.size(), 4u);
    const CompositionLayer &first = state.spec.scenes[0].layers[1], &second = state.spec.scenes[0].layers[2];
    EXPECT_NEAR(first.fromSec + *first.durationSec, second.fromSec, 1e-9);
    EXPECT_NEAR(second.fromSec + *second.durationSec, 3, 1e-9);
    EXPECT_NEAR(second.fromSec + second.tracks[0].keyframes[1].t, 3, 1e-9);   // the same moment of the scene
    splitSelection(state, 2.25);                                              // nothing is left to cut there
    EXPECT_EQ(state.spec.scenes[0].layers.size(), 4u);
}

// What is seen of a layer that was cut is what was seen of it before, at any time.
TEST(SplitSelection, LeavesEveryMomentAsItWas) {
    EditState state = film();
    DeviceContent device;
    device.screen = VideoClip{"clip.mp4", 0.5, {}, {}};
    device.scene3D.emplace();
    for (const double sec : {0.0, 0.8, 1.6})
        DeviceKeyframes::upsertUnifiedKeyframe(device, sec, {{10 * sec, 0, 0}, 0.5, {sec / 10, 0}, 1 + sec});
    VideoContent video;
    video.clip = VideoClip{"clip.mp4", 1, {}, {}};
    for (const LayerContent& content : {LayerContent(device), LayerContent(video)}) {
        CompositionLayer layer;
        layer.fromSec = 0.25;
        layer.durationSec = 2.5;
        layer.content = content;
        state.spec.scenes[0].layers = {layer};
        state.selection = {0, 0};
        splitSelection(state, 1.25);
        ASSERT_EQ(state.spec.scenes[0].layers.size(), 2u);
        const CompositionLayer& second = state.spec.scenes[0].layers[1];
        for (const double sec : {1.3, 1.7, 2.5}) {
            if (const auto* cut = std::get_if<DeviceContent>(&second.content)) {
                const auto now = DeviceKeyframes::unifiedState(*cut, state.spec.output, sec - second.fromSec);
                const auto before = DeviceKeyframes::unifiedState(device, state.spec.output, sec - 0.25);
                EXPECT_NEAR(now.tiltDegrees.x, before.tiltDegrees.x, 0.05) << sec;
                EXPECT_NEAR(now.offset.x, before.offset.x, 0.001) << sec;
                EXPECT_NEAR(std::get<VideoClip>(cut->screen).trimStartSec + sec - second.fromSec,
                    0.5 + sec - 0.25, 1e-9);
            } else {
                EXPECT_NEAR(std::get<VideoContent>(second.content).clip.trimStartSec + sec - second.fromSec,
                    1 + sec - 0.25, 1e-9);
            }
        }
    }
}

TEST(Clipboard, LayersArriveAtThePlayheadInAnotherDocument) {
    EditState from = film(), to;
    from.spec.output = {1080, 1920, 30};
    to.spec.output = {540, 960, 30};
    to.spec.scenes.emplace_back().durationSec = 4;
    ImageContent image;
    image.path = "art/logo.png";
    from.spec.scenes[0].layers[1].content = image;
    from.spec.scenes[0].layers[1].position = {540, 960};
    from.selection = {0, 2, {{0, 1}}};
    const std::string text = copied(from, "/films/a");
    ASSERT_TRUE(paste(to, text, 0.5, "/films/b"));
    const auto& layers = to.spec.scenes[0].layers;
    ASSERT_EQ(layers.size(), 2u);
    EXPECT_NEAR(layers[0].fromSec, 0.5, 1e-9);
    EXPECT_NEAR(layers[1].fromSec, 3, 1e-9);          // as far behind as it was
    EXPECT_EQ(layers[1].durationSec, std::nullopt);   // to the shorter scene's end
    EXPECT_EQ(std::get<ImageContent>(layers[0].content).path, "/films/a/art/logo.png");
    EXPECT_EQ(layers[0].position, (PixelPoint{270, 480}));
    EditState same = from;
    ASSERT_TRUE(paste(same, text, 0, "/films/a"));
    EXPECT_EQ(std::get<ImageContent>(same.spec.scenes[0].layers[3].content).path, "art/logo.png");
}

TEST(Clipboard, AScenePastesBehindTheSelectedOneAndNonsenseNowhere) {
    EditState state = film();
    state.selection.scene = 0;
    const std::string text = copied(state, std::nullopt);
    ASSERT_TRUE(paste(state, text, 0, std::nullopt));
    ASSERT_EQ(state.spec.scenes.size(), 3u);
    EXPECT_EQ(state.spec.scenes[1].layers, film().spec.scenes[0].layers);
    EXPECT_EQ(state.selection.scene, 1u);
    const EditState before = state;
    for (const char* other : {"", "hello", "{}", "[1]", R"({"tavixClipboard": "layers", "scene": 4})",
             R"({"tavixClipboard": "layers"})"})
        EXPECT_FALSE(paste(state, other, 0, std::nullopt)) << other;
    EXPECT_EQ(state, before);
}

std::vector<std::string> wordsOf(const CompositionScene& scene) {
    std::vector<std::string> all;
    for (const CompositionLayer& layer : scene.layers)
        all.push_back(std::get<TextContent>(layer.content).text);
    return all;
}

TEST(TimelineDrag, ABarDraggedToAnotherRowChangesTheOrderAlone) {
    EditState state = film();
    state.selection = {0, 1, {}};
    const Hit middle{Part::barBody, barOf(state, {0, 1})};
    const struct {
        int row;
        std::vector<std::string> order;   // from back to front
    } cases[] = {{1, {"Back", "Middle", "Front"}}, {0, {"Back", "Front", "Middle"}},
        {2, {"Middle", "Back", "Front"}}, {-5, {"Back", "Front", "Middle"}},
        {9, {"Middle", "Back", "Front"}}};
    for (const auto& c : cases) {
        const EditState after = dragged(state, middle, 1.5, 1.5, {.row = c.row});
        EXPECT_EQ(wordsOf(after.spec.scenes[0]), c.order) << c.row;
        const LayerPlace now = after.selection.layers().front();
        EXPECT_EQ(std::get<TextContent>(after.spec.scenes[0].layers[now.layer].content).text, "Middle");
        EXPECT_EQ(after.spec.scenes[0].layers[now.layer].fromSec, 1) << c.row;
    }
}

TEST(TimelineDrag, ABarDraggedIntoAnotherSceneIsThatScenes) {
    EditState state = film();
    state.spec.scenes[0].layers[1].id = "title";
    state.selection = {0, 1, {}};
    const Hit middle{Part::barBody, barOf(state, {0, 1})};
    // The second scene starts at 5 s; where they overlap the layer stays in its own.
    EXPECT_EQ(dragged(state, middle, 1.5, 5.9, {.isSnapping = false}).spec.scenes[1].layers.size(), 1u);
    const EditState after = dragged(state, middle, 1.5, 7.5, {.isSnapping = false, .row = 1});
    EXPECT_THAT(wordsOf(after.spec.scenes[0]), testing::ElementsAre("Back", "Front"));
    ASSERT_THAT(wordsOf(after.spec.scenes[1]), testing::ElementsAre("Middle", "Later"));
    const CompositionLayer& moved = after.spec.scenes[1].layers[0];
    EXPECT_NEAR(moved.fromSec, 2, 1e-9);   // 7 s of the film, held where it was grabbed
    EXPECT_EQ(moved.durationSec, 2);
    EXPECT_EQ(moved.id, "title");
    EXPECT_EQ(after.selection, (Selection{1, 0, {}}));
    // A name that the scene has already is given up there.
    state.spec.scenes[1].layers[0].id = "title";
    EXPECT_EQ(dragged(state, middle, 1.5, 7.5).spec.scenes[1].layers[1].id, std::nullopt);
    // Back where it came from: as if nothing had been.
    EXPECT_EQ(dragged(state, middle, 1.5, 1.5, {.row = 1}), state);
}

}   // namespace
}   // namespace tavix::timeline
