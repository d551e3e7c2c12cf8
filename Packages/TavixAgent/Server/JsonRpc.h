// JSON-RPC 2.0 as lines: one message in a line, and nothing between them.
#pragma once

#include "TavixCore/Support/Json.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavix::rpc {

enum class ErrorCode {
    parseError = -32700,
    invalidRequest = -32600,
    methodNotFound = -32601,
    invalidParams = -32602,
    internalError = -32603,
    unsupportedVersion = -32022
};

// What stands in the line: a request has an id, a notification none.
struct Message {
    std::optional<Json> id;   // a text or a whole number
    std::string method;
    Json params;   // an object; empty where there are none

    bool isRequest() const { return id.has_value(); }
};

// A message that cannot be taken, with the answer to it.
struct Rejection {
    std::optional<Json> id;
    ErrorCode code = ErrorCode::invalidRequest;
    std::string sentence;
};

// Nothing for what needs no answer and no work: an empty line, an answer to a request that we never made.
// Throws a `Rejection`.
std::optional<Message> parsed(std::string_view line);

// One line each, without the line feed.
std::string resultLine(const Json& id, Json result);
std::string errorLine(
    const std::optional<Json>& id, ErrorCode code, const std::string& sentence, Json data = {});
std::string notificationLine(std::string_view method, Json params);

// A value in one line.
std::string inOneLine(const Json& json);

}   // namespace tavix::rpc
