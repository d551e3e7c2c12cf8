// Where the pictures and sounds that come with the program lie on this machine.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace tavix::ResourceFolders {

// The first existing file of that path below the resource folders, or nothing. The folders are `share/tavix`
// beside the program's own folder and the one it was configured to be installed with, or, when the
// environment variable TAVIX_RESOURCES names a folder, that one alone.
std::optional<std::filesystem::path> find(std::string_view relativePath);

// Every file of all these folders, in the order of their paths.
std::vector<std::filesystem::path> files();

}   // namespace tavix::ResourceFolders
