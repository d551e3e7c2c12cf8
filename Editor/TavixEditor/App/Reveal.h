// Shows a file to the user in the desktop's file manager.
#pragma once

#include <filesystem>

namespace tavix::editor {

// Selected where the file manager can do that; otherwise its folder is opened.
void revealInFolder(const std::filesystem::path& file);

}   // namespace tavix::editor
