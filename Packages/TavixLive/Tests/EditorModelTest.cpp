// The model of an editor in virtual time: documents that take as long to build as the test says.
#include "ManualEditor.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class EditorModel : public testing::ManualEditor {};

TEST_F(EditorModel, ShowsADocumentThatIsLoaded) {
    model->loadInMemory(testing::smallFilm(), "/nowhere");
    time.advance(1);
    EXPECT_TRUE(state().isLoaded());
    EXPECT_EQ(state().outputDuration(), 6);
    EXPECT_EQ(state().statusMessage(), "1080×1920 — 6.00s");
    EXPECT_FALSE(state().hasUnsavedChanges());
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].atSec, 0);
}

TEST_F(EditorModel, RefreshesABurstOfEditsAtOnceAndAtItsEnd) {
    load(testing::smallFilm());
    double lastSec = 0;
    const double startSec = time.nowSec();
    for (int i = 0; i < 10; ++i) {
        tint();
        lastSec = time.nowSec();
        time.advance(0.02);
    }
    time.advance(1);
    ASSERT_EQ(maker->built.size(), 2u);
    EXPECT_NEAR(maker->built[0].startSec, startSec, 1e-9);
    EXPECT_NEAR(maker->built[1].startSec, lastSec + 0.12, 1e-9);
    EXPECT_EQ(maker->built[1].spec, state().edited().spec);
}

TEST_F(EditorModel, KeepsThePlayersItemUnderALightEditAndReplacesItUnderAnother) {
    load(testing::smallFilm());
    model->togglePlay();
    time.advance(1);
    const PlayerItem* item = model->preview().player().item();
    const auto* pictures = item->pictures.get();
    const int forgotten = maker->forgotten;
    tint();
    time.advance(0.5);
    EXPECT_EQ(model->preview().player().item()->pictures.get(), pictures);
    EXPECT_EQ(maker->forgotten, forgotten);
    EXPECT_TRUE(state().isPlaying());
    EXPECT_NEAR(state().currentTime(), 1.5, 0.04);
    EXPECT_EQ(shown.back().number, int(maker->built.size()));
    model->togglePlay();
    model->seek(5);
    time.advance(1);
    model->update(
        "Shorten", [](EditState& changed) { SceneOperations::setSceneDurationRescaling(changed, 1, 1); });
    time.advance(1);
    EXPECT_NE(model->preview().player().item()->pictures.get(), pictures);
    EXPECT_EQ(maker->forgotten, forgotten + 1);
    EXPECT_EQ(state().outputDuration(), 4);
    EXPECT_EQ(state().currentTime(), 4);
    EXPECT_NEAR(shown.back().atSec, 4 - 1.0 / 30, 1e-9);
}

TEST_F(EditorModel, DropsARefreshThatIsOvertaken) {
    load(testing::smallFilm());
    maker->buildSec = 0.5;
    model->update("Longer", [](EditState& changed) { changed.spec.scenes[0].durationSec = 9; });
    time.advance(0.1);
    model->update("Back", [](EditState& changed) { changed.spec.scenes[0].durationSec = 3; });
    time.advance(0.3);
    EXPECT_EQ(state().outputDuration(), 6);
    time.advance(0.3);   // the first is built by now
    EXPECT_EQ(state().outputDuration(), 6);
    EXPECT_EQ(model->preview().totalSec(), 6);
    time.advance(2);
    EXPECT_EQ(state().outputDuration(), 6);
    EXPECT_FALSE(state().errorMessage());
    // Who waits for one that is overtaken is told all the same.
    bool isOpen = false;
    model->loadInMemory(testing::smallFilm(), "/nowhere", [&] { isOpen = true; });
    time.advance(0.1);
    tint();
    time.advance(0.3);
    tint();
    time.advance(2);
    EXPECT_TRUE(isOpen);
    EXPECT_EQ(state().statusMessage(), "1080×1920 — 6.00s");
}

