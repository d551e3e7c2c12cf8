// Which picture of the recording every frame of a finished reel shows, for recordings that carry the numbers
// of their frames.
#include "TavixReelRender/Film/ReelFilm.h"
#include "ReelTestKit.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixPlatform/Media/Tests/TestClip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace tavix {
namespace {

using namespace testing;
using ::testing::HasSubstr;

class Films : public ::testing::Test {
protected:
    // Its frames at these ticks of 1/600 second.
    ReelFootage record(std::vector<std::int64_t> ticks) {
        const std::filesystem::path video = studio_.folder.path() / "raw.mov";
        timesSec_.clear();
        for (const std::int64_t tick : ticks) timesSec_.push_back(double(tick) / 600);
        media::tests::makeClip({.path = video, .times = std::move(ticks)});
        const double endSec = timesSec_.back() + 1 / 30.0;
        return {video, smallSize, endSec, 0, endSec};
    }

    // The number of the frame that is on screen at a time of the recording.
    int shownAt(double rawSec) const {
        const auto after = std::ranges::upper_bound(timesSec_, rawSec + media::timestampToleranceSec);
        return int(std::max<std::ptrdiff_t>(after - timesSec_.begin() - 1, 0));
    }

    std::vector<int> numbers(const EffectsSpec& spec, const ReelFootage& footage, double fps = 30) {
        ReelFilm film(spec, footage, studio_.folder.path(), studio_.evaluator, {});
        std::vector<int> shown;
        for (int i = 0; i < std::lround(film.durationSec() * fps); ++i)
            shown.push_back(media::tests::numberIn(film.frame(i / fps)));
        return shown;
    }

