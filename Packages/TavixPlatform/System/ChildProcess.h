// A program that runs beside ours, started without a shell. It leads a process group of its own, so that
// whatever it starts is ended with it, and it does not outlive us, however we end.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tavix::system {

// A pipe between us and the program.
struct ChildPipe {
    enum class Direction { toChild, fromChild };

    int childDescriptor = 0;   // where the program finds its end: 0 is its standard input, and so on
    Direction direction = Direction::fromChild;
};

struct ChildSettings {
    std::filesystem::path program;   // a path, or a name that is looked for along $PATH
    std::vector<std::string> arguments;
    std::vector<ChildPipe> pipes;   // standard streams without one are /dev/null
    // As in "LANG=C", instead of our own variables of these names. Ours are handed on.
    std::vector<std::string> environment;
};

// Used by the thread that made it, and no longer than that thread lives: the system ends the program with it.
class ChildProcess {
public:
    // Throws std::system_error when the program cannot be started.
    explicit ChildProcess(const ChildSettings& settings);
    ~ChildProcess();   // ends it at once
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t id() const { return id_; }
    // Our end of a pipe, which does not block; -1 once it is closed.
    int descriptor(int childDescriptor) const;
    void close(int childDescriptor);

    // How it ended: its status, or 128 and the signal that ended it. Nothing while it runs.
    std::optional<int> exitStatus();
    // The same after at most so many seconds.
    std::optional<int> wait(double mostSec);
    // Asks it to end, and after the grace ends it with all that it started.
    void end(double graceSec);

private:
    struct End {
        int child = -1, ours = -1, theirs = -1;
    };
    void openPipes(const std::vector<ChildPipe>& pipes);
    void start(const ChildSettings& settings);
    [[noreturn]] void become(char* const* arguments, char* const* environment, pid_t parent, int report);
    void closeAll();

    std::vector<End> ends_;
    pid_t id_ = -1;
    std::optional<int> status_;
};

// Where a program of that name is along $PATH, or the path itself where it names a file that can be run;
// nothing without one.
std::optional<std::filesystem::path> findProgram(const std::filesystem::path& nameOrPath);

}   // namespace tavix::system
