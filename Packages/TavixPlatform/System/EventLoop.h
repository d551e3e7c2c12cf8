// A serial executor that runs on the thread that asks it to: the main executor of a program without a window.
#pragma once

#include "TavixPlatform/System/Executor.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace tavix::system {

// May be reached from any thread; it owns its lock.
class EventLoop final : public SerialExecutor {
public:
    void post(Job job) override;
    Timer after(double delaySec, Job job) override;
    double nowSec() const override;

    // Runs jobs on this thread until `stop`.
    void run();
    // The loop ends when what is due has run. It may be run again.
    void stop();

    // How long the longest job held the loop, in seconds, since the last call.
    double takeLongestHoldSec() { return longestHoldSec_.exchange(0); }

private:
    struct Delayed {
        double atSec;
        std::uint64_t sequence;
        std::weak_ptr<void> alive;
        Job job;
    };
    static bool isLater(const Delayed& a, const Delayed& b);
    Job next();   // nothing at the end
    bool takeDue(Job& job);
    void runTimed(const Job& job);

    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Job> posted_;
    std::vector<Delayed> delayed_;   // a heap, the next one first
    std::uint64_t sequence_ = 0;
    bool isStopping_ = false;
    std::atomic<double> longestHoldSec_ = 0;
};

}   // namespace tavix::system
