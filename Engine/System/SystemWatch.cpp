#include "Engine/System/SystemWatch.h"

#include "TavixBase/Failure.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <exception>
#include <pthread.h>
#include <unistd.h>

namespace tavix::engine::SystemWatch {

namespace {

std::atomic<std::size_t> refusedBytes = 0;   // of the first request; 0 while none was refused
std::atomic<bool> hasRefusedThread = false;
char task[96] = "to start";

void copy(std::string_view from, char (&to)[96]) noexcept {
    const std::size_t length = std::min(from.size(), sizeof to - 1);
    std::memcpy(to, from.data(), length);
    to[length] = '\0';
}

struct Wording {
    std::string_view begin, end;
};
constexpr Wording ofMemory{
    "There is not enough memory ", ". Close other programs, or make the output or its pictures smaller."};
constexpr Wording ofThreads{
    "The system gives no more threads ", ". Close other programs, or raise its limit (ulimit -u)."};

const Wording& wording() { return refusedBytes > 0 ? ofMemory : ofThreads; }

}   // namespace

bool hasRefused() noexcept { return refusedBytes > 0 || hasRefusedThread; }

std::string sentence() {
    const std::size_t megabytes = refusedBytes >> 20;
    const std::string size = ": " + std::to_string(megabytes) + " MB more were asked for";
    return std::string(wording().begin).append(task).append(megabytes > 0 ? size : "").append(wording().end);
}

void writeSentence(int descriptor) noexcept {
    const std::string_view parts[] = {"tavix: ", wording().begin, task, wording().end, "\n"};
    for (const std::string_view part : parts)
        if (::write(descriptor, part.data(), part.size()) < 0) return;
}

void require() {
    if (hasRefused()) throw Failure(sentence());
}

Task::Task(std::string_view what) noexcept : exceptions_(std::uncaught_exceptions()) {
    copy(task, before_);
    is(what);
}

Task::~Task() {
    if (std::uncaught_exceptions() == exceptions_) copy(before_, task);
}

void Task::is(std::string_view what) noexcept { copy(what, task); }

// Called for every request below.
static void* noted(void* memory, std::size_t bytes) noexcept {
    std::size_t none = 0;
    if (memory == nullptr && bytes > 0) refusedBytes.compare_exchange_strong(none, bytes);
    return memory;
}

static int notedThread(int error) noexcept {
    if (error != 0) hasRefusedThread = true;
    return error;
}

struct ThreadStart {
    void* (*function)(void*);
    void* argument;
};

// Without memory, libraries that report so may call themselves until the thread's stack is full, which leaves
// no room for the handler of the fault. It gets some that stays its own to the very end of the thread: what
// runs there once this has returned may lie over it, but the handler never goes back to that.
static void* startThread(void* given) {
    const ThreadStart start = *static_cast<ThreadStart*>(given);
    std::free(given);
    alignas(16) char room[1 << 15];
    const stack_t stack{room, 0, sizeof room};
    ::sigaltstack(&stack, nullptr);
    return start.function(start.argument);
}

// Threads with a small stack have nothing to spare.
static bool hasLargeStack(const pthread_attr_t* attributes) noexcept {
    constexpr std::size_t leastBytes = 1 << 18;
    std::size_t bytes = leastBytes;
    if (attributes) ::pthread_attr_getstacksize(attributes, &bytes);
    return bytes >= leastBytes;
}

}   // namespace tavix::engine::SystemWatch

// The C library lets a program put its own functions in the place of these (glibc manual, "Replacing
// malloc"), and all other libraries then call them. The sanitizers have replaced them already.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

using tavix::engine::SystemWatch::hasLargeStack;
using tavix::engine::SystemWatch::noted;
using tavix::engine::SystemWatch::notedThread;
using tavix::engine::SystemWatch::startThread;
using tavix::engine::SystemWatch::ThreadStart;

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming): the C library's own names
void* __libc_malloc(std::size_t) noexcept;
void* __libc_calloc(std::size_t, std::size_t) noexcept;
void* __libc_realloc(void*, std::size_t) noexcept;
void* __libc_memalign(std::size_t, std::size_t) noexcept;
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)

void* malloc(std::size_t bytes) noexcept { return noted(__libc_malloc(bytes), bytes); }
void* calloc(std::size_t count, std::size_t bytes) noexcept {
    return noted(__libc_calloc(count, bytes), count > 0 ? bytes : 0);
}
void* realloc(void* earlier, std::size_t bytes) noexcept {
    return noted(__libc_realloc(earlier, bytes), bytes);
}
void* memalign(std::size_t alignment, std::size_t bytes) noexcept {
    return noted(__libc_memalign(alignment, bytes), bytes);
}
void* aligned_alloc(std::size_t alignment, std::size_t bytes) noexcept {
    return noted(__libc_memalign(alignment, bytes), bytes);
}
int posix_memalign(void** to, std::size_t alignment, std::size_t bytes) noexcept {
    void* memory = noted(__libc_memalign(alignment, bytes), bytes);
    if (memory == nullptr && bytes > 0) return ENOMEM;
    *to = memory;
    return 0;
}

// libnuma, which comes with an encoder, ends the program where it gets no memory, and says so here before
// (numa(3), "numa_error"): our sentence follows.
void numa_error(char*) noexcept {}   // NOLINT(readability-identifier-naming): its name there

int pthread_create(
    pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*), void* argument) noexcept {
    static const auto real =
        reinterpret_cast<decltype(&pthread_create)>(::dlsym(RTLD_NEXT, "pthread_create"));
    if (!hasLargeStack(attributes)) return notedThread(real(thread, attributes, start, argument));
    auto* given = static_cast<ThreadStart*>(malloc(sizeof(ThreadStart)));
    if (given == nullptr) return EAGAIN;
    *given = {start, argument};
    const int error = real(thread, attributes, startThread, given);
    if (error != 0) std::free(given);
    return notedThread(error);
}
}

#endif
