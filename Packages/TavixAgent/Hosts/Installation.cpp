#include "TavixAgent/Hosts/Installation.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixAgent/Hosts/ServerEntry.h"
#include "TavixAgent/Hosts/Skill.h"
#include "TavixCore/Support/FileBytes.h"

#include <functional>
#include <system_error>

namespace tavix {
namespace {

namespace fs = std::filesystem;

constexpr const char* backupEnding = ".before-tavix";
constexpr std::size_t mostFileBytes = 32u << 20;

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

std::string textOf(const fs::path& file) {
    return isThere(file) ? readBytes(file, mostFileBytes) : std::string();
}

fs::path entryFile(const Host& host, const UserFolders& folders, const std::optional<fs::path>& project) {
    if (!project) return host.globalFile(folders);
    if (host.projectFile.empty())
        throw UsageError(
            std::string(host.label) + " keeps its servers in one file for all projects; use --global.");
    return *project / host.projectFile;
}

// Where the skill goes, and whether that file is ours alone.
struct SkillPlace {
    fs::path file;
    bool isOurs = false;
};
std::optional<SkillPlace> skillPlace(const InstallRequest& request) {
    const std::string_view id = request.host.id;
    const UserFolders& folders = request.folders;
    if (id == "claude")
        return SkillPlace{request.project.value_or(folders.home) / ".claude/skills/tavix/SKILL.md", true};
    if (request.project) {
        if (id == "cursor") return SkillPlace{*request.project / ".cursor/rules/tavix.mdc", true};
        return SkillPlace{*request.project / (id == "gemini" ? "GEMINI.md" : "AGENTS.md"), false};
    }
    if (id == "cursor") return SkillPlace{folders.home / ".cursor/skills/tavix/SKILL.md", true};
    if (id == "cline") return SkillPlace{folders.home / "Documents/Cline/Rules/tavix.md", true};
    if (id == "codex") return SkillPlace{folders.home / ".codex/AGENTS.md", false};
    if (id == "gemini") return SkillPlace{folders.home / ".gemini/GEMINI.md", false};
    if (id == "opencode") return SkillPlace{folders.config / "opencode/AGENTS.md", false};
    if (id == "windsurf")
        return SkillPlace{folders.home / ".codeium/windsurf/memories/global_rules.md", false};
    return std::nullopt;
}

void changeFile(const fs::path& file, const std::function<std::string(const std::string&)>& changed,
    InstallResult& result) {
    try {
        const std::string before = textOf(file), after = changed(before);
        if (after == before) return;
        fs::path backup = file;
        backup += backupEnding;
        if (isThere(file) && !isThere(backup)) writeBytesAtomically(before, backup);
        fs::create_directories(file.parent_path());
        writeBytesAtomically(after, file);
        result.written.push_back(file);
    } catch (const fs::filesystem_error& error) {
        throw Failure("\"" + file.string() + "\" cannot be written: " + error.code().message() + ".");
    } catch (const UsageError&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure("\"" + file.string() + "\" is left as it is. " + failure.message());
    }
}

}   // namespace

InstallResult install(const InstallRequest& request) {
    InstallResult result;
    const fs::path file = entryFile(request.host, request.folders, request.project);
    changeFile(
        file,
        [&](const std::string& text) { return ServerEntry::withEntry(text, request.host, request.command); },
        result);
    const auto skill = skillPlace(request);
    if (!skill) {
        result.notes.push_back(std::string(request.host.label) +
                               " reads no skill for all projects; install it in a project with --repo.");
        return result;
    }
    changeFile(
        skill->file,
        [&](const std::string& text) {
            if (!skill->isOurs) return Skill::withSection(text);
            const bool isRule = request.host.id == "cursor" && request.project;
            return isRule ? Skill::ruleFile() : Skill::file();
        },
        result);
    return result;
}

InstallResult uninstall(const InstallRequest& request) {
    InstallResult result;
    const fs::path file = entryFile(request.host, request.folders, request.project);
    if (isThere(file))
        changeFile(
            file, [&](const std::string& text) { return ServerEntry::withoutEntry(text, request.host); },
            result);
    const auto skill = skillPlace(request);
    if (!skill || !isThere(skill->file)) return result;
    if (!skill->isOurs) {
        changeFile(
            skill->file, [](const std::string& text) { return Skill::withoutSection(text); }, result);
        return result;
    }
    std::error_code error;
    fs::remove(skill->file, error);
    if (error) throw Failure("\"" + skill->file.string() + "\" cannot be removed: " + error.message() + ".");
    result.written.push_back(skill->file);
    return result;
}

std::vector<HostStatus> hostStatus(const UserFolders& folders, const std::optional<fs::path>& project) {
    std::vector<HostStatus> all;
    for (const Host& host : hosts()) {
        if (project && host.projectFile.empty()) continue;
        HostStatus status{&host, host.isFound(folders), {}, entryFile(host, folders, project), {}};
        try {
            status.command = ServerEntry::commandIn(textOf(status.file), host);
        } catch (const Failure& failure) {
            status.fault = failure.message();
        }
        all.push_back(std::move(status));
    }
    return all;
}

}   // namespace tavix
