#include "TavixPlatform/System/ManualTime.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tavix::system {
namespace {

TEST(ManualTime, RunsNothingWithinACallAndNothingThatLiesAhead) {
    ManualTime time;
    ManualExecutor main(time);
    std::string order;
    main.post([&] { order += 'a'; });
    const Timer late = main.after(0.12, [&] { order += 'c'; });
    const Timer soon = main.after(0.1, [&] {
        order += 'b';
        main.post([&] { order += '!'; });
    });
    EXPECT_EQ(order, "");
    time.settle();
    EXPECT_EQ(order, "a");
    time.advance(0.11);
    EXPECT_EQ(order, "ab!");
    EXPECT_DOUBLE_EQ(time.nowSec(), 0.11);
    time.advance(0.01);
    EXPECT_EQ(order, "ab!c");
}

TEST(ManualTime, CancelsWhatIsGivenUp) {
    ManualTime time;
    ManualExecutor main(time);
    int runs = 0;
    Timer timer = main.after(0.1, [&] { ++runs; });
    timer = main.after(0.2, [&] { ++runs; });   // in the place of the first
    time.advance(1);
    EXPECT_EQ(runs, 1);
}

// Each executor works through its jobs one after another, in their order, while the others go on.
TEST(ManualTime, KeepsAnExecutorBusyForAsLongAsItsJobsTake) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> length(0, 0.05);
    ManualTime time;
    ManualExecutor one(time), other(time);
    struct Run {
        int index;
        double startSec, endSec;
    };
    std::vector<Run> ofOne, ofOther;
    for (int i = 0; i < 40; ++i) {
        const double sec = length(random);
        auto& on = i % 2 ? one : other;
        auto& runs = i % 2 ? ofOne : ofOther;
        on.post([&time, &runs, i, sec] {
            const double start = time.nowSec();
            time.spend(sec);
            runs.push_back({i, start, time.nowSec()});
        });
    }
    time.advance(10);
    for (const auto* runs : {&ofOne, &ofOther}) {
        ASSERT_EQ(runs->size(), 20u);
        for (std::size_t i = 1; i < runs->size(); ++i) {
            EXPECT_LT((*runs)[i - 1].index, (*runs)[i].index);
            EXPECT_NEAR((*runs)[i - 1].endSec, (*runs)[i].startSec, 1e-9);
        }
    }
    EXPECT_EQ(ofOne.front().startSec, ofOther.front().startSec);
}

TEST(ManualTime, PostsWhenTheJobIsDoneThatPosts) {
    ManualTime time;
    ManualExecutor main(time), worker(time);
    double cameBackSec = -1;
    worker.post([&] {
        time.spend(0.3);
        main.post([&] { cameBackSec = main.nowSec(); });
    });
    time.advance(0.29);
    EXPECT_EQ(cameBackSec, -1);
    time.advance(0.02);
    EXPECT_NEAR(cameBackSec, 0.3, 1e-9);
}

TEST(ManualTime, ForgetsTheJobsOfAnExecutorThatIsGone) {
    ManualTime time;
    int runs = 0;
    {
        ManualExecutor gone(time);
        gone.post([&] { ++runs; });
    }
    time.advance(1);
    EXPECT_EQ(runs, 0);
}

}   // namespace
}   // namespace tavix::system
