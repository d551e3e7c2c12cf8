#include "TavixRecorder/Browser/DevTools.h"

#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixPlatform/System/ChildProcess.h"
#include "TavixRecorder/Browser/WholeNumber.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <poll.h>
#include <unistd.h>

namespace tavix::recorder {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int glanceMs = 50;   // how late a stop may be noticed
constexpr std::size_t keptComplaints = 2000;

auto after(double sec) {
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(sec));
}

// A picture is cut out before the message is parsed. Within a text the quotes of this key would be escaped,
// so nothing that a page writes is taken for it.
std::string cutPicture(std::string& message) {
    constexpr std::string_view key = R"("screenshotData":")";
    const std::size_t begin = message.find(key);
    if (begin == std::string::npos) return {};
    const std::size_t from = begin + key.size(), end = message.find('"', from);
    if (end == std::string::npos) return {};
    std::string picture = message.substr(from, end - from);
    message.erase(from, end - from);
    return picture;
}

}   // namespace

DevTools::DevTools(system::ChildProcess& browser, std::stop_token stop)
    : browser_(browser), stop_(std::move(stop)) {}

int DevTools::send(const std::string& method, JsonObject parameters) {
    const int command = ++lastCommand_;
    awaited_[command].method = method;
    JsonObject message{{"id", command}, {"method", method}, {"params", std::move(parameters)}};
    if (!session_.empty()) message.set("sessionId", session_);
    write(writeJson(message));
    return command;
}

void DevTools::post(const std::string& method, JsonObject parameters) {
    awaited_.erase(send(method, std::move(parameters)));
}

Reply DevTools::call(const std::string& method, JsonObject parameters, double mostSec) {
    return await(send(method, std::move(parameters)), mostSec);
}

void DevTools::offer(const std::string& method, JsonObject parameters, double mostSec) {
    settle({send(method, std::move(parameters))}, mostSec);
}

void DevTools::settle(const std::vector<int>& commands, double mostSec) {
    const auto areAnswered = [&] {
        return std::ranges::all_of(commands, [this](int command) { return isAnswered(command); });
    };
    waitUntil(areAnswered, mostSec);
    for (const int command : commands) awaited_.erase(command);
}

Reply DevTools::await(int command, double mostSec) {
    const bool came = waitUntil([&] { return isAnswered(command); }, mostSec);
    const auto node = awaited_.extract(command);
    const std::string& method = node.mapped().method;
    if (!came)
        throw Failure("The browser did not answer " + method + " within " + whole(mostSec) + " seconds.");
    Json& answer = *node.mapped().answer;
    if (const Json* error = answer.find("error")) {
        const Json* message = error->find("message");
        throw Refusal("The browser refused " + method + ": " +
                      (message ? message->stringValue().value_or("no reason") : "no reason") + ".");
    }
    const Json* result = answer.find("result");
    return {result ? *result : Json(), std::move(node.mapped().picture)};
}

bool DevTools::waitUntil(const std::function<bool()>& holds, double mostSec) {
    const auto until = after(mostSec);
    while (!holds()) {
        if (stop_.stop_requested()) throw RenderStopped();
        if (auto message = messages_.next()) {
            take(std::move(*message));
        } else {
            readSome(glanceMs, false);
        }
        if (Clock::now() > until) return holds();
    }
    return true;
}

// While the browser takes nothing, what it sends is read, or both sides would wait.
void DevTools::write(const std::string& message) {
    const char* from = message.c_str();   // with its zero byte
    const char* end = from + message.size() + 1;
    const auto until = after(usualBoundSec);
    while (from < end) {
        const ssize_t count =
            ::write(browser_.descriptor(toBrowser), from, static_cast<std::size_t>(end - from));
        if (count > 0) {
            from += count;
        } else if (count < 0 && errno != EAGAIN && errno != EINTR) {
            failBecauseItEnded();
        } else {
            if (stop_.stop_requested()) throw RenderStopped();
            if (Clock::now() > until)
                throw Failure("The browser took no command for " + whole(usualBoundSec) + " seconds.");
            readSome(glanceMs, true);
        }
    }
}

// Whether anything came.
bool DevTools::readSome(int waitMs, bool wantsToWrite) {
    std::array<pollfd, 3> watched{pollfd{browser_.descriptor(fromBrowser), POLLIN, 0},
        pollfd{browser_.descriptor(complaints), POLLIN, 0},
        pollfd{wantsToWrite ? browser_.descriptor(toBrowser) : -1, POLLOUT, 0}};
    if (::poll(watched.data(), watched.size(), waitMs) <= 0) return false;
    if (watched[1].revents) readComplaints();
    if (!watched[0].revents) return false;
    std::array<char, 1 << 16> bytes;
    const ssize_t count = ::read(browser_.descriptor(fromBrowser), bytes.data(), bytes.size());
    if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) failBecauseItEnded();
    if (count > 0) messages_.add({bytes.data(), static_cast<std::size_t>(count)});
    return count > 0;
}

void DevTools::readComplaints() {
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(browser_.descriptor(complaints), bytes.data(), bytes.size());
    if (count == 0) browser_.close(complaints);
    if (count <= 0) return;
    complaints_.append(bytes.data(), static_cast<std::size_t>(count));
    if (complaints_.size() > keptComplaints) complaints_.erase(0, complaints_.size() - keptComplaints);
}

void DevTools::take(std::string text) {
    std::string picture = cutPicture(text);
    Json message;
    try {
        message = parseJson(text);
    } catch (const Failure&) {
        throw Failure("The browser sent what is no message: \"" + text.substr(0, 60) + "\".");
    }
    if (const Json* method = message.find("method")) {
        const auto handler = handlers_.find(method->stringValue().value_or(""));
        const Json* parameters = message.find("params");
        if (handler != handlers_.end()) handler->second(parameters ? *parameters : Json());
        return;
    }
    const Json* id = message.find("id");
    const auto number = id ? id->integerValue() : std::nullopt;
    if (!number || *number < 1 || *number > lastCommand_) return;
    const auto command = awaited_.find(static_cast<int>(*number));
    if (command == awaited_.end()) return;
    command->second.answer = std::move(message);
    command->second.picture = std::move(picture);
}

void DevTools::failBecauseItEnded() {
    for (int i = 0; i < 16 && browser_.descriptor(complaints) >= 0; ++i) {
        pollfd said{browser_.descriptor(complaints), POLLIN, 0};
        if (::poll(&said, 1, 0) <= 0) break;
        readComplaints();
    }
    const auto status = browser_.wait(1);
    const std::string how = !status         ? "closed its pipe"
                            : *status > 128 ? "was ended by signal " + std::to_string(*status - 128)
                                            : "ended with status " + std::to_string(*status);
    const std::string said = lastComplaint();
    throw Failure("The browser " + how + (said.empty() ? "." : ". Its last words: " + said));
}

std::string DevTools::lastComplaint() const {
    const std::size_t end = complaints_.find_last_not_of("\n \r");
    if (end == std::string::npos) return {};
    const std::size_t line = complaints_.rfind('\n', end);
    return complaints_.substr(
        line == std::string::npos ? 0 : line + 1, end - (line == std::string::npos ? -1 : line));
}

}   // namespace tavix::recorder
