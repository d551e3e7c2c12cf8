#include "TavixPlatform/System/EventLoop.h"

#include <algorithm>
#include <chrono>

namespace tavix::system {

namespace {

using Clock = std::chrono::steady_clock;

}   // namespace

double EventLoop::nowSec() const {
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}

void EventLoop::post(Job job) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(job));
    }
    wake_.notify_one();
}

bool EventLoop::isLater(const Delayed& a, const Delayed& b) {
    return std::pair(a.atSec, a.sequence) > std::pair(b.atSec, b.sequence);
}

Timer EventLoop::after(double delaySec, Job job) {
    auto handle = std::make_shared<int>();
    {
        const std::lock_guard lock(mutex_);
        delayed_.push_back({nowSec() + std::max(delaySec, 0.0), sequence_++, handle, std::move(job)});
        std::push_heap(delayed_.begin(), delayed_.end(), isLater);
    }
    wake_.notify_one();
    return Timer(std::move(handle));
}

void EventLoop::run() {
    while (const Job job = next()) runTimed(job);
}

void EventLoop::stop() {
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
    }
    wake_.notify_one();
}

Job EventLoop::next() {
    std::unique_lock lock(mutex_);
    for (Job job;;) {
        if (takeDue(job)) return job;
        if (isStopping_) {
            isStopping_ = false;
            return {};
        }
        if (delayed_.empty()) {
            wake_.wait(lock);
        } else {
            const std::chrono::duration<double> until(delayed_.front().atSec);
            wake_.wait_until(lock, Clock::time_point(std::chrono::duration_cast<Clock::duration>(until)));
        }
    }
}

// Under the lock. A delay that is over goes before what was posted: it has waited longer.
bool EventLoop::takeDue(Job& job) {
    while (!delayed_.empty() && (delayed_.front().alive.expired() || delayed_.front().atSec <= nowSec())) {
        std::pop_heap(delayed_.begin(), delayed_.end(), isLater);
        Delayed due = std::move(delayed_.back());
        delayed_.pop_back();
        if (due.alive.expired()) continue;
        job = [alive = std::move(due.alive), run = std::move(due.job)] {
            if (!alive.expired()) run();
        };
        return true;
    }
    if (posted_.empty()) return false;
    job = std::move(posted_.front());
    posted_.pop_front();
    return true;
}

void EventLoop::runTimed(const Job& job) {
    const double startSec = nowSec();
    job();
    longestHoldSec_ = std::max(longestHoldSec_.load(), nowSec() - startSec);
}

}   // namespace tavix::system
