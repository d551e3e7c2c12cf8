// Virtual time for tests: executors whose jobs run when the test says so, all on its thread, in one order.
#pragma once

#include "TavixPlatform/System/Executor.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace tavix::system {

class ManualExecutor;

// A simulation of several executors. Time stands still while a job runs, unless the job says how long it
// takes: then its executor is busy until that is over, while others go on.
class ManualTime {
public:
    double nowSec() const { return nowSec_ + spentSec_; }
    // Within a job: it takes that long. What it posts is posted then.
    void spend(double sec) { spentSec_ += sec; }

    void settle() { advance(0); }   // runs what is due, and what that posts
    void advance(double sec);

private:
    friend class ManualExecutor;
    struct Entry {
        double atSec;
        ManualExecutor* on;
        std::weak_ptr<void> alive;
        bool isTimer;
        Job run;
    };
    using Entries = std::map<std::uint64_t, Entry>;   // in the order of their posting
    Entries::iterator next();
    void run(Entries::iterator entry);

    Entries entries_;
    std::uint64_t sequence_ = 0;
    double nowSec_ = 0, spentSec_ = 0;
};

class ManualExecutor final : public SerialExecutor {
public:
    explicit ManualExecutor(ManualTime& time) : time_(time) {}
    ~ManualExecutor() override;

    void post(Job job) override;
    Timer after(double delaySec, Job job) override;
    double nowSec() const override { return time_.nowSec(); }

private:
    friend class ManualTime;
    ManualTime& time_;
    double busyUntilSec_ = 0;
};

}   // namespace tavix::system