TEST_F(EditorModel, TellsWhatLintFindsAndGoesOnShowingWhatItShowed) {
    load(testing::smallFilm());
    model->update("Empty", [](EditState& changed) { changed.spec.scenes[0].durationSec = -1; });
    time.advance(1);
    ASSERT_TRUE(state().errorMessage());
    EXPECT_THAT(*state().errorMessage(), HasSubstr("scenes[0]"));
    EXPECT_TRUE(maker->built.empty());
    EXPECT_EQ(state().outputDuration(), 6);
    model->undo();
    time.advance(1);
    EXPECT_FALSE(state().errorMessage());
    maker->fails = true;
    tint();
    time.advance(1);
    EXPECT_EQ(state().errorMessage(), "Preview failed: No.");
}

TEST_F(EditorModel, SeeksOnceAtATimeAndTheLastOneWins) {
    load(testing::smallFilm());
    maker->drawSec = 0.1;
    tint();   // from a source that is slower
    time.advance(1);
    const std::size_t before = maker->last->draws.size();
    for (int i = 0; i < 20; ++i) {
        model->seek(i / 10.0);
        time.advance(0.01);
    }
    EXPECT_EQ(state().currentTime(), 1.9);
    time.advance(0.25);
    const auto& draws = maker->last->draws;
    EXPECT_LE(draws.size() - before, 5u);
    EXPECT_EQ(draws[before + 1].quality, FrameQuality::scrub);
    EXPECT_NEAR(shown.back().atSec, 1.9, 1e-9);
    time.advance(1);
    EXPECT_EQ(draws.back().quality, FrameQuality::full) << "0.3 s after the last move";
    EXPECT_NEAR(draws.back().atSec, 1.9, 1e-9);
    model->seek(99);
    EXPECT_EQ(state().currentTime(), 6);
    model->seek(-1);
    EXPECT_EQ(state().currentTime(), 0);
}

TEST_F(EditorModel, PlaysFromTheStartAtTheEndAndGoesBackThere) {
    load(testing::smallFilm());
    model->seek(5.97);
    time.advance(1);
    model->togglePlay();
    time.advance(0.5);
    EXPECT_TRUE(state().isPlaying());
    EXPECT_NEAR(state().currentTime(), 0, 0.6);
    time.advance(6);
    EXPECT_FALSE(state().isPlaying());
    EXPECT_EQ(state().currentTime(), 0);
    EXPECT_EQ(shown.back().atSec, 0);
}

TEST_F(EditorModel, TakesStepsBackWithSelectionAndPlayhead) {
    load(testing::smallFilm());
    model->selectLayer(1, 0);
    model->seek(4);
    time.advance(1);
    const EditState before = state().edited();
    model->update("Delete layer", [](EditState& changed) { LayerOperations::deleteLayer(changed, 1, 0); });
    EXPECT_TRUE(state().hasUnsavedChanges());
    model->clearSelection();
    model->seek(1);
    time.advance(1);
    EXPECT_EQ(*model->history().undoName(), "Delete layer");
    model->undo();
    EXPECT_EQ(state().edited(), before);
    EXPECT_EQ(state().currentTime(), 4);
    model->redo();
    EXPECT_TRUE(state().edited().spec.scenes[1].layers.empty());
}

TEST_F(EditorModel, TakesAGestureBackAsOneStep) {
    load(testing::smallFilm());
    const EditState before = state().edited();
    model->beginGesture("Resize");
    for (int i = 0; i < 30; ++i) {
        tint();
        time.advance(0.02);
    }
    model->endGesture();
    EXPECT_EQ(model->history().stepCount(), 1u);
    EXPECT_EQ(*model->history().undoName(), "Resize");
    model->undo();
    EXPECT_EQ(state().edited(), before);
    model->beginGesture("Nothing");
    model->endGesture();
    EXPECT_EQ(model->history().stepCount(), 0u);
}

TEST_F(EditorModel, MovesThePlayheadIntoALayerThatIsSelected) {
    CompositionSpec spec = testing::smallFilm();
    CompositionLayer& layer = spec.scenes[1].layers[0];
    layer.fromSec = 1;
    layer.durationSec = 1;
    load(spec);
    model->selectLayer(1, 0);
    EXPECT_NEAR(state().currentTime(), 4.05, 1e-9);
    model->seek(4.5);
    model->selectLayer(1, 0);
    EXPECT_NEAR(state().currentTime(), 4.5, 1e-9);
    model->seek(4.985);
    model->update("Enter", [](EditState& changed) {
        LayerOperations::setEnterPhase(changed, 1, 0, KineticPhase{.durationSec = 0.3});
    });
    model->selectLayer(1, 0);
    EXPECT_NEAR(state().currentTime(), 4.35, 1e-9);
    model->selectScene(1, true);
    EXPECT_NEAR(state().currentTime(), 3.02, 1e-9);
    EXPECT_EQ(state().edited().selection, (Selection{1, {}}));
    model->selectLayer(5, 0);
    EXPECT_EQ(state().edited().selection, (Selection{1, {}}));
}

