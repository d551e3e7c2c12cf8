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
