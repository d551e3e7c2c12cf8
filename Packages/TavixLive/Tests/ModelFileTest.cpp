// Two hands on one file, and sessions that crash.
#include "ManualEditor.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class ModelFile : public testing::ManualEditor {
protected:
    ModelFile() {
        stateFolder = folder / "state";
        backups.emplace(folder / "backups");
        start();
        bundle = folder / "film.tavixcomp";
        fs::create_directory(bundle);
        CompositionProjectBundle::save(testing::smallFilmWithDevice(), bundle);
        open();
    }
    void open() {
        model->open(bundle);
        time.advance(1);
    }
    CompositionSpec onDisk() const { return CompositionProjectBundle::read(bundle); }
    // As another program does it.
    void writeTheirs(const CompositionSpec& theirs) {
        CompositionProjectBundle::save(theirs, bundle);
        watcher.change(bundle, "composition.json");
        time.advance(0.5);
    }
    void save() {
        model->save();
        time.advance(0.5);
    }
    // The program is killed: nothing of the model runs any more, and its locks are free.
    void crash() {
        const fs::path journals = stateFolder / "journals", kept = folder / "kept";
        if (fs::exists(journals)) fs::copy(journals, kept, fs::copy_options::recursive);
        model.reset();
        time.settle();
        fs::remove_all(journals);
        if (fs::exists(kept)) fs::rename(kept, journals);
        start();
        model->findLostWork();
        time.advance(1);
    }

    testsupport::TemporaryFolder folder;
    fs::path bundle;
};

TEST_F(ModelFile, TakesInWhatOthersChangeAsAStepUnderTheRunningPlayer) {
    model->selectLayer(1, 0);
    model->togglePlay();
    time.advance(0.5);
    const auto* pictures = model->preview().pictures();
    CompositionSpec theirs = spec();
    theirs.scenes[1].layers.insert(
        theirs.scenes[1].layers.begin(), CompositionLayer{.id = "new", .content = ShapeContent{}});
    writeTheirs(theirs);
    EXPECT_EQ(spec(), theirs);
    EXPECT_FALSE(state().hasUnsavedChanges());
    EXPECT_TRUE(state().isPlaying());
    EXPECT_EQ(model->preview().pictures(), pictures);
    EXPECT_EQ(maker->built.back().spec, theirs);
    EXPECT_EQ(state().edited().selection, (Selection{1, 1})) << "the layer that was selected";
    EXPECT_EQ(*model->history().undoName(), "Take in changes");
    model->undo();
    time.advance(1);
    EXPECT_EQ(spec().scenes[1].layers.size(), 1u);
    EXPECT_TRUE(state().hasUnsavedChanges());
    save();
    EXPECT_EQ(onDisk(), spec());
}

TEST_F(ModelFile, MergesWhatOthersChangeWithWhatIsNotSaved) {
    CompositionSpec theirs = spec();
    theirs.scenes[1].layers[0].opacity = 0.25;
    tint();
    const double ours = spec().scenes[0].layers[0].opacity;
    writeTheirs(theirs);
    EXPECT_EQ(spec().scenes[0].layers[0].opacity, ours);
    EXPECT_EQ(spec().scenes[1].layers[0].opacity, 0.25);
    EXPECT_TRUE(state().hasUnsavedChanges());
    EXPECT_TRUE(state().fileConflicts().empty());
    save();
    EXPECT_FALSE(state().errorMessage());
    EXPECT_EQ(onDisk(), spec());
}

TEST_F(ModelFile, TellsWhatAnotherProgramMadeOfTheFile) {
    EXPECT_FALSE(state().takenIn());
    CompositionSpec theirs = spec();
    theirs.scenes[1].layers[0].opacity = 0.25;
    tint();   // is not theirs
    const double ours = spec().scenes[0].layers[0].opacity;
    writeTheirs(theirs);
    ASSERT_TRUE(state().takenIn());
    CompositionSpec was = state().takenIn()->before->spec;
    EXPECT_NE(was.scenes[0].layers[0].opacity, ours);
    was.scenes[1].layers[0].opacity = 0.25;
    EXPECT_EQ(was, state().takenIn()->after->spec);
}

