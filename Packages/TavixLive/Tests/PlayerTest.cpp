#include "ManualStudio.h"
#include "TavixLive/Playback/NullAudioOutput.h"
#include "TavixRender/Tests/TestSounds.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tavix {
namespace {

using testing::FakeSource;
using testing::ManualStudio;

struct Playing {
    explicit Playing(double totalSec = 2, double costSec = 0.005, double framesPerSec = 30)
        : studio(totalSec, costSec), player(studio.main, nullptr) {
        player.setSink([this](const StagePicture& picture) {
            studio.shown.push_back({picture.atSec, player.currentSec(), testing::numberOf(picture)});
        });
        player.setOnEnd([this] { ++ends; });
        player.setItem(studio.item(framesPerSec));
    }
    ManualStudio studio;
    Player player;
    int ends = 0;
};

TEST(Player, ShowsEveryPictureInItsTimeAndEndsOnce) {
    for (const double fps : {24.0, 30.0, 30000 / 1001.0}) {
        Playing film(2, 0.02, fps);
        film.player.seek(0);
        film.studio.time.advance(0.1);
        film.player.play();
        film.studio.time.advance(3);
        const auto frames = std::size_t(std::ceil(2 * fps - 1e-6));
        ASSERT_EQ(film.studio.shown.size(), frames) << fps;
        for (std::size_t i = 1; i < frames; ++i) {
            EXPECT_NEAR(film.studio.shown[i].atSec, double(i) / fps, 1e-9);
            EXPECT_NEAR(film.studio.shown[i].nowSec, double(i) / fps, 0.0011);
        }
        EXPECT_EQ(film.player.counts().due, film.player.counts().shown);
        EXPECT_EQ(film.ends, 1);
        EXPECT_FALSE(film.player.isPlaying());
        EXPECT_EQ(film.player.currentSec(), 2);
    }
}

// The picture of the seek before it took long, as the first one of a document does: what follows is not left
// out for that.
TEST(Player, LeavesNothingOutForOnePictureThatTookLong) {
    for (const int dear : {0, 20}) {
        Playing film(4, 0.02);
        film.studio.source->costAt = [dear](double atSec) {
            return FakeSource::slotOf(atSec) == dear ? 0.6 : 0.02;
        };
        film.player.seek(0);
        film.studio.time.advance(1);
        film.player.play();
        film.studio.time.advance(5);
        const Player::Counts& counts = film.player.counts();
        // In 0.6 s eighteen pictures go by, of which some were ready before.
        EXPECT_LE(counts.due - counts.shown, dear == 0 ? 0 : 18) << dear;
    }
}

// Once it is late, pictures are not drawn that could not be shown any more.
TEST(Player, GivesUpWhatHasBecomeLate) {
    Playing film(4, 0.01);
    film.studio.source->costAt = [](double atSec) { return FakeSource::slotOf(atSec) == 20 ? 0.5 : 0.01; };
    film.player.seek(0);
    film.player.play();
    film.studio.time.advance(2);
    for (const auto& draw : film.studio.source->draws)
        EXPECT_LE(draw.startSec, draw.atSec + 0.04) << "frame " << FakeSource::slotOf(draw.atSec);
}

// A scene whose first picture takes long unless it has been set up, which a film has time for in between.
TEST(Player, HasTheNextSceneSetUpInTime) {
    for (const bool canPrepare : {true, false}) {
        Playing film(4, 0.015);
        FakeSource& source = *film.studio.source;
        source.leftToPrepare = canPrepare ? 1 : 0;
        source.costAt = [&source, isReady = false](double atSec) mutable {
            if (atSec < 2 || std::exchange(isReady, true) || !source.prepared.empty()) return 0.015;
            return 0.4;
        };
        film.player.seek(0);
        film.player.play();
        film.studio.time.advance(5);
        const Player::Counts& counts = film.player.counts();
        if (canPrepare)
            EXPECT_EQ(counts.shown, counts.due);
        else
            EXPECT_LT(counts.shown, counts.due - 3);
    }
}

// Drawing slower than playing: fewer pictures, each in its time, and as many as can be drawn.
TEST(Player, LeavesOutWhatCannotBeThereInTime) {
    for (const double cost : {0.05, 0.09, 0.4}) {
        Playing film(8, cost);
        film.player.seek(0);
        film.player.play();
        film.studio.time.advance(9);
        const Player::Counts& counts = film.player.counts();
        EXPECT_EQ(counts.due, 8 * 30 - 1) << cost;
        EXPECT_GT(double(counts.shown), 0.7 * 8 / cost) << cost;
        EXPECT_LE(counts.worstDriftSec, Player::latestSec + 1e-6);
        double lastSec = -1;
        for (const auto& shown : film.studio.shown) {
            EXPECT_GE(shown.atSec, lastSec) << "never back";
            lastSec = shown.atSec;
        }
        EXPECT_EQ(film.ends, 1);
    }
}

TEST(Player, SeeksToTheVeryFrame) {
    Playing film;
    const struct {
        double toSec, shownSec, stays;
    } cases[] = {
        {0.5, 0.5, 0.5}, {0.51, 0.5, 0.51}, {1.0 / 3, 1.0 / 3, 1.0 / 3}, {-4, 0, 0}, {99, 2 - 1.0 / 30, 2}};
    for (const auto& c : cases) {
        bool hasArrived = false;
        film.player.seek(c.toSec, [&](bool arrived) { hasArrived = arrived; });
        EXPECT_FALSE(hasArrived);
        film.studio.time.advance(0.1);
        EXPECT_TRUE(hasArrived);
        EXPECT_NEAR(film.studio.shown.back().atSec, c.shownSec, 1e-9) << c.toSec;
        EXPECT_EQ(film.player.currentSec(), c.stays);
    }
}

// Whatever is asked in whatever order, each seek is answered once, and the last one is what is seen.
TEST(Player, AnswersEverySeekOnceUnderRandomUse) {
    std::mt19937 random(5);
    for (int round = 0; round < 30; ++round) {
        std::vector<int> answers;   // outlives the film, whose end answers too
        Playing film(2, 0.03);
        double lastSec = 0;
        for (int step = 0; step < 60; ++step) {
            switch (random() % 5) {
            case 0: film.player.play(); break;
            case 1: film.player.pause(); break;
            case 2:
                film.studio.chain->setFrameSource(film.studio.source);
                film.player.redraw();
                break;
            default: {
                const auto index = answers.size();
                answers.push_back(0);
                lastSec = double(random() % 200) / 100;
                film.player.seek(lastSec, [&answers, index](bool) { ++answers[index]; });
            }
            }
            film.studio.time.advance(double(random() % 50) / 1000);
        }
        film.player.pause();
        lastSec = 1.4;
        film.player.seek(lastSec);
        film.studio.time.advance(1);
        for (const int count : answers) EXPECT_EQ(count, 1) << "round " << round;
        EXPECT_NEAR(film.studio.shown.back().atSec, 1.4, 1e-9);
        EXPECT_TRUE(film.studio.chain->isIdle());
    }
}

TEST(Player, GoesOnUnderASourceThatChanges) {
    Playing film(2, 0.005);
    film.player.seek(0);
    film.player.play();
    film.studio.time.advance(0.7);
    const double before = film.player.currentSec();
    film.studio.chain->setFrameSource(std::make_shared<FakeSource>(film.studio.time, 2, 2, 0.005));
    EXPECT_EQ(film.player.currentSec(), before);
    film.studio.time.advance(0.3);
    EXPECT_TRUE(film.player.isPlaying());
    EXPECT_EQ(film.studio.shown.back().number, 2);
    EXPECT_EQ(film.player.counts().due, film.player.counts().shown);
}

TEST(Player, TellsItsTimeAboutEveryThirtiethOfASecond) {
    Playing film(2, 0.005, 24);
    int told = 0;
    film.player.setTimeObserver(1.0 / 30, [&] { ++told; });
    film.player.seek(0);
    film.player.play();
    film.studio.time.advance(1);
    EXPECT_GE(told, 11);
    EXPECT_LE(told, 31);
    film.player.pause();
    told = 0;
    film.studio.time.advance(1);
    EXPECT_EQ(told, 0);
}

class SoundingPlayer : public ::testing::Test {
protected:
    // Two seconds of noise, and what was asked for of it.
    SoundingPlayer() {
        std::mt19937 random(2);
        std::uniform_real_distribution<float> level(-0.5F, 0.5F);
        std::vector<float> noise(2 * testing::soundRateHz);
        for (float& sample : noise) sample = level(random);
        testing::writeWav(folder.path() / "noise.wav", noise);
        timeline.tracks.push_back({{{folder.path() / "noise.wav", 0, 0, 2 * testing::soundRateHz}}, {}});
        timeline.frames = 2 * testing::soundRateHz;
    }
    std::vector<float> mixed() const {
        media::AudioMixer mixer(timeline);
        std::vector<float> all(std::size_t(timeline.frames * timeline.format.channels));
        mixer.read(all);
        return all;
    }

