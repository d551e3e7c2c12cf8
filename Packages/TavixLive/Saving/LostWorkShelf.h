// What sessions that crashed have left, until each of them is brought back or given up.
#pragma once

#include "TavixLive/Observing/Observable.h"
#include "TavixLive/Saving/Journal.h"
#include "TavixPlatform/System/Continuation.h"

#include <cstddef>
#include <functional>

namespace tavix {

// Unsaved changes of a session that crashed.
struct LostWorkOffer {
    std::filesystem::path assetRoot;   // the bundle, where there was one
    std::chrono::sys_seconds at;       // of the last change
    bool operator==(const LostWorkOffer&) const = default;
};

// Used on the main executor.
class LostWorkShelf {
public:
    struct Surroundings {
        system::SerialExecutor& main;
        system::Executor& files;                          // both outlive it
        Observable<std::vector<LostWorkOffer>>& offers;   // the latest first
    };
    explicit LostWorkShelf(const Surroundings& surroundings) : around_(surroundings) {}

    // `then` runs in any case; without a folder there is nothing to be found.
    void find(const std::filesystem::path& journals, std::function<void()> then);
    // It is offered no more, and found again unless it is forgotten; nothing for an index that is not there.
    std::optional<LostWork> take(std::size_t index);
    void forget(const LostWork& lost);

private:
    void offer();

    Surroundings around_;
    std::vector<LostWork> lost_;
    system::Lifeline lifeline_;
};

}   // namespace tavix
