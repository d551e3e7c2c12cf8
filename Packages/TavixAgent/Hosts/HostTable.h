// The programs that agents run in, and where each keeps its servers.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

// Where a person's files lie.
struct UserFolders {
    std::filesystem::path home, config;   // as $HOME and $XDG_CONFIG_HOME
    std::string searchPath;               // as $PATH

    static UserFolders ofEnvironment();
};

enum class HostForm { json, toml };

struct Host {
    std::string_view id, label;
    HostForm form = HostForm::json;
    std::string_view group;   // of its servers, in the file
    // Relative to the project, the home or the configuration folder; empty where there is none.
    std::string_view projectFile, homeFile, configFile;
    std::vector<std::string_view> homeSigns, configSigns;   // what is there where the host is
    std::string_view program = {};                          // that is along the path where the host is

    std::filesystem::path globalFile(const UserFolders& folders) const;
    bool isFound(const UserFolders& folders) const;
};

// All eight, in the order in which people are shown them.
const std::vector<Host>& hosts();
// Throws `UsageError`, with those that there are.
const Host& hostNamed(std::string_view id);

}   // namespace tavix
