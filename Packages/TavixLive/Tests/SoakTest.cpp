// Long sessions by chance: operations, undo, gestures, drags, seeks, saves, and other programs that write the
// file. TAVIX_SOAK names how many steps, TAVIX_SOAK_SEED where they begin.
#include "ManualEditor.h"
#include "RandomEdits.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <map>

namespace tavix {
namespace {

namespace fs = std::filesystem;

int setting(const char* name, int usual) {
    const char* told = std::getenv(name);
    return told ? std::atoi(told) : usual;
}

class Soak : public testing::ManualEditor {
protected:
    static constexpr int stepsOfOne = 250;

    // One document, from its opening until everything is undone.
    void live(unsigned seed) {
        SCOPED_TRACE(seed);
        random.seed(seed);
        const fs::path bundle = folder / ("film" + std::to_string(seed) + ".tavixcomp");
        EditState first = testing::firstState();
        for (int i = 0; i < 20; ++i) testing::editAnything(first, random);
        fs::create_directory(bundle);
        CompositionProjectBundle::save(first.spec, bundle);
        const std::string bytes = readBytes(CompositionProjectBundle::specFile(bundle));
        mayChangeFile = seed % 2 == 0;
        model->open(bundle);
        time.advance(1);
        const std::string opened = encodedJson(spec());
        for (int i = 0; i < stepsOfOne; ++i) {
            step(bundle);
            if (i % 10 == 0) {
                settle();
                judge();
                if (HasFatalFailure()) return;
            }
        }
        settle();
        while (model->history().undoName()) model->undo();
        settle();
        EXPECT_EQ(encodedJson(spec()), opened);
        if (!mayChangeFile) {
            model->save();
            time.advance(1);
            EXPECT_EQ(readBytes(CompositionProjectBundle::specFile(bundle)), bytes);
        }
        model->close();
        time.advance(5);
        EXPECT_TRUE(fs::is_empty(stateFolder / "journals")) << "of a session in health";
    }
    void settle() {
        model->endGesture();
        model->commitLiveEdits();
        time.advance(1);
        for (int i = 0; i < 3 && !state().fileConflicts().empty(); ++i) {
            ++counts["conflicts"];
            for (std::size_t j = 0; j < state().fileConflicts().size(); ++j)
                model->chooseForConflict(j, random() % 2 ? MergeSide::ours : MergeSide::theirs);
            model->takeInFile();
            time.advance(1);
        }
    }
    // The model says of its document what lint says of it.
    void judge() {
        std::optional<std::string> error;
        for (const auto& finding : CompositionLint::lint(spec()))
            if (finding.level == CompositionLint::Level::error && !error)
                error = finding.path + ": " + finding.message;
        EXPECT_EQ(state().errorMessage(), error);
        const Selection& selected = state().edited().selection;
        EXPECT_TRUE(!selected.scene || *selected.scene < spec().scenes.size());
        EXPECT_TRUE(!selected.layer || *selected.layer < spec().scenes[*selected.scene].layers.size());
        EXPECT_LE(state().currentTime(), state().outputDuration());
        for (const auto& conflict : state().fileConflicts())
            ADD_FAILURE() << conflict.values.message() << (conflict.chosen ? " chosen" : "");
    }
    void step(const fs::path& bundle) {
        const unsigned which = unsigned(random() % 20);
        ++counts[which < 9 ? "edits" : which < 12 ? "undos" : which < 15 ? "seeks" : "others"];
        switch (which) {
        case 9:
        case 10: model->undo(); break;
        case 11: model->redo(); break;
        case 12:
        case 13: model->seek(state().outputDuration() * double(random() % 100) / 99); break;
        case 14: model->togglePlay(); break;
        case 15: model->beginGesture("Gesture"); break;
        case 16: model->endGesture(); break;
        case 17: drag(); break;
        case 18:
            if (mayChangeFile) changeFile(bundle);
            break;
        case 19:
            if (mayChangeFile) model->save();
            break;
        default: model->update("Edit", [&](EditState& edited) { testing::editAnything(edited, random); });
        }
        time.advance(double(random() % 120) / 1000);
    }
    void drag() {
        DeviceScene3D turned;
        turned.tiltDegrees.y = double(random() % 90);
        model->liveUpdateScene3D(random() % 3, random() % 3, turned);
        if (random() % 2) model->commitLiveEdits();
    }
    // Another program, which may be cut off.
    void changeFile(const fs::path& bundle) {
        EditState theirs{CompositionProjectBundle::read(bundle), {}};
        for (unsigned i = 0; i <= random() % 3; ++i) testing::editAnything(theirs, random);
        CompositionProjectBundle::save(theirs.spec, bundle);
        ++counts["files"];
        watcher.change(bundle, "composition.json");
    }
    std::size_t heapBytes() {
        time.advance(5);
        shown = {};
        maker = std::make_shared<testing::FakeMaker>(time);
        start();
        time.settle();
        return mallinfo2().uordblks;
    }

    testsupport::TemporaryFolder folder;
    std::mt19937 random;
    bool mayChangeFile = false;
    std::map<std::string, int> counts;
};

TEST_F(Soak, StaysSoundAndUndoesToTheFirstByte) {
    stateFolder = folder / "state";
    fs::create_directories(stateFolder / "journals");
    start();
    const int documents = std::max(setting("TAVIX_SOAK", 2000) / stepsOfOne, 3);
    const auto seed = unsigned(setting("TAVIX_SOAK_SEED", 1));
    std::size_t early = 0;
    for (int i = 0; i < documents && !HasFailure(); ++i) {
        live(seed + unsigned(i));
        if (i == 2) early = heapBytes();
    }
    const std::size_t late = heapBytes();
    for (const auto& [what, count] : counts) std::printf("%d %s, ", count, what.c_str());
    std::printf(
        "%d documents, heap %zu KiB after three, %zu KiB after all\n", documents, early / 1024, late / 1024);
    EXPECT_LT(double(late), double(early) + 1e6 + 2000.0 * documents);
}

}   // namespace
}   // namespace tavix
