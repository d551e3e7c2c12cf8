// Turns the signals that end a program into a request to stop, so that long work can clean up behind itself.
#pragma once

#include <atomic>
#include <csignal>
#include <stop_token>
#include <thread>

namespace tavix::engine {

// Made before the first thread of the work, so that all of them leave the signals alone. Work that does not
// stop soon after a signal, as in the midst of a call to a library, is ended with the program, and what it
// has not finished is removed; a second signal does that at once.
class Interruption {
public:
    Interruption();   // throws std::system_error when the system gives no thread for it
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    std::stop_token token() const { return source_.get_token(); }
    // Throws `Interrupted` once a signal has come.
    void check() const;

private:
    void watch(int signals);
    void take(int signal);

    std::stop_source source_;
    std::atomic<int> signal_ = 0;
    sigset_t before_ = {};
    int wakeUp_ = -1;   // an event that ends the watching thread
    std::thread watcher_;
};

}   // namespace tavix::engine
