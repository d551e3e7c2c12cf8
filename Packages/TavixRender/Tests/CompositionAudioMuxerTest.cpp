#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "RenderTestKit.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/Remux.h"
#include "TavixRender/Assets/BundledSounds.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TestSounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <numbers>

namespace tavix {
namespace {

using namespace testing;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class CompositionSound : public ::testing::Test {
protected:
    CompositionSound() {
        writeWav(at("one.wav"), sine(1, 440, 0.5));
        writeWav(at("click.wav"), silenceWithClick(4800, 0));
        std::ofstream(at("text.wav")) << "no sound";
    }

    std::filesystem::path at(const std::string& name) const { return folder.path() / name; }
    RenderLog log() { return testing::messagesTo(lines); }
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            found.push_back(entry.path().filename().string());
        return found;
    }
    media::AudioTimeline inserted(const CompositionAudio& audio, double totalSec) {
        media::AudioTimeline timeline;
        isHeard = CompositionAudioMuxer::insertAudio(audio, timeline, folder.path(), totalSec, log());
        return timeline;
    }
    // A film of 64 × 48 at 30 frames a second.
    std::filesystem::path film(
        const std::optional<CompositionAudio>& audio, double sec, const std::string& name = "film.mp4") {
        CompositionRenderer::Config config;
        config.spec = specOf({64, 48}, 30, {sceneOf(sec, {shapeLayer({1, 0, 0, 1})})});
        config.spec.audio = audio;
        config.output = at(name);
        config.assetRoot = folder.path();
        config.container = name.ends_with(".mov") ? ExportContainer::mov : ExportContainer::mp4;
        CompositionExport::write(config, log(), [this](double done) { progress.push_back(done); });
        return config.output;
    }

