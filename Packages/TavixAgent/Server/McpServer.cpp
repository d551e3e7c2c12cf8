#include "TavixAgent/Server/McpServer.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixAgent/Server/AnswerParts.h"
#include "TavixAgent/Server/Guides.h"
#include "TavixCore/Support/TavixVersion.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tavix {
namespace {

using rpc::ErrorCode;
using rpc::Rejection;

constexpr std::string_view modernVersion = "2026-07-28";
// With a handshake, the newest first.
constexpr std::array<std::string_view, 4> sessionVersions{
    "2025-11-25", "2025-06-18", "2025-03-26", "2024-11-05"};
constexpr const char* versionKey = "io.modelcontextprotocol/protocolVersion";
constexpr const char* capabilitiesKey = "io.modelcontextprotocol/clientCapabilities";
constexpr const char* serverKey = "io.modelcontextprotocol/serverInfo";
constexpr std::size_t workerCount = 3, mostWaiting = 64;
constexpr int stableMs = 3'600'000;   // lists stay as long as the program runs

constexpr const char* instructions =
    "Tavix makes product videos from a JSON document. new_document starts one, edit_document changes it, describe tells what a moment shows, check tells what is wrong with a repair, sheet and still show it, render makes the film. Ask describe before pictures; give edit_document the revision you read.";

Json serverInfo() {
    return JsonObject{{"name", "tavix"}, {"title", "Tavix"}, {"version", TavixVersion::current}};
}

Json capabilities() {
    return JsonObject{{"tools", JsonObject()}, {"resources", JsonObject()}, {"prompts", JsonObject()}};
}

const Json* metaOf(const Json& params) { return params.find("_meta"); }

const std::string* textIn(const Json* holder, std::string_view key) {
    const Json* value = holder ? holder->find(key) : nullptr;
    return value ? value->text() : nullptr;
}

bool isCacheable(std::string_view method) {
    return method.ends_with("/list") || method == "server/discover" || method == "resources/read";
}

// What every result of the revision without a handshake says of itself.
Json complete(Json result, std::string_view method) {
    JsonObject& object = *result.object();
    object.set("resultType", "complete");
    object.set("_meta", JsonObject{{serverKey, serverInfo()}});
    if (isCacheable(method)) {
        object.set("ttlMs", stableMs);
        object.set("cacheScope", "public");
    }
    return result;
}

Json supportedVersions() {
    JsonArray versions{modernVersion};
    for (const std::string_view version : sessionVersions) versions.emplace_back(version);
    return versions;
}

}   // namespace

McpServer::McpServer(ToolSetting setting, Send send) : setting_(std::move(setting)), send_(std::move(send)) {
    for (std::size_t i = 0; i < workerCount; ++i)
        workers_.emplace_back([this](const std::stop_token& stop) { work(stop); });
}

McpServer::~McpServer() {
    const std::scoped_lock lock(queueing_);
    waiting_.clear();
    for (auto& [id, source] : running_) source.request_stop();
    for (std::jthread& worker : workers_) worker.request_stop();
}

void McpServer::finish() {
    std::unique_lock lock(queueing_);
    isIdle_.wait(lock, [&] { return running_.empty(); });
}

void McpServer::send(const std::string& line) {
    const std::scoped_lock lock(sending_);
    send_(line);
}

void McpServer::refuseLongLine() {
    send(rpc::errorLine({}, ErrorCode::parseError,
        "A message of more than " + std::to_string(mostLineBytes) + " bytes is not read."));
}

void McpServer::take(std::string_view line) {
    try {
        if (const auto message = rpc::parsed(line)) answer(*message);
    } catch (const Rejection& rejection) {
        send(rpc::errorLine(rejection.id, rejection.code, rejection.sentence));
    } catch (const std::exception& error) {
        send(rpc::errorLine({}, ErrorCode::internalError, error.what()));
    }
}

