// The state machine of the clip reader over a scripted film that counts what is asked of it, and the same
// reader over real films.
#include "TavixRender/Composition2D/SequentialClipReader.h"

#include "RenderTestKit.h"
#include "TavixPlatform/Media/Tests/TestClip.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using media::VideoFrame;
using media::VideoSample;

// A film whose frame n is a solid colour that says n, and what was done to show it.
struct Script {
    std::vector<VideoSample> samples;
    bool hasMap = true, opens = true;
    double opensLateSec = 0;   // how much later than asked decoding starts, where there is no map
    int maps = 0, randomOpens = 0, randomDecodes = 0, decodes = 0;
    bool randomFails = false;
    std::vector<double> opened;   // where forward decoding started

    int decodedSince(int& mark) { return decodes - std::exchange(mark, decodes); }
};

imaging::Image pictureOf(std::size_t number) {
    return imaging::Image::solid({double(number / 16 % 16) / 15, double(number % 16) / 15, 0, 1})
        .cropped({0, 0, 2, 2});
}

std::optional<int> numberOf(const std::optional<imaging::Image>& image) {
    if (!image) return std::nullopt;
    const testing::Pixel p = testing::Picture(*image, {2, 2}).at(0, 0);
    return p.r / 17 * 16 + p.g / 17;
}

class ScriptedFrames : public media::VideoFrames {
public:
    ScriptedFrames(Script& script, std::size_t first, double endSec)
        : script_(script), at_(first), endSec_(endSec) {}
    std::optional<VideoFrame> next() override {
        if (at_ >= script_.samples.size() || script_.samples[at_].ptsSec >= endSec_) return std::nullopt;
        ++script_.decodes;
        const std::size_t number = at_++;
        return VideoFrame(script_.samples[number].ptsSec, pictureOf(number));
    }

private:
    Script& script_;
    std::size_t at_;
    double endSec_;
};

class ScriptedAccess : public media::RandomAccessFrames {
public:
    explicit ScriptedAccess(Script& script) : script_(script) {}
    std::optional<VideoFrame> frame(double startSec, double durationSec) override {
        if (script_.randomFails) return std::nullopt;
        for (std::size_t i = 0; i < script_.samples.size(); ++i) {
            const double sec = script_.samples[i].ptsSec;
            if (sec < startSec || sec >= startSec + durationSec) continue;
            ++script_.randomDecodes;
            return VideoFrame(sec, pictureOf(i));
        }
        return std::nullopt;
    }
    bool hasFailed() const override { return script_.randomFails; }

private:
    Script& script_;
};

class ScriptedSource : public media::VideoSource {
public:
    explicit ScriptedSource(Script& script) : script_(script) {}
    std::unique_ptr<media::VideoFrames> framesFrom(double startSec, double endSec, media::Pace) override {
        if (!script_.opens) throw media::MediaError("It is torn.");
        script_.opened.push_back(startSec);
        const double from = startSec + (script_.hasMap ? 0 : script_.opensLateSec);
        const auto after = std::ranges::upper_bound(script_.samples, from, {}, &VideoSample::ptsSec);
        const auto first =
            std::max<std::ptrdiff_t>(after - script_.samples.begin() - (script_.hasMap ? 1 : 0), 0);
        return std::make_unique<ScriptedFrames>(script_, std::size_t(first), endSec);
    }
    std::unique_ptr<media::RandomAccessFrames> randomAccess() override {
        ++script_.randomOpens;
        return std::make_unique<ScriptedAccess>(script_);
    }
    std::vector<VideoSample> samples() override {
        ++script_.maps;
        if (!script_.hasMap) throw media::MediaError("It has no index.");
        return script_.samples;
    }

private:
    Script& script_;
};

// Ten frames a second for twelve seconds, a sync frame every second.
class SequentialClipReaderTest : public ::testing::Test {
protected:
    SequentialClipReaderTest() {
        for (int i = 0; i < 120; ++i) script_.samples.push_back({i / 10.0, i % 10 == 0});
    }
    SequentialClipReader reader(double trimStart = 0, std::optional<double> trimEnd = {}, bool holds = true) {
        return {std::make_unique<ScriptedSource>(script_), {"film.mp4", trimStart, trimEnd, holds},
            keep(log_), keep(scrub_)};
    }
    static RenderLog keep(std::vector<std::string>& lines) { return testing::messagesTo(lines); }

    Script script_;
    std::vector<std::string> log_, scrub_;
    int mark_ = 0;
};

TEST_F(SequentialClipReaderTest, DecodesEachFrameOnceForRisingTimes) {
    auto clip = reader();
    for (int i = 0; i < 240; ++i) EXPECT_EQ(numberOf(clip.frame(i / 20.0)), std::min(i / 2, 119));
    EXPECT_EQ(numberOf(clip.frame(100)), 119);
    EXPECT_EQ(script_.decodes, 120);
    EXPECT_THAT(script_.opened, ::testing::ElementsAre(0));
    EXPECT_EQ(script_.maps, 0);
}