TEST_F(EditorModel, TakesTextAsTheDocumentOrTellsWhatIsWrong) {
    load(testing::smallFilm());
    const EditState before = state().edited();
    EXPECT_EQ(model->applySpecJSON("\xff"), "Text is not valid UTF-8.");
    EXPECT_THAT(*model->applySpecJSON("{"), ::testing::StartsWith("Invalid JSON — "));
    EXPECT_EQ(model->applySpecJSON(R"({"scenes": [{"durationSec": 1, "layers": [{"kind": "text",
        "position": {"x": 0, "y": 0}, "tracks": [{"keyframes": []}], "text": {"text": "a"}}]}]})"),
        "Missing key \"property\" at scenes[0].layers[0].tracks[0].");
    EXPECT_EQ(state().edited(), before);
    CompositionSpec other = testing::smallFilm();
    other.scenes.pop_back();
    model->selectScene(1, false);
    EXPECT_FALSE(model->applySpecJSON(encodedJson(other)));
    EXPECT_EQ(state().edited().spec, other);
    EXPECT_EQ(state().edited().selection, (Selection{0, {}}));
    model->undo();
    EXPECT_EQ(state().edited().spec, before.spec);
}

TEST_F(EditorModel, OpensAndSavesABundle) {
    const testsupport::TemporaryFolder folder;
    const auto bundle =
        CompositionProjectBundle::write(testing::smallFilm(), std::nullopt, folder.path() / "film.tavixcomp");
    model->open(bundle);
    time.advance(1);
    EXPECT_EQ(state().statusMessage(), "1080×1920 @ 30fps — 2 scene(s), 6.0s.");
    tint();
    model->save();
    EXPECT_TRUE(state().hasUnsavedChanges());
    time.advance(1);
    EXPECT_FALSE(state().hasUnsavedChanges());
    EXPECT_EQ(state().statusMessage(), "Saved composition.json.");
    EXPECT_EQ(CompositionProjectBundle::read(bundle), state().edited().spec);
    tint();
    model->save();
    tint();   // not saved yet
    time.advance(1);
    EXPECT_TRUE(state().hasUnsavedChanges());
    model->save();
    time.advance(1);
    // Another hand on the file: nothing of it is lost unasked.
    const auto file = CompositionProjectBundle::specFile(bundle);
    const std::string theirs = readBytes(file) + "\n";
    writeBytesAtomically(theirs, file);
    tint();
    model->save();
    time.advance(1);
    EXPECT_EQ(readBytes(file), theirs);
    EXPECT_TRUE(state().hasUnsavedChanges());
    model->save({}, DocumentOnDisk::IfChanged::overwrite);
    time.advance(1);
    EXPECT_EQ(CompositionProjectBundle::read(bundle), state().edited().spec);
    model->open(folder.path() / "gone.tavixcomp");
    time.advance(1);
    EXPECT_FALSE(state().isLoaded());
    EXPECT_THAT(*state().errorMessage(), ::testing::StartsWith("Could not open: "));
    EXPECT_EQ(state().statusMessage(), "Open failed.");
}

TEST_F(EditorModel, KnowsTheNewLengthWhenSomebodySeeksBeforeItIsShown) {
    load(testing::smallFilm());
    maker->drawSec = 0.1;
    model->update("Longer", [](EditState& changed) { changed.spec.scenes[0].durationSec = 9; });
    time.advance(0.03);   // built, and its first picture under way
    model->seek(2);
    time.advance(2);
    EXPECT_EQ(state().outputDuration(), 12);
    EXPECT_EQ(state().currentTime(), 2);
}

