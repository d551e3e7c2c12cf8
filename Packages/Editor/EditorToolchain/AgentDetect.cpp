#include "Editor/EditorToolchain/AgentDetect.h"

namespace tavix::AgentDetect {

std::vector<DetectedAgent> all(const UserFolders& folders) {
    std::vector<DetectedAgent> agents;
    for (const Host& host : hosts())
        agents.push_back({std::string(host.id), std::string(host.label), host.isFound(folders)});
    return agents;
}

std::vector<std::string> detectedIDs(const UserFolders& folders) {
    std::vector<std::string> ids;
    for (const DetectedAgent& agent : all(folders))
        if (agent.installed) ids.push_back(agent.id);
    return ids;
}

}   // namespace tavix::AgentDetect