TEST_F(ModelFile, ATextByHandIsSavedAsItIsWrittenAndUndoneWhole) {
    std::string text = R"({"output": {"widthPx": 300, "heightPx": 300}, "pace": "slow",
        "scenes": [{"durationSec": 2, "opactiy": 1, "layers": []}]})";
    CompositionProjectBundle::saveText(text, bundle);
    open();
    const auto saving = [this] { return model->savedText()(); };
    EXPECT_EQ(saving(), text);
    text.replace(text.find("\"opactiy\": 1, "), 14, "");
    EXPECT_FALSE(model->applySavedText(text, "Mend"));
    EXPECT_EQ(saving(), text) << "a key that nobody knows can go, and another one stays";
    EXPECT_TRUE(state().hasUnsavedChanges());
    text.replace(text.find(": 2"), 3, ": 3.0");
    EXPECT_FALSE(model->applySavedText(text, "Mend"));
    EXPECT_EQ(spec().scenes[0].durationSec, 3);
    EXPECT_EQ(*model->history().undoName(), "Mend");
    EXPECT_EQ(model->applySavedText("{", "Mend")->substr(0, 12), "Invalid JSON");
    save();
    EXPECT_EQ(DocumentOnDisk::textIn(bundle), text);
    EXPECT_FALSE(state().hasUnsavedChanges());
    model->undo();
    time.advance(1);
    EXPECT_EQ(spec().scenes[0].durationSec, 2);
}

TEST_F(ModelFile, ChangesNothingUntilItIsChosenWhatToKeep) {
    CompositionSpec theirs = spec();
    theirs.seed = 5;
    theirs.scenes[0].layers[0].opacity = 0.1;
    theirs.scenes[1].durationSec = 8;
    tint();
    model->update("Seed", [](EditState& changed) { changed.spec.seed = 4; });
    const CompositionSpec ours = spec();
    writeTheirs(theirs);
    EXPECT_EQ(spec(), ours);
    ASSERT_EQ(state().fileConflicts().size(), 2u);
    save();   // not over them
    EXPECT_EQ(onDisk(), theirs);
    EXPECT_THAT(*state().errorMessage(), HasSubstr("was changed by another program since it was opened"));
    EXPECT_TRUE(state().hasUnsavedChanges());
    model->takeInFile();
    time.advance(0.5);
    EXPECT_EQ(spec(), ours) << "nothing is chosen";
    for (std::size_t i = 0; i < 2; ++i)
        model->chooseForConflict(i,
            state().fileConflicts()[i].values.path.text() == "/seed" ? MergeSide::theirs : MergeSide::ours);
    model->chooseForConflict(7, MergeSide::ours);
    // Meanwhile work goes on, and the other one's too.
    model->update("Longer", [](EditState& changed) { changed.spec.scenes[0].durationSec = 4; });
    theirs.scenes[1].durationSec = 9;
    writeTheirs(theirs);
    ASSERT_EQ(state().fileConflicts().size(), 2u);
    model->takeInFile();
    time.advance(0.5);
    CompositionSpec both = ours;
    both.seed = 5;
    both.scenes[0].durationSec = 4;
    both.scenes[1].durationSec = 9;
    EXPECT_EQ(spec(), both);
    EXPECT_TRUE(state().fileConflicts().empty());
    EXPECT_FALSE(state().errorMessage());
    save();
    EXPECT_EQ(onDisk(), both);
    EXPECT_FALSE(state().hasUnsavedChanges());
}

TEST_F(ModelFile, MergesWhenSavingFindsTheFileChanged) {
    CompositionSpec theirs = spec();
    theirs.scenes[1].durationSec = 8;
    tint();
    CompositionProjectBundle::save(theirs, bundle);   // and nobody tells
    save();
    EXPECT_EQ(onDisk(), theirs);
    EXPECT_EQ(spec().scenes[1].durationSec, 8);
    EXPECT_FALSE(state().errorMessage());
    EXPECT_TRUE(state().hasUnsavedChanges());
    save();
    EXPECT_EQ(onDisk(), spec());
}

