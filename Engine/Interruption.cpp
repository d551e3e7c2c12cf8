#include "Engine/Interruption.h"

#include "Engine/Errors.h"

#include <cstdlib>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace tavix::engine {

Interruption::Interruption() : wakeUp_(::eventfd(0, EFD_CLOEXEC)) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
    ::pthread_sigmask(SIG_BLOCK, &signals, &before_);
    watcher_ = std::thread([this, descriptor = ::signalfd(-1, &signals, SFD_CLOEXEC)] { watch(descriptor); });
}

Interruption::~Interruption() {
    ::eventfd_write(wakeUp_, 1);
    watcher_.join();
    ::close(wakeUp_);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void Interruption::watch(int signals) {
    pollfd waits[] = {{signals, POLLIN, 0}, {wakeUp_, POLLIN, 0}};
    while (::poll(waits, 2, -1) >= 0 && waits[1].revents == 0) {
        signalfd_siginfo info{};
        if (::read(signals, &info, sizeof info) != sizeof info) break;
        if (signal_ != 0) std::_Exit(ExitStatus::stoppedBySignal + static_cast<int>(info.ssi_signo));
        signal_ = static_cast<int>(info.ssi_signo);
        source_.request_stop();
    }
    ::close(signals);
}

void Interruption::check() const {
    if (signal_ != 0) throw Interrupted(signal_);
}

}   // namespace tavix::engine
