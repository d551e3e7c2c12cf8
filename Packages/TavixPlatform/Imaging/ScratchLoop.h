// The turns of a loop on several threads, each with scratch memory that is kept from one loop to the next.
#pragma once

#include "TavixPlatform/Imaging/ParallelLoop.h"
#include "TavixPlatform/Imaging/Tile.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace tavix::imaging {

// Used by one thread at a time, apart from the turns that it hands out itself.
class ScratchLoop {
public:
    // 0: as many threads as the machine has cores.
    explicit ScratchLoop(int threadCount) : loop_(threadCount) {}

    // Runs turn(i, scratch) for i in 0 ... count - 1 and returns when all are done.
    void run(int count, const std::function<void(int, Scratch&)>& turn);

private:
    std::unique_ptr<Scratch> takeScratch();

    ParallelLoop loop_;
    std::mutex scratchMutex_;
    std::vector<std::unique_ptr<Scratch>> idleScratch_;
};

}   // namespace tavix::imaging
