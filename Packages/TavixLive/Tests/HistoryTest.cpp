#include "TavixLive/Model/History.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <gtest/gtest.h>

#include <random>

namespace tavix {
namespace {

// Some edit of any kind.
void edit(EditState& state, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return std::size_t(random()) % std::max<std::size_t>(end, 1); };
    const std::size_t scene = below(state.spec.scenes.size());
    const std::size_t layer = below(state.spec.scenes[scene].layers.size());
    const double part = double(random() % 1000) / 1000;
    DeviceOperations::Scene3DStash stash;
    switch (random() % 14) {
    case 0: SceneOperations::addScene(state); break;
    case 1: SceneOperations::duplicateScene(state, scene); break;
    case 2: SceneOperations::removeScene(state, scene); break;
    case 3: SceneOperations::moveScene(state, scene, below(4)); break;
    case 4: SceneOperations::setSceneDurationRescaling(state, scene, 0.5 + 5 * part); break;
    case 5: LayerOperations::addLayer(state, scene, contentKinds[below(6)].kind); break;
    case 6: LayerOperations::deleteLayer(state, scene, layer); break;
    case 7: LayerOperations::reorderLayer(state, scene, layer, below(5)); break;
    case 8: LayerOperations::setLayerContentKind(state, scene, layer, contentKinds[below(6)].kind); break;
    case 9: LayerOperations::setLayerEnd(state, scene, layer, 4 * part); break;
    case 10: TrackOperations::addTrack(state, scene, layer, allCases<AnimProperty>()[below(10)]); break;
    case 11: TrackOperations::addKeyframe(state, {scene, layer, 0}, 3 * part); break;
    case 12: {
        DeviceMotionRef ref;
        ref.preset = *DeviceMotionPreset::fromRawValue(
            DeviceMotionPreset::knownRawValues()[below(DeviceMotionPreset::knownRawValues().size())]);
        DeviceOperations::applyDeviceMotionPreset(state, scene, layer, ref);
        break;
    }
    default: DeviceOperations::setDevice3D(state, stash, scene, layer, random() % 2); break;
    }
    clampSelection(state);
}

EditState firstState() {
    EditState state;
    SceneOperations::addScene(state);
    LayerOperations::addLayer(state, 0, ContentKind::text);
    LayerOperations::addLayer(state, 0, ContentKind::device);
    return state;
}

// Undo leads to the first document, through every one in between; redo to the last.
TEST(History, LeadsBackAndForthThroughEveryDocument) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        std::mt19937 random(seed);
        History history;
        std::vector<History::Moment> moments{{firstState(), 0}};
        for (int i = 0; i < 120; ++i) {
            History::Moment next = moments.back();
            edit(next.state, random);
            next.playheadSec = i;
            if (next.state.spec == moments.back().state.spec) continue;
            history.record("step " + std::to_string(i), moments.back(), next);
            moments.push_back(next);
        }
        EXPECT_EQ(history.stepCount(), moments.size() - 1);
        const std::string first = encodedJson(moments.front().state.spec);
        for (std::size_t i = moments.size() - 1; i > 0; --i) {
            const auto before = history.undo(moments[i].state);
            ASSERT_TRUE(before);
            ASSERT_EQ(before->state.spec, moments[i - 1].state.spec) << seed << " step " << i;
            EXPECT_EQ(before->state.selection, moments[i - 1].state.selection);
            EXPECT_EQ(before->playheadSec, moments[i - 1].playheadSec);
            if (i == 1) {
                EXPECT_EQ(encodedJson(before->state.spec), first);
            }
        }
        EXPECT_FALSE(history.undo(moments[0].state));
        for (std::size_t i = 0; i + 1 < moments.size(); ++i)
            ASSERT_EQ(history.redo(moments[i].state)->state.spec, moments[i + 1].state.spec);
        EXPECT_FALSE(history.redo(moments.back().state));
    }
}

TEST(History, ForgetsWhatWasUndoneWhenSomethingElseIsDone) {
    History history;
    History::Moment a{firstState(), 0}, b = a, c = a;
    b.state.spec.seed = 1;
    c.state.spec.seed = 2;
    history.record("b", a, b);
    history.record("nothing", b, b);
    EXPECT_EQ(*history.undoName(), "b");
    ASSERT_TRUE(history.undo(b.state));
    EXPECT_EQ(*history.redoName(), "b");
    history.record("c", a, c);
    EXPECT_EQ(history.redoName(), nullptr);
    EXPECT_EQ(history.undo(c.state)->state, a.state);
}

TEST(History, KeepsWithinItsMemory) {
    History history({.mostSteps = 50, .mostBytes = 20000});
    History::Moment now{firstState(), 0};
    for (int i = 1; i <= 300; ++i) {
        const History::Moment before = now;
        now.state.content<TextContent>(0, 0)->text =
            std::string(std::size_t(i % 7) * 100, 'x') + std::to_string(i);
        history.record("rename", before, now);
        EXPECT_LE(history.stepCount(), 50u);
        EXPECT_LE(history.byteCount(), 20000u);
    }
    EXPECT_GT(history.stepCount(), 5u);
    while (const auto before = history.undo(now.state)) now = *before;
    EXPECT_FALSE(now.state.content<TextContent>(0, 0)->text.ends_with("300"));
}

TEST(History, TellsItsLastChangeAsAPatch) {
    History history;
    History::Moment a{firstState(), 0}, b = a;
    b.state.spec.scenes[0].durationSec = 7;
    history.record("longer", a, b);
    EXPECT_EQ(applyTo(a.state.spec, history.lastChange(b.state)), b.state.spec);
}

}   // namespace
}   // namespace tavix
