// Finds the screen in a picture of a device frame by its transparency: the hole that the frame encloses.
#pragma once

#include "TavixCore/Values/NormalizedRect.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace tavix::AlphaCutout {

struct Result {
    NormalizedRect screen;             // fractions of the picture
    double cornerRadiusFraction = 0;   // of the screen's smaller side, at most 0.5
    int frameWidth = 0, frameHeight = 0;
    bool operator==(const Result&) const = default;
};

// Pixels with less alpha than the threshold are transparent. Throws a `Failure` that names the file when it
// cannot be read or encloses no transparent pixel.
Result detect(const std::filesystem::path& picture, std::uint8_t alphaThreshold);
// Nothing when it encloses no transparent pixel. Throws a `Failure` when it cannot be read.
std::optional<Result> find(const std::filesystem::path& picture, std::uint8_t alphaThreshold);
// The same of pixels in memory; nothing when they enclose no transparent pixel.
std::optional<Result> detect(const imaging::ConstBitmapView& picture, std::uint8_t alphaThreshold);

}   // namespace tavix::AlphaCutout

namespace tavix::DeviceFrameCutoutService {

// What counts as transparent in the antialiased frame pictures of people's own.
inline constexpr std::uint8_t alphaThreshold = 16;

inline AlphaCutout::Result detect(const std::filesystem::path& picture) {
    return AlphaCutout::detect(picture, alphaThreshold);
}
inline std::optional<AlphaCutout::Result> find(const std::filesystem::path& picture) {
    return AlphaCutout::find(picture, alphaThreshold);
}

}   // namespace tavix::DeviceFrameCutoutService
