// Loaded before a program (LD_PRELOAD), makes one kind of call to the system fail. The environment says
// which:
//
//   TAVIX_FAULT=CALL:N:ERRNO[:FILTER]    the N-th call fails; with "N+" all from then on; 0: none
//   TAVIX_FAULT_COUNT=FILE               how many calls there were is written there in the end
//   TAVIX_FAULT_EXITS=1                  the call ends the program, as libraries do that think they must
//   TAVIX_FAULT_HOLD=FILE                the call does not fail: it makes that file and goes on a little
//   after
//                                        somebody has removed it
//
// CALL is open, read, write, sync, thread or memory. FILTER is a part of the file's path, or the least size
// of a request for memory. Only plain system calls are made here, and nothing is allocated.
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <atomic>

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

struct Fault {
    char call[16] = "", filter[128] = "";
    long at = 0;
    bool staysBroken = false;
    int error = 0;

    Fault() {
        const char* text = std::getenv("TAVIX_FAULT");
        if (!text) return;
        char n[32] = "";
        if (std::sscanf(text, "%15[^:]:%31[^:]:%d:%127s", call, n, &error, filter) < 3) std::abort();
        at = std::strtol(n, nullptr, 10);
        staysBroken = std::strchr(n, '+') != nullptr;
    }
};

std::atomic<long> calls = 0;

const Fault& fault() {
    static const Fault read;
    return read;
}

// The moment after it is for what other threads make of what has come meanwhile.
void hold(const char* file) {
    constexpr useconds_t stepUs = 1000, momentUs = 300'000;
    ::close(::open(file, O_WRONLY | O_CREAT, 0644));
    while (::access(file, F_OK) == 0) ::usleep(stepUs);
    ::usleep(momentUs);
}

// Whether this call, which matches the filter, is to fail; errno is set then.
bool failsNow() {
    const long count = ++calls;
    const Fault& f = fault();
    if (f.at == 0 || count < f.at || (count > f.at && !f.staysBroken)) return false;
    if (std::getenv("TAVIX_FAULT_EXITS")) std::exit(1);
    if (const char* file = std::getenv("TAVIX_FAULT_HOLD")) {
        hold(file);
        return false;
    }
    errno = f.error;
    return true;
}

bool isCalled(const char* call) { return std::strcmp(fault().call, call) == 0; }

bool fails(const char* call, const char* path) {
    return isCalled(call) && path && std::strstr(path, fault().filter) && failsNow();
}

bool fails(const char* call, int descriptor) {
    if (!isCalled(call)) return false;
    char link[64], path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link, path, sizeof path - 1);
    path[length < 0 ? 0 : length] = '\0';
    return fails(call, path);
}

bool failsMemory(std::size_t bytes) {
    return isCalled("memory") && bytes >= std::strtoul(fault().filter, nullptr, 10) && failsNow();
}

template <class Function> Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

struct Reporter {
    ~Reporter() {
        const char* file = std::getenv("TAVIX_FAULT_COUNT");
        const int descriptor = file ? ::open(file, O_WRONLY | O_CREAT | O_TRUNC, 0644) : -1;
        if (descriptor < 0) return;
        char text[32];
        const int length = std::snprintf(text, sizeof text, "%ld\n", calls.load());
        [[maybe_unused]] const auto written = ::write(descriptor, text, std::size_t(length));
        ::close(descriptor);
    }
} reporter;

unsigned modeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
}

}   // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = modeOf(flags, arguments);
    va_end(arguments);
    if (fails("open", path)) return -1;
    return next<int (*)(const char*, int, ...)>("open")(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = modeOf(flags, arguments);
    va_end(arguments);
    if (fails("open", path)) return -1;
    return next<int (*)(const char*, int, ...)>("open64")(path, flags, mode);
}
FILE* fopen(const char* path, const char* mode) {
    if (fails("open", path)) return nullptr;
    return next<FILE* (*)(const char*, const char*)>("fopen")(path, mode);
}
FILE* fopen64(const char* path, const char* mode) {
    if (fails("open", path)) return nullptr;
    return next<FILE* (*)(const char*, const char*)>("fopen64")(path, mode);
}

ssize_t read(int descriptor, void* to, std::size_t count) {
    if (fails("read", descriptor)) return -1;
    return next<ssize_t (*)(int, void*, std::size_t)>("read")(descriptor, to, count);
}
ssize_t pread(int descriptor, void* to, std::size_t count, off_t at) {
    if (fails("read", descriptor)) return -1;
    return next<ssize_t (*)(int, void*, std::size_t, off_t)>("pread")(descriptor, to, count, at);
}
ssize_t pread64(int descriptor, void* to, std::size_t count, off64_t at) {
    if (fails("read", descriptor)) return -1;
    return next<ssize_t (*)(int, void*, std::size_t, off64_t)>("pread64")(descriptor, to, count, at);
}
std::size_t fread(void* to, std::size_t size, std::size_t count, FILE* file) {
    if (fails("read", ::fileno(file))) return 0;
    return next<std::size_t (*)(void*, std::size_t, std::size_t, FILE*)>("fread")(to, size, count, file);
}

ssize_t write(int descriptor, const void* from, std::size_t count) {
    if (fails("write", descriptor)) return -1;
    return next<ssize_t (*)(int, const void*, std::size_t)>("write")(descriptor, from, count);
}
std::size_t fwrite(const void* from, std::size_t size, std::size_t count, FILE* file) {
    if (fails("write", ::fileno(file))) return 0;
    return next<std::size_t (*)(const void*, std::size_t, std::size_t, FILE*)>("fwrite")(
        from, size, count, file);
}
int fsync(int descriptor) {
    if (fails("sync", descriptor)) return -1;
    return next<int (*)(int)>("fsync")(descriptor);
}

int pthread_create(
    pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*), void* argument) {
    if (isCalled("thread") && failsNow()) return fault().error;
    using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    return next<Create>("pthread_create")(thread, attributes, start, argument);
}

// What the program's own malloc and its kin end in, by the names that the C library has for them.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
void* __libc_malloc(std::size_t bytes) {
    static const auto real = next<void* (*)(std::size_t)>("__libc_malloc");
    return failsMemory(bytes) ? nullptr : real(bytes);
}
void* __libc_realloc(void* earlier, std::size_t bytes) {
    static const auto real = next<void* (*)(void*, std::size_t)>("__libc_realloc");
    return failsMemory(bytes) ? nullptr : real(earlier, bytes);
}
void* __libc_calloc(std::size_t count, std::size_t bytes) {
    static const auto real = next<void* (*)(std::size_t, std::size_t)>("__libc_calloc");
    return failsMemory(count * bytes) ? nullptr : real(count, bytes);
}
void* __libc_memalign(std::size_t alignment, std::size_t bytes) {
    static const auto real = next<void* (*)(std::size_t, std::size_t)>("__libc_memalign");
    return failsMemory(bytes) ? nullptr : real(alignment, bytes);
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
}
