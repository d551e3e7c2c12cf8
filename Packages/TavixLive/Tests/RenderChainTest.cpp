#include "ManualStudio.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tavix {
namespace {

using ::testing::ElementsAre;
using testing::FakeSource;
using testing::ManualStudio;

struct Answers {
    RenderChain::Deliver taking(int request) {
        return [this, request](const StagePicture& picture, const FrameSource::Drawn&) {
            requests.push_back(request);
            secs.push_back(picture.atSec);
            numbers.push_back(testing::numberOf(picture));
        };
    }
    std::vector<int> requests, numbers;
    std::vector<double> secs;
};

TEST(RenderChain, DrawsEveryRequestOfAPlayingFilmInOrder) {
    ManualStudio studio(10, 0.1);
    Answers answers;
    for (int i = 0; i < 5; ++i) studio.chain->request(5 - i, answers.taking(i));
    EXPECT_TRUE(answers.requests.empty()) << "nothing is drawn within a request";
    studio.time.advance(1);
    EXPECT_THAT(answers.requests, ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(answers.secs, ElementsAre(5, 4, 3, 2, 1));
    EXPECT_TRUE(studio.chain->isIdle());
}

TEST(RenderChain, DrawsTheNewestOfTheScrubsThatCameWhileItDrew) {
    ManualStudio studio(10, 0.1);
    Answers answers;
    studio.chain->setScrubQuality(true);
    studio.chain->request(1, answers.taking(0));
    studio.time.advance(0.01);
    studio.chain->request(2, answers.taking(1));
    studio.chain->request(3, answers.taking(2));
    studio.time.advance(0.05);
    studio.chain->request(4, answers.taking(3));
    studio.time.advance(1);
    EXPECT_EQ(studio.source->draws.size(), 2u);
    EXPECT_THAT(answers.requests, ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(answers.secs, ElementsAre(1, 4, 4, 4));
    for (const FakeSource::Draw& draw : studio.source->draws) EXPECT_EQ(draw.quality, FrameQuality::scrub);
}

// However long a drag lasts, the picture that is shown is at most two drawings old.
TEST(RenderChain, NeverFallsBehindAScrub) {
    ManualStudio studio(10, 0.07);
    studio.chain->setScrubQuality(true);
    double askedSec = 0;
    for (int i = 0; i < 300; ++i) {
        studio.chain->request(i / 100.0, [&, asked = studio.time.nowSec()](const auto&, const auto&) {
            askedSec = std::max(askedSec, studio.time.nowSec() - asked);
        });
        studio.time.advance(0.01);
    }
    studio.time.advance(1);
    EXPECT_LE(askedSec, 0.141);
    EXPECT_LE(studio.source->draws.size(), 3 / 0.07 + 2);
}

TEST(RenderChain, GivesThePictureOfTheSourceThatItBeganWith) {
    ManualStudio studio(10, 0.1);
    Answers answers;
    const auto second = std::make_shared<FakeSource>(studio.time, 2, 10, 0.1);
    studio.chain->request(1, answers.taking(0));
    studio.chain->request(2, answers.taking(1));
    studio.main.post([] {});
    // The first is being drawn when the source changes, the second waits.
    studio.render.post([&] {});
    studio.time.advance(0.05);
    studio.chain->setFrameSource(second);
    studio.time.advance(1);
    EXPECT_THAT(answers.numbers, ElementsAre(1, 2));
}

TEST(RenderChain, DeliversNothingOnceItIsGone) {
    ManualStudio studio(10, 0.1);
    Answers answers;
    studio.chain->request(1, answers.taking(0));
    studio.chain->request(2, answers.taking(1));
    studio.time.advance(0.05);
    studio.chain.reset();
    studio.time.advance(1);
    EXPECT_TRUE(answers.requests.empty());
    EXPECT_EQ(studio.source->draws.size(), 1u) << "what waits is not drawn";
}

TEST(RenderChain, DrawsNothingThatNobodyWantsAnyMore) {
    ManualStudio studio(10, 0.1);
    Answers answers;
    system::Lifeline wanted;
    studio.chain->request(1, answers.taking(0), wanted.thread());
    studio.chain->request(2, answers.taking(1), wanted.thread());
    studio.chain->request(3, answers.taking(2));
    studio.time.advance(0.05);
    wanted.cut();
    studio.time.advance(1);
    EXPECT_THAT(answers.requests, ElementsAre(2)) << "the first was being drawn";
    EXPECT_EQ(studio.source->draws.size(), 2u);
    EXPECT_TRUE(studio.chain->isIdle());
}

TEST(RenderChain, MayEndWithinADelivery) {
    ManualStudio studio(10, 0.1);
    studio.chain->request(1, [&](const auto&, const auto&) { studio.chain.reset(); });
    studio.chain->request(2, [](const auto&, const auto&) { FAIL(); });
    studio.time.advance(1);
}

TEST(RenderChain, DrawsADragAtFullQualityAndTellsWhoWaits) {
    ManualStudio studio(10, 0.02);
    int delivered = 0;
    studio.chain->setOnFrameDelivered([&](const auto&, const auto&) { ++delivered; });
    studio.chain->setScrubQuality(true);
    studio.chain->requestLive(1, [](const auto&, const auto&) {});
    studio.time.advance(1);
    EXPECT_EQ(studio.source->draws.front().quality, FrameQuality::full);
    EXPECT_EQ(delivered, 1);
}

TEST(RenderChain, DrawsARowRoughlyWhileFinePicturesAreTooSlow) {
    ManualStudio studio(10, 0.02);
    double costSec = 0.02;
    studio.source->costAt = [&](double) { return costSec; };
    const auto drawRow = [&](int count) {
        studio.source->draws.clear();
        for (int i = 0; i < count; ++i)
            studio.chain->request(0.1 * i, {}, {}, RenderChain::Detail::asTimeAllows);
        studio.time.advance(5);
        return std::ranges::count(
            studio.source->draws, FrameQuality::rough, &testing::FakeSource::Draw::quality);
    };
    EXPECT_EQ(drawRow(10), 0);
    costSec = 0.05;
    EXPECT_EQ(drawRow(10), 8) << "once is an accident";
    studio.chain->request(1, {});
    studio.time.advance(1);
    EXPECT_EQ(studio.source->draws.back().quality, FrameQuality::full) << "it is by itself";
    costSec = 0.018;
    EXPECT_EQ(drawRow(10), 1);
}

TEST(RenderChain, LogsSlowFlatFramesAndAllThatHaveDevicesInSpace) {
    ManualStudio flat(10, 0.041);
    flat.source->costAt = [](double atSec) { return atSec < 2 ? 0.0404 : 0.0416; };
    flat.chain->request(1, {});
    flat.chain->request(2.5, {});
    flat.time.advance(1);
    EXPECT_THAT(flat.log, ElementsAre("frame2D t=2.50 build=42ms"));

    ManualStudio space(10, 0.01);
    space.source->isInSpace = true;
    space.chain->request(1, {});
    space.time.advance(0.1);
    space.chain->setScrubQuality(true);
    for (const double sec : {2.0, 3.0, 4.126}) space.chain->request(sec, {});
    space.time.advance(1);
    EXPECT_THAT(space.log,
        ElementsAre("frame3D t=1.00 build=10ms coalesced=1", "frame3D t=4.13 build=10ms coalesced=3"));
}

// What a flat frame took to be put on the stage is told, too; of one in space that is a part of it.
TEST(RenderChain, LogsFramesThatTookLongToPaint) {
    struct Painted final : FrameSource {
        explicit Painted(bool isInSpace) : space(isInSpace) {}
        Drawn draw(double atSec, FrameQuality) override {
            return {std::make_shared<imaging::Bitmap>(imaging::Size{1, 1}), 0.05, atSec < 1 ? 0.0409 : 0.041};
        }
        bool isStored(double) const override { return false; }
        bool hasRoom() const override { return false; }
        double totalSec() const override { return 10; }
        bool hasDevicesInSpace() const override { return space; }
        bool space;
    };
    for (const bool isInSpace : {false, true}) {
        ManualStudio studio(10, 0.01);
        studio.chain->setFrameSource(std::make_shared<Painted>(isInSpace));
        studio.chain->request(0.5, {});
        studio.chain->request(1.25, {});
        studio.time.advance(1);
        if (isInSpace)
            EXPECT_THAT(studio.log, ElementsAre("frame3D t=0.50 build=50ms coalesced=1",
                                        "frame3D t=1.25 build=50ms coalesced=1"));
        else
            EXPECT_THAT(studio.log, ElementsAre("frame2D t=0.50 build=50ms", "frame2D t=1.25 build=50ms",
                                        "paint2D t=1.25 paint=41ms"));
    }
}

}   // namespace
}   // namespace tavix
