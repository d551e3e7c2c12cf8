// The model of a reel editor in virtual time, with previews that take as long to build as the test says.
#include "ManualReelEditor.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixReelLive/Operations/CaptionEdits.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavix {
namespace {

using ReelEditor = testing::ManualReelEditor;

TEST_F(ReelEditor, OpensAndTellsWhatItFound) {
    EXPECT_EQ(model->state.statusMessage(), "Open a reel to begin.");
    std::filesystem::create_directories(bundle());
    model->open(bundle());
    EXPECT_EQ(model->state.statusMessage(), "Probing walk.tavixproj…");
    time.advance(1);
    EXPECT_TRUE(model->state.isLoaded());
    EXPECT_EQ(model->state.statusMessage(), "100×200 @ 30.0 fps — 1 keyframe(s), 0 cut(s).");
    EXPECT_DOUBLE_EQ(model->state.outputDuration(), recordingSec);
    EXPECT_EQ(shown, 1);
    model->close();
    EXPECT_EQ(model->state.statusMessage(), "Open a reel to begin.");
    EXPECT_FALSE(model->state.isLoaded());
}

TEST_F(ReelEditor, WhatWasOpenIsRemembered) {
    recents.emplace(UserDefaults(folder / "defaults"));
    start();
    open();
    ASSERT_EQ(recents->list().size(), 1u);
    EXPECT_EQ(recents->list()[0].path, bundle());
}

TEST_F(ReelEditor, OfTwoOpensTheLaterCounts) {
    loadSec["slow.tavixproj"] = 3;
    for (const char* name : {"slow.tavixproj", "walk.tavixproj"}) {
        std::filesystem::create_directories(bundle(name));
        model->open(bundle(name));
    }
    time.advance(10);
    EXPECT_EQ(model->project()->bundle, bundle());
    model->open(bundle("gone.tavixproj"));
    time.advance(1);
    EXPECT_EQ(model->state.errorMessage(), "Could not open: There is no recording.");
    EXPECT_EQ(model->state.statusMessage(), "Open failed.");
    EXPECT_EQ(model->project()->bundle, bundle()) << "what was open stays";
}

TEST_F(ReelEditor, ABurstOfEditsCostsOneRebuildAtOnceAndOneAtItsEnd) {
    open();
    const std::size_t before = built.size();
    for (int i = 1; i <= 10; ++i) {
        edit(i);
        time.advance(0.02);
    }
    EXPECT_EQ(built.size(), before + 1) << "the first, as nothing was asked for lately";
    time.advance(1);
    ASSERT_EQ(built.size(), before + 2);
    EXPECT_EQ(built.back().background.padding, 10);
    EXPECT_EQ(shown, int(built.size()));
}

TEST_F(ReelEditor, OfTwoRebuildsTheLaterIsShown) {
    open();
    buildSec = 0.5;
    edit(1);
    time.advance(0.1);
    model->rebuildNow();
    edit(2);
    time.advance(5);
    EXPECT_EQ(built.back().background.padding, 2);
    EXPECT_EQ(shown, int(built.size()));
    isBroken = true;
    edit(3);
    time.advance(2);
    EXPECT_EQ(model->state.errorMessage(), "Preview failed: The phone is gone.");
}

TEST_F(ReelEditor, TheTimeStaysWhereOnlyThePictureChanges) {
    open();
    model->seek(4);
    time.advance(0.5);
    edit(3);
    time.advance(0.5);
    EXPECT_DOUBLE_EQ(model->state.currentTime(), 4);
}

TEST_F(ReelEditor, AfterACutThePlayheadStandsOnTheSameFootage) {
    open();
    model->update("Cut", [](EffectsSpec& spec) { spec.cuts = {{.dropRange = {1, 2}}}; });
    time.advance(0.5);
    model->seek(5);   // footage of 6 s
    time.advance(0.5);
    ASSERT_DOUBLE_EQ(model->clock().playheadSec, 6);
    model->update("Cut", [](EffectsSpec& spec) { spec.cuts.push_back({.dropRange = {3, 4.5}}); });
    time.advance(0.5);
    EXPECT_NEAR(model->clock().playheadSec, 6, 1e-9);
    EXPECT_NEAR(model->state.currentTime(), 3.5, 1e-9);
    EXPECT_NEAR(model->state.outputDuration(), 7.5, 1e-9);
    model->undo();
    time.advance(0.5);
    EXPECT_NEAR(model->state.currentTime(), 5, 1e-9);
}

TEST_F(ReelEditor, StepsAreTakenBackAndDoneAgain) {
    open();
    const EffectsSpec opened = model->state.spec();
    EXPECT_FALSE(model->undoName());
    edit(5);
    model->update("Nothing", [](EffectsSpec&) {});
    model->update("Add Caption", [this](EffectsSpec& spec) { CaptionEdits::add(spec, model->clock()); });
    const EffectsSpec edited = model->state.spec();
    EXPECT_EQ(*model->undoName(), "Add Caption");
    EXPECT_TRUE(model->state.hasUnsavedChanges());
    model->undo();
    model->undo();
    model->undo();
    EXPECT_EQ(model->state.spec(), opened);
    EXPECT_FALSE(model->state.hasUnsavedChanges());
    EXPECT_EQ(*model->redoName(), "Pad");
    model->redo();
    model->redo();
    EXPECT_EQ(model->state.spec(), edited);
    model->undo();
    edit(9);
    EXPECT_FALSE(model->redoName()) << "another way was taken";
}

TEST_F(ReelEditor, ACaptionThatIsDraggedIsLeftToItsWindow) {
    open();
    model->update("Add Caption", [this](EffectsSpec& spec) { CaptionEdits::add(spec, model->clock()); });
    time.advance(1);
    model->setExcludedCaption(0);
    time.advance(1);
    EXPECT_TRUE(built.back().narration->captions.empty());
    EXPECT_EQ(model->state.spec().narration->captions.size(), 1u);
    model->setExcludedCaption(std::nullopt);
    time.advance(1);
    EXPECT_EQ(built.back().narration->captions.size(), 1u);
}

TEST_F(ReelEditor, TheDeviceTurnsUnderTheHandWithoutARebuild) {
    std::filesystem::create_directories(bundle());
    EffectsSpec first = firstSpec();
    first.deviceScene.emplace();
    first.deviceScene->enabled = true;
    writeFile(first, effects());
    open();
    const std::size_t before = built.size();
    for (const double degrees : {5.0, 10.0, 15.0}) {
        model->liveSetDeviceTilt({degrees, 0, 0});
        time.advance(0.3);
    }
    EXPECT_EQ(built.size(), before);
    EXPECT_EQ(turns, (std::vector<Vector3>{{5, 0, 0}, {10, 0, 0}, {15, 0, 0}}));
    EXPECT_EQ(spec().deviceScene->tiltDegrees, (Vector3{15, 0, 0}));
    EXPECT_TRUE(state().hasUnsavedChanges());
    EXPECT_FALSE(model->undoName()) << "it has not ended";
    model->commitLiveEdits();
    time.advance(0.5);
    EXPECT_EQ(built.size(), before + 1);
    EXPECT_EQ(*model->undoName(), "Turn Device");
    model->undo();
    EXPECT_EQ(spec(), first) << "one step, however many turns it had";
}

TEST_F(ReelEditor, ADragThatEndsIsAStepAndOneThatIsCancelledIsNone) {
    open();
    model->update("Add Caption", [this](EffectsSpec& spec) { CaptionEdits::add(spec, model->clock()); });
    model->beginCaptionDrag(0);
    time.advance(1);
    model->cancelCaptionDrag();
    time.advance(1);
    EXPECT_EQ(*model->undoName(), "Add Caption");
    EXPECT_EQ(built.back().narration->captions.size(), 1u);
    model->beginCaptionDrag(0);
    model->endCaptionDrag({0.25, 0.75});
    time.advance(1);
    EXPECT_EQ(*model->undoName(), "Move Caption");
    EXPECT_EQ(built.back().narration->captions[0].position, (NormalizedPoint{0.25, 0.75}));
}

TEST_F(ReelEditor, WhatIsSelectedIsThere) {
    open();
    model->update("Add Captions", [this](EffectsSpec& spec) {
        for (int i = 0; i < 3; ++i) CaptionEdits::add(spec, model->clock());
    });
    state().selectedCaptions = {0, 2};
    state().selectedCard = 0;
    model->undo();
    EXPECT_TRUE(state().selectedCaptions().empty());
    EXPECT_FALSE(state().selectedCard());
}

TEST_F(ReelEditor, AnImportedFrameIsLookedAtForItsScreen) {
    open();
    imaging::Bitmap frame(imaging::Size{40, 80}), solid(imaging::Size{40, 80});
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 40; ++x) {
            solid.view().row(y)[4 * x + 3] = 255;
            const bool isScreen = x >= 4 && x < 36 && y >= 8 && y < 72;
            frame.view().row(y)[4 * x + 3] = isScreen ? 0 : 255;
        }
    media::writePng(folder / "frame.png", frame.view());
    media::writePng(folder / "solid.png", solid.view());
    const DeviceMockup before = spec().background.device;
    const auto import = [&](const char* name) {
        model->importDeviceFrame(folder / name);
        time.advance(1);
    };
    import("gone.png");
    EXPECT_EQ(state().errorMessage(), "Could not load frame: Could not read frame image: gone.png.");
    EXPECT_EQ(spec().background.device, before);
    import("frame.png");
    const DeviceMockup& device = spec().background.device;
    EXPECT_EQ(device.framePath, (folder / "frame.png").string());
    EXPECT_NEAR(device.screen.x, 0.1, 1e-9);
    EXPECT_NEAR(device.screen.height, 0.8, 1e-9);
    EXPECT_EQ(state().statusMessage(), "Device frame frame.png (cutout auto-detected).");
    import("solid.png");
    EXPECT_EQ(spec().background.device.framePath, (folder / "solid.png").string());
    EXPECT_NEAR(spec().background.device.screen.x, 0.1, 1e-9) << "as it was";
    EXPECT_EQ(state().statusMessage(), "Device frame solid.png; its screen was not found.");
}

