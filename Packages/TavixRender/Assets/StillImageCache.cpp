#include "TavixRender/Assets/StillImageCache.h"

#include "TavixPlatform/Media/StillImages.h"

#include <memory>
#include <utility>

namespace tavix {

std::optional<imaging::Image> StillImageCache::image(const std::filesystem::path& path) {
    const auto known = byPath_.find(path);
    if (known != byPath_.end()) return known->second;
    return byPath_.emplace(path, load(path)).first->second;
}

std::optional<imaging::Image> StillImageCache::load(const std::filesystem::path& path) const {
    try {
        imaging::Bitmap pixels = media::loadStillImage(path);
        pixels.indexCoverage();
        return imaging::Image::bitmap(std::make_shared<const imaging::Bitmap>(std::move(pixels)));
    } catch (const media::MediaError& error) {
        tell(log_, Finding::warning(RenderCode::pictureMissing,
                       "The image " + path.string() + " is not drawn: " + error.what(), path.string()));
        return std::nullopt;
    }
}

}   // namespace tavix
