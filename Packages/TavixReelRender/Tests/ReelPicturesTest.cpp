// A reel on the screen of a device is the reel without its canvas.
#include "TavixRender/Composition2D/ReelPictures.h"
#include "ReelTestKit.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Media/Tests/TestClip.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixReelRender/Film/ReelFilm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace tavix {
namespace {

using namespace testing;
using ::testing::HasSubstr;

class Reels : public ::testing::Test {
protected:
    // Of three seconds; the picture of each frame tells its number.
    std::filesystem::path reel(const EffectsSpec& spec) {
        const std::filesystem::path folder = studio_.folder.path() / "walk.tavixproj";
        std::filesystem::create_directories(folder);
        media::tests::makeClip(
            {.path = folder / ReelProjectBundle::rawVideoName, .times = media::tests::evenTimes(90)});
        writeFile(spec, folder / ReelProjectBundle::effectsName);
        return folder;
    }
    int numberAt(ReelPictures& pictures, double sec) {
        const auto picture = pictures.at(sec);
        return picture ? media::tests::numberIn(*picture) : -1;
    }

    Studio studio_{smallSize};
};

TEST_F(Reels, AScreenShowsWhatTheFilmShows) {
    EffectsSpec spec = bareSpec();
    spec.cameraTrack = {{0, 1, {32, 32}}, {0.5, 1.8, {20, 44}}, {1.4, 1, {32, 32}}};
    spec.cuts = {{.dropRange = {0.8, 1.1}}};
    spec.retimeTrack = {{{2, 2.5}, 2}};
    ScreenTransition push;
    push.style = TransitionStyle::push;
    push.atSec = 1.3;
    push.revealSec = 1.8;
    spec.setTransitions({push});
    const auto folder = reel(spec);
    ReelFilm film(
        spec, {folder / "raw.mov", smallSize, 3, 0, 3}, studio_.folder.path(), studio_.evaluator, {});
    ReelPictures pictures(folder, messagesTo(studio_.log));
    ASSERT_GT(film.durationSec(), 2.4);
    bool isEverZoomed = false;
    for (double sec = 0; sec < film.durationSec() - 0.01; sec += 0.1) {
        const Picture shown(pictures.at(sec).value(), smallSize), wanted(film.frame(sec), smallSize);
        for (int y = 0; y < 64; y += 3)
            for (int x = 0; x < 64; x += 3)
                ASSERT_NEAR(shown.at(x, y).g, wanted.at(x, y).g, 1) << sec << ": " << x << ", " << y;
        isEverZoomed = isEverZoomed || media::tests::numberIn(film.frame(sec)) < 0;
    }
    EXPECT_TRUE(isEverZoomed) << "the camera shows a part of the picture, in which no number can be read";
    EXPECT_TRUE(studio_.log.empty());
}

TEST_F(Reels, CardsStayAwayAndTheLastPictureStays) {
    EffectsSpec spec = bareSpec();
    TitleCard card;
    card.durationSec = 2;
    card.insertionSec = 0.5;
    spec.titleCards = {card};
    spec.cuts = {{.dropRange = {2, 9}}};
    ReelPictures pictures(reel(spec), messagesTo(studio_.log));
    for (const auto& [sec, number] :
        {std::pair(0.0, 0), {1.0, 30}, {1.99, 59}, {2.0, 59}, {50.0, 59}, {-3.0, 0}})
        EXPECT_EQ(numberAt(pictures, sec), number) << sec;
    pictures.rest();
    EXPECT_EQ(numberAt(pictures, 0.5), 15);
}

TEST_F(Reels, ARecordingWithoutADocumentIsShownAsItIs) {
    const auto folder = reel(bareSpec());
    std::filesystem::remove(folder / ReelProjectBundle::effectsName);
    ReelPictures pictures(folder, messagesTo(studio_.log));
    EXPECT_EQ(numberAt(pictures, 2.5), 75);
}

TEST_F(Reels, WhatIsNoReelIsToldAndNotShown) {
    EffectsSpec nothing = bareSpec();
    nothing.cuts = {{.dropRange = {-1, 9}}};
    const auto folder = reel(nothing);
    EXPECT_FALSE(ReelPictures(folder, messagesTo(studio_.log)).at(0));
    std::filesystem::resize_file(folder / ReelProjectBundle::effectsName, 9);
    EXPECT_FALSE(ReelPictures(folder, messagesTo(studio_.log)).at(0));
    std::filesystem::remove(folder / ReelProjectBundle::rawVideoName);
    EXPECT_FALSE(ReelPictures(folder, messagesTo(studio_.log)).at(0));
    ASSERT_EQ(studio_.log.size(), 3u);
    EXPECT_THAT(studio_.log[0], HasSubstr("nothing of its recording is left"));
    EXPECT_THAT(studio_.log[1], HasSubstr("walk.tavixproj\" is not shown: "));
    EXPECT_THAT(studio_.log[2], HasSubstr("there is no such folder"));
}

}   // namespace
}   // namespace tavix
