#include "TavixLive/Playback/DrawAhead.h"
#include "ManualEditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ManualStudio;

class DrawingAhead : public ::testing::Test {
protected:
    DrawingAhead() {
        studio.source->room = 10000;
        player.setItem(studio.item());
        ahead.setOnCached([this](const auto& now) { told = now; });
        ahead.start();
    }
    std::vector<long> drawnSlots() const {
        std::vector<long> slots;
        for (const auto& draw : studio.source->draws)
            slots.push_back(testing::FakeSource::slotOf(draw.atSec));
        return slots;
    }
    static std::string shown(const std::vector<FilmRange>& ranges) {
        std::string text;
        for (const FilmRange& range : ranges)
            text += std::to_string(testing::FakeSource::slotOf(range.startSec)) + "-" +
                    std::to_string(testing::FakeSource::slotOf(range.endSec)) + " ";
        return text;
    }

    ManualStudio studio{60, 0.02};
    Player player{studio.main, nullptr};
    DrawAhead ahead{studio.main, player};
    std::vector<FilmRange> told;
};

TEST_F(DrawingAhead, DrawsAroundThePlayheadTheNextFirst) {
    player.seek(10);
    studio.time.advance(20);
    std::vector<long> slots = drawnSlots();
    ASSERT_EQ(slots.size(), 150u) << "five seconds, and no more";
    EXPECT_EQ(slots.front(), 300);
    slots.resize(120);
    EXPECT_TRUE(std::ranges::is_sorted(slots));
    EXPECT_EQ(shown(told), "270-420 ");
    EXPECT_EQ(told, ahead.cached());
}

TEST_F(DrawingAhead, WaitsUntilItIsQuietAndStopsAtOnce) {
    studio.time.advance(0.45);
    EXPECT_THAT(drawnSlots(), IsEmpty());
    for (int i = 0; i < 20; ++i) {
        ahead.disturb();
        studio.time.advance(0.3);
    }
    EXPECT_THAT(drawnSlots(), IsEmpty());
    studio.time.advance(0.5);
    EXPECT_GT(drawnSlots().size(), 5u);
    ahead.disturb();
    const std::size_t before = drawnSlots().size();
    studio.time.advance(0.45);
    EXPECT_LE(drawnSlots().size(), before + 1) << "the one that is being drawn";
    player.play();
    studio.time.advance(3);
    const std::size_t played = drawnSlots().size();
    player.pause();
    ahead.disturb();
    studio.time.advance(0.4);
    EXPECT_LE(drawnSlots().size(), played + 3);
}

// So that a hand on the playhead finds the scenes around it ready.
TEST_F(DrawingAhead, SetsUpWhatScenesAreDrawnWithBeforeItDraws) {
    studio.source->leftToPrepare = 4;
    studio.time.advance(0.65);
    EXPECT_EQ(studio.source->prepared.size(), 2u) << "after half a second of quiet, one by one";
    player.seek(10);
    studio.time.advance(0.3);
    EXPECT_EQ(studio.source->prepared.size(), 2u) << "somebody is busy";
    EXPECT_EQ(drawnSlots().size(), 1u);
    studio.time.advance(2);
    ASSERT_EQ(studio.source->prepared.size(), 4u);
    ASSERT_GT(studio.source->draws.size(), 2u);
    EXPECT_GE(studio.source->draws[1].startSec, studio.source->prepared.back());
}

// What is drawn ahead takes the place of what scenes were built from.
TEST_F(DrawingAhead, LetsTheSourceRestOnceScenesAreSetUp) {
    studio.source->leftToPrepare = 2;
    studio.time.advance(0.6);
    EXPECT_THAT(studio.source->rests, IsEmpty());
    studio.time.advance(3);
    EXPECT_THAT(studio.source->rests, ElementsAre(0u));
    EXPECT_GT(studio.source->draws.size(), 20u);
    for (int i = 0; i < 20; ++i) {
        ahead.disturb();
        studio.time.advance(0.3);
    }
    EXPECT_EQ(studio.source->rests.size(), 1u) << "somebody is busy";
    studio.time.advance(1);
    EXPECT_EQ(studio.source->rests.size(), 2u);
}

// It stops by itself when pictures are asked for, also by who does not tell it.
TEST_F(DrawingAhead, MakesWayForAnyRequest) {
    studio.time.advance(1);
    const std::size_t before = drawnSlots().size();
    EXPECT_GT(before, 5u);
    player.seek(20);
    studio.time.advance(0.45);
    EXPECT_LE(drawnSlots().size(), before + 2) << "what was asked for, and what was under way";
}

