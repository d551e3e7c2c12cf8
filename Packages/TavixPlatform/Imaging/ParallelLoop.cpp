#include "TavixPlatform/Imaging/ParallelLoop.h"

#include "TavixPlatform/Imaging/StopScope.h"

#include <algorithm>

#ifdef __SANITIZE_THREAD__
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>
#else
#include <tbb/global_control.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>
#endif

namespace tavix::imaging {

#ifdef __SANITIZE_THREAD__

// The thread sanitizer sees only what was built with it. The system's oneTBB was not, so the order that it
// makes would be missed and every hand-over reported; plain threads take its place.
struct ParallelLoop::Threads {
    explicit Threads(int count)
        : count(count > 0 ? count : std::max(static_cast<int>(std::thread::hardware_concurrency()), 1)) {}

    void run(int turns, const std::function<void(int)>& turn) const {
        std::atomic<int> next = 0;
        std::mutex faultMutex;
        std::exception_ptr fault;
        const auto work = [&] {
            try {
                for (int i = next++; i < turns; i = next++) turn(i);
            } catch (...) {
                const std::lock_guard lock(faultMutex);
                fault = std::current_exception();
            }
        };
        {
            std::vector<std::jthread> others;
            for (int i = 1; i < std::min(count, turns); ++i) others.emplace_back(work);
            work();
        }
        if (fault) std::rethrow_exception(fault);
    }

    int count;
};

#else

struct ParallelLoop::Threads {
    explicit Threads(int count) : arena(count > 0 ? count : tbb::task_arena::automatic) {
        using Control = tbb::global_control;
        const auto wanted = static_cast<std::size_t>(std::max(count, 0));
        if (wanted > Control::active_value(Control::max_allowed_parallelism))
            raised = std::make_unique<Control>(Control::max_allowed_parallelism, wanted);
    }

    void run(int turns, const std::function<void(int)>& turn) {
        arena.execute([&] { tbb::parallel_for(0, turns, turn, tbb::simple_partitioner()); });
    }

    std::unique_ptr<tbb::global_control> raised;   // more threads than cores, when asked for
    tbb::task_arena arena;
};

#endif

ParallelLoop::ParallelLoop(int threadCount) : threads_(std::make_unique<Threads>(threadCount)) {}
ParallelLoop::~ParallelLoop() = default;

void ParallelLoop::run(int count, const std::function<void(int)>& turn) {
    checkStop();
    if (count == 1) return turn(0);
    if (count < 1) return;
    const std::stop_token stop = StopScope::current();
    if (!stop.stop_possible()) return threads_->run(count, turn);
    threads_->run(count, [&](int i) {
        const StopScope scope(stop);
        checkStop();
        turn(i);
    });
}

}   // namespace tavix::imaging
