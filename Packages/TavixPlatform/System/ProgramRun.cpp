#include "TavixPlatform/System/ProgramRun.h"

#include "TavixPlatform/System/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <optional>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace tavix::system {

namespace {

using Clock = std::chrono::steady_clock;
using Direction = ChildPipe::Direction;

constexpr double graceSec = 3;
constexpr int pollMs = 50;

class Run {
public:
    Run(const ProgramRequest& request, const std::stop_token& stop)
        : request_(request), stop_(stop),
          process_({.program = request.program,
              .arguments = request.arguments,
              .pipes = {{0, Direction::toChild}, {1, Direction::fromChild}, {2, Direction::fromChild}},
              .environment = request.environment}) {
        if (request.onStart) request.onStart(process_.id());
    }

    ProgramOutcome finish() {
        const auto start = Clock::now();
        std::optional<int> status;
        while (!(status = process_.exitStatus())) {
            if (stop_.stop_requested()) outcome_.wasStopped = true;
            if (std::chrono::duration<double>(Clock::now() - start).count() > request_.mostSec)
                outcome_.ranOutOfTime = true;
            if (outcome_.wasStopped || outcome_.ranOutOfTime) {
                process_.end(graceSec);
                status = process_.exitStatus();
                break;
            }
            serve();
        }
        while (serve()) {}
        outcome_.status = status.value_or(-1);
        return std::move(outcome_);
    }

private:
    // Moves what can be moved; false when nothing came.
    bool serve() {
        std::array<pollfd, 3> ends{};
        for (int i = 0; i < 3; ++i)
            ends[std::size_t(i)] = {process_.descriptor(i), short(i == 0 ? POLLOUT : POLLIN), 0};
        if (written_ >= request_.input.size()) {
            if (ends[0].fd >= 0) process_.close(0);
            ends[0].fd = -1;
        }
        if (ends[0].fd < 0 && ends[1].fd < 0 && ends[2].fd < 0) return pause();
        if (::poll(ends.data(), ends.size(), pollMs) <= 0) return false;
        if (ends[0].revents != 0) write(ends[0].fd);
        bool hasCome = false;
        if (ends[1].revents != 0) hasCome = read(1, outcome_.out, request_.mostOutputBytes) || hasCome;
        if (ends[2].revents != 0) hasCome = read(2, outcome_.err, request_.mostErrorBytes) || hasCome;
        return hasCome;
    }

    bool pause() {
        process_.wait(double(pollMs) / 1000);
        return false;
    }

    void write(int descriptor) {
        const ssize_t count =
            ::write(descriptor, request_.input.data() + written_, request_.input.size() - written_);
        if (count > 0) written_ += std::size_t(count);
        if (count < 0 && errno != EAGAIN && errno != EINTR) written_ = request_.input.size();
    }

    bool read(int child, std::string& into, std::size_t most) {
        std::array<char, 65'536> block;
        const ssize_t count = ::read(process_.descriptor(child), block.data(), block.size());
        if (count < 0) return errno == EINTR;
        if (count == 0) {
            process_.close(child);
            return false;
        }
        const std::string_view piece(block.data(), std::size_t(count));
        if (child == 1 && request_.onOutput) request_.onOutput(piece);
        into += piece.substr(0, most - std::min(most, into.size()));
        return true;
    }

    const ProgramRequest& request_;
    const std::stop_token& stop_;
    ChildProcess process_;
    ProgramOutcome outcome_;
    std::size_t written_ = 0;
};

}   // namespace

ProgramOutcome runProgram(const ProgramRequest& request, const std::stop_token& stop) {
    return Run(request, stop).finish();
}

}   // namespace tavix::system
