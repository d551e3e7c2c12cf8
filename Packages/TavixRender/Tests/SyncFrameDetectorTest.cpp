// Recordings as recorders make them: their own clock, their own frames, their own losses.
#include "TavixRender/Recording/SyncFrameDetector.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixReel/Recording/Sidecar.h"
#include "TavixReel/Recording/SyncFlash.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>

namespace tavix {
namespace {

using media::tests::ClipRecipe;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr imaging::Size upright{128, 224};
constexpr int cornerPx = 24;   // the least side of a mark

// Magenta in the components of ITU-R BT.709 with limited range.
constexpr int magenta[] = {78, 214, 230};

struct Showing {
    bool flash = false, mark = false;
};

// A picture in motion with what is shown over it. Where the corner is, is up to how the film is stored.
void paint(
    AVFrame& frame, int index, const Showing& showing, bool isCornerAtRight = false, int markPx = cornerPx) {
    for (int plane = 0; plane < 3; ++plane) {
        const int shift = plane == 0 ? 0 : 1;
        const int width = frame.width >> shift, height = frame.height >> shift, corner = markPx >> shift;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const bool isCorner =
                    y >= height - corner && (isCornerAtRight ? x >= width - corner : x < corner);
                const bool isMagenta = showing.flash || (showing.mark && isCorner);
                const int moving = plane == 0 ? 40 + (x * 3 + y + index * 5) % 160 : 100 + (x + y) % 40;
                frame.data[plane][std::ptrdiff_t{y} * frame.linesize[plane] + x] =
                    std::uint8_t(isMagenta ? magenta[plane] : moving);
            }
    }
}

class Recordings : public testing::Test {
protected:
    std::filesystem::path at(const char* name) const { return folder_.path() / name; }

    // 30 frames a second, by the word for each frame: f a flash, m a mark, anything else neither.
    VideoProbe probeOf(const std::string& frames, double scanLimitSec = 60) const {
        ClipRecipe recipe{
            .path = at("clip.mov"), .size = upright, .times = media::tests::evenTimes(int(frames.size()))};
        recipe.paint = [&](AVFrame& frame, int index) {
            paint(frame, index, {frames[std::size_t(index)] == 'f', frames[std::size_t(index)] == 'm'});
        };
        media::tests::makeClip(recipe);
        return SyncFrameDetector::probe(recipe.path, scanLimitSec);
    }

    const std::filesystem::path& folder() const { return folder_.path(); }

private:
    testsupport::TemporaryFolder folder_;
};

std::vector<double> inFrames(const std::vector<double>& seconds) {
    std::vector<double> frames;
    for (const double sec : seconds) frames.push_back(std::round(sec * 30 * 100) / 100);
    return frames;
}

TEST_F(Recordings, AFlashIsARunOfFramesAndAMarkCountsOnce) {
    const VideoProbe probe = probeOf("...fff..mmm.m.m..mf.m...ff..");
    EXPECT_EQ(probe.widthPx, 128);
    EXPECT_EQ(probe.heightPx, 224);
    EXPECT_NEAR(probe.fps, 30, 1e-6);
    EXPECT_NEAR(*probe.syncSeconds, 3 / 30.0, 1e-6);
    EXPECT_NEAR(*probe.syncEndSeconds, 6 / 30.0, 1e-6);
    EXPECT_NEAR(*probe.endFlashStartSeconds, 24 / 30.0, 1e-6);
    EXPECT_NEAR(*probe.endFlashEndSeconds, 26 / 30.0, 1e-6);
    EXPECT_THAT(inFrames(probe.markBlipSeconds), ElementsAre(8, 12, 14, 17, 20));
}

TEST_F(Recordings, WithoutFlashesThereIsNothingToTell) {
    const VideoProbe none = probeOf("..........m..");
    EXPECT_FALSE(none.syncSeconds || none.syncEndSeconds || none.endFlashStartSeconds);
    EXPECT_EQ(none.trimStartSec(), 0);
    EXPECT_EQ(none.trimEndSec(7), 7);
    const VideoProbe one = probeOf(".....ff.....");
    EXPECT_TRUE(one.syncSeconds);
    EXPECT_FALSE(one.endFlashStartSeconds || one.flashSpanSec());
    EXPECT_NEAR(one.trimStartSec(), 7 / 30.0 + 0.06 + 1.5 / 30, 1e-6);
    EXPECT_FALSE(probeOf(".....ff.....", 0.1).syncSeconds);
    // A flash that the file ends in ends with its last frame.
    const VideoProbe open = probeOf("..ff......ff");
    EXPECT_NEAR(*open.endFlashEndSeconds, 11 / 30.0, 1e-6);
}

TEST_F(Recordings, SaysWhatItCannotRead) {
    const struct {
        const char *name, *sentence;
    } cases[] = {
        {"gone.mov", "Could not read raw recording: "}, {"words.mov", "Could not read raw recording: "}};
    std::ofstream(at("words.mov")) << "These are only words.";
    for (const auto& c : cases) {
        try {
            SyncFrameDetector::probe(at(c.name));
            ADD_FAILURE() << c.name;
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.message(), HasSubstr(c.sentence));
            EXPECT_THAT(failure.message(), HasSubstr(c.name));
            EXPECT_EQ(failure.message().back(), '.');
            EXPECT_FALSE(failure.message().ends_with(".."));
        }
    }
}