TEST_F(ReelEditor, IsAuthoredAgainFromTheSidecarAndCaptionedByIt) {
    sidecar.emplace();
    sidecar->video = {1000, 1000, 30};
    for (const double sec : {2.0, 6.0}) {
        Timeline::Event tap;
        tap.type = "tap";
        tap.label = "Save";
        tap.tSec = sec;
        tap.regionPx = PixelRect{100, 100, 120, 120};
        sidecar->events.push_back(tap);
    }
    open();
    edit(17);
    model->update("Cut", [](EffectsSpec& spec) { spec.cuts = {{.dropRange = {0, 1}}}; });
    model->reAutoAuthor();
    EXPECT_GT(spec().cameraTrack.size(), 1u) << "the camera goes to the taps";
    EXPECT_TRUE(spec().cuts.empty());
    EXPECT_EQ(spec().background.padding, 17) << "the look is nobody's business there";
    EXPECT_EQ(spec().output.widthPx, 100);
    model->generateCaptions();
    ASSERT_TRUE(spec().narration);
    const std::size_t count = spec().narration->captions.size();
    EXPECT_GT(count, 0u);
    EXPECT_EQ(state().statusMessage(), "Generated " + std::to_string(count) + " caption(s).");
}

TEST_F(ReelEditor, AShorterTrimIsAShorterReel) {
    open();
    model->seek(8);
    model->setTrim(2, 7);
    time.advance(0.5);
    EXPECT_DOUBLE_EQ(state().outputDuration(), 5);
    EXPECT_LE(state().currentTime(), 5);
    EXPECT_FALSE(model->undoName()) << "it is no part of the document";
    model->setTrim(-3, 99);
    time.advance(0.5);
    EXPECT_DOUBLE_EQ(state().outputDuration(), recordingSec);
}

TEST_F(ReelEditor, WithoutASidecarThereIsNothingToCaption) {
    open();
    model->generateCaptions();
    EXPECT_EQ(state().statusMessage(), "No hero beats to caption.");
}

TEST(ReelExportChoices, AreSnappedAndNamed) {
    for (const auto& [fps, snapped] : {std::pair(24.0, 30), {44.0, 30}, {45.0, 60}, {120.0, 60}})
        EXPECT_EQ(snapExportFps(fps), snapped);
    EXPECT_EQ(exportFileName(ExportFormat::gif, VideoCodec::h264, ExportContainer::mov), "reel.gif");
    EXPECT_EQ(exportFileName(ExportFormat::video, VideoCodec::proRes4444, ExportContainer::mp4), "reel.mov");
    EXPECT_EQ(exportFileName(ExportFormat::video, VideoCodec::hevc, ExportContainer::mp4), "reel.mp4");
    EXPECT_EQ(exportFileName(ExportFormat::video, VideoCodec::vp9, ExportContainer::webm), "reel.webm");
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
