// The model of a reel editor in virtual time, with previews that take as long to build as the test says.
#include "TavixReelLive/Model/ReelEditorModel.h"
#include "../../TavixLive/Tests/ManualStudio.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/Document.h"
#include "TavixReelLive/Operations/CaptionEdits.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tavix {
namespace {

using testing::FakeSource;

constexpr double recordingSec = 10;

class ReelEditor : public ::testing::Test {
protected:
    ReelEditor() {
        model_.setStageSink([this](const StagePicture& picture) { shown_ = testing::numberOf(picture); });
    }
    ReelEditorModel::Services services() {
        return {.main = main_,
            .render = render_,
            .workers = workers_,
            .load =
                [this](const std::filesystem::path& path) {
                    time_.spend(loadSec_[path.filename().string()]);
                    if (path.filename() == "gone.tavixproj") throw Failure("There is no recording.");
                    ReelProject project;
                    project.bundle = path;
                    project.effectsFile = folder_ / (path.filename().string() + ".effects.json");
                    project.probe = {.widthPx = 100, .heightPx = 200, .fps = 30};
                    project.rawDurationSec = project.trimEndSec = recordingSec;
                    project.spec.output = {100, 200, 30};
                    project.spec.cameraTrack = {{0, 1, {50, 100}}};
                    return project;
                },
            .preview = [this](const EffectsSpec& spec, const ReelFootage& footage, const auto&,
                           imaging::Size) -> ReelPreview {
                time_.spend(buildSec_);
                if (isBroken_) throw Failure("The phone is gone.");
                builtAtSec_.push_back(time_.nowSec());
                built_.push_back(spec);
                const double totalSec = ReelTimeline::outputDurationSec(reelSegments(spec, footage));
                return {std::make_shared<FakeSource>(time_, int(built_.size()), totalSec, 0.001), {}};
            }};
    }
    void open(const std::string& name = "walk.tavixproj") {
        model_.open(name);
        time_.advance(1);
    }
    void edit(double padding) {
        model_.update("Pad", [padding](EffectsSpec& spec) { spec.background.padding = padding; });
    }