// What an app did, on a clock of its own that started somewhere and runs a little fast.
struct DrivenApp {
    double goAtSec = 9000.25, lengthSec = 9.5, recorderRate = 0.9965, goInVideoSec = 0.41;
    std::vector<double> actionsSec{1.03, 2.5, 3.317, 4.9, 6.2, 7.777},
        endsSec{1.4, 2.9, 4.02, 5.3, 6.71, 8.6};

    double appSec(double videoSec) const { return (videoSec - goInVideoSec) / recorderRate; }
    double videoSec(double sinceGoSec) const { return goInVideoSec + sinceGoSec * recorderRate; }

    Showing at(double videoTimeSec, double flashHoldSec) const {
        const double sec = appSec(videoTimeSec);
        const auto holds = [sec](double from, double hold) { return from <= sec && sec < from + hold; };
        Showing showing;
        showing.flash = holds(0, flashHoldSec) || holds(lengthSec, flashHoldSec);
        for (const auto* marks : {&actionsSec, &endsSec})
            for (const double mark : *marks) showing.mark = showing.mark || holds(mark, 0.1);
        return showing;
    }

    DoneReport report() const {
        DoneReport report;
        report.flowStart = goAtSec;
        report.flowEnd = goAtSec + lengthSec;
        for (std::size_t i = 0; i < actionsSec.size(); ++i) {
            DoneReport::StepMark& mark = report.steps.emplace_back();
            mark.index = std::int64_t(i);
            mark.startedAt = goAtSec + actionsSec[i] - 0.2;
            mark.actionAt = goAtSec + actionsSec[i];
            mark.motionEndAt = goAtSec + endsSec[i];
        }
        return report;
    }
};

struct Recorder {
    const char* name;
    ClipRecipe recipe;   // without its path
    double flashHoldSec = SyncFlash::holdMs / 1000.0;
};

std::vector<std::int64_t> timesWithGaps(const std::function<int()>& gapTicks, int untilTicks) {
    std::vector<std::int64_t> times;
    for (std::int64_t t = 0; t < untilTicks; t += gapTicks()) times.push_back(t);
    return times;
}

std::vector<Recorder> recorders() {
    constexpr int lengthTicks = int(10.6 * 600);
    SeededRandom dice("recorders");
    std::vector<Recorder> all;
    const auto add = [&](const char* name, std::vector<std::int64_t> times) -> Recorder& {
        all.push_back({name, {.size = upright, .times = std::move(times)}});
        return all.back();
    };
    add("30", timesWithGaps([] { return 20; }, lengthTicks));
    add("60", timesWithGaps([] { return 10; }, lengthTicks));
    add("29.97", timesWithGaps([] { return 1001; }, 318000)).recipe.tick = {1, 30000};
    add("variable", timesWithGaps([&] { return 10 + int(dice.next() % 20); }, lengthTicks));
    add("dropping", timesWithGaps([&] { return dice.next() % 8 == 0 ? 40 : 20; }, lengthTicks));
    add("lossy", timesWithGaps([] { return 20; }, lengthTicks)).recipe.options = {{"crf", "44"}};
    add("short flash", timesWithGaps([] { return 20; }, lengthTicks)).flashHoldSec = 0.034;
    Recorder& turned = add("rotated", timesWithGaps([] { return 20; }, lengthTicks));
    turned.recipe.clockwiseDeg = 90;
    turned.recipe.size = {upright.height, upright.width};
    return all;
}

// Every step stands where the film shows it, to the frame.
void expectAligned(const DrivenApp& app, const VideoProbe& probe, double frameSec) {
    ASSERT_TRUE(probe.flashSpanSec());
    const auto made = Sidecar::of(app.report(), probe);
    ASSERT_TRUE(made);
    EXPECT_NEAR(made->rate, app.recorderRate, frameSec / app.lengthSec);
    EXPECT_EQ(made->aligned.matched, 2 * app.actionsSec.size());
    for (std::size_t i = 0; i < app.actionsSec.size(); ++i) {
        const Timeline::Event& event = made->aligned.timeline.events[i];
        EXPECT_NEAR(*event.actionSec, app.videoSec(app.actionsSec[i]), frameSec) << i;
        EXPECT_NEAR(*event.endSec, app.videoSec(app.endsSec[i]), frameSec) << i;
        // A picture never shows what has not happened yet.
        EXPECT_GE(*event.actionSec, app.videoSec(app.actionsSec[i]) - 0.001) << i;
    }
}

