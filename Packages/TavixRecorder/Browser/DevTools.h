// Talks to a browser over two pipes: commands with numbers, their answers, and events in between. Nothing is
// waited for without a bound, and whatever the browser does, at most one message of it is held.
#pragma once

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Json.h"
#include "TavixRecorder/Browser/MessageSplitter.h"

#include <functional>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::system {
class ChildProcess;
}

namespace tavix::recorder {

// The answer to a command. The picture of a frame is long, and is handed over as it came, in base 64.
struct Reply {
    Json result;
    std::string picture;
};

// The browser understood, and will not.
class Refusal : public Failure {
public:
    using Failure::Failure;
};

// Used by one thread.
class DevTools {
public:
    static constexpr int toBrowser = 3, fromBrowser = 4, complaints = 2;   // descriptors of the browser
    static constexpr double usualBoundSec = 30;

    // The browser outlives this. A stop that is asked for ends whatever waits.
    DevTools(system::ChildProcess& browser, std::stop_token stop);

    // Handlers may send commands, and not wait.
    using Handler = std::function<void(const Json& parameters)>;
    void on(const std::string& event, Handler handler) { handlers_[event] = std::move(handler); }

    // Messages go to the page of this session from now on; to the browser itself before.
    void attach(std::string session) { session_ = std::move(session); }

    // Without waiting, and nobody asks for the answer; an error in it is forgotten.
    void post(const std::string& method, JsonObject parameters = {});
    // Waits for the answer. Throws a `Refusal`, a `Failure` when the browser ends or lets us wait too long,
    // and `RenderStopped`.
    Reply call(const std::string& method, JsonObject parameters = {}, double mostSec = usualBoundSec);
    // Gives the browser some time to answer, and does not mind when it has not.
    void offer(const std::string& method, JsonObject parameters, double mostSec);
    // The same for several commands that were sent.
    void settle(const std::vector<int>& commands, double mostSec);
    // The answer is asked for later.
    int send(const std::string& method, JsonObject parameters = {});
    bool isAnswered(int command) const { return awaited_.at(command).answer.has_value(); }
    Reply await(int command, double mostSec = usualBoundSec);
    // Takes messages until it holds, for at most so long. Whether it does.
    bool waitUntil(const std::function<bool()>& holds, double mostSec);

    // The last words that the browser said about its troubles, for a message; empty when it said nothing.
    std::string lastComplaint() const;

private:
    struct Awaited {
        std::string method;
        std::optional<Json> answer;
        std::string picture;
    };
    void write(const std::string& message);
    void take(std::string message);
    bool readSome(int waitMs, bool wantsToWrite);
    void readComplaints();
    [[noreturn]] void failBecauseItEnded();

    system::ChildProcess& browser_;
    std::stop_token stop_;
    std::string session_;
    MessageSplitter messages_;
    std::map<int, Awaited> awaited_;
    std::map<std::string, Handler> handlers_;
    std::string complaints_;
    int lastCommand_ = 0;
};

}   // namespace tavix::recorder
