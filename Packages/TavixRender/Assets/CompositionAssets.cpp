#include "TavixRender/Assets/CompositionAssets.h"

#include "TavixPlatform/System/StandardFolders.h"

#include <variant>

namespace tavix::CompositionAssets {

std::filesystem::path resolved(
    const std::string& path, const std::optional<std::filesystem::path>& assetRoot) {
    const bool isAbsolute = path.starts_with('/');
    return isAbsolute || !assetRoot ? std::filesystem::path(path) : *assetRoot / path;
}

std::filesystem::path tildeExpanded(const std::string& path) {
    if (path != "~" && !path.starts_with("~/")) return path;
    const std::filesystem::path home = system::homeFolder();
    return home.empty() ? path : home.string() + path.substr(1);
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
