#include "Editor/EditorToolchain/CLIInstaller.h"
#include "Editor/EditorToolchain/EngineArchive.h"
#include "TavixCore/Support/TavixVersion.h"
#include "TavixPlatform/System/ChildProcess.h"

#include <cstdlib>
#include <system_error>

namespace tavix {
namespace {

namespace fs = std::filesystem;

// A folder of its own, gone with it; no path where there is none to be had.
class PassingFolder {
public:
    PassingFolder() {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "tavix-update-XXXXXX").string();
        if (!error && ::mkdtemp(name.data())) path_ = name;
    }
    ~PassingFolder() {
        std::error_code ignored;
        if (path_) fs::remove_all(*path_, ignored);
    }
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;

    const std::optional<fs::path>& path() const { return path_; }

private:
    std::optional<fs::path> path_;
};

}   // namespace

void CLIInstaller::autoUpdateIfNeeded() const {
    refreshProjectInstalls();
    const auto reach = installedReach();
    if (!reach || !globalConfigured() || !engineUpdateAvailable()) return;
    refreshAgentWiringFromEmbedded();
    installGloballyInto(detectedAgentIDs(), *reach);
}

void CLIInstaller::refreshProjectInstalls() const {
    std::vector<fs::path> survivors;
    for (const fs::path& project : registeredProjects()) {
        if (!system::findProgram(binaryIn(project))) continue;
        survivors.push_back(project);
        if (engineVersion(binaryIn(project)) == TavixVersion::current) continue;
        if (installBinaryLocal(project)) wireProject(detectedAgentIDs(), project);
    }
    writeProjectRegistry(survivors);
}

void CLIInstaller::refreshAgentWiringFromEmbedded() const {
    const PassingFolder folder;
    const auto reach = installedReach();
    if (!places_.engineArchive || !reach || !folder.path()) return;
    if (!EngineArchive::unpack(*places_.engineArchive, *folder.path())) return;
    wireGlobally(
        detectedAgentIDs(), *folder.path() / "bin/tavix", globalCommand(prefixOf(*reach) / "bin/tavix"));
}

}   // namespace tavix
