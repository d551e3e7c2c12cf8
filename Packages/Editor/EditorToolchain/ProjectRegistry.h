// The projects that have a command of their own, remembered in ~/.tavix/projects.json. It is a convenience: a
// file that cannot be read is no projects, and one that cannot be written is let be.
#pragma once

#include <filesystem>
#include <vector>

namespace tavix::ProjectRegistry {

std::vector<std::filesystem::path> read(const std::filesystem::path& home);
// Each once, in the order of their names.
void write(const std::filesystem::path& home, const std::vector<std::filesystem::path>& projects);

}   // namespace tavix::ProjectRegistry