    Studio studio_{smallSize};
    std::vector<double> timesSec_;
};

void add(std::vector<int>& to, int first, int step, int count) {
    for (int i = 0; i < count; ++i) to.push_back(first + i * step);
}
constexpr int card = -1;   // carries no number

TEST_F(Films, FramesAreExactAtCutsPacesAndCards) {
    const ReelFootage footage = record(media::tests::evenTimes(180));
    EffectsSpec spec = bareSpec();
    spec.cuts = {{.dropRange = {1, 2}}};
    spec.retimeTrack = {{{3, 4}, 2}, {{4, 5}, 0.5}};
    TitleCard title;
    title.durationSec = 1.2;
    title.insertionSec = 2.5;
    title.background = RGBAColor{0, 0, 1, 1};
    spec.titleCards = {title};
    std::vector<int> expected;
    add(expected, 0, 1, 30);
    add(expected, 60, 1, 15);
    add(expected, card, 0, 36);
    add(expected, 75, 1, 15);
    add(expected, 90, 2, 15);
    for (int i = 0; i < 30; ++i) add(expected, 120 + i, 0, 2);
    add(expected, 150, 1, 30);
    EXPECT_EQ(numbers(spec, footage), expected);
}

// Boundaries whose sums are not exact in binary must not show a frame of the other side.
TEST_F(Films, ManySmallPiecesDoNotDrift) {
    const ReelFootage footage = record(media::tests::evenTimes(240));
    for (const auto& [kept, dropped] : {std::pair(2, 3), {7, 5}, {3, 1}}) {   // frames
        EffectsSpec spec = bareSpec();
        std::vector<int> expected;
        for (int first = 0; first + kept + dropped <= 240; first += kept + dropped) {
            spec.cuts.push_back({.dropRange = {(first + kept) / 30.0, (first + kept + dropped) / 30.0}});
            add(expected, first, 1, kept);
        }
        EXPECT_EQ(numbers(spec, footage), expected) << kept << " " << dropped;
    }
}

TEST_F(Films, AVariableRateShowsWhatIsOnScreenThen) {
    SeededRandom dice("variable film");
    std::vector<std::int64_t> ticks;
    for (std::int64_t t = 0; t < 600 * 6; t += 7 + std::int64_t(dice.next() % 40)) ticks.push_back(t);
    ReelFootage footage = record(ticks);
    footage.trimStartSec = 0.41;
    footage.trimEndSec = 5.6;
    EffectsSpec spec = bareSpec(60);
    spec.cuts = {{.dropRange = {1.013, 2.22}}};
    spec.retimeTrack = {{{3.001, 4.2}, 3}};
    ReelFilm film(spec, footage, studio_.folder.path(), studio_.evaluator, {});
    EXPECT_NEAR(film.durationSec(), 5.19 - 1.207 - 1.199 + 1.199 / 3, 1e-9);
    int i = 0;
    double startSec = 0;
    for (const auto& [fromSec, toSec, speed] :
        {std::tuple(0.0, 1.013, 1.0), {2.22, 3.001, 1.0}, {3.001, 4.2, 3.0}, {4.2, 5.19, 1.0}}) {
        const double lengthSec = (toSec - fromSec) / speed;
        for (; i / 60.0 < startSec + lengthSec - 1e-9; ++i) {
            const double rawSec = 0.41 + fromSec + (i / 60.0 - startSec) * speed;
            EXPECT_EQ(media::tests::numberIn(film.frame(i / 60.0)), shownAt(rawSec)) << i;
        }
        startSec += lengthSec;
    }
}

// A white square in a black recording, found again in every frame of the reel: where it is, and how large, is
// told by the springs' law at the time of the recording, whatever was cut out, played faster or put between.
TEST_F(Films, TheCameraGoesByTheRecordingThroughCutsPacesAndCards) {
    constexpr int side = 128, markPx = 20;
    constexpr double markX = 74, markY = 50;   // its middle
    const std::filesystem::path video = studio_.folder.path() / "mark.mov";
    media::tests::makeClip({.path = video,
        .size = {side, side},
        .times = media::tests::evenTimes(120),
        .paint = [&](AVFrame& frame, int) {
            media::tests::fillPlane(frame, 0, 16);
            media::tests::fillPlane(frame, 1, 128);
            media::tests::fillPlane(frame, 2, 128);
            for (int y = int(markY) - markPx / 2; y < int(markY) + markPx / 2; ++y)
                for (int x = int(markX) - markPx / 2; x < int(markX) + markPx / 2; ++x)
                    frame.data[0][y * frame.linesize[0] + x] = 235;
        }});
    EffectsSpec spec = plainSpec();   // a screen of 200 pixels in the middle of 400
    spec.motion = MotionSpring{.zoomResponse = 0.4, .panResponse = 0.6, .damping = 1};
    spec.cameraTrack = {
        {.tSec = 0, .scale = 1.2, .centerPx = {64, 64}}, {.tSec = 1, .scale = 1.8, .centerPx = {76, 54}}};
    spec.cuts = {{.dropRange = {1.5, 2}}};
    spec.retimeTrack = {{{2.5, 3.5}, 2}};
    TitleCard title;
    title.durationSec = 1.2;
    title.insertionSec = 0.5;
    spec.titleCards = {title};
    Studio wide({400, 400});
    ReelFilm film(
        spec, {video, {side, side}, 4, 0, 4}, wide.folder.path(), wide.evaluator, messagesTo(wide.log));
    const auto approach = [](double from, double to, double sec, double responseSec) {
        if (sec <= 0) return from;
        const double turn = 2 * M_PI / responseSec * sec;
        return to + (from - to) * (1 + turn) * std::exp(-turn);
    };
    const struct {
        double startSec, preCutSec, speed, lengthSec;   // of the finished reel, but the second
    } pieces[] = {{0, 0, 1, 0.5}, {1.7, 0.5, 1, 1}, {2.7, 2, 1, 0.5}, {3.2, 2.5, 2, 0.5}, {3.7, 3.5, 1, 0.5}};
    for (const auto& piece : pieces)
        for (double sec = 0; sec < piece.lengthSec - 0.01; sec += 0.1) {
            const double preCutSec = piece.preCutSec + sec * piece.speed;
            SCOPED_TRACE(piece.startSec + sec);
            const Picture frame = wide.picture(film.frame(piece.startSec + sec));
            double sum = 0, sumX = 0, sumY = 0;
            for (int y = 100; y < 300; ++y)
                for (int x = 100; x < 300; ++x) {
                    const double light = frame.at(x, y).g / 255.0;
                    sum += light, sumX += light * (x + 0.5), sumY += light * (y + 0.5);
                }
            ASSERT_GT(sum, 100);
            const double zoom = std::exp(approach(std::log(1.2), std::log(1.8), preCutSec - 1, 0.4));
            const double scale = zoom * 200 / side, room = 64 / zoom;
            const auto held = [room](double focal) { return std::clamp(focal, room, side - room); };
            const double focalX = held(approach(64, 76, preCutSec - 1, 0.6));
            const double focalY = held(approach(64, 54, preCutSec - 1, 0.6));
            EXPECT_NEAR(sumX / sum, 200 + (markX - focalX) * scale, 0.75);
            EXPECT_NEAR(sumY / sum, 200 + (markY - focalY) * scale, 0.75);
            EXPECT_NEAR(std::sqrt(sum), markPx * scale, 0.02 * markPx * scale);
        }
}

TEST_F(Films, TimesMayComeInAnyOrder) {
    const ReelFootage footage = record(media::tests::evenTimes(120));
    EffectsSpec spec = bareSpec();
    spec.cuts = {{.dropRange = {1, 2}}};
    ReelFilm film(spec, footage, studio_.folder.path(), studio_.evaluator, {});
    for (const auto& [frame, number] : {std::pair(80, 110), {10, 10}, {30, 60}, {29, 29}, {89, 119}})
        EXPECT_EQ(media::tests::numberIn(film.frame(frame / 30.0)), number) << frame;
}

TEST_F(Films, TransitionsTakeTheirPicturesFromTheRecording) {
    const ReelFootage footage = record(media::tests::evenTimes(90));
    EffectsSpec spec = bareSpec();
    ScreenTransition push;   // the old picture leaves to the left
    push.style = TransitionStyle::push;
    push.atSec = 1;
    push.revealSec = 2;
    spec.setTransitions({push});
    ReelFilm film(spec, footage, studio_.folder.path(), studio_.evaluator, {});
    EXPECT_EQ(media::tests::numberIn(film.frame(1)), 30);
    EXPECT_EQ(media::tests::numberIn(film.frame(2)), 60);
    spec.setTransitions({});
    ReelFilm plain(spec, footage, studio_.folder.path(), studio_.evaluator, {});
    const Picture outgoing(plain.frame(1), smallSize), incoming(plain.frame(2), smallSize),
        halfWay(film.frame(1.5), smallSize);
    for (int x = 0; x < 32; ++x) {
        EXPECT_EQ(halfWay.at(x, 20), outgoing.at(x + 32, 20)) << x;
        EXPECT_EQ(halfWay.at(x + 32, 20), incoming.at(x, 20)) << x;
    }
}

TEST_F(Films, AReelOfACardAloneIsAFilm) {
    const ReelFootage footage = record(media::tests::evenTimes(9));
    EffectsSpec spec = bareSpec();
    spec.cuts = {{.dropRange = {0, 9}}};
    const auto sentenceOf = [&](const ReelFootage& of) {
        try {
            ReelFilm(spec, of, {}, studio_.evaluator, {});
        } catch (const Failure& failure) {
            return failure.message();
        }
        return std::string();
    };
    EXPECT_EQ(sentenceOf(footage), "Nothing to render after applying cuts.");
    ReelFootage empty = footage;
    empty.trimStartSec = 3;
    EXPECT_THAT(sentenceOf(empty), HasSubstr("Trim window is empty (start 3.00 s, end 0.30 s)."));
    spec.titleCards = {TitleCard{.durationSec = 1.5}};
    EXPECT_EQ(numbers(spec, footage).size(), 45u);
}

TEST_F(Films, WhatIsNoRecordingIsToldUnlessNothingIsShownOfIt) {
    std::ofstream(studio_.folder.path() / "words.mov") << "no film";
    for (const auto& [name, sentence] :
        {std::pair("gone.mov", "Could not read raw recording: "), {"words.mov", "words.mov"}}) {
        const ReelFootage footage{studio_.folder.path() / name, smallSize, 3, 0, 3};
        EffectsSpec spec = bareSpec();
        try {
            const ReelFilm film(spec, footage, {}, studio_.evaluator, {});
            ADD_FAILURE() << name;
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.message(), HasSubstr(sentence));
        }
        spec.cuts = {{.dropRange = {0, 9}}};
        spec.titleCards = {TitleCard{.durationSec = 1.5}};
        EXPECT_EQ(numbers(spec, footage).size(), 45u) << "of a card";
    }
}

}   // namespace
}   // namespace tavix
