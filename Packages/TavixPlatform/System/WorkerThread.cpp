#include "TavixPlatform/System/WorkerThread.h"

#include <algorithm>

namespace tavix::system {

WorkerThread::WorkerThread() : thread_([this] { loop_.run(); }) {}

WorkerThread::~WorkerThread() {
    loop_.stop();
    thread_.join();
}

WorkerPool::WorkerPool(int threadCount) {
    for (int i = 0; i < std::max(threadCount, 1); ++i) threads_.emplace_back([this] { work(); });
}

WorkerPool::~WorkerPool() {
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
    }
    wake_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

void WorkerPool::post(Job job) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(job));
    }
    wake_.notify_one();
}

void WorkerPool::work() {
    for (;;) {
        Job job;
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [&] { return isStopping_ || !posted_.empty(); });
            if (posted_.empty()) return;
            job = std::move(posted_.front());
            posted_.pop_front();
        }
        job();
    }
}

}   // namespace tavix::system