// Throws a `Rejection` for a request that says its version wrongly. Nothing for a version that is not served,
// which has been answered.
std::optional<McpServer::Era> McpServer::eraOf(const rpc::Message& message) {
    const Json* meta = metaOf(message.params);
    const Json* version = meta ? meta->find(versionKey) : nullptr;
    if (!version) {
        const std::scoped_lock lock(queueing_);
        if (isSession_ || message.method == "ping" || message.method == "initialize") return Era::session;
        throw Rejection{message.id, ErrorCode::invalidParams,
            "Open with initialize, or say the version of the protocol in _meta under \"" +
                std::string(versionKey) + "\"."};
    }
    if (!version->text())
        throw Rejection{message.id, ErrorCode::invalidParams, "The version of the protocol is a text."};
    if (*version->text() != modernVersion) {
        send(rpc::errorLine(message.id, ErrorCode::unsupportedVersion, "Unsupported protocol version",
            JsonObject{{"supported", supportedVersions()}, {"requested", *version->text()}}));
        return std::nullopt;
    }
    if (const Json* client = meta->find(capabilitiesKey); !client || !client->object())
        throw Rejection{message.id, ErrorCode::invalidParams,
            "A request says what its client can do, in _meta under \"" + std::string(capabilitiesKey) +
                "\"."};
    return Era::request;
}

void McpServer::answer(const rpc::Message& message) {
    if (!message.isRequest()) {
        if (message.method == "notifications/cancelled") cancel(message.params);
        return;
    }
    const auto era = eraOf(message);
    if (!era) return;
    if (message.method == "initialize" && *era == Era::session)
        return send(rpc::resultLine(*message.id, initialize(message.params)));
    if (message.method == "tools/call" || message.method == "resources/read") return start(message, *era);
    Json result = quickResult(message, *era);
    send(rpc::resultLine(
        *message.id, *era == Era::request ? complete(std::move(result), message.method) : std::move(result)));
}

Json McpServer::initialize(const Json& params) {
    const std::string* asked = textIn(&params, "protocolVersion");
    const bool isServed = asked && std::ranges::find(sessionVersions, *asked) != sessionVersions.end();
    const std::scoped_lock lock(queueing_);
    isSession_ = true;
    return JsonObject{{"protocolVersion", isServed ? std::string_view(*asked) : sessionVersions.front()},
        {"capabilities", capabilities()}, {"serverInfo", serverInfo()}, {"instructions", instructions}};
}

Json McpServer::quickResult(const rpc::Message& message, Era era) const {
    const std::string& method = message.method;
    if (method == "tools/list") {
        JsonArray all;
        for (const Tool& tool : tools()) all.push_back(toolAsJson(tool));
        return JsonObject{{"tools", std::move(all)}};
    }
    if (method == "resources/list") return JsonObject{{"resources", Guides::resources()}};
    if (method == "resources/templates/list") return JsonObject{{"resourceTemplates", JsonArray()}};
    if (method == "prompts/list") return JsonObject{{"prompts", Guides::prompts()}};
    if (method == "prompts/get") {
        const std::string* name = textIn(&message.params, "name");
        const Json* arguments = message.params.find("arguments");
        auto prompt = Guides::prompt(name ? *name : "", arguments ? *arguments : Json(JsonObject()));
        if (prompt) return std::move(*prompt);
        throw Rejection{message.id, ErrorCode::invalidParams,
            "There is no prompt of that name; prompts/list tells which there are."};
    }
    if (method == "server/discover" && era == Era::request)
        return JsonObject{{"supportedVersions", supportedVersions()}, {"capabilities", capabilities()},
            {"instructions", instructions}};
    if (era == Era::session && (method == "ping" || method == "logging/setLevel")) return JsonObject();
    throw Rejection{message.id, ErrorCode::methodNotFound, "There is no method \"" + method + "\"."};
}