TEST_F(SequentialClipReaderTest, DecodesNothingForATimeThatIsAskedAgain) {
    auto clip = reader();
    for (const double sec : {0.0, 0.34, 1.2}) {
        const auto first = numberOf(clip.frame(sec));
        script_.decodedSince(mark_);
        EXPECT_EQ(numberOf(clip.frame(sec)), first);
        EXPECT_EQ(numberOf(clip.frame(sec - 0.0009)), first) << "less than a step back is none";
        EXPECT_EQ(script_.decodedSince(mark_), 0);
    }
    EXPECT_EQ(script_.opened.size(), 1u);
}

TEST_F(SequentialClipReaderTest, StartsAnewBehindTheRequestWhenGoingBack) {
    auto clip = reader();
    clip.frame(1.75);
    script_.decodedSince(mark_);
    EXPECT_EQ(numberOf(clip.frame(1.35)), 13);
    EXPECT_EQ(script_.opened.back(), 1.0);   // its sync frame
    EXPECT_EQ(script_.decodedSince(mark_), 5);
    EXPECT_EQ(numberOf(clip.frame(-5)), 0) << "before the clip is its start";
    EXPECT_EQ(script_.maps, 1);
}

TEST_F(SequentialClipReaderTest, JumpsOnlyAcrossMoreThanTwoSeconds) {
    auto clip = reader();
    clip.frame(0);
    EXPECT_EQ(numberOf(clip.frame(2)), 20);
    EXPECT_EQ(script_.opened.size(), 1u);
    EXPECT_EQ(numberOf(clip.frame(4.01)), 40);
    EXPECT_THAT(script_.opened, ::testing::ElementsAre(0, 4));
    auto far = reader();   // the first request is a step from the trim's start
    EXPECT_EQ(numberOf(far.frame(7.55)), 75);
    EXPECT_EQ(script_.opened.back(), 7);
}

TEST_F(SequentialClipReaderTest, EndsAtItsTrim) {
    for (const bool holds : {true, false}) {
        auto clip = reader(2.05, 3.0, holds);
        EXPECT_EQ(numberOf(clip.frame(0)), 20);
        EXPECT_EQ(numberOf(clip.frame(0.9)), 29);
        for (const double sec : {0.95, 1.0, 50.0})
            EXPECT_EQ(numberOf(clip.frame(sec)), holds ? std::optional(29) : std::nullopt) << sec;
        EXPECT_EQ(numberOf(clip.frame(0.5)), 25) << "and comes back";
    }
    for (const double start : {2.0, 0.0}) {   // from near, and from so far that it jumps
        auto still = reader(start, 3.0);
        EXPECT_EQ(numberOf(still.frame(4)), 29) << "as in the course of the film";
    }
    auto never = reader(2.0, 3.0, false);
    EXPECT_EQ(numberOf(never.frame(4)), std::nullopt);
}

TEST_F(SequentialClipReaderTest, ShowsTheFirstFrameBeforeItsTime) {
    script_.samples.erase(script_.samples.begin(), script_.samples.begin() + 5);
    auto clip = reader();
    EXPECT_EQ(numberOf(clip.frame(0)), 0);
    EXPECT_EQ(numberOf(clip.frame(0.3)), 0);
    EXPECT_EQ(numberOf(clip.frame(0.61)), 1);
    EXPECT_EQ(script_.decodes, 3);
}

TEST_F(SequentialClipReaderTest, AllowsForTimesRoundedToMilliseconds) {
    script_.samples = {{0, true}, {0.033, false}, {0.067, false}, {0.1, false}};
    auto clip = reader();
    for (int i = 0; i < 4; ++i) EXPECT_EQ(numberOf(clip.frame(i / 30.0)), i);
    EXPECT_EQ(numberOf(reader().frame(0.0664)), 1);
}

TEST_F(SequentialClipReaderTest, AnswersRoughRequestsFromSyncFrames) {
    auto clip = reader();
    EXPECT_EQ(numberOf(clip.frame(5.55, true)), 50);
    EXPECT_EQ(numberOf(clip.frame(5.95, true)), 50) << "the same sync frame";
    EXPECT_EQ(script_.randomDecodes, 1);
    EXPECT_EQ(numberOf(clip.frame(2.3, true)), 20) << "backward";
    EXPECT_EQ(numberOf(clip.frame(2.4, true)), 20) << "nothing was decoded forward since";
    EXPECT_EQ(script_.randomDecodes, 2);
    EXPECT_EQ(script_.randomOpens, 1);
    EXPECT_EQ(script_.decodes, 0);
    EXPECT_EQ(numberOf(clip.frame(2.4)), 24) << "the exact one follows";
    EXPECT_EQ(script_.opened.back(), 2);
    EXPECT_EQ(script_.maps, 1);
}

TEST_F(SequentialClipReaderTest, GoesBackExactlyAfterRoughAnswers) {
    auto clip = reader();
    EXPECT_EQ(numberOf(clip.frame(5.55)), 55);   // one decoded past it is kept
    EXPECT_EQ(numberOf(clip.frame(2.35, true)), 20);
    EXPECT_EQ(numberOf(clip.frame(2.35)), 23);
}

