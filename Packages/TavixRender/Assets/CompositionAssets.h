// Where a document's assets lie.
#pragma once

#include "TavixCore/Theme/BackgroundFill.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavix::CompositionAssets {

// An absolute path as it is; any other below the asset root, or as it stands when there is none.
std::filesystem::path resolved(
    const std::string& path, const std::optional<std::filesystem::path>& assetRoot);

// A leading "~/" is the home folder; any other path stays as it is.
std::filesystem::path tildeExpanded(const std::string& path);

// The fill with the path of an image made absolute. A path below the home folder ("~/") is left to whoever
// reads it; all other fills stay as they are.
BackgroundFill absolutized(const BackgroundFill& fill, const std::optional<std::filesystem::path>& assetRoot);

}   // namespace tavix::CompositionAssets
