#include "TavixAgent/Hosts/HostTable.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixBase/NearestWord.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

bool isAlong(const std::string& searchPath, std::string_view program) {
    for (std::size_t at = 0; at <= searchPath.size();) {
        const std::size_t end = std::min(searchPath.find(':', at), searchPath.size());
        const fs::path file = fs::path(searchPath.substr(at, end - at)) / program;
        std::error_code ignored;
        if (end > at && fs::is_regular_file(file, ignored) && ::access(file.c_str(), X_OK) == 0) return true;
        at = end + 1;
    }
    return false;
}

constexpr std::string_view clineFolder = "Code/User/globalStorage/saoudrizwan.claude-dev";

}   // namespace

UserFolders UserFolders::ofEnvironment() {
    const fs::path home = variable("HOME");
    if (!home.is_absolute())
        throw Failure("There is no home folder; set HOME to the folder that holds a person's files.");
    const fs::path config = variable("XDG_CONFIG_HOME");
    return {home, config.is_absolute() ? config : home / ".config", variable("PATH")};
}

fs::path Host::globalFile(const UserFolders& folders) const {
    return homeFile.empty() ? folders.config / configFile : folders.home / homeFile;
}

bool Host::isFound(const UserFolders& folders) const {
    return std::ranges::any_of(homeSigns, [&](auto sign) { return isThere(folders.home / sign); }) ||
           std::ranges::any_of(configSigns, [&](auto sign) { return isThere(folders.config / sign); }) ||
           (!program.empty() && isAlong(folders.searchPath, program));
}

const std::vector<Host>& hosts() {
    static const std::vector<Host> table{
        {"claude", "Claude Code", HostForm::json, "mcpServers", ".mcp.json", ".claude.json", "",
            {".claude", ".claude.json"}, {}, "claude"},
        {"cursor", "Cursor", HostForm::json, "mcpServers", ".cursor/mcp.json", ".cursor/mcp.json", "",
            {".cursor"}, {}, "cursor"},
        {"vscode", "VS Code", HostForm::json, "servers", ".vscode/mcp.json", "", "Code/User/mcp.json", {},
            {"Code/User"}, "code"},
        {"cline", "Cline", HostForm::json, "mcpServers", "", "",
            "Code/User/globalStorage/saoudrizwan.claude-dev/settings/cline_mcp_settings.json", {},
            {clineFolder}, ""},
        {"windsurf", "Windsurf", HostForm::json, "mcpServers", "", ".codeium/windsurf/mcp_config.json", "",
            {".codeium/windsurf"}, {}, "windsurf"},
        {"codex", "Codex", HostForm::toml, "mcp_servers", ".codex/config.toml", ".codex/config.toml", "",
            {".codex"}, {}, "codex"},
        {"gemini", "Gemini CLI", HostForm::json, "mcpServers", ".gemini/settings.json",
            ".gemini/settings.json", "", {".gemini"}, {}, "gemini"},
        {"opencode", "opencode", HostForm::json, "mcp", "opencode.json", "", "opencode/opencode.json", {},
            {"opencode"}, "opencode"},
    };
    return table;
}

const Host& hostNamed(std::string_view id) {
    std::vector<std::string_view> known;
    for (const Host& host : hosts()) {
        if (host.id == id) return host;
        known.push_back(host.id);
    }
    std::string list;
    for (const std::string_view each : known) list.append(list.empty() ? "" : ", ").append(each);
    const auto meant = didYouMean(id, known);
    throw UsageError("There is no host \"" + std::string(id) + "\"; use one of " + list + "." +
                     (meant ? " " + *meant : ""));
}

}   // namespace tavix
