// Runs a program to its end, with what it is given to read and what it writes.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <limits>
#include <stop_token>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace tavix::system {

struct ProgramRequest {
    std::filesystem::path program;   // a path, or a name that is looked for along $PATH
    std::vector<std::string> arguments = {};
    std::vector<std::string> environment = {};   // as in "LANG=C", beside our own
    std::string input = {};                      // on its standard input
    double mostSec = std::numeric_limits<double>::infinity();
    // What comes beyond these is read and forgotten.
    std::size_t mostOutputBytes = 16u << 20, mostErrorBytes = 64u << 10;
    std::function<void(pid_t)> onStart = {};
    std::function<void(std::string_view piece)> onOutput = {};   // of standard output, as it comes
};

struct ProgramOutcome {
    int status = 0;         // or 128 and the signal that ended it
    std::string out, err;   // its standard output and standard error
    bool wasStopped = false, ranOutOfTime = false;
};

// Blocks until it has ended. A stop, or the end of its time, ends it with all that it started. Throws
// std::system_error when it cannot be started.
ProgramOutcome runProgram(const ProgramRequest& request, const std::stop_token& stop = {});

}   // namespace tavix::system
