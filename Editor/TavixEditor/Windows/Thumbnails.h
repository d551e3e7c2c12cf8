// Small pictures of bundles, made once and kept until the bundle changes.
#pragma once

#include <QImage>

#include <filesystem>

namespace tavix::editor {

// A frame from the middle of the film, its longer side as long as told, or a null image of what cannot be
// drawn. Blocks, for as long as a frame takes to build; kept in the folder under a name of the bundle and of
// the time that its document was written.
QImage thumbnailOf(const std::filesystem::path& bundle, const std::filesystem::path& cacheFolder, int sidePx);

}   // namespace tavix::editor