TEST_F(Recordings, AlignedTimesAreWithinAFrameWhateverTheRecorderDoes) {
    const DrivenApp app;
    for (Recorder& recorder : recorders()) {
        SCOPED_TRACE(recorder.name);
        ClipRecipe& recipe = recorder.recipe;
        recipe.path = at("recording.mov");
        const double tickSec = double(recipe.tick.num) / recipe.tick.den;
        double longestSec = 0;
        for (std::size_t i = 1; i < recipe.times.size(); ++i)
            longestSec = std::max(longestSec, double(recipe.times[i] - recipe.times[i - 1]) * tickSec);
        recipe.paint = [&](AVFrame& frame, int index) {
            const double videoSec = double(recipe.times[std::size_t(index)]) * tickSec;
            paint(frame, index, app.at(videoSec, recorder.flashHoldSec), recipe.clockwiseDeg == 90);
        };
        media::tests::makeClip(recipe);

        const VideoProbe probe = SyncFrameDetector::probe(recipe.path);
        EXPECT_EQ(probe.widthPx, upright.width);
        expectAligned(app, probe, longestSec);
    }
}

// As large as phones record, with so few bits that most of every picture is a smear: 2 Mbit/s are less than a
// thirtieth of what the picture below would want.
TEST_F(Recordings, AlignedTimesSurviveAFullSizeFilmOfFewBits) {
    DrivenApp app;
    app.lengthSec = 2.3;
    app.actionsSec = {0.4, 1.3};
    app.endsSec = {0.8, 1.71};
    ClipRecipe recipe{
        .path = at("large.mov"), .size = {1178, 2556}, .times = media::tests::evenTimes(90), .gop = 120};
    recipe.options = {
        {"preset", "ultrafast"}, {"b", "2000000"}, {"maxrate", "2000000"}, {"bufsize", "1000000"}};
    recipe.paint = [&](AVFrame& frame, int index) {
        const Showing showing = app.at(index / 30.0, SyncFlash::holdMs / 1000.0);
        paint(frame, index, showing, false, SyncFrameDetector::markSidePx(frame.width));
    };
    media::tests::makeClip(recipe);
    ASSERT_LT(std::filesystem::file_size(recipe.path), 3 * 2'000'000 / 8 * 1.5);
    expectAligned(app, SyncFrameDetector::probe(recipe.path), 1 / 30.0);
}

TEST_F(Recordings, DamageIsToldAndAWholeFilmHasNone) {
    ClipRecipe recipe{.path = at("whole.mkv"), .size = upright, .times = media::tests::evenTimes(60)};
    recipe.paint = [](AVFrame& frame, int index) { paint(frame, index, {index == 4}); };
    media::tests::makeClip(recipe);
    EXPECT_FALSE(SyncFrameDetector::probe(recipe.path).isDamaged);
    const std::string bytes = readBytes(recipe.path);
    std::ofstream(at("cut.mkv"), std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    const VideoProbe cut = SyncFrameDetector::probe(at("cut.mkv"));
    EXPECT_TRUE(cut.isDamaged);
    EXPECT_TRUE(cut.syncSeconds);   // what can be read counts all the same
    // In the middle of the first picture: what a hole does to the blocks of the file is told by chance alone.
    std::string holed = bytes;
    for (std::size_t i = 1400; i < 1700; ++i) holed[i] = char(i * 37);
    std::ofstream(at("holed.mkv"), std::ios::binary) << holed;
    EXPECT_TRUE(SyncFrameDetector::probe(at("holed.mkv")).isDamaged);
}

// One pixel of a colour, everywhere.
imaging::Bitmap plain(imaging::Size size, int red, int green, int blue) {
    imaging::Bitmap bitmap(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* pixel = bitmap.view().row(y) + 4 * x;
            pixel[0] = std::uint8_t(blue);
            pixel[1] = std::uint8_t(green);
            pixel[2] = std::uint8_t(red);
            pixel[3] = 255;
        }
    return bitmap;
}

TEST(SyncFrames, AreMagentaAllOver) {
    EXPECT_TRUE(SyncFrameDetector::isSyncFrame(plain({64, 64}, 255, 0, 255).view()));
    EXPECT_TRUE(SyncFrameDetector::isSyncFrame(plain({1, 1}, 215, 40, 215).view()));
    EXPECT_FALSE(SyncFrameDetector::isSyncFrame(plain({64, 64}, 255, 60, 255).view()));
    EXPECT_FALSE(SyncFrameDetector::isSyncFrame(plain({64, 64}, 255, 0, 200).view()));
    EXPECT_FALSE(SyncFrameDetector::isSyncFrame({}));
    EXPECT_FALSE(SyncFrameDetector::isMarkBlipFrame({}));
    EXPECT_TRUE(SyncFrameDetector::isMarkBlipFrame(plain({3, 2}, 255, 0, 255).view()));
    EXPECT_EQ(SyncFrameDetector::markSidePx(1500), 60);
    EXPECT_EQ(SyncFrameDetector::markSidePx(1499), 59);
    EXPECT_EQ(SyncFrameDetector::markSidePx(300), 24);
}

}   // namespace
}   // namespace tavix
