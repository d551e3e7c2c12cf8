#include "Editor/EditorToolchain/CLIInstaller.h"

#include "Editor/EditorToolchain/EngineArchive.h"
#include "Editor/EditorToolchain/ProjectRegistry.h"
#include "TavixBase/Failure.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/TavixVersion.h"
#include "TavixPlatform/System/ChildProcess.h"
#include "TavixPlatform/System/ProgramRun.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tavix {
namespace {

namespace fs = std::filesystem;

constexpr const char* firstSetupKey = "tavixFirstSetupDone";
constexpr const char* ignoredLine = ".tavix/";
constexpr double mostVersionSec = 10;
constexpr std::size_t mostFileBytes = 32u << 20;

fs::path binaryBelow(const fs::path& prefix) { return prefix / "bin/tavix"; }

bool isRunnable(const fs::path& file) { return system::findProgram(file).has_value(); }

bool isAlong(const std::string& searchPath, const fs::path& folder) {
    const auto between = [](const std::string& text) { return std::string(":").append(text).append(":"); };
    return between(searchPath).find(between(folder.string())) != std::string::npos;
}

std::string labelOf(const std::string& id) {
    const auto host = std::ranges::find(hosts(), id, &Host::id);
    return host == hosts().end() ? id : std::string(host->label);
}

void ignoreInGit(const fs::path& project) try {
    const fs::path file = project / ".gitignore";
    std::string text;
    try {
        text = readBytes(file, mostFileBytes);
    } catch (const Failure&) {
        text.clear();   // not there yet
    }
    if (text.find(ignoredLine) != std::string::npos) return;
    if (!text.empty() && !text.ends_with('\n')) text += '\n';
    writeBytesAtomically(text + ignoredLine + "\n", file);
} catch (const Failure&) {
    return;   // it is a kindness only
}

}   // namespace

ToolchainPlaces ToolchainPlaces::ofThisMachine() {
    return {.folders = UserFolders::ofEnvironment(), .engineArchive = ResourceFolders::find("engine.tar.gz")};
}

CLIInstaller::CLIInstaller(ToolchainPlaces places, UserDefaults defaults)
    : places_(std::move(places)), defaults_(std::move(defaults)) {}

fs::path CLIInstaller::prefixOf(Reach reach) const {
    return reach == Reach::user ? places_.folders.home / ".local" : places_.systemPrefix;
}

std::optional<CLIInstaller::Reach> CLIInstaller::installedReach() const {
    for (const Reach reach : {Reach::user, Reach::everyone})
        if (isRunnable(binaryBelow(prefixOf(reach)))) return reach;
    return std::nullopt;
}

std::optional<fs::path> CLIInstaller::installedPath() const {
    const auto reach = installedReach();
    return reach ? std::optional(binaryBelow(prefixOf(*reach))) : std::nullopt;
}

bool CLIInstaller::globalConfigured() const try {
    const std::string text = readBytes(hostNamed("claude").globalFile(places_.folders), mostFileBytes);
    const Json json = parseJson(text, JsonDialect::withComments);
    const Json* servers = json.find("mcpServers");
    return servers && servers->find("tavix") != nullptr;
} catch (const Failure&) {
    return false;
}

bool CLIInstaller::firstSetupDone() const {
    const Json value = defaults_.value(firstSetupKey);
    return value.boolean() && *value.boolean();
}

void CLIInstaller::setFirstSetupDone(bool isDone) const try {
    defaults_.set(firstSetupKey, isDone);
} catch (const Failure&) {
    return;   // it is asked once more, and that is all
}

std::optional<std::string> CLIInstaller::engineVersion(const fs::path& binary) try {
    const auto ran = system::runProgram(
        {.program = binary, .arguments = {"--version"}, .mostSec = mostVersionSec, .mostOutputBytes = 4096});
    const std::string version(trimmed(ran.out));
    if (version.empty() || version.find_first_of(" \t\r\n") != std::string::npos) return std::nullopt;
    return version;
} catch (const std::system_error&) {
    return std::nullopt;
}

