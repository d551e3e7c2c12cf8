// Two hands on the document of a reel, and sessions that crash.
#include "ManualReelEditor.h"
#include "TavixCore/Support/Document.h"

#include <gmock/gmock.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class ReelFiles : public testing::ManualReelEditor {
protected:
    ReelFiles() {
        stateFolder = folder / "state";
        backups.emplace(folder / "backups");
        start();
        fs::create_directories(bundle());
        writeFile(firstSpec(), effects());
        open();
    }
    EffectsSpec onDisk() const { return decodeFile<EffectsSpec>(effects()); }
    // As another program does it.
    void writeTheirs(const EffectsSpec& theirs) { writeTheirs(encodedJson(theirs)); }
    void writeTheirs(const std::string& text) {
        writeBytesAtomically(text, effects());
        watcher.change(bundle(), "effects.json");
        time.advance(0.5);
    }
    void save() {
        model->save();
        time.advance(0.5);
    }
    // The program is killed: nothing of the model runs any more, and its locks are free.
    void crash() {
        const fs::path journals = stateFolder / "reel-journals", kept = folder / "kept";
        if (fs::exists(journals)) fs::copy(journals, kept, fs::copy_options::recursive);
        model.reset();
        time.settle();
        fs::remove_all(journals);
        if (fs::exists(kept)) fs::rename(kept, journals);
        start();
        model->findLostWork();
        time.advance(1);
    }
};

TEST_F(ReelFiles, AreSavedWhereTheyWereEditedAndNowhereElse) {
    writeTheirs("{\"output\": {\"widthPx\": 100, \"heightPx\": 200, \"fps\": 30}, \"mood\": \"calm\"}");
    edit(11);
    EXPECT_TRUE(state().hasUnsavedChanges());
    save();
    EXPECT_EQ(state().statusMessage(), "Saved effects.json.");
    EXPECT_FALSE(state().hasUnsavedChanges());
    EXPECT_EQ(onDisk(), spec());
    EXPECT_EQ(onDisk().background.padding, 11);
    EXPECT_THAT(readBytes(effects()), HasSubstr("\"mood\": \"calm\"")) << "a key that nobody knows";
    ASSERT_EQ(backups->list(bundle()).size(), 1u) << "what saving replaced";
    EXPECT_THAT(readBytes(backups->list(bundle())[0].file), HasSubstr("calm"));
    model->update("Reset", [](EffectsSpec& spec) { spec.background.padding = Background{}.padding; });
    save();
    EXPECT_EQ(onDisk(), spec());
}

TEST_F(ReelFiles, WhatOthersChangeBecomesAStepUnderTheRunningPlayer) {
    model->seek(4);
    model->togglePlay();
    time.advance(0.2);
    EffectsSpec theirs = spec();
    theirs.background.padding = 44;
    writeTheirs(theirs);
    EXPECT_EQ(spec(), theirs);
    EXPECT_FALSE(state().hasUnsavedChanges());
    EXPECT_TRUE(state().isPlaying());
    EXPECT_EQ(built.back(), theirs);
    EXPECT_EQ(*model->undoName(), "Take in changes");
    EXPECT_EQ(state().statusMessage(), "Took in what another program changed.");
    model->undo();
    EXPECT_TRUE(state().hasUnsavedChanges());
    save();
    EXPECT_EQ(onDisk(), firstSpec());
}

TEST_F(ReelFiles, MergesWhatIsNotSaved) {
    EffectsSpec theirs = spec();
    theirs.cuts = {{.dropRange = {1, 2}}};
    edit(7);
    writeTheirs(theirs);
    EXPECT_EQ(spec().cuts, theirs.cuts);
    EXPECT_EQ(spec().background.padding, 7);
    EXPECT_TRUE(state().hasUnsavedChanges());
    EXPECT_TRUE(state().fileConflicts().empty());
    save();
    EXPECT_FALSE(state().errorMessage());
    EXPECT_EQ(onDisk(), spec());
}

TEST_F(ReelFiles, ChangesNothingUntilItIsChosenWhatToKeep) {
    for (const MergeSide side : {MergeSide::ours, MergeSide::theirs}) {
        EffectsSpec theirs = spec();
        theirs.background.padding = side == MergeSide::ours ? 50 : 51;
        theirs.cuts = {{.dropRange = {1, side == MergeSide::ours ? 2.0 : 3.0}}};
        const double ours = side == MergeSide::ours ? 60 : 61;
        edit(ours);
        const EffectsSpec before = spec();
        writeTheirs(theirs);
        EXPECT_EQ(spec(), before);
        ASSERT_EQ(state().fileConflicts().size(), 1u);
        EXPECT_EQ(state().fileConflicts()[0].values.path.text(), "/background/padding");
        save();   // not over them
        EXPECT_EQ(onDisk(), theirs);
        EXPECT_THAT(*state().errorMessage(), HasSubstr("was changed by another program"));
        model->takeInFile();
        time.advance(0.5);
        EXPECT_EQ(spec(), before) << "nothing is chosen";
        model->chooseForConflict(9, side);
        model->chooseForAllConflicts(side);
        model->takeInFile();
        time.advance(0.5);
        EXPECT_EQ(spec().background.padding, side == MergeSide::ours ? ours : theirs.background.padding);
        EXPECT_EQ(spec().cuts, theirs.cuts);
        EXPECT_FALSE(state().errorMessage());
        save();
        EXPECT_EQ(onDisk(), spec());
    }
}

