// Turns the signals that end a program into a request to stop, so that long work can clean up behind itself.
#pragma once

#include <atomic>
#include <csignal>
#include <stop_token>
#include <thread>

namespace tavix::engine {

// Made before the first thread of the work, so that all of them leave the signals alone. A second signal ends
// the program at once.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    std::stop_token token() const { return source_.get_token(); }
    // Throws `Interrupted` once a signal has come.
    void check() const;

private:
    void watch(int signals);

    std::stop_source source_;
    std::atomic<int> signal_ = 0;
    sigset_t before_ = {};
    int wakeUp_ = -1;   // an event that ends the watching thread
    std::thread watcher_;
};

}   // namespace tavix::engine