TEST_F(ModelFile, WaitsForTheEndOfAGesture) {
    CompositionSpec theirs = spec();
    theirs.scenes[1].durationSec = 8;
    model->beginGesture("Fade");
    tint();
    writeTheirs(theirs);
    EXPECT_EQ(spec().scenes[1].durationSec, 3);
    tint();
    model->endGesture();
    time.advance(0.5);
    EXPECT_EQ(spec().scenes[1].durationSec, 8);
    EXPECT_EQ(model->history().stepCount(), 2u);
    theirs.scenes[1].durationSec = 9;
    model->liveUpdateScene3D(0, 0, DeviceScene3D{});
    writeTheirs(theirs);
    EXPECT_EQ(spec().scenes[1].durationSec, 8);
    model->commitLiveEdits();
    time.advance(0.5);
    EXPECT_EQ(spec().scenes[1].durationSec, 9);
}

TEST_F(ModelFile, KeepsItsDocumentWhenTheFileCannotBeReadOrIsGone) {
    tint();
    const CompositionSpec ours = spec();
    const fs::path file = CompositionProjectBundle::specFile(bundle);
    const std::string before = readBytes(file);
    writeBytesAtomically("{ \"scenes\": [", file);
    watcher.change(bundle, "composition.json");
    time.advance(0.5);
    EXPECT_THAT(*state().errorMessage(), HasSubstr("which cannot be taken in: "));
    EXPECT_EQ(spec(), ours);
    writeBytesAtomically(before, file);
    watcher.change(bundle, "composition.json");
    time.advance(0.5);
    EXPECT_FALSE(state().errorMessage());
    fs::remove_all(bundle);
    watcher.change(bundle, "");
    time.advance(0.5);
    EXPECT_TRUE(state().errorMessage());
    save();
    EXPECT_THAT(*state().errorMessage(), HasSubstr("which cannot be taken in: "));
    EXPECT_FALSE(fs::exists(bundle));
    model->save({}, DocumentOnDisk::IfChanged::overwrite);
    time.advance(0.5);
    EXPECT_EQ(onDisk(), ours);
}

TEST_F(ModelFile, SavesOnceMoreWhenItIsAskedWhileItSaves) {
    tint();
    model->save();
    tint();
    model->save();
    model->save();
    time.advance(0.5);
    EXPECT_FALSE(state().errorMessage());
    EXPECT_FALSE(state().hasUnsavedChanges());
    EXPECT_EQ(onDisk(), spec());
}

TEST_F(ModelFile, DrawsAnewWhenAFileOfTheDocumentChanges) {
    fs::create_directory(CompositionProjectBundle::assetsFolder(bundle));
    watcher.change(bundle, "assets");
    time.advance(1);
    maker->built.clear();
    for (int i = 0; i < 5; ++i) watcher.change(CompositionProjectBundle::assetsFolder(bundle), "screen.png");
    watcher.change(CompositionProjectBundle::assetsFolder(bundle), ".screen.png.part");
    time.advance(1);
    EXPECT_EQ(maker->built.size(), 1u);
    model->close();
    EXPECT_FALSE(watcher.isWatched(bundle));
}

TEST_F(ModelFile, BringsBackWhatACrashCutOff) {
    tint();
    time.advance(5);
    tint();   // on disk five seconds later
    time.advance(5);
    const CompositionSpec ours = spec();
    const CompositionSpec saved = onDisk();
    crash();
    ASSERT_EQ(state().lostWork().size(), 1u);
    EXPECT_EQ(state().lostWork()[0].assetRoot, bundle);
    model->recoverLostWork(0);
    time.advance(5);
    EXPECT_EQ(spec(), ours);
    EXPECT_TRUE(state().hasUnsavedChanges());
    EXPECT_TRUE(state().lostWork().empty());
    model->undo();
    EXPECT_EQ(spec(), saved);
    model->redo();
    save();
    EXPECT_EQ(onDisk(), ours);
    crash();
    EXPECT_TRUE(state().lostWork().empty()) << "everything was saved";
}