TEST_F(SequentialClipReaderTest, WalksWithinABudgetForSmallRoughSteps) {
    for (int i = 0; i < 400; ++i) script_.samples.push_back({12 + i / 400.0, false});   // a dense second
    auto clip = reader();
    clip.frame(11.5);
    script_.decodedSince(mark_);
    EXPECT_EQ(numberOf(clip.frame(11.8, true)), 118) << "a step of 0.3 walks";
    EXPECT_EQ(script_.randomDecodes, 0);
    EXPECT_TRUE(
        scrub_.size() == 1 && scrub_[0].starts_with("sampleMap film.mp4 built="));   // of the first jump
    script_.decodedSince(mark_);
    clip.frame(12.1, true);
    EXPECT_LE(script_.decodedSince(mark_), 31);
    EXPECT_EQ(scrub_.back(), "scrub decode budget hit at wanted=12.10 last=12.07");
    clip.frame(12.5, true);
    EXPECT_EQ(script_.randomDecodes, 1) << "a step of 0.4 does not walk";
}

TEST_F(SequentialClipReaderTest, ReopensRandomAccessThatFailed) {
    auto clip = reader();
    script_.randomFails = true;
    EXPECT_EQ(numberOf(clip.frame(5.55, true)), 50) << "the sync frame of a jump instead";
    script_.randomFails = false;
    EXPECT_EQ(numberOf(clip.frame(8.55, true)), 80);
    EXPECT_EQ(script_.randomDecodes, 1);
}

TEST_F(SequentialClipReaderTest, FindsItsWayWithoutAMap) {
    script_.hasMap = false;
    reader().frame(9);
    EXPECT_THAT(scrub_,
        ::testing::ElementsAre(::testing::MatchesRegex("sampleMap film\\.mp4 built=[0-9]+ms samples=-1")));
    for (const double late : {0.0, 0.5, 3.0}) {
        script_.opensLateSec = late;
        auto clip = reader(0.5);
        clip.frame(9);
        EXPECT_EQ(numberOf(clip.frame(3.25)), 37) << late;
        EXPECT_EQ(numberOf(clip.frame(8.25)), 87) << late;
        EXPECT_EQ(numberOf(clip.frame(30)), 119) << late;
    }
}

TEST_F(SequentialClipReaderTest, ClosesAndOpensAgain) {
    auto clip = reader();
    clip.frame(3.0);
    clip.rest();
    EXPECT_EQ(numberOf(clip.frame(3.1)), 31);
    EXPECT_EQ(script_.opened.back(), 3);
    clip.frame(100);
    clip.rest();
    EXPECT_EQ(numberOf(clip.frame(100)), 119);
}

TEST_F(SequentialClipReaderTest, NamesAFilmThatCannotBeReadOnce) {
    script_.opens = false;
    auto clip = reader();
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(clip.frame(i));
    EXPECT_THAT(log_, ::testing::ElementsAre("The clip film.mp4 is not drawn: It is torn."));
}

// The law of the reader, over real films and any order of requests: the frame whose time covers the request.
TEST(SequentialClipReaderOfFilms, GivesTheFrameThatCoversTheTime) {
    const testing::TemporaryFolder folder;
    std::vector<std::int64_t> uneven{0};
    for (int i = 1; i < 90; ++i) uneven.push_back(uneven.back() + (i * i) % 37 + 4);
    const struct {
        const char* name;
        std::vector<std::int64_t> times;
        int gop;
    } films[] = {{"even.mp4", media::tests::evenTimes(90), 15}, {"uneven.mp4", uneven, 15},
        {"uneven.mkv", uneven, 200}};
    for (const auto& film : films) {
        const auto path = folder.path() / film.name;
        media::tests::makeClip({.path = path, .times = film.times, .gop = film.gop});
        for (const double trim : {0.0, 0.4321}) {
            SCOPED_TRACE(std::string(film.name) + " from " + std::to_string(trim));
            SequentialClipReader clip(path, VideoClip{path.string(), trim, {}, {}}, true, {});
            const double length = double(film.times.back()) / 600 - trim;
            for (int i = 0; i < 60; ++i) {
                // Forward in small steps, and now and then anywhere.
                const double sec =
                    (i % 12 == 11 ? i * 0.37 : i * 0.021) - std::floor(i * 0.021 / length) * length;
                const double wanted = std::min(trim + std::max(sec, 0.0), trim + length);
                const auto covers =
                    std::ranges::upper_bound(film.times, std::int64_t(std::floor((wanted + 0.0001) * 600)));
                const double next = covers == film.times.end() ? 1e9 : double(*covers) / 600;
                if (next - wanted < 0.002) continue;   // within the rounding of containers
                const auto frame = clip.frame(wanted - trim);
                ASSERT_TRUE(frame);
                ASSERT_EQ(media::tests::numberIn(*frame), covers - film.times.begin() - 1) << wanted;
            }
        }
    }
}

}   // namespace
}   // namespace tavix
