// The files of an application.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tavix::BrandFiles {

// Every plain file in a folder and below it, sorted, so that nothing depends on the order of a disk; nothing
// for what is no folder. Links to folders are not followed, and a tree is left after a great many entries.
std::vector<std::filesystem::path> under(const std::filesystem::path& folder);

std::string lowerName(const std::filesystem::path& file);
std::string lowerExtension(const std::filesystem::path& file);   // without its point
std::uintmax_t sizeBytes(const std::filesystem::path& file);     // 0 when it cannot be read

// The text of a small file; empty when it cannot be read or is larger than such files are.
std::string textOf(const std::filesystem::path& file);

}   // namespace tavix::BrandFiles
