// What a file or a folder holds, brought to the disk. A folder's names are what it holds: with it synced, a
// rename in it lasts.
#pragma once

#include <filesystem>
#include <system_error>

namespace tavix {

// What the system says; nothing when it is done. Some file systems cannot do it for folders, and say so by
// EINVAL.
std::error_code syncToDisk(const std::filesystem::path& path);

}   // namespace tavix
