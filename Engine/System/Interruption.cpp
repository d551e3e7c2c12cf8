#include "Engine/System/Interruption.h"

#include "Engine/System/Errors.h"
#include "TavixCore/Support/UnfinishedFolders.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace tavix::engine {

namespace {

// Loops look for the request many times in this; what a library is busy with may take longer to end.
constexpr int patienceMs = 400;

[[noreturn]] void endProgram(int signal) {
    UnfinishedFolders::removeAll();
    std::fprintf(stderr, "tavix: %s\n", Interrupted(signal).what());
    std::_Exit(ExitStatus::stoppedBySignal + signal);
}

}   // namespace

std::atomic<int> Interruption::signal_ = 0;

Interruption::Interruption() : scope_(source_.get_token()), wakeUp_(::eventfd(0, EFD_CLOEXEC)) {
    signal_ = 0;
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
    ::pthread_sigmask(SIG_BLOCK, &signals, &before_);
    const int descriptor = ::signalfd(-1, &signals, SFD_CLOEXEC);
    try {
        watcher_ = std::thread([this, descriptor] { watch(descriptor); });
    } catch (const std::system_error&) {
        ::close(descriptor);
        ::close(wakeUp_);
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        throw;
    }
}

Interruption::~Interruption() {
    ::eventfd_write(wakeUp_, 1);
    watcher_.join();
    ::close(wakeUp_);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void Interruption::watch(int signals) {
    pollfd waits[] = {{signals, POLLIN, 0}, {wakeUp_, POLLIN, 0}};
    while (waits[1].revents == 0) {
        const int ready = ::poll(waits, 2, signal_ != 0 ? patienceMs : -1);
        if (ready == 0) endProgram(signal_);
        signalfd_siginfo info{};
        if (ready > 0 && waits[0].revents != 0 && ::read(signals, &info, sizeof info) == sizeof info)
            take(static_cast<int>(info.ssi_signo));
        if (ready < 0 && errno != EINTR) break;
    }
    ::close(signals);
}

void Interruption::take(int signal) {
    if (signal_ != 0) endProgram(signal);
    signal_ = signal;
    source_.request_stop();
}

void Interruption::check() const {
    if (signal_ != 0) throw Interrupted(signal_);
}

}   // namespace tavix::engine