    // Keeps what its output is filled with.
    struct Recorder final : media::AudioOutput {
        explicit Recorder(system::SerialExecutor& sound) : output(sound) {}
        void start(const media::AudioFormat& format, Fill fill) override {
            heard.clear();
            output.start(format, [this, fill](std::span<float> block) {
                const std::size_t frames = fill(block);
                heard.insert(heard.end(), block.begin(), block.begin() + std::ptrdiff_t(frames * 2));
                return frames;
            });
        }
        void stop() override { output.stop(); }
        double heardFrames() const override { return output.heardFrames(); }
        NullAudioOutput output;
        std::vector<float> heard;
    };

    testsupport::TemporaryFolder folder;
    media::AudioTimeline timeline;
};

TEST_F(SoundingPlayer, HearsTheMixFromWhereItWasSoughtTo) {
    ManualStudio studio(2, 0.01);
    Recorder output(studio.sound);
    Player player(studio.main, &output);
    PlayerItem item = studio.item();
    item.sound.emplace(timeline, RenderLog());
    player.setItem(std::move(item));
    player.seek(0.75);
    player.play();
    studio.time.advance(3);
    const std::vector<float> all = mixed();
    const auto from = std::size_t(0.75 * testing::soundRateHz) * 2;
    ASSERT_EQ(output.heard.size(), all.size() - from);
    EXPECT_TRUE(std::equal(output.heard.begin(), output.heard.end(), all.begin() + std::ptrdiff_t(from)));
    EXPECT_EQ(player.currentSec(), 2);
    EXPECT_EQ(player.counts().due, player.counts().shown);
}

// Sound that stops for a while stops the clock: pictures wait for it and stay with it.
TEST_F(SoundingPlayer, KeepsThePicturesWithTheSound) {
    ManualStudio studio(2, 0.01);
    Recorder output(studio.sound);
    Player player(studio.main, &output);
    PlayerItem item = studio.item();
    item.sound.emplace(timeline, RenderLog());
    player.setSink([&](const StagePicture& picture) {
        if (!player.isPlaying()) return;
        EXPECT_NEAR(picture.atSec, output.heardFrames() / testing::soundRateHz, Player::latestSec + 0.001);
    });
    player.setItem(std::move(item));
    player.seek(0);
    player.play();
    studio.time.advance(0.5);
    studio.sound.post([&] { studio.time.spend(0.4); });
    studio.time.advance(1.2);
    EXPECT_TRUE(player.isPlaying());
    EXPECT_LT(player.currentSec(), 1.45);
    EXPECT_EQ(output.output.underrunCount(), 1);
    studio.time.advance(1);
    EXPECT_EQ(player.currentSec(), 2);
}

}   // namespace
}   // namespace tavix