// Whatever is under way, closing ends it, and nothing of it comes back.
TEST_F(EditorModel, ClosesInTheMiddleOfEverything) {
    std::mt19937 random(3);
    for (int round = 0; round < 60; ++round) {
        maker->buildSec = 0.01 * double(random() % 10);
        model->loadInMemory(round % 2 ? testing::smallFilm() : testing::smallFilmWithDevice(), "/nowhere");
        time.advance(double(random() % 300) / 1000);
        for (int step = 0; step < 12; ++step) {
            switch (random() % 8) {
            case 0: model->seek(double(random() % 60) / 10); break;
            case 1: model->togglePlay(); break;
            case 2: model->liveUpdateScene3D(0, 0, DeviceScene3D{}); break;
            case 3: model->commitLiveEdits(); break;
            case 4: model->zoomPreview(0.9); break;
            case 5: model->undo(); break;
            case 6: model->selectLayer(random() % 3, 0); break;
            default:
                model->update("Seed", [&](EditState& changed) {
                    changed.spec.seed = std::int64_t(random());
                    if (random() % 3 == 0) changed.spec.scenes[0].durationSec = 1 + double(random() % 5);
                });
            }
            time.advance(double(random() % 60) / 1000);
        }
        model->close();
        shown.clear();
        time.advance(2);
        EXPECT_TRUE(shown.empty());
        EXPECT_FALSE(state().isLoaded());
        EXPECT_EQ(state().outputDuration(), 0);
        EXPECT_EQ(state().currentTime(), 0);
        EXPECT_FALSE(state().isPlaying());
    }
    model->loadInMemory(testing::smallFilm(), "/nowhere");
    time.advance(0.005);
    model.reset();
    time.advance(2);
}

// Comparing documents takes long, so it is done elsewhere; what waits can be undone all the same.
TEST_F(EditorModel, PacksItsStepsElsewhere) {
    load(testing::smallFilm());
    const CompositionSpec before = spec();
    for (int i = 0; i < 3; ++i) tint();
    EXPECT_EQ(model->history().byteCount(), 0u) << "nothing was compared yet";
    model->undo();
    model->undo();
    time.settle();
    EXPECT_GT(model->history().byteCount(), 0u);
    EXPECT_EQ(model->history().stepCount(), 1u);
    model->redo();
    model->undo();
    model->undo();
    EXPECT_EQ(spec(), before);
    tint();
    model->close();   // under the job
    time.settle();
    EXPECT_EQ(model->history().stepCount(), 0u);
}

// A menu shows them; the end of a gesture changes no document.
TEST_F(EditorModel, TellsWhatUndoAndRedoTake) {
    load(testing::smallFilm());
    std::vector<std::string> shownNames;
    const Connection watching = watch(
        [&] {
            shownNames.push_back(state().undoName().value_or("-") + "/" + state().redoName().value_or("-"));
        },
        state().undoName, state().redoName);
    model->beginGesture("Fade");
    tint();
    tint();
    EXPECT_TRUE(shownNames.empty());
    model->endGesture();
    model->undo();
    model->redo();
    model->close();
    EXPECT_THAT(shownNames, ::testing::ElementsAre("Fade/-", "-/Fade", "Fade/-", "-/-"));
}

// An edit begins with a copy that was made elsewhere. Whenever that is ready, or whatever it was made of,
// what is seen is the same.
TEST_F(EditorModel, EditsACopyThatWasMadeElsewhere) {
    load(testing::smallFilm());
    std::vector<CompositionSpec> became{spec()};
    std::mt19937 random(9);
    for (int i = 0; i < 200; ++i) {
        switch (random() % 6) {
        case 0: model->selectLayer(random() % 2, 0); break;
        case 1: model->clearSelection(); break;
        case 2: model->update("Nothing", [](EditState&) {}); break;
        case 3:
            if (became.size() > 1) {
                model->undo();
                became.pop_back();
            }
            break;
        default: tint(); became.push_back(spec());
        }
        ASSERT_EQ(spec(), became.back()) << i;
        if (random() % 2) time.settle();
    }
    const auto kept = state().edited.shared();
    const CompositionSpec before = kept->spec;
    time.settle();
    tint();
    EXPECT_EQ(kept->spec, before) << "who keeps one keeps what it was";
    EXPECT_NE(spec(), before);
}

}   // namespace
}   // namespace tavix
