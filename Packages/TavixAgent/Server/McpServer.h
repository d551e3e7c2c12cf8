// Serves agents by the Model Context Protocol, in two revisions at once: with a handshake, which makes the
// process a session, and without, where each request says its own version.
#pragma once

#include "TavixAgent/Server/JsonRpc.h"
#include "TavixAgent/Server/Tools.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tavix {

// Messages come in by one thread; calls run on threads of their own, so that one can be cancelled while it
// runs. Whatever a message holds, it costs at most its own answer.
class McpServer {
public:
    using Send = std::function<void(const std::string& line)>;   // never called by two threads at a time

    static constexpr std::size_t mostLineBytes = 8u << 20;

    McpServer(ToolSetting setting, Send send);
    ~McpServer();   // ends what runs, and answers no more
    McpServer(const McpServer&) = delete;
    McpServer& operator=(const McpServer&) = delete;

    void take(std::string_view line);
    void refuseLongLine();   // in the place of a line that was longer
    void finish();           // waits until all that was taken is answered

private:
    enum class Era { session, request };   // how a request says its version
    struct Call {
        rpc::Message message;
        Era era = Era::session;
        std::stop_source stop;
    };

    void answer(const rpc::Message& message);
    void start(const rpc::Message& message, Era era);
    void cancel(const Json& params);
    void work(const std::stop_token& stop);
    void run(Call& call);
    Json resultOf(const Call& call);
    Json quickResult(const rpc::Message& message, Era era) const;
    Json initialize(const Json& params);
    Json called(const Call& call);
    Json resource(const Call& call) const;
    std::optional<Era> eraOf(const rpc::Message& message);
    void send(const std::string& line);
    std::function<void(double, const std::string&)> progressOf(const Call& call);

    ToolSetting setting_;
    Send send_;
    std::mutex sending_;
    std::mutex queueing_;   // of all below
    std::condition_variable_any hasWork_, isIdle_;
    std::deque<Call> waiting_;
    std::map<std::string, std::stop_source> running_;   // by id; also those that wait
    bool isSession_ = false;
    std::vector<std::jthread> workers_;   // last: they use all the rest
};

}   // namespace tavix
