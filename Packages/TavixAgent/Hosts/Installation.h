// Puts our server, and a short skill beside it, into the files of a host; takes both out again.
#pragma once

#include "TavixAgent/Hosts/HostTable.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct InstallRequest {
    const Host& host;
    UserFolders folders;
    std::optional<std::filesystem::path> project;   // absent: for all of a person's projects
    std::string command = "tavix";
};

struct InstallResult {
    std::vector<std::filesystem::path> written;   // none where all was there already
    std::vector<std::string> notes;               // finished sentences
};

// Throws `UsageError` for a host that has no file in projects, and `Failure` that names the file. A file is
// kept beside itself before it is changed for the first time.
InstallResult install(const InstallRequest& request);
InstallResult uninstall(const InstallRequest& request);

struct HostStatus {
    const Host* host = nullptr;
    bool isFound = false;
    std::optional<std::string> command;   // of our entry
    std::filesystem::path file;           // that it is in, or would be
    std::string fault;                    // a sentence, where the file cannot be read
};
std::vector<HostStatus> hostStatus(
    const UserFolders& folders, const std::optional<std::filesystem::path>& project);

}   // namespace tavix
