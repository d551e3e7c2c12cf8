#include "TavixAgent/Server/JsonRpc.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonTextStyle.h"
#include "TavixCore/Support/JsonParser.h"

#include <utility>

namespace tavix::rpc {
namespace {

constexpr JsonLimits limits{.maxBytes = 8u << 20, .maxValues = 500'000, .maxDepth = 128};
constexpr std::size_t mostIdBytes = 256;

bool isId(const Json& json) {
    if (const std::string* text = json.text()) return text->size() <= mostIdBytes;
    return json.integerValue().has_value();
}

[[noreturn]] void reject(std::optional<Json> id, ErrorCode code, std::string sentence) {
    throw Rejection{std::move(id), code, std::move(sentence)};
}

JsonObject envelope(const std::optional<Json>& id) {
    JsonObject message{{"jsonrpc", "2.0"}};
    if (id) message.set("id", *id);
    return message;
}

}   // namespace

std::string inOneLine(const Json& json) { return styledJson(json, {}, "", 0); }

std::optional<Message> parsed(std::string_view line) {
    if (line.find_first_not_of(" \t\r") == std::string_view::npos) return std::nullopt;
    Json json;
    try {
        json = parseJson(line, limits);
    } catch (const Failure& failure) {
        reject({}, ErrorCode::parseError, failure.message());
    }
    if (!json.object())
        reject({}, ErrorCode::invalidRequest, "A message is one JSON object; batches are not taken.");
    const Json* id = json.find("id");
    const bool hasId = id && isId(*id);
    const std::optional<Json> known = hasId ? std::optional(*id) : std::nullopt;
    const Json* version = json.find("jsonrpc");
    if (!version || !version->text() || *version->text() != "2.0")
        reject(known, ErrorCode::invalidRequest, "A message says \"jsonrpc\": \"2.0\".");
    const Json* method = json.find("method");
    if (!method && (json.find("result") || json.find("error"))) return std::nullopt;
    if (!method || !method->text())
        reject(known, ErrorCode::invalidRequest, "A request names its method, as a text.");
    if (id && !hasId)
        reject({}, ErrorCode::invalidRequest, "The id of a request is a text or a whole number.");
    const Json* params = json.find("params");
    if (params && !params->object() && !params->isNull())
        reject(known, ErrorCode::invalidParams, "The params of a request are an object.");
    return Message{known, *method->text(), params && params->object() ? *params : Json(JsonObject())};
}

std::string resultLine(const Json& id, Json result) {
    JsonObject message = envelope(id);
    message.set("result", std::move(result));
    return inOneLine(message);
}

std::string errorLine(const std::optional<Json>& id, ErrorCode code, const std::string& sentence, Json data) {
    JsonObject error{{"code", static_cast<int>(code)}, {"message", sentence}};
    if (!data.isNull()) error.set("data", std::move(data));
    JsonObject message = envelope(id);
    message.set("error", std::move(error));
    return inOneLine(message);
}

std::string notificationLine(std::string_view method, Json params) {
    return inOneLine(JsonObject{{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}});
}

}   // namespace tavix::rpc