    testsupport::TemporaryFolder folder_;
    system::ManualTime time_;
    system::ManualExecutor main_{time_}, render_{time_}, workers_{time_};
    std::map<std::string, double> loadSec_;
    double buildSec_ = 0.01;
    bool isBroken_ = false;
    std::vector<EffectsSpec> built_;
    std::vector<double> builtAtSec_;
    int shown_ = 0;
    ReelEditorModel model_{services()};
};

TEST_F(ReelEditor, OpensAndTellsWhatItFound) {
    EXPECT_EQ(model_.state.statusMessage(), "Open a reel to begin.");
    model_.open("walk.tavixproj");
    EXPECT_EQ(model_.state.statusMessage(), "Probing walk.tavixproj…");
    time_.advance(1);
    EXPECT_TRUE(model_.state.isLoaded());
    EXPECT_EQ(model_.state.statusMessage(), "100×200 @ 30.0 fps — 1 keyframe(s), 0 cut(s).");
    EXPECT_DOUBLE_EQ(model_.state.outputDuration(), recordingSec);
    EXPECT_EQ(shown_, 1);
    model_.close();
    EXPECT_EQ(model_.state.statusMessage(), "Open a reel to begin.");
    EXPECT_FALSE(model_.state.isLoaded());
}

TEST_F(ReelEditor, OfTwoOpensTheLaterCounts) {
    loadSec_["slow.tavixproj"] = 3;
    model_.open("slow.tavixproj");
    model_.open("walk.tavixproj");
    time_.advance(10);
    EXPECT_EQ(model_.project()->bundle, "walk.tavixproj");
    model_.open("gone.tavixproj");
    time_.advance(1);
    EXPECT_EQ(model_.state.errorMessage(), "Could not open: There is no recording.");
    EXPECT_EQ(model_.state.statusMessage(), "Open failed.");
    EXPECT_EQ(model_.project()->bundle, "walk.tavixproj") << "what was open stays";
}

TEST_F(ReelEditor, ABurstOfEditsCostsOneRebuildAtOnceAndOneAtItsEnd) {
    open();
    const std::size_t before = built_.size();
    for (int i = 1; i <= 10; ++i) {
        edit(i);
        time_.advance(0.02);
    }
    EXPECT_EQ(built_.size(), before + 1) << "the first, as nothing was asked for lately";
    time_.advance(1);
    ASSERT_EQ(built_.size(), before + 2);
    EXPECT_EQ(built_.back().background.padding, 10);
    EXPECT_EQ(shown_, int(built_.size()));
}

TEST_F(ReelEditor, OfTwoRebuildsTheLaterIsShown) {
    open();
    buildSec_ = 0.5;
    edit(1);
    time_.advance(0.1);
    model_.rebuildNow();
    edit(2);
    time_.advance(5);
    EXPECT_EQ(built_.back().background.padding, 2);
    EXPECT_EQ(shown_, int(built_.size()));
    isBroken_ = true;
    edit(3);
    time_.advance(2);
    EXPECT_EQ(model_.state.errorMessage(), "Preview failed: The phone is gone.");
}

TEST_F(ReelEditor, TheTimeStaysWhereOnlyThePictureChanges) {
    open();
    model_.seek(4);
    time_.advance(0.5);
    edit(3);
    time_.advance(0.5);
    EXPECT_DOUBLE_EQ(model_.state.currentTime(), 4);
}

TEST_F(ReelEditor, AfterACutThePlayheadStandsOnTheSameFootage) {
    open();
    model_.update("Cut", [](EffectsSpec& spec) { spec.cuts = {{.dropRange = {1, 2}}}; });
    time_.advance(0.5);
    model_.seek(5);   // footage of 6 s
    time_.advance(0.5);
    ASSERT_DOUBLE_EQ(model_.clock().playheadSec, 6);
    model_.update("Cut", [](EffectsSpec& spec) { spec.cuts.push_back({.dropRange = {3, 4.5}}); });
    time_.advance(0.5);
    EXPECT_NEAR(model_.clock().playheadSec, 6, 1e-9);
    EXPECT_NEAR(model_.state.currentTime(), 3.5, 1e-9);
    EXPECT_NEAR(model_.state.outputDuration(), 7.5, 1e-9);
    model_.undo();
    time_.advance(0.5);
    EXPECT_NEAR(model_.state.currentTime(), 5, 1e-9);
}

TEST_F(ReelEditor, StepsAreTakenBackAndDoneAgain) {
    open();
    const EffectsSpec opened = model_.state.spec();
    EXPECT_FALSE(model_.undoName());
    edit(5);
    model_.update("Nothing", [](EffectsSpec&) {});
    model_.update("Add Caption", [this](EffectsSpec& spec) { CaptionEdits::add(spec, model_.clock()); });
    const EffectsSpec edited = model_.state.spec();
    EXPECT_EQ(*model_.undoName(), "Add Caption");
    EXPECT_TRUE(model_.state.hasUnsavedChanges());
    model_.undo();
    model_.undo();
    model_.undo();
    EXPECT_EQ(model_.state.spec(), opened);
    EXPECT_FALSE(model_.state.hasUnsavedChanges());
    EXPECT_EQ(*model_.redoName(), "Pad");
    model_.redo();
    model_.redo();
    EXPECT_EQ(model_.state.spec(), edited);
    model_.undo();
    edit(9);
    EXPECT_FALSE(model_.redoName()) << "another way was taken";
}

TEST_F(ReelEditor, SavesBesideTheRecording) {
    open();
    edit(11);
    model_.save();
    EXPECT_EQ(model_.state.statusMessage(), "Saved walk.tavixproj.effects.json.");
    EXPECT_FALSE(model_.state.hasUnsavedChanges());
    EXPECT_EQ(decodeFile<EffectsSpec>(folder_ / "walk.tavixproj.effects.json"), model_.state.spec());
}

TEST_F(ReelEditor, ACaptionThatIsDraggedIsLeftToItsWindow) {
    open();
    model_.update("Add Caption", [this](EffectsSpec& spec) { CaptionEdits::add(spec, model_.clock()); });
    time_.advance(1);
    model_.setExcludedCaption(0);
    time_.advance(1);
    EXPECT_TRUE(built_.back().narration->captions.empty());
    EXPECT_EQ(model_.state.spec().narration->captions.size(), 1u);
    model_.setExcludedCaption(std::nullopt);
    time_.advance(1);
    EXPECT_EQ(built_.back().narration->captions.size(), 1u);
}

TEST(ReelExportChoices, AreSnappedAndNamed) {
    for (const auto& [fps, snapped] : {std::pair(24.0, 30), {44.0, 30}, {45.0, 60}, {120.0, 60}})
        EXPECT_EQ(snapExportFps(fps), snapped);
    EXPECT_EQ(exportFileName(ExportFormat::gif, VideoCodec::h264, ExportContainer::mov), "reel.gif");
    EXPECT_EQ(exportFileName(ExportFormat::video, VideoCodec::proRes4444, ExportContainer::mp4), "reel.mov");
    EXPECT_EQ(exportFileName(ExportFormat::video, VideoCodec::hevc, ExportContainer::mp4), "reel.mp4");
}

TEST(TimingKeys, AreEqualWhereTheClockIs) {
    const ReelFootage footage{
        .video = "raw.mov", .size = {64, 64}, .durationSec = 10, .trimStartSec = 1, .trimEndSec = 9};
    EffectsSpec spec;
    spec.output = {64, 64, 30};
    const std::string key = timingKey(spec, footage);
    EffectsSpec look = spec;
    look.background.padding = 3;
    look.cameraTrack = {{1, 2, {3, 4}}};
    look.narration.emplace();
    EXPECT_EQ(timingKey(look, footage), key);
    std::vector<EffectsSpec> others(4, spec);
    others[0].cuts = {{.dropRange = {1, 1.0000001}}};
    others[1].retimeTrack = {{{1, 2}, 1.5}};
    others[2].titleCards = {TitleCard{.insertionSec = 3}};
    others[3].output.fps = 60;
    for (const EffectsSpec& other : others) EXPECT_NE(timingKey(other, footage), key);
    ReelFootage shorter = footage;
    shorter.trimEndSec = 8.9;
    EXPECT_NE(timingKey(spec, shorter), key);
}

}   // namespace
}   // namespace tavix
