// Finished reels as files.
#include "TavixReelRender/Export/ReelExport.h"

#include "ReelTestKit.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix {
namespace {

using namespace testing;
using ::testing::Contains;
using ::testing::HasSubstr;

class Exports : public ::testing::Test {
protected:
    Exports() {
        media::tests::makeClip({.path = at("raw.mov"), .times = media::tests::evenTimes(120)});
        config_.spec = bareSpec();
        config_.footage = {at("raw.mov"), smallSize, 4, 0, 4};
        config_.assetRoot = studio_.folder.path();
        config_.fps = 30;
    }
    std::filesystem::path at(const char* name) const { return studio_.folder.path() / name; }
    void write(const char* name, ExportFormat format = ExportFormat::video) {
        config_.file = {.output = at(name), .format = format};
        ReelExport::write(config_, messagesTo(studio_.log));
    }
    int framesIn(const char* name) const {
        const auto frames = media::VideoFile(at(name)).framesFrom(
            0, std::numeric_limits<double>::infinity(), media::Pace::onDemand);
        int count = 0;
        while (frames->next()) ++count;
        return count;
    }
    // When the first sound is heard.
    double firstSoundSec(const char* name) const {
        constexpr int rate = 48000;
        media::AudioReader reader(at(name), {.sampleRate = rate, .channels = 1});
        std::vector<float> samples(std::size_t{rate} * 6);
        samples.resize(reader.read(samples));
        const auto first = std::ranges::find_if(samples, [](float s) { return std::abs(s) > 0.02f; });
        return double(first - samples.begin()) / rate;
    }

    Studio studio_{smallSize};
    ReelExport::Config config_;
};

TEST_F(Exports, AFilmHasAFrameForEveryTickAndNoSoundOfItsOwn) {
    config_.spec.cuts = {{.dropRange = {1, 2}}};
    write("film.mp4");
    EXPECT_EQ(framesIn("film.mp4"), 90);
    EXPECT_TRUE(media::probeMedia(at("film.mp4")).audio.empty());
    EXPECT_THAT(studio_.log, Contains("64×64 @ 30fps — 2 segments, 3.0s (90 frames)"));
    config_.fps = *FrameRate::ratio(24000, 1001);
    write("cinema.mp4");
    EXPECT_EQ(framesIn("cinema.mp4"), 72);
}

TEST_F(Exports, CuesSoundAtTheirPlaceInTheFinishedFilm) {
    config_.spec.cuts = {{.dropRange = {1, 2}}};
    config_.spec.soundCues = {SoundCue::of(2.5, SFXCatalog::Sound::ding)};
    write("film.mp4");
    EXPECT_EQ(framesIn("film.mp4"), 90);
    EXPECT_NEAR(firstSoundSec("film.mp4"), 1.5, 0.03);
    // One that is cut out comes where the footage goes on; one past the end not at all.
    config_.spec.soundCues = {
        SoundCue::of(1.7, SFXCatalog::Sound::ding), SoundCue::of(9, SFXCatalog::Sound::ding)};
    write("cut.mp4");
    EXPECT_NEAR(firstSoundSec("cut.mp4"), 1, 0.03);
    config_.spec.soundCues = {SoundCue::of(9, SFXCatalog::Sound::ding)};
    write("silent.mp4");
    EXPECT_TRUE(media::probeMedia(at("silent.mp4")).audio.empty());
    EXPECT_EQ(framesIn("silent.mp4"), 90);
}

TEST_F(Exports, AGifIsWrittenByItself) {
    config_.spec.soundCues = {SoundCue::of(0, SFXCatalog::Sound::ding)};
    config_.fps = 10;
    write("film.gif", ExportFormat::gif);
    EXPECT_EQ(framesIn("film.gif"), 40);
}

TEST_F(Exports, AStillIsThePictureOfItsTime) {
    config_.spec.cuts = {{.dropRange = {1, 2}}};
    ReelExport::writeStill(config_, 1.5, at("still.png"));
    StillImageCache images({});
    EXPECT_EQ(media::tests::numberIn(*images.image(at("still.png"))), 75);
}

TEST_F(Exports, StopWhenTheyAreAskedToAndLeaveNothingHidden) {
    std::stop_source stop;
    stop.request_stop();
    config_.spec.soundCues = {SoundCue::of(0, SFXCatalog::Sound::ding)};
    config_.file.output = at("film.mp4");
    EXPECT_THROW(ReelExport::write(config_, {}, {}, stop.get_token()), RenderStopped);
    for (const auto& entry : std::filesystem::directory_iterator(studio_.folder.path()))
        EXPECT_FALSE(entry.path().filename().string().starts_with('.')) << entry.path();
}

}   // namespace
}   // namespace tavix
