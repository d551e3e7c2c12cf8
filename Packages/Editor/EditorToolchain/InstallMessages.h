// What an install says to a person when it is over.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tavix {

// How an install ended. A message without a title is not shown: nothing was asked for.
struct InstallOutcome {
    bool isDone = false;
    std::string title = {}, text = {};
};

namespace InstallMessages {

InstallOutcome notEmbedded();
InstallOutcome refused();    // the password, or something on the way
InstallOutcome noRights();   // nobody is there to ask for them
InstallOutcome notUnpacked();
// Of a binary that is not along the search path, where it is; of agents that could not be wired, which.
InstallOutcome installedGlobally(
    const std::filesystem::path& offPath, const std::vector<std::string>& notWired);
InstallOutcome installedIn(const std::filesystem::path& project, const std::vector<std::string>& notWired);

}   // namespace InstallMessages

}   // namespace tavix
