// What a server lets agents read besides its tools: schemas, reference, catalogs, examples, and prompts to
// begin with.
#pragma once

#include "TavixAgent/Server/Tools.h"

#include <optional>
#include <stop_token>
#include <string_view>

namespace tavix::Guides {

Json resources();
// Nothing where there is no such resource. Throws `Failure` where it cannot be made.
std::optional<Json> read(std::string_view uri, const ToolSetting& setting, const std::stop_token& stop);

Json prompts();
std::optional<Json> prompt(std::string_view name, const Json& arguments);

}   // namespace tavix::Guides