std::optional<std::string> CLIInstaller::installedEngineVersion() const {
    const auto binary = installedPath();
    return binary ? engineVersion(*binary) : std::nullopt;
}

bool CLIInstaller::engineUpdateAvailable() const {
    return isInstalled() && installedEngineVersion() != TavixVersion::current;
}

std::vector<fs::path> CLIInstaller::registeredProjects() const {
    return ProjectRegistry::read(places_.folders.home);
}

void CLIInstaller::writeProjectRegistry(const std::vector<fs::path>& projects) const {
    ProjectRegistry::write(places_.folders.home, projects);
}

bool CLIInstaller::runTavix(const std::vector<std::string>& arguments, const fs::path& binary) const {
    const UserFolders& folders = places_.folders;
    const system::ProgramRequest request{.program = binary,
        .arguments = arguments,
        .environment = {"HOME=" + folders.home.string(), "XDG_CONFIG_HOME=" + folders.config.string(),
            "PATH=" + folders.searchPath}};
    try {
        return system::runProgram(request).status == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

std::string CLIInstaller::globalCommand(const fs::path& binary) const {
    return isAlong(places_.folders.searchPath, binary.parent_path()) ? "tavix" : binary.string();
}

std::vector<std::string> CLIInstaller::wireGlobally(
    const std::vector<std::string>& ids, const fs::path& binary, const std::string& command) const {
    std::vector<std::string> notWired;
    for (const std::string& id : ids)
        if (!runTavix({"mcp", "install", "--host", id, "--global", "--command", command}, binary))
            notWired.push_back(labelOf(id));
    return notWired;
}

std::vector<std::string> CLIInstaller::wireProject(
    const std::vector<std::string>& ids, const fs::path& project) const {
    const fs::path binary = binaryIn(project);
    std::vector<std::string> notWired;
    for (const std::string& id : ids)
        if (!runTavix(
                {"mcp", "install", "--host", id, "--repo", project.string(), "--command", binary.string()},
                binary))
            notWired.push_back(labelOf(id));
    return notWired;
}

std::optional<InstallOutcome> CLIInstaller::installBinary(Reach reach) const {
    if (!places_.engineArchive) return InstallMessages::notEmbedded();
    if (reach == Reach::everyone && !EngineArchive::canAskForRights()) return InstallMessages::noRights();
    const auto unpack = reach == Reach::user ? EngineArchive::unpack : EngineArchive::unpackWithRights;
    if (!unpack(*places_.engineArchive, prefixOf(reach))) return InstallMessages::refused();
    return std::nullopt;
}

bool CLIInstaller::installBinaryLocal(const fs::path& project) const {
    if (!places_.engineArchive || !EngineArchive::unpack(*places_.engineArchive, project / ".tavix"))
        return false;
    ignoreInGit(project);
    return true;
}

InstallOutcome CLIInstaller::installGloballyInto(const std::vector<std::string>& ids, Reach reach) const {
    if (ids.empty()) return {};
    if (auto fault = installBinary(reach)) return std::move(*fault);
    const fs::path binary = binaryBelow(prefixOf(reach));
    const std::string command = globalCommand(binary);
    const auto notWired = wireGlobally(ids, binary, command);
    setFirstSetupDone(true);
    return InstallMessages::installedGlobally(command == "tavix" ? fs::path() : binary, notWired);
}

InstallOutcome CLIInstaller::installIntoProject(
    const std::vector<std::string>& ids, const fs::path& project) const {
    if (ids.empty()) return {};
    if (!places_.engineArchive) return InstallMessages::notEmbedded();
    if (!installBinaryLocal(project)) return InstallMessages::notUnpacked();
    const auto notWired = wireProject(ids, project);
    auto projects = registeredProjects();
    projects.push_back(project);
    writeProjectRegistry(projects);
    setFirstSetupDone(true);
    return InstallMessages::installedIn(project, notWired);
}

}   // namespace tavix
