// The arguments of a tool's call, checked against the schema that the tool states.
#pragma once

#include "TavixCore/Support/Json.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

class ToolArguments {
public:
    // Throws `UsageError` for a key that the schema does not have, with the one that may be meant, for a
    // value of another type and for one that is missing.
    ToolArguments(const Json& schema, Json given);

    std::string text(std::string_view key) const;   // of a required one
    std::optional<std::string> optionalText(std::string_view key) const;
    std::optional<double> number(std::string_view key) const;
    bool flag(std::string_view key) const;
    const Json* value(std::string_view key) const { return given_.find(key); }

    // Adds "--name", and the value, where there is one.
    void addTo(std::vector<std::string>& words, std::string_view key, std::string_view name) const;

private:
    Json given_;
};

}   // namespace tavix
