#include "TavixPlatform/Scene3D/Texture.h"

#include "TavixPlatform/Scene3D/TextureLevels.h"

namespace tavix::scene3d {

Texture::Texture() : levels_(std::make_unique<TextureLevels>()) {}
Texture::Texture(imaging::BitmapRef pixels) : Texture() { replace(std::move(pixels)); }
Texture::~Texture() = default;

imaging::Size Texture::size() const { return {levels_->width[0], levels_->height[0]}; }

void Texture::replace(imaging::BitmapRef pixels) {
    const imaging::Size size = pixels ? pixels->size() : imaging::Size{};
    replace(std::move(pixels), {0, 0, size.width, size.height});
}

void Texture::replace(imaging::BitmapRef pixels, const imaging::PixelRegion& part) {
    TextureLevels& levels = *levels_;
    if (part.isEmpty()) pixels = nullptr;
    levels.bitmap = std::move(pixels);
    levels.part = part;
    levels.isMade = false;
    levels.count = levels.width[0] = levels.height[0] = 0;
    if (!levels.bitmap) return;
    imaging::Size size{part.width(), part.height()};
    std::size_t texels = 0;
    for (;;) {
        const int level = levels.count++;
        levels.firstTexel[level] = std::int32_t(texels);
        levels.width[level] = size.width;
        levels.height[level] = size.height;
        texels += std::size_t(size.width) * std::size_t(size.height);
        if ((size.width == 1 && size.height == 1) || levels.count == TextureLevels::mostLevels) break;
        size = {(size.width + 1) / 2, (size.height + 1) / 2};
    }
    levels.texels.resize(texels + 1);   // one is looked at together with its neighbour
}

}   // namespace tavix::scene3d
