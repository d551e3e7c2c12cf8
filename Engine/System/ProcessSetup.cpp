#include "Engine/System/ProcessSetup.h"

#include "Engine/System/Errors.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Support/UnfinishedFolders.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <malloc.h>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>

namespace tavix::engine {

namespace {

// A file that is opened takes the lowest free number: with standard output closed it would become that, and
// what is printed would stand in the film. Of what was closed, reading finds the end and writing fails.
void keepStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0) ::open("/dev/null", O_RDONLY);
}

void writeFault() {
    constexpr std::string_view sentence =
        "tavix: A fault of Tavix itself ended it; nothing was written. Please report the document that did.\n";
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, sentence.data(), sentence.size());
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

// What ends one thread, as a lack of memory, mostly ends several at once: the first one says so for all.
void waitForOtherThreads() {
    static std::atomic<pid_t> ending = 0;
    const pid_t self = static_cast<pid_t>(::syscall(SYS_gettid));
    pid_t first = 0;
    if (ending.compare_exchange_strong(first, self) || first == self) return;
    for (;;) ::pause();
}

// Libraries end the program where they cannot go on, mostly because memory is at its end. In the handler of a
// signal only plain system calls are safe.
void endOnFault(int signal) {
    waitForOtherThreads();
    UnfinishedFolders::removeAll();
    if (SystemWatch::hasRefused()) {
        SystemWatch::writeSentence(STDERR_FILENO);
        ::_exit(ExitStatus::inputOrOutputFailed);
    }
    writeFault();
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

// Before the tables of the program are made.
[[gnu::constructor(101)]] void catchFaults() {
    // A stack that is full leaves no room for a handler.
    static std::array<char, 1 << 16> room;
    const stack_t stack{room.data(), 0, room.size()};
    ::sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_handler = endOnFault;
    action.sa_flags = SA_ONSTACK | SA_NODEFER;
    for (const int signal : {SIGABRT, SIGTRAP, SIGSEGV, SIGBUS, SIGILL, SIGFPE})
        ::sigaction(signal, &action, nullptr);
    std::set_terminate([] { std::abort(); });   // without the library's line on standard error
}

#endif   // otherwise the sanitizers do

std::atomic<bool> isAtItsEnd = false;

// A library that ends the program by itself, as libnuma does when memory is at its end while it is loaded,
// leaves what was begun lying and no reason.
void endOnForeignExit() {
    if (isAtItsEnd) return;
    UnfinishedFolders::removeAll();
    if (SystemWatch::hasRefused())
        SystemWatch::writeSentence(STDERR_FILENO);
    else
        writeFault();
    ::_exit(ExitStatus::inputOrOutputFailed);
}

}   // namespace

void setUpProcess() {
    keepStandardStreams();
    std::atexit(endOnForeignExit);
    // Pictures go back to the system when they are done with, instead of leaving holes in the heap.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    mallopt(M_ARENA_MAX, 2);
    // A reader that goes away, and a file past the limit of sizes, are errors of writing, told like any
    // other.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int endingWith(int status) {
    isAtItsEnd = true;
    return status;
}

}   // namespace tavix::engine