TEST_F(DrawingAhead, DrawsTheLoopAfterWhatIsAroundThePlayhead) {
    player.seek(30);
    ahead.setLoop(FilmRange{10, 11});
    studio.time.advance(20);
    EXPECT_EQ(shown(told), "300-330 870-1020 ");
    EXPECT_EQ(drawnSlots().back(), 329);
    ahead.setLoop(FilmRange{40, 100});   // of a long one only the beginning
    studio.time.advance(40);
    EXPECT_EQ(shown(told), "300-330 870-1020 1200-1800 ");
}

TEST_F(DrawingAhead, LeavesInMemoryWhatIsThere) {
    studio.source->room = 40;
    studio.time.advance(20);
    EXPECT_EQ(drawnSlots().size(), 40u);
    EXPECT_EQ(shown(told), "0-40 ");
    ahead.disturb();
    studio.time.advance(20);
    EXPECT_EQ(drawnSlots().size(), 40u);
}

TEST_F(DrawingAhead, TriesAFrameOnceThatCannotBeKept) {
    struct Forgetful final : testing::FakeSource {
        using FakeSource::FakeSource;
        Drawn draw(double atSec, FrameQuality quality) override {
            const Drawn drawn = FakeSource::draw(atSec, quality);
            if (slotOf(atSec) % 2) return {drawn.pixels, drawn.buildSec};
            stored.insert(slotOf(atSec));
            return {drawn.pixels, drawn.buildSec, 0, false, true};
        }
        bool hasRoom() const override { return true; }
    };
    const auto forgetful = std::make_shared<Forgetful>(studio.time, 2, 60, 0.02);
    studio.chain->setFrameSource(forgetful);
    studio.time.advance(20);
    EXPECT_EQ(forgetful->draws.size(), 120u);
    EXPECT_EQ(told.size(), 60u);
}

// What edits leave and what playing draws is found, too.
TEST_F(DrawingAhead, KnowsWhatIsInMemoryAfterAnEdit) {
    studio.time.advance(10);
    EXPECT_EQ(shown(told), "0-120 ");
    const auto edited = std::make_shared<testing::FakeSource>(studio.time, 2, 60, 0.02);
    for (long slot = 600; slot < 700; ++slot) edited->stored.insert(slot);
    studio.chain->setFrameSource(edited);
    ahead.disturb();
    studio.time.advance(1);
    EXPECT_EQ(shown(told), "600-700 ");
    ahead.noteStored(5);
    EXPECT_EQ(shown(told), "150-151 600-700 ");
}

class Looping : public testing::ManualEditor {};

TEST_F(Looping, PlaysThePartAgainAndAgain) {
    load(testing::smallFilm());
    model->setLoop(FilmRange{1, 2});
    model->togglePlay();
    EXPECT_EQ(state().currentTime(), 1) << "from its start";
    for (int i = 0; i < 100; ++i) {
        time.advance(0.05);
        EXPECT_GE(state().currentTime(), 1);
        EXPECT_LE(state().currentTime(), 2 + 0.07);
    }
    EXPECT_TRUE(state().isPlaying());
    model->setLoop(FilmRange{5, 99});
    EXPECT_EQ(state().loop(), (FilmRange{5, 6}));
    model->seek(5.5);
    for (int i = 0; i < 60; ++i) {
        time.advance(0.05);
        EXPECT_GE(state().currentTime(), 5);
    }
    EXPECT_TRUE(state().isPlaying());
    for (const FilmRange none : {FilmRange{3, 3}, FilmRange{7, 9}, FilmRange{4, 2}}) {
        model->setLoop(none);
        EXPECT_FALSE(state().loop());
    }
    time.advance(3);
    EXPECT_FALSE(state().isPlaying());
}

TEST_F(Looping, TellsWhatIsInMemory) {
    load(testing::smallFilm());
    maker->room = 1000;
    tint();
    time.advance(10);
    EXPECT_THAT(state().cachedRanges(), ElementsAre(FilmRange{0, 4}));
    model->seek(5);
    time.advance(10);
    EXPECT_THAT(state().cachedRanges(), ElementsAre(FilmRange{0, 6}));
    model->close();
    EXPECT_THAT(state().cachedRanges(), IsEmpty());
}

}   // namespace
}   // namespace tavix
