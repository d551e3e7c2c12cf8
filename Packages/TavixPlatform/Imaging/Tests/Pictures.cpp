#include "TavixPlatform/Imaging/Tests/Pictures.h"

#include "TavixPlatform/Imaging/Hash.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace tavix::imaging::tests {

namespace {

// A warp that swings both pictures about and dissolves from left to right.
class SwingWarp final : public Warp {
public:
    explicit SwingWarp(float amount) : amount_(amount) {}
    void describe(Hash& hash) const override { hash.kind(77).add(double(amount_)); }
    void row(int x, int y, int count, WarpSample* out) const override {
        for (int i = 0; i < count; ++i) {
            const float px = float(x + i) + 0.5f, py = float(y) + 0.5f;
            out[i] = {px + amount_ * float(y % 7), py, px, py - amount_ * float((x + i) % 5),
                float((x + i) % 64) / 63};
        }
    }

private:
    float amount_;
};

Image source(std::mt19937& random) {
    const auto real = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    const Size size{int(real(1, 90)), int(real(1, 70))};
    const Point at{std::floor(real(-40, 60)), std::floor(real(-40, 60))};
    const Color color{real(0, 1), real(0, 1), real(0, 1), real(0, 1.3)};
    switch (random() % 6) {
    case 3:
        return Image::linearGradient(at, {at.x + 60, at.y - 30},
            {{0, color}, {0.4, Color::white()}, {1, {0.1, color.g, color.r, 0.6}}})
            .cropped({-20, -20, 100, 90});
    case 0: return Image::solid(color).cropped({at.x, at.y, real(5, 100), real(5, 100)});
    case 1: return Image::roundedRectangle({at.x + 0.3, at.y, real(3, 90), real(3, 90)}, real(0, 30), color);
    case 2:
        return Image::smoothLinearGradient(at, color, {at.x + 50, at.y + 20}, Color::white())
            .cropped({-20, -20, 100, 90});
    default: return Image::bitmap(noiseBitmap(size, unsigned(random()), random() % 2 == 0), at);
    }
}

}   // namespace

BitmapRef noiseBitmap(Size size, unsigned seed, bool isOpaque) {
    auto bitmap = std::make_shared<Bitmap>(size);
    std::mt19937 random(seed);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint8_t* p = bitmap->view().row(y) + x * 4;
            p[3] = isOpaque ? 255 : std::uint8_t(random() % 256);
            for (int c = 0; c < 3; ++c) p[c] = std::uint8_t(random() % (p[3] + 1u));
        }
    bitmap->indexCoverage();
    return bitmap;
}

BitmapRef filledBitmap(Size size, std::uint32_t pixel) {
    auto bitmap = std::make_shared<Bitmap>(size);
    for (int y = 0; y < size.height; ++y)
        std::fill_n(reinterpret_cast<std::uint32_t*>(bitmap->view().row(y)), size.width, pixel);
    bitmap->indexCoverage();
    return bitmap;
}

Image randomImage(std::mt19937& random, int depth) {
    if (depth == 0) return source(random);
    const Image below = randomImage(random, depth - 1);
    const auto real = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    const Rect frame{-30, -30, 150, 130};
    switch (random() % 23) {
    case 0: return below.cropped({real(-20, 30), real(-20, 30), real(10, 90), real(10, 90)});
    case 1: return below.clampedToExtent().cropped(frame);
    case 2:
        return below.transformed(
            Affine::rotation(real(-3, 3)).about({20, 20}).then(Affine::scaling(real(0.2, 2), real(0.2, 2))));
    case 3: return below.translated(real(-20, 20), real(-20, 20));
    case 4:
        return below.extent().isEmpty()
                   ? below
                   : below.placedInto({real(-10, 10), real(-10, 10), real(3, 120), real(3, 90)});
    case 5: return below.tiled().cropped(frame);
    case 6: return randomImage(random, depth - 1).over(below);
    case 7: return below.adding(randomImage(random, 0));
    case 8: return below.blendedWithMask(randomImage(random, 0), randomImage(random, 0));
    case 9:
        return Image::warped(
            below, randomImage(random, 0), std::make_shared<SwingWarp>(float(real(0, 2))), frame);
    case 10:
        return below.withColorMatrix({{0, 1, 0, 0}, {0.3f, 0, 0.4f, 0}, {0, 0, 1, 0.1f}, {0, 0, 0, 0.8f}});
    case 11: return below.withOpacity(real(0, 1));
    case 12:
        return below.withColorControls(real(-0.4, 0.4), real(0.3, 3), real(0, 3))
            .withMonochrome({1, 0.5, 0.2, 1}, real(0, 1));
    case 13: return below.withFalseColor({0.1, 0, 0.3, real(0, 1)}, {1, 0.9, 0.5, 1});
    case 14: return below.withVignette(real(0, 2), real(0, 3), below.extent());
    case 15: return below.gaussianBlurred(real(0, 14));
    case 16: return below.bloomed(real(0, 1.5), real(0, 8));
    case 17: return below.motionBlurred(real(0, 9), real(-4, 4));
    case 18:
        return below.inPerspective({{real(-30, 10), real(60, 110)}, {real(50, 120), real(60, 110)},
            {real(-30, 10), real(-20, 20)}, {real(50, 120), real(-20, 20)}});
    case 19: return randomImage(random, 0).atop(below);
    case 20: return below.lightestWith(randomImage(random, 0));
    case 21: return below.litBy(randomImage(random, 0), real(0, 1.5));
    default: return below.pixellated({40, 40}, real(1, 17));
    }
}

Words pixelsOf(Evaluator& evaluator, const Image& image, const PixelRegion& region) {
    const Bitmap bitmap = evaluator.draw(image, region);
    Words words(std::size_t(region.width()) * std::size_t(region.height()));
    for (int y = 0; y < region.height(); ++y)
        std::memcpy(words.data() + std::size_t(y) * std::size_t(region.width()),
            bitmap.view().row(region.height() - 1 - y), std::size_t(region.width()) * 4);
    return words;
}

int largestDifference(const Words& a, const Words& b) {
    int largest = a.size() == b.size() ? 0 : 256;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        for (int c = 0; c < 4; ++c)
            largest = std::max(largest, std::abs(channel(a[i], c) - channel(b[i], c)));
    return largest;
}

}   // namespace tavix::imaging::tests
