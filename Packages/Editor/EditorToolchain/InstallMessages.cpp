#include "Editor/EditorToolchain/InstallMessages.h"

namespace tavix::InstallMessages {
namespace {

constexpr const char* failed = "Install Tavix";
constexpr const char* installed = "Tavix installed";

std::string listOf(const std::vector<std::string>& notWired) {
    std::string list;
    for (const std::string& each : notWired) list += (list.empty() ? "" : ", ") + each;
    return list.empty() ? list : "\n\nNot wired: " + list + ". tavix mcp install tells why.";
}

}   // namespace

InstallOutcome notEmbedded() { return {false, failed, "The engine isn’t embedded in this build."}; }

InstallOutcome refused() { return {false, failed, "CLI install was cancelled or failed."}; }

InstallOutcome noRights() {
    return {false, failed,
        "Installing for everyone needs pkexec, which this machine doesn’t have. Install for yourself instead."};
}

InstallOutcome notUnpacked() { return {false, failed, "Couldn’t unpack the engine into the project."}; }

InstallOutcome installedGlobally(
    const std::filesystem::path& offPath, const std::vector<std::string>& notWired) {
    std::string text = "Set up for all projects.\nRun /tavix in any project.";
    if (!offPath.empty())
        text += "\n\nThe command is " + offPath.string() + "; add its folder to PATH to call it by name.";
    return {true, installed, text + listOf(notWired)};
}

InstallOutcome installedIn(const std::filesystem::path& project, const std::vector<std::string>& notWired) {
    return {true, installed,
        "Installed inside “" + project.filename().string() +
            "” (.tavix/bin) and wired into Claude Code there.\n\nRun /tavix in that project." +
            listOf(notWired)};
}

}   // namespace tavix::InstallMessages
