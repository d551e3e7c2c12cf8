// What the model of a reel editor exports: real films of a small recording.
#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixPlatform/System/ManualTime.h"
#include "TavixReelLive/Model/ReelEditorModel.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class ReelModelExports : public ::testing::Test {
protected:
    ReelModelExports() {
        fs::create_directories(folder / "walk.tavixproj");
        // As tall as a phone, and with an odd side.
        media::tests::makeClip({.path = folder / "walk.tavixproj/raw.mov",
            .size = {96, 208},
            .times = media::tests::evenTimes(30)});
        model.open(folder / "walk.tavixproj");
        time.advance(1);
        model.update("Small", [](EffectsSpec& spec) {
            spec.output = {97, 209, 30};
            spec.background.padding = 4;
        });
    }
    fs::path film(const std::string& name) const { return folder / name; }
    void write(const fs::path& file) {
        fractions.clear();
        model.exportTo(file);
        EXPECT_TRUE(model.state.isExporting());
        time.advance(5);
        EXPECT_FALSE(model.state.isExporting());
    }
    static double framesPerSec(const fs::path& file) {
        const auto samples = media::VideoFile(file).samples();
        return double(samples.size() - 1) / (samples.back().ptsSec - samples.front().ptsSec);
    }

    testsupport::TemporaryFolder folder;
    system::ManualTime time;
    system::ManualExecutor main{time}, render{time}, workers{time};
    ReelEditorModel model{{.main = main, .render = render, .workers = workers}};
    std::vector<double> fractions;
    Connection progress{watch(
        [this] {
            fractions.push_back(model.state.exportProgress());
            EXPECT_TRUE(fractions.back() < 1 || !model.state.isExporting())
                << "not whole before it stands under its name";
        },
        model.state.exportProgress)};
};

TEST_F(ReelModelExports, HaveTheSizeTheRateAndTheKindThatWereChosen) {
    constexpr auto video = ExportFormat::video;
    constexpr auto mp4 = ExportContainer::mp4, mov = ExportContainer::mov, webm = ExportContainer::webm;
    const struct {
        const char* name;
        ExportFormat format;
        VideoCodec codec;
        ExportContainer container;
        std::int64_t fps;
        imaging::Size size;
        double rate;
        const char *coded, *contained;
    } cases[] = {
        {"h264.mp4", video, VideoCodec::h264, mp4, 24, {96, 208}, 30, "h264", "mp4"},
        {"hevc.mov", video, VideoCodec::hevc, mov, 45, {96, 208}, 60, "hevc", "mov"},
        {"prores.mov", video, VideoCodec::proRes422HQ, mp4, 44, {96, 208}, 30, "prores", "mov"},
        {"vp9.webm", video, VideoCodec::vp9, webm, 30, {96, 208}, 30, "vp9", "webm"},
        {"film.gif", ExportFormat::gif, VideoCodec::h264, mp4, 60, {96, 208}, 18, "gif", "gif"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        model.update("Rate", [&](EffectsSpec& spec) { spec.output.fps = c.fps; });
        model.state.exportFormat = c.format;
        model.state.exportVideoCodec = c.codec;
        model.state.exportContainer = c.container;
        write(film(c.name));
        EXPECT_EQ(model.state.statusMessage(), std::string("Exported ") + c.name + ".");
        const media::MediaInfo info = media::probeMedia(film(c.name));
        ASSERT_EQ(info.video.size(), 1u);
        EXPECT_EQ(info.video[0].codedSize, c.size);
        EXPECT_THAT(info.video[0].codec, HasSubstr(c.coded));
        EXPECT_THAT(info.container, HasSubstr(c.contained));
        EXPECT_TRUE(info.audio.empty()) << "without cues there is no sound";
        EXPECT_NEAR(framesPerSec(film(c.name)), c.rate, 0.1);
        EXPECT_NEAR(info.durationSec, 1, 0.06);
    }
}

TEST_F(ReelModelExports, SaveFirstAndTellHowFarTheyAre) {
    EXPECT_TRUE(model.state.hasUnsavedChanges());
    model.update(
        "Cue", [](EffectsSpec& spec) { spec.soundCues = {SoundCue::of(0.2, SFXCatalog::Sound::ding)}; });
    write(film("a.mp4"));
    EXPECT_FALSE(model.state.hasUnsavedChanges());
    EXPECT_TRUE(fs::exists(folder / "walk.tavixproj/effects.json"));
    EXPECT_EQ(media::probeMedia(film("a.mp4")).audio.size(), 1u);
    ASSERT_GE(fractions.size(), 2u);
    EXPECT_TRUE(std::ranges::is_sorted(fractions));
    EXPECT_EQ(fractions.back(), 1);
}

TEST_F(ReelModelExports, ThatFailOrStopLeaveTheOldFilmAndNothingElse) {
    std::ofstream(film("old.mp4")) << "precious";
    const auto entries = [&] {
        return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
    };
    const auto before = entries();
    model.exportTo(film("old.mp4"));
    model.stopExport();
    time.advance(5);
    EXPECT_EQ(model.state.statusMessage(), "Export stopped.");
    model.update("Cut", [](EffectsSpec& spec) { spec.cuts = {{.dropRange = {0, 9}}}; });
    write(film("old.mp4"));
    EXPECT_EQ(model.state.statusMessage(), "Export failed: Nothing to render after applying cuts.");
    model.undo();
    write(film("old.mp4") / "in-a-file.mp4");
    EXPECT_THAT(model.state.statusMessage(), HasSubstr("Export failed: "));
    fs::rename(folder / "walk.tavixproj/raw.mov", folder / "walk.tavixproj/elsewhere.mov");
    write(film("old.mp4"));
    EXPECT_THAT(model.state.statusMessage(), HasSubstr("Export failed: Could not read raw recording: "));
    std::ifstream old(film("old.mp4"));
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(old), {}) == "precious");
    EXPECT_EQ(entries(), before);
}

TEST_F(ReelModelExports, ReplaceAFilmThatIsThere) {
    std::ofstream(film("film.mp4")) << "old";
    write(film("film.mp4"));
    EXPECT_EQ(media::VideoFile(film("film.mp4")).samples().size(), 30u);
}

}   // namespace
}   // namespace tavix