void McpServer::start(const rpc::Message& message, Era era) {
    const std::string key = rpc::inOneLine(*message.id);
    std::string refusal;
    {
        const std::scoped_lock lock(queueing_);
        if (running_.contains(key))
            refusal = "A request with this id is still running; give each its own.";
        else if (waiting_.size() >= mostWaiting)
            refusal = "Too many calls wait; send the next when one has ended.";
        else {
            waiting_.push_back({message, era, {}});
            running_.emplace(key, waiting_.back().stop);
        }
    }
    if (!refusal.empty()) throw Rejection{message.id, ErrorCode::invalidRequest, refusal};
    hasWork_.notify_one();
}

void McpServer::cancel(const Json& params) {
    const Json* id = params.find("requestId");
    if (!id) return;
    const std::scoped_lock lock(queueing_);
    if (const auto found = running_.find(rpc::inOneLine(*id)); found != running_.end())
        found->second.request_stop();
}

void McpServer::work(const std::stop_token& stop) {
    for (;;) {
        std::optional<Call> call;
        {
            std::unique_lock lock(queueing_);
            if (!hasWork_.wait(lock, stop, [&] { return !waiting_.empty(); })) return;
            call = std::move(waiting_.front());
            waiting_.pop_front();
        }
        run(*call);
        {
            const std::scoped_lock lock(queueing_);
            running_.erase(rpc::inOneLine(*call->message.id));
        }
        isIdle_.notify_all();
    }
}

// Of a cancelled request nothing is said any more.
void McpServer::run(Call& call) {
    std::string line;
    try {
        if (call.stop.stop_requested()) return;
        Json result = resultOf(call);
        if (call.era == Era::request) result = complete(std::move(result), call.message.method);
        line = rpc::resultLine(*call.message.id, std::move(result));
    } catch (const Rejection& rejection) {
        line = rpc::errorLine(call.message.id, rejection.code, rejection.sentence);
    } catch (const std::exception& error) {
        line = rpc::errorLine(call.message.id, ErrorCode::internalError, error.what());
    }
    if (!call.stop.stop_requested()) send(line);
}

Json McpServer::resultOf(const Call& call) {
    return call.message.method == "tools/call" ? called(call) : resource(call);
}

Json McpServer::resource(const Call& call) const {
    const std::string* uri = textIn(&call.message.params, "uri");
    if (auto contents = Guides::read(uri ? *uri : "", setting_, call.stop.get_token()))
        return JsonObject{{"contents", std::move(*contents)}};
    constexpr auto notFound = static_cast<ErrorCode>(-32002);   // of the revisions with a handshake
    throw Rejection{call.message.id, call.era == Era::session ? notFound : ErrorCode::invalidParams,
        "There is no such resource; resources/list tells which there are."};
}

// Rising, and no more than there is to tell.
std::function<void(double, const std::string&)> McpServer::progressOf(const Call& call) {
    const Json* meta = metaOf(call.message.params);
    const Json* token = meta ? meta->find("progressToken") : nullptr;
    if (!token || !(token->text() || token->integerValue())) return {};
    return [this, token = *token, stop = call.stop, last = -1.0](
               double fraction, const std::string& stage) mutable {
        constexpr double leastStep = 0.01;
        if (!(fraction >= last + leastStep) || stop.stop_requested()) return;
        last = fraction;
        JsonObject params{{"progressToken", token}, {"progress", fraction}, {"total", 1}};
        if (!stage.empty()) params.set("message", stage);
        send(rpc::notificationLine("notifications/progress", std::move(params)));
    };
}

Json McpServer::called(const Call& call) {
    const std::string* name = textIn(&call.message.params, "name");
    const Tool* tool = name ? toolNamed(*name) : nullptr;
    if (!tool)
        throw Rejection{call.message.id, ErrorCode::invalidParams,
            "There is no tool of that name; tools/list tells which there are."};
    try {
        const Json* given = call.message.params.find("arguments");
        const ToolArguments arguments(tool->input(), given ? *given : Json(JsonObject()));
        return answerParts(tool->run({setting_, arguments, call.stop.get_token(), progressOf(call)}),
            arguments.optionalText("cursor"));
    } catch (const std::exception& error) {
        return failedAnswer(error.what());
    }
}

}   // namespace tavix
