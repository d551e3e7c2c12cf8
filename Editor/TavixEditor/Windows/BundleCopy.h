// Save As: the bundle under another name.
#pragma once

#include <filesystem>
#include <functional>

namespace tavix::editor {

class Studio;

// Copies the open bundle to the target, with its document as it is edited now, off the main thread; `then` is
// called when it stands. A target that is there already is replaced only once its copy is whole. What fails
// is told in the state of the model, and nothing has changed.
void copyBundle(Studio& studio, const std::filesystem::path& target, std::function<void()> then);

}   // namespace tavix::editor
