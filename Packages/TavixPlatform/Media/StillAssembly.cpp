#include "TavixPlatform/Media/StillAssembly.h"

#include "TavixPlatform/Imaging/Kernels/Kernels.h"
#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixPlatform/Media/StraightColor.h"

#include <cstring>

namespace tavix::media {
namespace {

std::uint8_t productOf(unsigned a, unsigned b) { return static_cast<std::uint8_t>((a * b + 127) / 255); }

// Ink without a profile: every ink takes its share of the light.
void inksToRgba(const std::uint8_t* cmyk, std::uint8_t* rgba, int pixels) {
    for (int i = 0; i < pixels; ++i, cmyk += 4, rgba += 4) {
        for (int c = 0; c < 3; ++c) rgba[c] = productOf(255U - cmyk[c], 255U - cmyk[3]);
        rgba[3] = 255;
    }
}

// Red and blue change places; `to` may be `from`.
void swapRedAndBlue(std::uint32_t* to, const std::uint32_t* from, int pixels) {
#pragma GCC ivdep   // no pixel reads another one
    for (int i = 0; i < pixels; ++i) {
        const std::uint32_t p = from[i];
        to[i] = (p & 0xFF00FF00u) | (p & 0xFFu) << 16 | (p >> 16 & 0xFFu);
    }
}

}   // namespace

void refuseStillSize(
    std::int64_t width, std::int64_t height, std::size_t fileBytes, std::size_t pixelsPerByte) {
    const std::string size = std::to_string(width) + " by " + std::to_string(height) + " pixels";
    if (width < 1 || height < 1) throw MediaError("The image has no pixels.");
    if (width > imaging::Bitmap::maxSidePx || height > imaging::Bitmap::maxSidePx ||
        static_cast<std::size_t>(width * height) > maxStillPixels)
        throw MediaError("The image has " + size + ", which is too large; the limits are " +
                         std::to_string(imaging::Bitmap::maxSidePx) + " on a side and " +
                         std::to_string(maxStillPixels) + " in all.");
    if (pixelsPerByte && static_cast<std::size_t>(width * height) / pixelsPerByte > fileBytes)
        throw MediaError("The image is damaged: it claims " + size + " but is too short to hold them.");
}

StillAssembly::StillAssembly(imaging::Size size, PixelLayout layout, ColorConversion conversion)
    : layout_(layout), conversion_(std::move(conversion)), bitmap_(imaging::Bitmap::uninitialised(size)) {
    if (layout == PixelLayout::cmyk8 || !conversion_.isNone())
        scratch_.resize(static_cast<std::size_t>(size.width) * 4);
}

void StillAssembly::put(int fromTop, const void* pixels) {
    imaging::checkStop();
    const void* rgba = converted(pixels);
    if (layout_ == PixelLayout::rgba16)
        putWide(rowMemory(fromTop), static_cast<const std::uint16_t*>(rgba));
    else
        putNarrow(rowMemory(fromTop), static_cast<const std::uint8_t*>(rgba));
}

imaging::Bitmap StillAssembly::take() {
    if (isOpaque_) bitmap_.declareOpaque();
    return std::move(bitmap_);
}

const void* StillAssembly::converted(const void* pixels) {
    const auto width = static_cast<std::size_t>(bitmap_.size().width);
    if (layout_ == PixelLayout::cmyk8) {
        auto* rgba = reinterpret_cast<std::uint8_t*>(scratch_.data());
        inksToRgba(static_cast<const std::uint8_t*>(pixels), rgba, bitmap_.size().width);
        if (!conversion_.isNone()) conversion_.convert(pixels, rgba, width);
        return rgba;
    }
    if (conversion_.isNone()) return pixels;
    const std::size_t pixelBytes = layout_ == PixelLayout::rgba16 ? 8 : 4;
    std::memcpy(
        scratch_.data(), pixels, width * pixelBytes);   // for alpha, which the conversion leaves alone
    conversion_.convert(pixels, scratch_.data(), width);
    return scratch_.data();
}

void StillAssembly::putNarrow(std::uint8_t* to, const std::uint8_t* rgba) {
    auto* row = reinterpret_cast<std::uint32_t*>(to);
    const int width = bitmap_.size().width;
    const bool isOpaque = isOpaqueRow(rgba, width);
    swapRedAndBlue(row, reinterpret_cast<const std::uint32_t*>(rgba), width);   // may be the same row
    if (isOpaque) return;
    isOpaque_ = false;
    imaging::kernels().premultiply(row, row, static_cast<std::size_t>(width));
}

// Rounded once, after multiplying in full depth.
void StillAssembly::putWide(std::uint8_t* to, const std::uint16_t* rgba) {
    isOpaque_ = false;   // not looked at
    constexpr std::uint64_t full = 65535;
    const auto rounded = [](std::uint64_t color, std::uint64_t alpha) {
        return static_cast<std::uint8_t>((color * alpha * 255 + full * full / 2) / (full * full));
    };
    for (int i = 0; i < bitmap_.size().width; ++i, to += 4, rgba += 4) {
        const std::uint64_t alpha = rgba[3];
        to[0] = rounded(rgba[2], alpha);
        to[1] = rounded(rgba[1], alpha);
        to[2] = rounded(rgba[0], alpha);
        to[3] = rounded(full, alpha);
    }
}

}   // namespace tavix::media
