// How long work ends early: whoever starts it opens a scope, and its loops look whether it shall stop.
#pragma once

#include <stop_token>

namespace tavix::imaging {

// Thrown by `checkStop`. No `std::exception`, so that nobody who goes on after the errors of a library takes
// it for one of them. What was being made is then not finished.
class WorkStopped {};

// While it lives, the work of this thread looks at the token, and so does what other threads do of it in a
// `ParallelLoop`; other threads of its own get it by `StopScope::current()`. Scopes nest, and the inner one
// holds, unless its token can never ask for anything.
class StopScope {
public:
    explicit StopScope(std::stop_token token);
    ~StopScope();
    StopScope(const StopScope&) = delete;
    StopScope& operator=(const StopScope&) = delete;

    static std::stop_token current() noexcept;

private:
    std::stop_token token_;
    const std::stop_token* before_;
};

// Throws `WorkStopped` once the scope of this thread has been asked to stop. Costs a few nanoseconds: loops
// call it at least every few milliseconds.
void checkStop();

}   // namespace tavix::imaging
