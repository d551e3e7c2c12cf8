// A picture on a surface that may be replaced as a whole before a frame.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstdint>
#include <memory>

namespace tavix::scene3d {

struct TextureLevels;

// One owner thread: replacing and rendering what shows the texture may not overlap.
class Texture {
public:
    Texture();
    explicit Texture(imaging::BitmapRef pixels);
    ~Texture();
    Texture(const Texture&) = delete;
    Texture& operator=(const Texture&) = delete;

    // Alpha is not looked at: premultiplied pixels show as over black. Its levels are made when a
    // renderer first needs them, on its threads. An empty or absent bitmap shows black.
    void replace(imaging::BitmapRef pixels);
    // With a part of a bitmap, counted from its top left.
    void replace(imaging::BitmapRef pixels, const imaging::PixelRegion& part);
    imaging::Size size() const;

    // For the renderer.
    TextureLevels& levels() const { return *levels_; }

private:
    std::unique_ptr<TextureLevels> levels_;
};

using TextureRef = std::shared_ptr<Texture>;   // shared by the material that shows it and who replaces it

}   // namespace tavix::scene3d
