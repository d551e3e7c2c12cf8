// What saving a document is about to replace.
#pragma once

#include "TavixLive/Files/Backups.h"
#include "TavixRender/Assets/RenderLog.h"

#include <filesystem>

namespace tavix {

// Backs the file of a project up, where there is one. What cannot be backed up is told, and saved over all
// the same.
void keepReplaced(const Backups& backups, const std::filesystem::path& project,
    const std::filesystem::path& file, const RenderLog& log);

}   // namespace tavix
