#include "TavixPlatform/Imaging/ScratchLoop.h"

#include <utility>

namespace tavix::imaging {

std::unique_ptr<Scratch> ScratchLoop::takeScratch() {
    {
        const std::lock_guard lock(scratchMutex_);
        if (!idleScratch_.empty()) {
            std::unique_ptr<Scratch> scratch = std::move(idleScratch_.back());
            idleScratch_.pop_back();
            return scratch;
        }
    }
    return std::make_unique<Scratch>();
}

void ScratchLoop::run(int count, const std::function<void(int, Scratch&)>& turn) {
    loop_.run(count, [&](int i) {
        std::unique_ptr<Scratch> scratch = takeScratch();
        {
            const Scratch::Mark mark(*scratch);
            turn(i, *scratch);
        }
        const std::lock_guard lock(scratchMutex_);
        idleScratch_.push_back(std::move(scratch));
    });
}

}   // namespace tavix::imaging
