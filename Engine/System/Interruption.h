// Turns the signals that end a program into a request to stop, so that long work can clean up behind itself.
#pragma once

#include "TavixPlatform/Imaging/StopScope.h"

#include <atomic>
#include <csignal>
#include <stop_token>
#include <thread>

namespace tavix::engine {

// Made before the first thread of the work, so that all of them leave the signals alone. While it lives, the
// loops of the thread that made it end in `imaging::WorkStopped` soon after a signal, and that ends the
// command as `Interrupted` does. Work in the midst of a long call to a library is ended with the program, and
// what it has not finished is removed; a second signal does that at once.
class Interruption {
public:
    Interruption();   // throws std::system_error when the system gives no thread for it
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    std::stop_token token() const { return source_.get_token(); }
    // Throws `Interrupted` once a signal has come.
    void check() const;
    // The signal that the program was last asked to stop with; 0 for none.
    static int lastSignal() { return signal_; }

private:
    void watch(int signals);
    void take(int signal);

    static std::atomic<int> signal_;   // the program has one, and who ends it asks when all else is gone

    std::stop_source source_;
    imaging::StopScope scope_;
    sigset_t before_ = {};
    int wakeUp_ = -1;   // an event that ends the watching thread
    std::thread watcher_;
};

}   // namespace tavix::engine
