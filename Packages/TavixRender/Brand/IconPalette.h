// The colours of an application's icon.
#pragma once

#include "TavixCore/Values/RGBAColor.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace tavix::IconPaletteExtractor {

// Whether a file's name is that of a picture that an icon may be.
bool isIconPicture(const std::filesystem::path& file);

// The picture that is most likely the icon: by its name and folders first, then by its size.
std::optional<std::filesystem::path> findIconImage(const std::filesystem::path& under);

struct Colors {
    std::vector<RGBAColor> colors;    // the most frequent first
    double weightedLuminance = 0.5;   // mean, 0 to 1; in the middle when nothing is to be seen
};
Colors dominantColors(const imaging::Bitmap& icon, std::size_t maxColors);

// The most saturated that is neither nearly black nor nearly white; otherwise the first.
std::optional<RGBAColor> pickAccent(std::span<const RGBAColor> colors);

// Whether a colour stands off from black and from white.
bool isDistinct(const RGBAColor& color);

}   // namespace tavix::IconPaletteExtractor
