// The one way in which work comes back: it is done on one executor, and what came of it is handed to a
// continuation on another.
#pragma once

#include "TavixPlatform/System/Executor.h"

#include <exception>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace tavix::system {

// What came of work: a value, or what it threw.
template <class T> class Outcome {
public:
    template <class Work> static Outcome of(Work& work) {
        Outcome outcome;
        try {
            outcome.value_.emplace(work());
        } catch (...) {
            outcome.fault_ = std::current_exception();
        }
        return outcome;
    }
    bool hasFailed() const { return fault_ != nullptr; }
    // Throws what the work threw.
    T& value() {
        if (fault_) std::rethrow_exception(fault_);
        return *value_;
    }

private:
    std::optional<T> value_;
    std::exception_ptr fault_;
};

// Both executors outlive the work. `then` takes an `Outcome` of what `work` returns, which is no void.
template <class Work, class Then> void runThere(Executor& there, Executor& here, Work work, Then then) {
    using Result = Outcome<std::invoke_result_t<Work&>>;
    there.post([&here, work = std::move(work), then = std::move(then)]() mutable {
        auto outcome = std::make_shared<Result>(Result::of(work));
        here.post([outcome = std::move(outcome), then = std::move(then)]() mutable { then(*outcome); });
    });
}

// What the continuations of an object hang on: those that it guards do nothing once it is gone. Used on the
// executor of the object alone, where they run too.
class Lifeline {
public:
    template <class Then> auto guard(Then then) const {
        return [alive = std::weak_ptr<void>(alive_), then = std::move(then)](auto&&... arguments) mutable {
            if (!alive.expired()) then(std::forward<decltype(arguments)>(arguments)...);
        };
    }
    // Expires with what it guards, also for who looks from another thread.
    std::weak_ptr<void> thread() const { return alive_; }
    // What was guarded before does nothing from now on.
    void cut() { alive_ = std::make_shared<int>(); }

private:
    std::shared_ptr<void> alive_ = std::make_shared<int>();
};

}   // namespace tavix::system