    TemporaryFolder folder;
    std::vector<std::string> lines;
    std::vector<double> progress;
    bool isHeard = false;
};

SoundCue cue(double atSec, const std::string& sound, double gain = 1) {
    return {atSec, std::nullopt, sound, gain};
}

long millisecondsOf(SFXCatalog::Sound sound) {
    const auto file = BundledSounds::url(sound);
    return file ? std::lround(media::probeAudio(*file)->durationSec * 1000 - 0.5) : 0;
}

// Clips as "track: start+length" in milliseconds of the timeline.
std::vector<std::string> placesOf(const media::AudioTimeline& timeline) {
    std::vector<std::string> places;
    for (std::size_t i = 0; i < timeline.tracks.size(); ++i)
        for (const media::AudioClip& clip : timeline.tracks[i].clips)
            places.push_back(std::to_string(i) + ": " + std::to_string(clip.at / 48) + "+" +
                             std::to_string(clip.frames / 48));
    return places;
}

TEST_F(CompositionSound, LaysCuesIntoAsFewLanesAsTheyOverlap) {
    const struct {
        const char* what;
        std::vector<SoundCue> cues;
        std::vector<std::string> places;
    } cases[] = {
        {"one at the beginning", {cue(0, "one.wav")}, {"0: 0+1000"}},
        {"at the same time", {cue(1, "one.wav"), cue(1, "one.wav")}, {"0: 1000+1000", "1: 1000+1000"}},
        {"out of order, touching", {cue(1.5, "one.wav"), cue(0.5, "one.wav")},
            {"0: 500+1000", "0: 1500+1000"}},
        {"the first lane that is free",
            {cue(0, "one.wav"), cue(0.5, "click.wav"), cue(0.7, "click.wav"), cue(1, "click.wav")},
            {"0: 0+1000", "0: 1000+100", "1: 500+100", "1: 700+100"}},
        {"cut at the end", {cue(3.6, "one.wav")}, {"0: 3600+400"}},
        {"outside", {cue(4, "one.wav"), cue(-0.1, "one.wav"), cue(99, "one.wav")}, {}},
        {"too short to be heard", {cue(3.9995, "one.wav")}, {}},
        {"missing", {cue(1, "absent.wav"), cue(1, "text.wav"), cue(1, "")}, {}},
        {"by an absolute path", {cue(1, at("click.wav").string())}, {"0: 1000+100"}},
        {"by a name of the catalog", {cue(1, "ding", 0.5)},
            {"0: 1000+" + std::to_string(millisecondsOf(SFXCatalog::Sound::ding))}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(placesOf(inserted({std::nullopt, c.cues}, 4)), c.places);
        EXPECT_EQ(isHeard, !c.places.empty());
    }
}

TEST_F(CompositionSound, HoldsACuesGainUntilTheNextInItsLane) {
    const auto lane =
        inserted({std::nullopt, {cue(0.5, "click.wav", 0.25), cue(2, "click.wav", 0.5)}}, 4).tracks.at(0);
    EXPECT_EQ(lane.volume.at(48 * 500), 0.25);
    EXPECT_EQ(lane.volume.at(48 * 2000 - 1), 0.25);
    EXPECT_EQ(lane.volume.at(48 * 2000), 0.5);
}

TEST_F(CompositionSound, LaysMusicFromTheFirstFrameOn) {
    struct Volume {
        double atSec, value;
    };
    const struct {
        const char *what, *file;
        double startAtSec, fadeInSec, fadeOutSec, totalSec;
        const char* place;
        std::vector<Volume> volumes;   // at a gain of 0.8
    } cases[] = {
        {"shorter than the film", "one.wav", 0, 0, 0, 4, "0: 0+1000", {{0, 0.8}, {0.99, 0.8}}},
        {"longer", "one.wav", 0, 0, 0, 0.5, "0: 0+500", {{0.4, 0.8}}},
        {"from the middle", "one.wav", 0.25, 0, 0, 4, "0: 0+750", {}},
        {"from past its end", "one.wav", 1, 0, 0, 4, "", {}},
        {"fades", "one.wav", 0, 0.2, 0.4, 4, "0: 0+1000",
            {{0, 0}, {0.1, 0.4}, {0.2, 0.8}, {0.5, 0.8}, {0.8, 0.4}, {1, 0}}},
        {"a fade longer than the clip", "one.wav", 0, 0, 9, 4, "0: 0+1000", {{0, 0.8}, {0.5, 0.4}, {1, 0}}},
        {"fades too short to be any", "one.wav", 0, 0.01, 0.01, 4, "0: 0+1000", {{0, 0.8}, {1, 0.8}}},
        {"missing", "absent.wav", 0, 0, 0, 4, "", {}},
        {"no name", "", 0, 0, 0, 4, "", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const MusicBed music{c.file, 0.8, c.startAtSec, c.fadeInSec, c.fadeOutSec};
        const media::AudioTimeline timeline = inserted({music, {}}, c.totalSec);
        EXPECT_EQ(isHeard, !timeline.tracks.empty());
        EXPECT_EQ(isHeard ? placesOf(timeline).at(0) : "", c.place);
        if (!isHeard) continue;
        EXPECT_EQ(timeline.tracks[0].clips[0].fileStart, timeline.frameAt(c.startAtSec));
        for (const Volume& v : c.volumes)
            EXPECT_NEAR(timeline.tracks[0].volume.at(timeline.frameAt(v.atSec)), v.value, 1e-9) << v.atSec;
    }
}

TEST_F(CompositionSound, NamesWhatCannotBeHeardOnce) {
    inserted({MusicBed{"absent.mp3"}, {cue(0, "text.wav"), cue(1, "text.wav"), cue(2, "one.wav")}}, 4);
    EXPECT_THAT(lines, ElementsAre(HasSubstr("absent.mp3\". There is no such file."), HasSubstr("text.wav")));
}

TEST_F(CompositionSound, IsHeardAtItsTimeAndAsLongAsThePicture) {
    for (const double atSec : {0.0, 0.5, 1.2345, 1.99}) {
        SCOPED_TRACE(atSec);
        const auto file = film(CompositionAudio{std::nullopt, {cue(atSec, "click.wav")}}, 2);
        EXPECT_DOUBLE_EQ(*media::pictureDurationSec(file), 2);
        const auto sound = heard(file);
        EXPECT_EQ(sound.size(), 96'000U);
        EXPECT_NEAR(double(loudestFrame(sound)), atSec * 48000, 1);
    }
}

TEST_F(CompositionSound, HasTheLevelsThatTheDocumentAsksFor) {
    writeWav(at("music.wav"), sine(10, 1000, 0.8));
    const double full = 0.8 / std::numbers::sqrt2;
    const auto sound = heard(film(CompositionAudio{MusicBed{"music.wav", 0.5, 2, 1, 2}, {}}, 5));
    const struct {
        double fromSec, toSec, volume;
    } cases[] = {{0.495, 0.505, 0.25}, {1.1, 2.9, 0.5}, {3.995, 4.005, 0.25}, {4.495, 4.505, 0.125}};
    for (const auto& c : cases)
        EXPECT_NEAR(rootMeanSquare(sound, c.fromSec, c.toSec), full * c.volume, full * 0.01) << c.fromSec;
}

TEST_F(CompositionSound, TellsOfBothPasses) {
    film(CompositionAudio{std::nullopt, {cue(0.1, "one.wav")}}, 2);
    EXPECT_THAT(progress, ElementsAre(0, 0.475, 0.95, 1));
    EXPECT_THAT(lines, Contains("muxed music/cues under the visual track"));
    EXPECT_THAT(names(), Not(Contains(HasSubstr(".tavix"))));
}

TEST_F(CompositionSound, StaysSilentWithoutAnythingToHear) {
    const auto silent = film(std::nullopt, 1, "silent.mp4");
    const CompositionAudio cases[] = {{}, {MusicBed{"absent.wav"}, {}},
        {MusicBed{"text.wav"}, {cue(0, "text.wav")}}, {MusicBed{"silent.mp4"}, {cue(5, "one.wav")}}};
    for (const CompositionAudio& audio : cases) {
        const auto file = film(audio, 1);
        EXPECT_THAT(lines, Contains("no playable audio — output stays silent"));
        EXPECT_EQ(readBytes(file), readBytes(silent));
        EXPECT_THAT(names(), Not(Contains(HasSubstr(".tavix"))));
    }
}

// Whatever the sound files hold, there is a film.
TEST_F(CompositionSound, SurvivesOddSounds) {
    writeWav(at("empty.wav"), {});
    writeWav(at("brief.wav"), {0.5F});
    writeWav(at("silent.wav"), std::vector<float>(48'000));
    writeWav(at("loud.wav"), std::vector<float>(48'000, 1e20F));
    writeWav(at("wild.wav"), std::vector<float>(48'000, std::numeric_limits<float>::quiet_NaN()));
    const std::string whole = readBytes(at("one.wav"));
    std::ofstream(at("cut.wav"), std::ios::binary) << whole.substr(0, whole.size() / 2);
    for (const std::string name :
        {"empty.wav", "brief.wav", "silent.wav", "loud.wav", "wild.wav", "cut.wav"}) {
        SCOPED_TRACE(name);
        const auto file = film(CompositionAudio{MusicBed{name, 1e9}, {cue(0.2, name), cue(0.3, name)}}, 1);
        EXPECT_DOUBLE_EQ(*media::pictureDurationSec(file), 1);
        if (name == "empty.wav" || name == "brief.wav") continue;   // too short to be laid
        for (const float sample : heard(file)) ASSERT_LT(std::abs(sample), 1.5);
    }
}

TEST_F(CompositionSound, FailsInItsOwnWordsAndLeavesNothingBehind) {
    const CompositionAudioMuxer::Mix mix{{}, folder.path(), 1};
    EXPECT_THROW(
        CompositionAudioMuxer::mux(at("one.wav"), mix, at("film.mp4"), ExportContainer::mp4), Failure);
    try {
        CompositionAudioMuxer::remux(at("one.wav"), at("one.wav"), at("film.mp4"), ExportContainer::mp4);
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "The rendered visual file has no video track.");
    }
    std::stop_source stopped;
    stopped.request_stop();
    const auto silent = film(std::nullopt, 1, "silent.mp4");
    const CompositionAudio audio{std::nullopt, {cue(0, "one.wav")}};
    EXPECT_THROW(CompositionAudioMuxer::mux(silent, {audio, folder.path(), 1}, at("film.mp4"),
                     ExportContainer::mp4, {}, stopped.get_token()),
        RenderStopped);
    EXPECT_THAT(names(), Not(Contains(HasSubstr(".tavix"))));
    EXPECT_FALSE(std::filesystem::exists(at("film.mp4")));
}

}   // namespace
}   // namespace tavix
