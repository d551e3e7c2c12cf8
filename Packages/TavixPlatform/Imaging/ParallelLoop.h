// The turns of a loop on several threads.
#pragma once

#include <functional>
#include <memory>

namespace tavix::imaging {

// May be run from several threads at a time, and from within a turn.
class ParallelLoop {
public:
    // 0: as many threads as the machine has cores.
    explicit ParallelLoop(int threadCount);
    ~ParallelLoop();

    // Runs turn(i) for i in 0 ... count - 1, in any order, and returns when all are done. What a turn throws
    // is thrown here; which turns still run then is left open. The scope of stopping of the thread that
    // calls holds in all turns, and before each one it is looked at.
    void run(int count, const std::function<void(int)>& turn);

private:
    struct Threads;
    std::unique_ptr<Threads> threads_;
};

}   // namespace tavix::imaging