TEST_F(ModelFile, OffersOnceMoreAfterASecondCrashAndNotOnceItIsRefused) {
    tint();
    time.advance(5);
    crash();
    EXPECT_EQ(state().lostWork().size(), 1u);
    crash();
    ASSERT_EQ(state().lostWork().size(), 1u) << "nobody has answered";
    model->recoverLostWork(0);
    time.advance(5);
    crash();
    ASSERT_EQ(state().lostWork().size(), 1u) << "that of the second session, and no other";
    model->forgetLostWork(0);
    model->forgetLostWork(3);
    time.advance(1);
    crash();
    EXPECT_TRUE(state().lostWork().empty());
    open();
    EXPECT_FALSE(state().hasUnsavedChanges());
}

TEST_F(ModelFile, BringsBackADragThatHadNotEnded) {
    DeviceScene3D turned;
    turned.tiltDegrees.y = 33;
    model->liveUpdateScene3D(0, 0, turned);
    time.advance(5);
    crash();
    ASSERT_EQ(state().lostWork().size(), 1u);
    model->recoverLostWork(0);
    time.advance(1);
    EXPECT_EQ(std::get<DeviceContent>(spec().scenes[0].layers[0].content).scene3D, turned);
}

TEST_F(ModelFile, MergesWhatItBringsBackWithWhatTheFileHasBecome) {
    CompositionSpec theirs = spec();
    theirs.scenes[1].durationSec = 8;
    tint();
    const double ours = spec().scenes[0].layers[0].opacity;
    time.advance(5);
    CompositionProjectBundle::save(theirs, bundle);
    crash();
    model->recoverLostWork(0);
    time.advance(1);
    EXPECT_EQ(spec().scenes[1].durationSec, 8);
    EXPECT_EQ(spec().scenes[0].layers[0].opacity, ours);
}

TEST_F(ModelFile, LeavesNoJournalOfADocumentThatWasClosed) {
    tint();
    time.advance(5);
    model->close();
    time.advance(1);
    crash();
    EXPECT_TRUE(state().lostWork().empty());
}

TEST_F(ModelFile, BacksUpWhatSavingReplaces) {
    const std::string first = readBytes(CompositionProjectBundle::specFile(bundle));
    tint();
    save();
    auto kept = backups->list(bundle);
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(readBytes(kept[0].file), first);
    // Also the work of another program that is saved over.
    CompositionSpec theirs = onDisk();
    theirs.seed = 77;
    CompositionProjectBundle::save(theirs, bundle);
    model->save({}, DocumentOnDisk::IfChanged::overwrite);
    time.advance(0.5);
    kept = backups->list(bundle);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(decodeJson<CompositionSpec>(readBytes(kept[0].file)), theirs);
}

// The structure of the document is the same, but what is heard is not.
TEST_F(ModelFile, MakesTheSoundAnewWhenAFileOfItChanges) {
    const fs::path assets = CompositionProjectBundle::assetsFolder(bundle);
    fs::create_directory(assets);
    watcher.change(bundle, "assets");
    time.advance(1);
    model->update("Music", [](EditState& changed) {
        changed.spec.audio.emplace();
        changed.spec.audio->music = MusicBed{.path = "assets/song.wav"};
    });
    time.advance(1);
    model->seek(2);
    model->togglePlay();
    time.advance(0.5);
    int made = maker->soundsMade;
    watcher.change(assets, "screen.png");
    time.advance(0.5);
    EXPECT_EQ(maker->soundsMade, made) << "a picture is not heard";
    const auto* pictures = model->preview().pictures();
    for (int i = 0; i < 3; ++i) watcher.change(assets, "song.wav");
    time.advance(0.5);
    EXPECT_EQ(maker->soundsMade, made + 1);
    EXPECT_NE(model->preview().pictures(), pictures);
    EXPECT_TRUE(state().isPlaying());
    EXPECT_NEAR(state().currentTime(), 3.5, 0.1) << "it goes on where it was";
    tint();
    time.advance(0.5);
    EXPECT_EQ(maker->soundsMade, made + 1) << "once";
}

}   // namespace
}   // namespace tavix
