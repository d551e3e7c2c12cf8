#include "TavixRender/Assets/CompositionAssets.h"

#include <cstdlib>
#include <variant>

namespace tavix::CompositionAssets {

std::filesystem::path resolved(
    const std::string& path, const std::optional<std::filesystem::path>& assetRoot) {
    const bool isAbsolute = path.starts_with('/');
    return isAbsolute || !assetRoot ? std::filesystem::path(path) : *assetRoot / path;
}

std::filesystem::path tildeExpanded(const std::string& path) {
    const char* home = std::getenv("HOME");
    const bool isBelowHome = path == "~" || path.starts_with("~/");
    return isBelowHome && home != nullptr ? home + path.substr(1) : path;
}

BackgroundFill absolutized(
    const BackgroundFill& fill, const std::optional<std::filesystem::path>& assetRoot) {
    const auto* image = std::get_if<BackgroundImage>(&fill);
    if (image == nullptr || !image->path || image->path->empty() || image->path->starts_with('~'))
        return fill;
    BackgroundImage absolute = *image;
    absolute.path = resolved(*image->path, assetRoot).string();
    return absolute;
}

}   // namespace tavix::CompositionAssets
