#include "TavixPlatform/Scene3D/Tests/Frames.h"

#include <algorithm>
#include <cmath>

namespace tavix::scene3d::samples {

namespace {

float fromHalf(std::uint16_t half) {
    const int exponent = half >> 10 & 31, fraction = half & 1023;
    return exponent ? std::ldexp(1 + float(fraction) / 1024, exponent - 15)
                    : std::ldexp(float(fraction), -24);
}

template <class PixelAt>
Picture spread(const imaging::PixelRegion& region, imaging::Size size, const PixelAt& pixelAt) {
    Picture picture{size, std::vector<Pixel>(std::size_t(size.width) * std::size_t(size.height))};
    for (int y = region.y0; y < region.y1; ++y)
        for (int x = region.x0; x < region.x1; ++x)
            picture.pixels[std::size_t(y) * std::size_t(size.width) + std::size_t(x)] =
                pixelAt(x - region.x0, region.y1 - 1 - y);
    return picture;
}

}   // namespace

Picture linear(Renderer& renderer, const Scene& scene, const Pass& pass) {
    const LinearFrame frame = renderer.renderLinear(scene, pass);
    return spread(frame.region, pass.size, [&](int x, int fromTop) {
        const std::uint16_t* p = frame.pixels.row(fromTop) + 4 * x;
        return Pixel{fromHalf(p[0]), fromHalf(p[1]), fromHalf(p[2]), fromHalf(p[3])};
    });
}

Picture encoded(Renderer& renderer, const Scene& scene, const Pass& pass) {
    const EncodedFrame frame = renderer.renderEncoded(scene, pass);
    return spread(frame.region, pass.size, [&](int x, int fromTop) {
        const std::uint8_t* p = frame.pixels.view().row(fromTop) + 4 * x;
        return Pixel{float(p[2]), float(p[1]), float(p[0]), float(p[3])};
    });
}

Difference differenceOf(const Picture& a, const Picture& b) {
    Difference difference;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        for (std::size_t c = 0; c < 4; ++c) {
            const double d = std::abs(double(a.pixels[i][c]) - double(b.pixels[i][c]));
            difference.largest = std::max(difference.largest, d);
            difference.mean += d / double(4 * a.pixels.size());
        }
    }
    return difference;
}

}   // namespace tavix::scene3d::samples
