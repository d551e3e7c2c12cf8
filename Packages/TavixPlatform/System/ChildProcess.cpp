#include "TavixPlatform/System/ChildProcess.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tavix::system {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int standardStreams = 3;
// Above every descriptor that a program is given, while they are put in place.
constexpr int parkedFrom = 64;
constexpr auto glance = std::chrono::milliseconds(5);

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

[[noreturn]] void failToStart(const std::filesystem::path& program) {
    std::string what = "\"";
    what += program.string();
    what += "\" cannot be started";
    fail(what);
}

std::string_view nameOf(std::string_view variable) { return variable.substr(0, variable.find('=')); }

std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environmentWith(const std::vector<std::string>& changes) {
    std::vector<std::string> all = changes;
    for (char** variable = environ; variable && *variable; ++variable)
        if (std::ranges::none_of(changes, [&](const auto& c) { return nameOf(c) == nameOf(*variable); }))
            all.emplace_back(*variable);
    return all;
}

// Every signal as a program expects to find it.
void forgetSignals() {
    for (int signal = 1; signal < NSIG; ++signal) ::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

bool isRunnable(const std::filesystem::path& file) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(file, ignored) && ::access(file.c_str(), X_OK) == 0;
}

}   // namespace

ChildProcess::ChildProcess(const ChildSettings& settings) {
    try {
        openPipes(settings.pipes);
        start(settings);
    } catch (...) {
        closeAll();
        throw;
    }
}

ChildProcess::~ChildProcess() {
    end(0);
    closeAll();
}

void ChildProcess::openPipes(const std::vector<ChildPipe>& pipes) {
    for (const ChildPipe& pipe : pipes) {
        int both[2];
        if (::pipe2(both, O_CLOEXEC) != 0) fail("There is no pipe to be had");
        const bool isToChild = pipe.direction == ChildPipe::Direction::toChild;
        ends_.push_back({pipe.childDescriptor, both[isToChild ? 1 : 0], both[isToChild ? 0 : 1]});
        ::fcntl(ends_.back().ours, F_SETFL, O_NONBLOCK);
    }
}

void ChildProcess::start(const ChildSettings& settings) {
    const auto found = findProgram(settings.program);
    if (!found) {
        errno = ENOENT;
        failToStart(settings.program);
    }
    std::vector<std::string> words{found->string()};
    words.insert(words.end(), settings.arguments.begin(), settings.arguments.end());
    const std::vector<std::string> variables = environmentWith(settings.environment);
    const auto arguments = pointersTo(words), environment = pointersTo(variables);
    int report[2];   // closed by a start that succeeds; otherwise the reason comes through it
    if (::pipe2(report, O_CLOEXEC) != 0) fail("There is no pipe to be had");
    const pid_t parent = ::getpid();
    id_ = ::fork();
    if (id_ == 0) become(arguments.data(), environment.data(), parent, report[1]);
    const int forked = errno;
    ::close(report[1]);
    int reason = id_ < 0 ? forked : 0;
    if (id_ > 0) {
        ::setpgid(id_, id_);   // as the child does; whoever is first
        while (::read(report[0], &reason, sizeof reason) < 0 && errno == EINTR) {}
    }
    ::close(report[0]);
    for (End& end : ends_) ::close(std::exchange(end.theirs, -1));
    if (reason == 0) return;
    if (id_ > 0) ::waitpid(id_, nullptr, 0);
    id_ = -1;
    errno = reason;
    failToStart(*found);
}

// Between fork and exec: calls that are safe after a signal only, and no memory is taken.
void ChildProcess::become(char* const* arguments, char* const* environment, pid_t parent, int report) {
    const auto give = [&](int reason) {
        [[maybe_unused]] const auto told = ::write(report, &reason, sizeof reason);
        ::_exit(127);
    };
    ::setpgid(0, 0);
    if (::prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) give(errno);
    if (::getppid() != parent) ::_exit(127);
    forgetSignals();
    report = ::fcntl(report, F_DUPFD_CLOEXEC, parkedFrom);
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (report < 0 || nothing < 0) give(errno);
    for (End& end : ends_) end.theirs = ::fcntl(end.theirs, F_DUPFD_CLOEXEC, parkedFrom);
    for (int stream = 0; stream < standardStreams; ++stream)
        if (::dup2(nothing, stream) < 0) give(errno);
    for (const End& end : ends_)
        if (::dup2(end.theirs, end.child) < 0) give(errno);
    ::execve(arguments[0], arguments, environment);
    give(errno);
    ::_exit(127);
}

int ChildProcess::descriptor(int childDescriptor) const {
    const auto end = std::ranges::find(ends_, childDescriptor, &End::child);
    return end == ends_.end() ? -1 : end->ours;
}

void ChildProcess::close(int childDescriptor) {
    for (End& end : ends_)
        if (end.child == childDescriptor && end.ours >= 0) ::close(std::exchange(end.ours, -1));
}

void ChildProcess::closeAll() {
    for (End& end : ends_)
        for (int* side : {&end.ours, &end.theirs})
            if (*side >= 0) ::close(std::exchange(*side, -1));
}

// It stays in the system's table until `end`, so that its number and its group's mean nobody else meanwhile.
std::optional<int> ChildProcess::exitStatus() {
    if (status_) return status_;
    siginfo_t info{};
    while (::waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOHANG | WNOWAIT) != 0)
        if (errno != EINTR) return status_ = 0;   // somebody else has taken it
    if (info.si_pid == 0) return std::nullopt;
    return status_ = info.si_code == CLD_EXITED ? info.si_status : 128 + info.si_status;
}

std::optional<int> ChildProcess::wait(double mostSec) {
    const auto until = Clock::now() + std::chrono::duration<double>(mostSec);
    while (!exitStatus() && Clock::now() < until) std::this_thread::sleep_for(glance);
    return exitStatus();
}

void ChildProcess::end(double graceSec) {
    if (id_ <= 0) return;
    if (graceSec > 0 && !exitStatus()) {
        ::kill(-id_, SIGTERM);
        wait(graceSec);
    }
    ::kill(-id_, SIGKILL);   // what it started may live on without it
    while (!exitStatus()) std::this_thread::sleep_for(glance);
    ::waitpid(id_, nullptr, 0);
    id_ = -1;
}

std::optional<std::filesystem::path> findProgram(const std::filesystem::path& nameOrPath) {
    if (nameOrPath.has_parent_path())
        return isRunnable(nameOrPath) ? std::optional(nameOrPath) : std::nullopt;
    const char* path = std::getenv("PATH");
    std::string_view folders = path ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!folders.empty() && !nameOrPath.empty()) {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folder.size() + 1, folders.size()));
        const std::filesystem::path file = std::filesystem::path(folder) / nameOrPath;
        if (!folder.empty() && isRunnable(file)) return file;
    }
    return std::nullopt;
}

}   // namespace tavix::system
