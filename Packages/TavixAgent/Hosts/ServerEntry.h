// Our entry in a host's file of servers. Everything else in such a file is somebody else's: order, comments,
// spaces and all stay as they are.
#pragma once

#include "TavixAgent/Hosts/HostTable.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavix::ServerEntry {

// The file's text with our entry in it; the same text when it is there already. An empty text is a file that
// is not there yet. Throws `Failure` for a file that is not of its form.
std::string withEntry(std::string_view text, const Host& host, const std::string& command);
// The same without our entry.
std::string withoutEntry(std::string_view text, const Host& host);
// The command of our entry; nothing without one.
std::optional<std::string> commandIn(std::string_view text, const Host& host);

}   // namespace tavix::ServerEntry
