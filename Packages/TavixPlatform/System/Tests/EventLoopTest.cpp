#include "TavixPlatform/System/EventLoop.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixPlatform/System/WorkerThread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace tavix::system {
namespace {

TEST(EventLoop, RunsWhatManyThreadsPostEachInItsOrder) {
    constexpr int threadCount = 4, jobCount = 500;
    EventLoop loop;
    std::vector<int> last(threadCount, -1);
    int done = 0, outOfOrder = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back([&, thread] {
            for (int i = 0; i < jobCount; ++i)
                loop.post([&, thread, i] {
                    outOfOrder += last[std::size_t(thread)] != i - 1;
                    last[std::size_t(thread)] = i;
                    if (++done == threadCount * jobCount) loop.stop();
                });
        });
    loop.run();
    EXPECT_EQ(done, threadCount * jobCount);
    EXPECT_EQ(outOfOrder, 0);
}

TEST(EventLoop, RunsDelaysByTheirTimeAndNoneThatWasCancelled) {
    EventLoop loop;
    std::string order;
    const Timer late = loop.after(0.02, [&] {
        order += 'c';
        loop.stop();
    });
    const Timer soon = loop.after(0.01, [&] { order += 'b'; });
    Timer dropped = loop.after(0.015, [&] { order += 'x'; });
    loop.post([&] {
        order += 'a';
        dropped.cancel();
    });
    loop.run();
    EXPECT_EQ(order, "abc");
}

TEST(EventLoop, TellsTheLongestHoldOnce) {
    EventLoop loop;
    loop.post([&] { std::this_thread::sleep_for(std::chrono::milliseconds(5)); });
    loop.post([&] { loop.stop(); });
    loop.run();
    EXPECT_GE(loop.takeLongestHoldSec(), 0.005);
    EXPECT_EQ(loop.takeLongestHoldSec(), 0);
}

TEST(WorkerThread, RunsAllThatWasPostedBeforeItGoes) {
    std::atomic<int> done = 0;
    {
        WorkerThread worker;
        for (int i = 0; i < 100; ++i) worker.post([&] { ++done; });
    }
    EXPECT_EQ(done, 100);
}

TEST(WorkerPool, RunsJobsAtOnceAndAllOfThem) {
    std::atomic<int> waiting = 0, done = 0;
    {
        WorkerPool pool(2);
        // Each waits for the other: with one thread this would never end.
        for (int i = 0; i < 2; ++i)
            pool.post([&] {
                ++waiting;
                while (waiting < 2) std::this_thread::yield();
            });
        for (int i = 0; i < 100; ++i) pool.post([&] { ++done; });
    }
    EXPECT_EQ(done, 100);
}

TEST(Continuation, BringsBackWhatTheWorkGaveOrThrew) {
    EventLoop here;
    WorkerThread there;
    const std::thread::id mine = std::this_thread::get_id();
    std::string told;
    runThere(
        there, here, [&] { return std::this_thread::get_id() == mine ? 1 : 2; },
        [&](Outcome<int>& outcome) {
            EXPECT_EQ(std::this_thread::get_id(), mine);
            told += std::to_string(outcome.value());
        });
    runThere(
        there, here, []() -> int { throw std::runtime_error("no"); },
        [&](Outcome<int>& outcome) {
            EXPECT_TRUE(outcome.hasFailed());
            try {
                outcome.value();
            } catch (const std::runtime_error& error) {
                told += error.what();
            }
            here.stop();
        });
    here.run();
    EXPECT_EQ(told, "2no");
}

TEST(Continuation, DoesNothingForWhatIsGoneOrHasCutItOff) {
    EventLoop loop;
    int told = 0;
    auto gone = std::make_unique<Lifeline>();
    loop.post(gone->guard([&] { told += 1; }));
    gone.reset();
    Lifeline cut;
    loop.post(cut.guard([&] { told += 10; }));
    cut.cut();
    loop.post(cut.guard([&] { told += 100; }));
    loop.post([&] { loop.stop(); });
    loop.run();
    EXPECT_EQ(told, 100);
}

}   // namespace
}   // namespace tavix::system
