// Puts the command `tavix` on this machine, for all projects or for one, and has it wire itself into the
// programs that agents run in.
//
// An application makes one of these and asks it from a worker: whatever starts a program blocks until that
// has ended, and with `Reach::everyone` a person may be asked for a password meanwhile.
// `system::runThere(worker, main, [&] { return installer.installGloballyInto(ids, reach); }, then)` does
// that. The steps of an install follow each other, and two installs are not to run at once. The answers tell
// how it went and what to show; nothing is shown here, and no folder is asked for.
#pragma once

#include "Editor/EditorToolchain/AgentDetect.h"
#include "Editor/EditorToolchain/InstallMessages.h"
#include "TavixLive/Files/UserDefaults.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

// All that an install touches, so that it can be tried out in folders of its own.
struct ToolchainPlaces {
    UserFolders folders;
    std::filesystem::path systemPrefix = "/usr/local";
    std::optional<std::filesystem::path> engineArchive;   // none in a build that has none embedded

    // The archive is the resource engine.tar.gz. Throws a `Failure` without a home folder.
    static ToolchainPlaces ofThisMachine();
};

class CLIInstaller {
public:
    enum class Reach {
        user,       // ~/.local/bin/tavix, which takes no rights
        everyone,   // /usr/local/bin/tavix, which pkexec asks a password for
    };

    CLIInstaller(ToolchainPlaces places, UserDefaults defaults);

    // The global binary that is there: the user's own before that of everyone.
    std::optional<std::filesystem::path> installedPath() const;
    std::optional<Reach> installedReach() const;
    bool isInstalled() const { return installedPath().has_value(); }
    // Whether Claude Code has our server for all projects.
    bool globalConfigured() const;
    bool isGloballySetUp() const { return isInstalled() && globalConfigured(); }
    // Kept among the user's defaults as "tavixFirstSetupDone".
    bool firstSetupDone() const;
    void setFirstSetupDone(bool isDone) const;

    // What `tavix --version` prints; nothing where it prints none, or something with a blank in it.
    static std::optional<std::string> engineVersion(const std::filesystem::path& binary);
    std::optional<std::string> installedEngineVersion() const;
    // Whether there is a global binary of another version than this program's; older ones count as well.
    bool engineUpdateAvailable() const;

    std::vector<std::string> detectedAgentIDs() const { return AgentDetect::detectedIDs(places_.folders); }
    std::vector<std::filesystem::path> registeredProjects() const;
    void writeProjectRegistry(const std::vector<std::filesystem::path>& projects) const;

    // Unpacks the engine and wires the agents of these ids, one after the other; what keeps one of them from
    // it is told and stops no other. Without ids nothing happens.
    InstallOutcome installGloballyInto(const std::vector<std::string>& ids, Reach reach) const;
    // The same into <project>/.tavix, which is added to the project's .gitignore.
    InstallOutcome installIntoProject(
        const std::vector<std::string>& ids, const std::filesystem::path& project) const;

    // At the start of an application: refreshes the projects, and a global install that a person made, where
    // they are of another version than this program. Nothing is told, and none is begun.
    void autoUpdateIfNeeded() const;
    void refreshProjectInstalls() const;
    // Wires the detected agents with the engine of the archive, before it takes the old one's place.
    void refreshAgentWiringFromEmbedded() const;

    static std::filesystem::path binaryIn(const std::filesystem::path& project) {
        return project / ".tavix/bin/tavix";
    }

private:
    std::filesystem::path prefixOf(Reach reach) const;
    std::optional<InstallOutcome> installBinary(Reach reach) const;   // what went wrong
    bool installBinaryLocal(const std::filesystem::path& project) const;
    bool runTavix(const std::vector<std::string>& arguments, const std::filesystem::path& binary) const;
    // These answer with the labels of those that could not be wired.
    std::vector<std::string> wireGlobally(const std::vector<std::string>& ids,
        const std::filesystem::path& binary, const std::string& command) const;
    std::vector<std::string> wireProject(
        const std::vector<std::string>& ids, const std::filesystem::path& project) const;
    // What starts the global binary in a host: its name where it is along the search path, or where it is.
    std::string globalCommand(const std::filesystem::path& binary) const;

    ToolchainPlaces places_;
    UserDefaults defaults_;
};

}   // namespace tavix
