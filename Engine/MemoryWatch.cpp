#include "Engine/MemoryWatch.h"

#include "TavixCore/Support/Failure.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <unistd.h>

namespace tavix::engine::MemoryWatch {

namespace {

std::atomic<std::size_t> refused = 0;
char task[96] = "to start";

void copy(std::string_view from, char (&to)[96]) noexcept {
    const std::size_t length = std::min(from.size(), sizeof to - 1);
    std::memcpy(to, from.data(), length);
    to[length] = '\0';
}

constexpr std::string_view begin = "There is not enough memory ",
                           end = ". Close other programs, or make the output or its pictures smaller.";

}   // namespace

std::size_t refusedBytes() noexcept { return refused; }

std::string sentence() {
    std::string text = std::string(begin) + task;
    const std::size_t megabytes = refusedBytes() >> 20;
    if (megabytes > 0) text += ": " + std::to_string(megabytes) + " MB more were asked for";
    return text += end;
}

void writeSentence(int descriptor) noexcept {
    for (const std::string_view part :
        {std::string_view("tavix: "), begin, std::string_view(task), end, std::string_view("\n")})
        if (::write(descriptor, part.data(), part.size()) < 0) return;
}

void require() {
    if (refusedBytes() > 0) throw Failure(sentence());
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
    if (memory == nullptr && bytes > 0) refused.compare_exchange_strong(none, bytes);
    return memory;
}

}   // namespace tavix::engine::MemoryWatch

// The C library lets a program put its own functions in the place of these (glibc manual, "Replacing
// malloc"), and all other libraries then call them. The sanitizers have replaced them already.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

using tavix::engine::MemoryWatch::noted;

extern "C" {

void* __libc_malloc(std::size_t) noexcept;
void* __libc_calloc(std::size_t, std::size_t) noexcept;
void* __libc_realloc(void*, std::size_t) noexcept;
void* __libc_memalign(std::size_t, std::size_t) noexcept;

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
}

#endif
