// When the frames of a film are shown, as the file says it, and whether its sound comes when it should.
#include "RenderTestKit.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Encoding/FrameClock.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TestSounds.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>

namespace tavix {
namespace {

using testing::fillLayer;
using testing::sceneOf;
using testing::specOf;

FrameRate rateOf(std::int64_t numerator, std::int64_t denominator) {
    return *FrameRate::ratio(numerator, denominator);
}

// Every frame of every rate stands at its own moment, to the last digit, and whole 600ths stay what they
// were.
TEST(FrameClock, IsExactForEveryRate) {
    for (std::int64_t whole = 1; whole <= 240; ++whole)
        for (const FrameRate& rate :
            {FrameRate(whole), rateOf(whole * 1000, 1001), rateOf(2 * whole + 1, 2)}) {
            if (rate < 1) continue;
            const FrameClock clock = FrameClock::of(rate);
            EXPECT_EQ(clock.timeOf(1) * rate.numerator(), clock.timescale * rate.denominator())
                << rate.text();
            EXPECT_GE(clock.timescale, 600) << rate.text();
            if (rate.denominator() == 1 && 600 % whole == 0) {
                EXPECT_EQ(clock.timescale, 600) << rate.text();
            }
        }
}

TEST(FrameClock, HoldsRatesThatNobodyCanShow) {
    for (const FrameRate& slow : {FrameRate(0), FrameRate(-5), rateOf(1, 1000)})
        EXPECT_EQ(FrameClock::of(slow).frameDuration, 600) << slow.text();
    EXPECT_EQ(FrameClock::of(std::int64_t{1} << 60).frameDuration, 1);
}

struct FilmRate {
    const char* name;
    FrameRate rate;
    std::int64_t frames;   // of ten minutes
};
class TenMinutes : public ::testing::TestWithParam<FilmRate> {
protected:
    static constexpr double lengthSec = 600, flashSec = 599;

    // Black, and at the flash white with a click.
    void write() {
        testing::writeWav(folder.path() / "click.wav", testing::silenceWithClick(4800, 0));
        CompositionLayer flash = fillLayer({1, 1, 1, 1});
        flash.fromSec = flashSec;
        CompositionRenderer::Config config;
        config.spec = specOf({16, 16}, 30, {sceneOf(lengthSec, {flash})});
        config.spec.output.fps = GetParam().rate;
        SoundCue click;
        click.atSec = flashSec;
        click.sound = "click.wav";
        config.spec.audio.emplace().cues = {click};
        config.output = film;
        config.assetRoot = folder.path();
        CompositionExport::write(config, {});
    }

    testing::TemporaryFolder folder;
    std::filesystem::path film = folder.path() / "film.mp4";
};
INSTANTIATE_TEST_SUITE_P(Films, TenMinutes,
    ::testing::Values(FilmRate{"seven", 7, 4200}, FilmRate{"television", rateOf(24000, 1001), 14386}),
    [](const auto& c) { return c.param.name; });

// A tool that is not ours reads the times of the packets.
std::vector<std::string> linesOf(const std::string& command) {
    std::vector<std::string> lines;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::array<char, 256> line{};
    while (pipe && std::fgets(line.data(), line.size(), pipe.get())) {
        lines.emplace_back(line.data());
        while (!lines.back().empty() && (lines.back().back() == '\n' || lines.back().back() == ','))
            lines.back().pop_back();
    }
    return lines;
}

// Of the first frame that is brighter than a quarter.
double flashSecOf(const std::filesystem::path& film, double fromSec) {
    const auto frames = media::VideoFile(film).framesFrom(fromSec, 1e9, media::Pace::steady);
    while (auto frame = frames->next())
        if (testing::Picture(frame->image(), {16, 16}).at(8, 8).g > 64) return frame->ptsSec();
    return -1;
}

TEST_P(TenMinutes, AreExactForThePictureAndToAMillisecondForTheSound) {
    write();
    const FrameRate& rate = GetParam().rate;
    const std::vector<std::string> packets =
        linesOf("ffprobe -v error -select_streams v -show_entries packet=pts -of csv=p=0 " + film.string() +
                " | sort -n");
    const std::vector<std::string> base = linesOf(
        "ffprobe -v error -select_streams v -show_entries stream=time_base -of csv=p=0 " + film.string());
    const std::vector<media::VideoSample> samples = media::VideoFile(film).samples();
    ASSERT_EQ(std::int64_t(packets.size()), GetParam().frames);
    ASSERT_EQ(std::int64_t(samples.size()), GetParam().frames);
    ASSERT_EQ(base.size(), 1u);
    const std::int64_t unitsPerSec = std::stoll(base[0].substr(base[0].find('/') + 1));
    for (std::size_t i = 0; i < packets.size(); ++i) {
        ASSERT_EQ(
            std::stoll(packets[i]) * rate.numerator(), std::int64_t(i) * rate.denominator() * unitsPerSec);
        ASSERT_NEAR(samples[i].ptsSec, rate.secAt(std::int64_t(i)), 1e-9);
    }

    const double frameSec = 1 / double(rate), shownSec = flashSecOf(film, flashSec - 3);
    EXPECT_GE(shownSec, flashSec - 1e-6);
    EXPECT_LT(shownSec, flashSec + frameSec);
    const std::vector<float> sound = testing::heard(film);
    EXPECT_NEAR(double(testing::loudestFrame(sound)) / testing::soundRateHz, flashSec, 0.001);
    EXPECT_NEAR(double(sound.size()) / testing::soundRateHz, double(GetParam().frames) * frameSec, 0.001);
}

}   // namespace
}   // namespace tavix
