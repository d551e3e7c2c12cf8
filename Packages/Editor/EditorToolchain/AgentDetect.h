// Which programs that agents run in this machine has.
#pragma once

#include "TavixAgent/Hosts/HostTable.h"

#include <string>
#include <vector>

namespace tavix {

struct DetectedAgent {
    std::string id;      // as `tavix mcp install --host` takes it
    std::string label;   // for people
    bool installed = false;

    bool operator==(const DetectedAgent&) const = default;
};

namespace AgentDetect {

// All that are known, whether they are here or not, in the order in which people are shown them.
std::vector<DetectedAgent> all(const UserFolders& folders);
// Those that are here.
std::vector<std::string> detectedIDs(const UserFolders& folders);

}   // namespace AgentDetect

}   // namespace tavix
