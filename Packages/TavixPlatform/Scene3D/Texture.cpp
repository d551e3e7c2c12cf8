#include "TavixPlatform/Scene3D/Texture.h"

#include "TavixPlatform/Scene3D/TextureLevels.h"

namespace tavix::scene3d {

Texture::Texture() : levels_(std::make_unique<TextureLevels>()) {}
Texture::Texture(imaging::BitmapRef pixels) : Texture() { replace(std::move(pixels)); }
Texture::~Texture() = default;

imaging::Size Texture::size() const { return levels_->bitmap ? levels_->bitmap->size() : imaging::Size{}; }

void Texture::replace(imaging::BitmapRef pixels) {
    TextureLevels& levels = *levels_;
    if (pixels && pixels->isEmpty()) pixels = nullptr;
    levels.bitmap = std::move(pixels);
    levels.isMade = false;
    levels.count = 0;
    if (!levels.bitmap) return;
    imaging::Size size = levels.bitmap->size();
    std::size_t texels = 0;
    for (;;) {
        auto& level = levels.level[levels.count];
        level = {size, texels};
        ++levels.count;
        texels += std::size_t(size.width) * std::size_t(size.height);
        if ((size.width == 1 && size.height == 1) || levels.count == TextureLevels::mostLevels) break;
        size = {(size.width + 1) / 2, (size.height + 1) / 2};
    }
    levels.texels.resize(texels);
}

}   // namespace tavix::scene3d
