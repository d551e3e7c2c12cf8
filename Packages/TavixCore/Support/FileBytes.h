// Whole files in and out.
#pragma once

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>

namespace tavix {

// Whether a plain file is there, at the end of all links.
bool isFile(const std::filesystem::path& path) noexcept;

// Throws a `Failure` that names the file and the system's reason, or says that it has more than `maxBytes`.
std::string readBytes(
    const std::filesystem::path& file, std::size_t maxBytes = std::numeric_limits<std::size_t>::max());

// Writes a temporary file in the same folder, flushes it to the disk and renames it: whoever reads the file
// sees the old bytes or the new ones, and after a `Failure` the old file is still there. The permissions of a
// file that is replaced are kept, and a symbolic link stays one.
void writeBytesAtomically(std::string_view bytes, const std::filesystem::path& file);

}   // namespace tavix
