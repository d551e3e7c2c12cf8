// Makes small image files of every kind in memory, with the reference libraries.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavix::media::tests {

using Bytes = std::vector<std::byte>;

// Straight RGBA, eight bits a channel.
struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgba;

    Picture(int w, int h)
        : width(w), height(h), rgba(static_cast<std::size_t>(w) * static_cast<std::size_t>(h) * 4) {}
    std::uint8_t* at(int x, int y) { return rgba.data() + (static_cast<std::ptrdiff_t>(y) * width + x) * 4; }
    const std::uint8_t* at(int x, int y) const { return const_cast<Picture*>(this)->at(x, y); }
};
Picture slope(int width, int height, bool withAlpha);   // another colour at every place, no two rows alike
Picture filled(
    int width, int height, std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha = 255);

struct PngKind {
    int colorType, depth;
    bool isInterlaced = false;
    Bytes profile = {};
    double gamma = 0;   // of the gAMA chunk; 0 writes none
    Bytes exif = {};
};
Bytes makePng(const Picture& picture, const PngKind& kind);

struct JpegKind {
    enum class Color { ycc, grey, cmyk, ycck } color = Color::ycc;
    bool isProgressive = false;
    Bytes exif = {}, profile = {};
};
Bytes makeJpeg(const Picture& picture, const JpegKind& kind);

struct WebpKind {
    bool isLossless = true;
    Bytes exif = {}, profile = {};
};
Bytes makeWebp(const Picture& picture, const WebpKind& kind);
// The frame lies at (2, 2) of a canvas that is four pixels larger both ways.
Bytes makeAnimatedWebp(const Picture& firstFrame);

struct HeifKind {
    bool isAvif = false;
    int bits = 8;
    int orientation = 1;
    Bytes profile = {};
};
// Nothing where the library was built without such an encoder.
std::optional<Bytes> makeHeif(const Picture& picture, const HeifKind& kind);

Bytes exifWithOrientation(int orientation, bool isBigEndian);
Bytes displayP3Profile();
Bytes srgbProfile();
Bytes greyProfile(double exponent);

}   // namespace tavix::media::tests