TEST_F(ReelFiles, WaitForTheEndOfADrag) {
    EffectsSpec theirs = firstSpec();
    theirs.deviceScene.emplace();
    theirs.deviceScene->enabled = true;
    writeTheirs(theirs);
    model->liveSetDeviceTilt({5, 0, 0});
    theirs.background.padding = 44;
    writeTheirs(theirs);
    EXPECT_NE(spec().background.padding, 44);
    model->liveSetDeviceTilt({9, 0, 0});
    time.advance(0.5);
    model->commitLiveEdits();
    time.advance(0.5);
    EXPECT_EQ(spec().background.padding, 44);
    EXPECT_EQ(spec().deviceScene->tiltDegrees.x, 9);
    model->undo();
    EXPECT_NE(spec().background.padding, 44);
    EXPECT_EQ(spec().deviceScene->tiltDegrees.x, 9) << "the turn was a step before";
}

TEST_F(ReelFiles, KeepTheDocumentWhenTheFileCannotBeReadOrIsGone) {
    edit(3);
    const EffectsSpec ours = spec();
    const std::string before = readBytes(effects());
    writeTheirs("{ \"cuts\": [");
    EXPECT_THAT(*state().errorMessage(), HasSubstr("which cannot be taken in: "));
    EXPECT_EQ(spec(), ours);
    writeTheirs(before);
    EXPECT_FALSE(state().errorMessage());
    fs::remove(effects());
    save();
    EXPECT_FALSE(fs::exists(effects()));
    EXPECT_TRUE(state().hasUnsavedChanges());
    model->save({}, IfChanged::overwrite);
    time.advance(0.5);
    EXPECT_EQ(onDisk(), ours);
    EXPECT_FALSE(state().hasUnsavedChanges());
}

TEST_F(ReelFiles, AreSavedOnceMoreWhenThatIsAskedMeanwhile) {
    edit(1);
    model->save();
    edit(2);
    int done = 0;
    model->save();
    model->save([&] { ++done; });
    time.advance(0.5);
    EXPECT_EQ(done, 1);
    EXPECT_EQ(onDisk(), spec());
    EXPECT_FALSE(state().hasUnsavedChanges());
}

TEST_F(ReelFiles, AnotherRecordingIsTakenInAndAPictureOfTheDocumentDrawnAnew) {
    edit(4);
    model->update("Card",
        [](EffectsSpec& spec) { spec.titleCards = {TitleCard{.showLogo = true, .logoPath = "logo.png"}}; });
    time.advance(1);
    const EffectsSpec ours = spec();
    std::size_t before = built.size();
    watcher.change(bundle(), "notes.txt");
    watcher.change(bundle(), ".logo.png.part");
    time.advance(2);
    EXPECT_EQ(built.size(), before) << "nothing of the reel";
    for (int i = 0; i < 5; ++i) watcher.change(bundle(), "logo.png");
    time.advance(2);
    EXPECT_EQ(built.size(), ++before);
    rawSec = 6;
    for (int i = 0; i < 5; ++i) watcher.change(bundle(), "raw.mov");
    time.advance(2);
    EXPECT_EQ(built.size(), ++before);
    EXPECT_EQ(spec(), ours);
    EXPECT_DOUBLE_EQ(model->project()->rawDurationSec, 6);
    EXPECT_NEAR(state().outputDuration(), 6 + ours.titleCards[0].durationSec, 1e-9);
    model->close();
    EXPECT_FALSE(watcher.isWatched(bundle()));
}

TEST_F(ReelFiles, BringBackWhatACrashCutOff) {
    edit(5);
    EXPECT_FALSE(state().isKept());
    time.advance(5);
    EXPECT_TRUE(state().isKept());
    edit(6);
    time.advance(5);
    const EffectsSpec ours = spec();
    // Others went on with the file.
    EffectsSpec theirs = firstSpec();
    theirs.cuts = {{.dropRange = {1, 2}}};
    writeFile(theirs, effects());
    crash();
    ASSERT_EQ(state().lostWork().size(), 1u);
    EXPECT_EQ(state().lostWork()[0].assetRoot, bundle());
    model->recoverLostWork(0);
    time.advance(5);
    EXPECT_EQ(spec().background.padding, 6);
    EXPECT_EQ(spec().cuts, theirs.cuts);
    EXPECT_TRUE(state().hasUnsavedChanges());
    EXPECT_TRUE(state().lostWork().empty());
    save();
    EXPECT_EQ(onDisk(), spec());
    model->undo();
    model->undo();
    EXPECT_EQ(spec(), firstSpec());
    crash();
    EXPECT_EQ(state().lostWork().size(), 0u) << "undone a moment ago, and not in the journal yet";
}

TEST_F(ReelFiles, OfferOnceMoreAfterASecondCrashAndNotOnceItIsRefused) {
    edit(5);
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
    edit(7);
    time.advance(5);
    model->close();
    time.advance(1);
    crash();
    EXPECT_TRUE(state().lostWork().empty()) << "a document that was closed";
}

}   // namespace
}   // namespace tavix
