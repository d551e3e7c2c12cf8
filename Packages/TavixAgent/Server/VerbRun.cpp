#include "TavixAgent/Server/VerbRun.h"

#include "TavixAgent/Server/LineReader.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixPlatform/System/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tavix {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t mostOutputBytes = 16u << 20, mostErrorBytes = 64u << 10, mostLineBytes = 1u << 20;
constexpr rlim_t mostMemoryBytes = 6ull << 30, mostFileBytes = 8ull << 30;
constexpr double graceSec = 3;
constexpr int pollMs = 50;

void limit(pid_t process, __rlimit_resource resource, rlim_t most) {
    const rlimit value{most, most};
    ::prlimit(process, resource, &value, nullptr);   // a limit that is lower already stays
}

class Run {
public:
    Run(const VerbRequest& request, const std::stop_token& stop)
        : request_(request), stop_(stop),
          process_({.program = request.program,
              .arguments = request.words,
              .pipes = {{0, system::ChildPipe::Direction::toChild},
                  {1, system::ChildPipe::Direction::fromChild}, {2, system::ChildPipe::Direction::fromChild}},
              .environment = {"TAVIX_ROOT=" + request.root.string(), "NO_COLOR=1"}}),
          lines_(mostLineBytes) {
        limit(process_.id(), RLIMIT_DATA, mostMemoryBytes);
        limit(process_.id(), RLIMIT_FSIZE, mostFileBytes);
    }

    VerbOutcome finish() {
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
        if (ends[1].revents != 0) hasCome = read(1, outcome_.out, mostOutputBytes) || hasCome;
        if (ends[2].revents != 0) hasCome = read(2, outcome_.err, mostErrorBytes) || hasCome;
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
        if (child == 1 && request_.onProgress) watch(piece);
        into += piece.substr(0, most - std::min(most, into.size()));
        return true;
    }

    void watch(std::string_view piece) {
        lines_.take(piece);
        while (const auto line = lines_.next()) {
            try {
                const Json json = parseJson(line->text);
                const Json *event = json.find("event"), *fraction = json.find("fraction"),
                           *stage = json.find("stage");
                if (event && event->stringValue() == "progress" && fraction && fraction->doubleValue())
                    request_.onProgress(
                        *fraction->doubleValue(), stage ? stage->stringValue().value_or("") : "");
            } catch (const Failure&) {
                continue;   // no line of progress
            }
        }
    }

    const VerbRequest& request_;
    const std::stop_token& stop_;
    system::ChildProcess process_;
    LineReader lines_;
    VerbOutcome outcome_;
    std::size_t written_ = 0;
};

}   // namespace

std::optional<Json> VerbOutcome::json() const {
    const std::string_view text = out;
    for (const std::string_view part : {text,
             text.substr(text.find_last_of('\n', text.size() - std::min<std::size_t>(text.size(), 2)) + 1)}) {
        try {
            return parseJson(part);
        } catch (const Failure&) {
            continue;
        }
    }
    return std::nullopt;
}

std::string VerbOutcome::complaint() const {
    if (ranOutOfTime) return "That took too long and was ended; ask for less, as a shorter range.";
    if (wasStopped) return "That was stopped, and nothing was written.";
    std::string sentence = err;
    constexpr std::string_view label = "tavix: ";
    std::string told;
    for (std::size_t at = 0; at < sentence.size();) {
        const std::size_t end = std::min(sentence.find('\n', at), sentence.size());
        std::string line = sentence.substr(at, end - at);
        if (line.starts_with(label)) line.erase(0, label.size());
        if (!line.empty() && !line.starts_with("warning: ")) told += (told.empty() ? "" : "\n") + line;
        at = end + 1;
    }
    if (!told.empty()) return told;
    return status >= 128 ? "That ended by signal " + std::to_string(status - 128) +
                               "; it may need more memory than a call may take."
                         : "That could not be done.";
}

VerbOutcome runVerb(const VerbRequest& request, const std::stop_token& stop) {
    return Run(request, stop).finish();
}

}   // namespace tavix
