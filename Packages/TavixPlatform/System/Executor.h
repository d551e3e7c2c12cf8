// Where work is done: a thread, a few of them, or the event loop of an application. Long work is posted to
// one executor and comes back to another as a plain continuation (see Continuation.h); nobody waits.
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace tavix::system {

// Throws nothing: what can fail gives an `Outcome`.
using Job = std::function<void()>;

class Executor {
public:
    virtual ~Executor() = default;
    // From any thread. The job runs later, never within this call.
    virtual void post(Job job) = 0;
};

// A delay that is under way. Leaving its scope cancels it; cancelled on the executor that it runs on, its job
// does not run any more.
class [[nodiscard]] Timer {
public:
    Timer() = default;
    explicit Timer(std::shared_ptr<void> handle) : handle_(std::move(handle)) {}
    void cancel() { handle_.reset(); }
    bool isSet() const { return handle_ != nullptr; }   // also when it has run

private:
    std::shared_ptr<void> handle_;   // the executor keeps only a weak reference
};

// One job at a time, in the order of their posting, and with a clock.
class SerialExecutor : public Executor {
public:
    virtual Timer after(double delaySec, Job job) = 0;
    virtual double nowSec() const = 0;   // since some moment; never goes back
};

}   // namespace tavix::system
