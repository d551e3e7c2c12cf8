// What an editor finds in a bundle, and beside a video.
#include "TavixReelLive/Project/ReelProject.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tavix {
namespace {

namespace fs = std::filesystem;

class ReelProjects : public ::testing::Test {
protected:
    fs::path video(const std::string& name) {
        fs::create_directories((folder_ / name).parent_path());
        media::tests::makeClip({.path = folder_ / name, .times = media::tests::evenTimes(60)});
        return folder_ / name;
    }
    static Timeline sidecar() {
        Timeline timeline;
        timeline.video = {1000, 1000, 30};
        Timeline::Event tap;
        tap.type = "tap";
        tap.tSec = 0.8;
        tap.regionPx = PixelRect{100, 100, 120, 120};
        timeline.events = {tap};
        return timeline;
    }
    testsupport::TemporaryFolder folder_;
};

TEST_F(ReelProjects, ABundleIsOneWithARecording) {
    video("a.tavixproj/raw.mov");
    const ReelProject project = ReelProject::load(folder_ / "a.tavixproj");
    EXPECT_EQ(project.bundle, folder_ / "a.tavixproj");
    EXPECT_EQ(project.effectsFile, folder_ / "a.tavixproj/effects.json");
    EXPECT_FALSE(project.timeline);
    EXPECT_EQ(project.trimStartSec, 0);
    EXPECT_NEAR(project.trimEndSec, 2, 0.01);
    // Nothing is known of it: the camera stands still, and nothing is cut.
    EXPECT_EQ(project.onDisk.spec.cameraTrack.size(), 1u);
    EXPECT_TRUE(project.onDisk.spec.cuts.empty());
    EXPECT_EQ(project.onDisk.spec.output.widthPx, 64);
    EXPECT_FALSE(fs::exists(project.effectsFile)) << "nothing is written until it is saved";
    fs::create_directories(folder_ / "empty.tavixproj");
    EXPECT_THROW(ReelProject::load(folder_ / "empty.tavixproj"), Failure);
}

TEST_F(ReelProjects, WhatLiesBesideAVideoBelongsToIt) {
    const fs::path clip = video("walk.mp4");
    writeFile(sidecar(), folder_ / "walk.timeline.json");
    const ReelProject authored = ReelProject::load(clip);
    EXPECT_FALSE(authored.bundle);
    ASSERT_TRUE(authored.timeline);
    EXPECT_GT(authored.onDisk.spec.cameraTrack.size(), 1u) << "the camera goes to the tap";
    EffectsSpec spec = authored.onDisk.spec;
    spec.background.padding = 7;
    writeFile(spec, folder_ / "walk.effects.json");
    EXPECT_EQ(ReelProject::load(clip).onDisk.spec, spec);
}

TEST_F(ReelProjects, ADamagedDocumentCountsAsMissing) {
    const fs::path clip = video("walk.mp4");
    std::ofstream(folder_ / "walk.timeline.json") << "{\"video\": ";
    std::ofstream(folder_ / "walk.effects.json") << "[]";
    const ReelProject project = ReelProject::load(clip);
    EXPECT_FALSE(project.timeline);
    EXPECT_EQ(project.onDisk.spec.cameraTrack.size(), 1u);
    ASSERT_EQ(project.ignored.size(), 2u) << "and is told";
    EXPECT_TRUE(project.ignored[0].starts_with("\"walk.timeline.json\" cannot be read"));
    EXPECT_TRUE(project.ignored[1].starts_with("\"walk.effects.json\" cannot be read"));
    // It is no file of ours to throw away.
    EffectsSpec edited = project.onDisk.spec;
    edited.background.padding = 5;
    const fs::path effects = project.effectsFile;
    const ReelOnDisk saved = project.onDisk.saved(edited, effects, IfChanged::refuse);
    EXPECT_EQ(ReelProject::load(clip).onDisk.spec, edited);
    EXPECT_EQ(ReelOnDisk::textIn(ReelOnDisk::damagedName(effects)), "[]");
    EXPECT_FALSE(saved.damage);
}

}   // namespace
}   // namespace tavix
