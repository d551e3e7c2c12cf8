// Shows a file in the file manager of the desktop.
#pragma once

#include <filesystem>
#include <functional>

class QString;

namespace tavix::editor {

// Selected in its folder where the file manager can do that, otherwise the folder alone. Where nothing opens
// it, `onFailure` is told so in a sentence, with where the file is.
void revealInFolder(
    const std::filesystem::path& file, std::function<void(const QString& sentence)> onFailure = {});

}   // namespace tavix::editor
