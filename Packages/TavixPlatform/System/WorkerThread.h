// A serial executor with a thread of its own, and a pool of threads for jobs in any order.
#pragma once

#include "TavixPlatform/System/EventLoop.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace tavix::system {

class WorkerThread final : public SerialExecutor {
public:
    WorkerThread();
    // Runs what was posted, drops what was delayed, and waits for the thread's end.
    ~WorkerThread() override;

    void post(Job job) override { loop_.post(std::move(job)); }
    Timer after(double delaySec, Job job) override { return loop_.after(delaySec, std::move(job)); }
    double nowSec() const override { return loop_.nowSec(); }

private:
    EventLoop loop_;
    std::thread thread_;
};

class WorkerPool final : public Executor {
public:
    explicit WorkerPool(int threadCount);   // at least 1
    // Runs what was posted and waits for the threads' end.
    ~WorkerPool() override;

    void post(Job job) override;

private:
    void work();

    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Job> posted_;
    bool isStopping_ = false;
    std::vector<std::thread> threads_;
};

}   // namespace tavix::system
