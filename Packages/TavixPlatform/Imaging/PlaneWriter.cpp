#include "TavixPlatform/Imaging/PlaneWriter.h"

#include "TavixPlatform/Imaging/Kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

struct Rgb {
    float r, g, b;
};

// Colour of a premultiplied pixel as it stands, 0 to 255.
Rgb plain(std::uint32_t p) { return {float(p >> 16 & 255), float(p >> 8 & 255), float(p & 255)}; }
Rgb straight(std::uint32_t p) {
    const std::uint32_t a = p >> 24;
    if (a == 255 || a == 0) return plain(p);
    const Rgb c = plain(p);
    const float k = 255.0f / float(a);
    return {std::min(c.r * k, 255.0f), std::min(c.g * k, 255.0f), std::min(c.b * k, 255.0f)};
}

// ITU-R BT.709-6 in 10 bits: luma 64 to 940, chroma 512 +- 448.
constexpr float lumaScale = 876.0f / 255, chromaScale = 896.0f / 255;
std::uint16_t tenBits(float v) { return std::uint16_t(std::clamp(v + 0.5f, 0.0f, 1023.0f)); }
std::uint16_t luma10(const Rgb& c) {
    return tenBits(64 + lumaScale * (0.2126f * c.r + 0.7152f * c.g + 0.0722f * c.b));
}
std::uint16_t cb10(const Rgb& c) {
    return tenBits(512 + chromaScale * (-0.114572f * c.r - 0.385428f * c.g + 0.5f * c.b));
}
std::uint16_t cr10(const Rgb& c) {
    return tenBits(512 + chromaScale * (0.5f * c.r - 0.454153f * c.g - 0.045847f * c.b));
}

const std::uint32_t* sourceRow(const ConstBitmapView& source, int y) {
    return reinterpret_cast<const std::uint32_t*>(source.row(y));
}
std::uint16_t* wordRow(const PlanarView& planes, int plane, int y) {
    return reinterpret_cast<std::uint16_t*>(planes.planes[plane] + y * planes.strideBytes[plane]);
}

void write420(const PlanarView& p, const ConstBitmapView& source, const PixelRegion& r) {
    const auto at = [&](int plane, int x, int y) { return p.planes[plane] + y * p.strideBytes[plane] + x; };
    for (int y = r.y0; y < r.y1; y += 2)
        kernels().toYuv420(at(0, r.x0, y), at(0, r.x0, y + 1), at(1, r.x0 / 2, y / 2), at(2, r.x0 / 2, y / 2),
            sourceRow(source, y) + r.x0, sourceRow(source, y + 1) + r.x0, r.x0 > 0, std::size_t(r.width()));
}

void write422(const PlanarView& p, const ConstBitmapView& source, const PixelRegion& r) {
    const int last = source.size.width - 1;
    for (int y = r.y0; y < r.y1; ++y) {
        const std::uint32_t* row = sourceRow(source, y);
        std::uint16_t *luma = wordRow(p, 0, y), *cb = wordRow(p, 1, y), *cr = wordRow(p, 2, y);
        for (int x = r.x0; x < r.x1; ++x) luma[x] = luma10(plain(row[x]));
        for (int x = r.x0; x < r.x1; x += 2) {
            const Rgb a = plain(row[std::max(x - 1, 0)]), b = plain(row[x]),
                      c = plain(row[std::min(x + 1, last)]);
            const Rgb mean{(a.r + 2 * b.r + c.r) / 4, (a.g + 2 * b.g + c.g) / 4, (a.b + 2 * b.b + c.b) / 4};
            cb[x / 2] = cb10(mean);
            cr[x / 2] = cr10(mean);
        }
    }
}

void write444(const PlanarView& p, const ConstBitmapView& source, const PixelRegion& r) {
    for (int y = r.y0; y < r.y1; ++y) {
        const std::uint32_t* row = sourceRow(source, y);
        std::uint16_t* out[4] = {wordRow(p, 0, y), wordRow(p, 1, y), wordRow(p, 2, y), wordRow(p, 3, y)};
        for (int x = r.x0; x < r.x1; ++x) {
            const Rgb c = straight(row[x]);
            out[0][x] = luma10(c);
            out[1][x] = cb10(c);
            out[2][x] = cr10(c);
            out[3][x] = tenBits(float(row[x] >> 24) * (1023.0f / 255));
        }
    }
}

}   // namespace

void writePlanes(const PlanarView& planes, const ConstBitmapView& source, const PixelRegion& fromTopLeft) {
    switch (planes.format) {
    case PlanarFormat::yuv420p8: return write420(planes, source, fromTopLeft);
    case PlanarFormat::yuv422p10: return write422(planes, source, fromTopLeft);
    case PlanarFormat::yuva444p10: return write444(planes, source, fromTopLeft);
    }
}

}   // namespace tavix::imaging
