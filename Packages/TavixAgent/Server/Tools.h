// What a server can be asked to do.
#pragma once

#include "TavixAgent/Server/RootFolder.h"
#include "TavixAgent/Server/ToolArguments.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>

namespace tavix {

struct ToolSetting {
    std::filesystem::path program;   // the command
    RootFolder root;
};

struct ToolCall {
    const ToolSetting& setting;
    const ToolArguments& arguments;
    std::stop_token stop;
    std::function<void(double fraction, const std::string& stage)> onProgress;
};

struct ToolAnswer {
    Json structured;    // an object
    std::string text;   // for reading; of what is structured, when empty
    std::optional<std::filesystem::path> picture;
};

struct Tool {
    std::string_view name, title, description;
    bool onlyReads = true;
    Json (*input)();
    Json (*output)();
    ToolAnswer (*run)(const ToolCall& call);   // throws `Failure`
};

std::span<const Tool> tools();
const Tool* toolNamed(std::string_view name);
// As a list of tools gives it.
Json toolAsJson(const Tool& tool);

}   // namespace tavix
